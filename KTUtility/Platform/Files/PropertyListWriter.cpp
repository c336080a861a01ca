// The XML form of property lists, character by character that of the platform.

#include "PropertyListWriter_p.h"

#include "NSPropertyListSerialization.h"
#include <KTUtility/Platform/Values/NSDecimalNumber.h>
#include <KTUtility/Platform/Values/VariantKind_p.h>

#include <QDateTime>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using NSPropertyListSerialization::MaximumDepth;

constexpr char Head[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                        "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                        "<plist version=\"1.0\">\n";

/// Whether XML 1.0 can hold all characters of a text (XML 1.0, production 2).
bool fitsXML(const QString &text)
{
    return text.isValidUtf16() &&
           std::all_of(text.begin(), text.end(),
                       [](QChar unit) {
                           return unit >= u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r';
                       }) &&
           !text.contains(QChar(0xFFFE)) && !text.contains(QChar(0xFFFF));
}

QByteArray escaped(const QString &text)
{
    // A carriage return would be read back as a newline if it stood there as it is.
    return text.toUtf8()
        .replace('&', "&amp;")
        .replace('<', "&lt;")
        .replace('>', "&gt;")
        .replace('\r', "&#13;");
}

QByteArray realText(double value)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value < 0 ? "-infinity" : "+infinity";
    if (value == 0)
        return "0.0";
    // As "%.17g", with "." in every locale.
    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::general, 17)
                         .ptr;
    return QByteArray(buffer.data(), end - buffer.data());
}

/// "YYYY"; Qt has no year 0, but ISO 8601 has one, so that years before Christ are off by one.
QByteArray yearText(int year)
{
    const int astronomical = year < 0 ? year + 1 : year;
    const QByteArray digits = QByteArray::number(std::abs(astronomical));
    return astronomical < 0 ? '-' + digits.rightJustified(3, '0') : digits.rightJustified(4, '0');
}

class XMLWriter
{
public:
    QByteArray write(const QVariant &value, QString *error)
    {
        _bytes = Head;
        if (!writeValue(value, 0)) {
            if (error)
                *error = _error;
            return {};
        }
        return _bytes + "</plist>\n";
    }

private:
    bool fail(const QString &reason)
    {
        _error = reason;
        return false;
    }

    void writeLine(int depth, const QByteArray &text)
    {
        _bytes += QByteArray(depth, '\t') + text + '\n';
    }

    bool writeText(const char *tag, const QString &text, int depth)
    {
        if (!fitsXML(text))
            return fail(u"a text with characters that XML cannot hold: "_s + text.left(40));
        writeLine(depth, QByteArray("<") + tag + '>' + escaped(text) + "</" + tag + '>');
        return true;
    }

    void writeData(const QByteArray &data, int depth)
    {
        // Lines are 76 columns wide less the indent, of which up to 8 tabs count as 8 columns.
        const qsizetype width = qsizetype(76 - 8 * std::min(depth, 8)) / 4 * 4;
        const QByteArray base64 = data.toBase64();
        writeLine(depth, "<data>");
        for (qsizetype start = 0; start < base64.size(); start += std::max<qsizetype>(width, 4))
            writeLine(depth, base64.mid(start, std::max<qsizetype>(width, 4)));
        writeLine(depth, "</data>");
    }

    bool writeDate(const QDateTime &date, int depth)
    {
        const QDateTime utc = date.toUTC();
        if (!utc.isValid())
            return fail(u"an invalid date"_s);
        const QString rest = utc.toString(u"-MM-ddTHH:mm:ssZ"_s);
        writeLine(depth, "<date>" + yearText(utc.date().year()) + rest.toLatin1() + "</date>");
        return true;
    }

    /// Whole decimals of 64 bits stay exact; the others become the nearest real.
    bool writeDecimal(const NSDecimalNumber &decimal, int depth)
    {
        const qint64 whole = decimal.integerValue();
        return NSDecimalNumber(whole) == decimal ? writeValue(qlonglong(whole), depth)
                                                 : writeValue(decimal.doubleValue(), depth);
    }

    bool writeArray(const QVariantList &array, int depth)
    {
        if (array.isEmpty()) {
            writeLine(depth, "<array/>");
            return true;
        }
        writeLine(depth, "<array>");
        for (const QVariant &element : array) {
            if (!writeValue(element, depth + 1))
                return false;
        }
        writeLine(depth, "</array>");
        return true;
    }

    bool writeDictionary(const QVariantMap &dictionary, int depth)
    {
        if (dictionary.isEmpty()) {
            writeLine(depth, "<dict/>");
            return true;
        }
        writeLine(depth, "<dict>");
        // The map's order is the order of the keys by UTF-16 unit.
        for (auto entry = dictionary.begin(); entry != dictionary.end(); ++entry) {
            if (!writeText("key", entry.key(), depth + 1) || !writeValue(entry.value(), depth + 1))
                return _error.contains(u" for the key ")
                           ? false
                           : fail(_error + u" for the key " + entry.key().left(40));
        }
        writeLine(depth, "</dict>");
        return true;
    }

    bool writeValue(const QVariant &value, int depth)
    {
        if (depth > MaximumDepth)
            return fail(u"nested too deep"_s);
        switch (kindOf(value)) {
        case VariantKind::Bool:
            writeLine(depth, value.toBool() ? "<true/>" : "<false/>");
            return true;
        case VariantKind::Signed:
            writeLine(depth, "<integer>" + QByteArray::number(value.toLongLong()) + "</integer>");
            return true;
        case VariantKind::Unsigned:
            writeLine(depth, "<integer>" + QByteArray::number(value.toULongLong()) + "</integer>");
            return true;
        case VariantKind::Double:
            writeLine(depth, "<real>" + realText(value.toDouble()) + "</real>");
            return true;
        case VariantKind::Decimal:
            return writeDecimal(value.value<NSDecimalNumber>(), depth);
        case VariantKind::Text:
            return value.toString().isNull() ? fail(u"nil"_s)
                                             : writeText("string", value.toString(), depth);
        case VariantKind::Date:
            return writeDate(value.toDateTime(), depth);
        case VariantKind::Data:
            writeData(value.toByteArray(), depth);
            return true;
        case VariantKind::List:
            return writeArray(value.toList(), depth);
        case VariantKind::Map:
            return writeDictionary(value.toMap(), depth);
        case VariantKind::Nil:
            return fail(u"nil"_s);
        case VariantKind::Object:
        case VariantKind::Other:
            break;
        }
        return fail(u"no property list type: "_s + QString::fromLatin1(value.typeName()));
    }

    QByteArray _bytes;
    QString _error;
};
} // namespace

QByteArray KTPrivate::writeXMLPropertyList(const QVariant &propertyList, QString *error)
{
    return XMLWriter().write(propertyList, error);
}
