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
#include <optional>
#include <string>
#include <string_view>

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

/// What stands for a character in XML; nothing if that stands for itself.
std::string_view entityOf(char unit)
{
    switch (unit) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '\r':
        // It would be read back as a newline if it stood there as it is.
        return "&#13;";
    default:
        return {};
    }
}

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.constData(), size_t(bytes.size())};
}

void appendEscaped(std::string_view text, std::string *bytes)
{
    for (const char unit : text) {
        if (const std::string_view entity = entityOf(unit); entity.empty())
            *bytes += unit;
        else
            *bytes += entity;
    }
}

/// Whether a text is printable ASCII, which any document holds and UTF-8 leaves as it is.
bool isPrintableASCII(QStringView text)
{
    return std::ranges::all_of(text, [](QChar unit) { return unit >= u' ' && unit <= u'~'; });
}

/// The decimal places of a number of eighths, which are exact.
constexpr int PlacesOfEighths = 3;

/// A number of whole eighths below a thousand million, as sizes are, which has no more digits than
/// it shows.
std::optional<QByteArray> textOfEighths(double value)
{
    constexpr double Limit = 1e9;
    const double eighths = value * 8;
    if (!(std::abs(value) < Limit) || eighths != std::floor(eighths))
        return std::nullopt;
    const qint64 thousandths = std::abs(qint64(eighths)) * 125;
    QByteArray text = QByteArray::number(thousandths / 1000);
    if (const qint64 rest = thousandths % 1000; rest != 0) {
        text += '.' + QByteArray::number(rest).rightJustified(PlacesOfEighths, '0');
        while (text.endsWith('0'))
            text.chop(1);
    }
    return value < 0 ? '-' + text : text;
}

QByteArray realText(double value)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value < 0 ? "-infinity" : "+infinity";
    if (value == 0)
        return "0.0";
    if (const auto text = textOfEighths(value))
        return *text;
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
        _bytes += "</plist>\n";
        return QByteArray(_bytes.data(), qsizetype(_bytes.size()));
    }

private:
    bool fail(const QString &reason)
    {
        _error = reason;
        return false;
    }

    void writeIndent(int depth) { _bytes.append(size_t(depth), '\t'); }

    void writeLine(int depth, std::string_view text)
    {
        writeIndent(depth);
        (_bytes += text) += '\n';
    }

    void writeStart(int depth, std::string_view tag)
    {
        writeIndent(depth);
        ((_bytes += '<') += tag) += '>';
    }

    void writeEnd(std::string_view tag) { ((_bytes += "</") += tag) += ">\n"; }

    /// A value in one line; the text has no characters that mean anything in XML.
    void writeElement(int depth, std::string_view tag, std::string_view text)
    {
        writeStart(depth, tag);
        _bytes += text;
        writeEnd(tag);
    }

    template<typename Integer>
    void writeInteger(int depth, Integer value)
    {
        std::array<char, 24> buffer{};
        const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
        writeElement(depth, "integer", {buffer.data(), size_t(end - buffer.data())});
    }

    bool writeText(std::string_view tag, const QString &text, int depth)
    {
        const bool isASCII = isPrintableASCII(text);
        if (!isASCII && !fitsXML(text))
            return fail(u"a text with characters that XML cannot hold: "_s + text.left(40));
        writeStart(depth, tag);
        appendEscaped(viewOf(isASCII ? text.toLatin1() : text.toUtf8()), &_bytes);
        writeEnd(tag);
        return true;
    }

    void writeData(const QByteArray &data, int depth)
    {
        // Lines are 76 columns wide less the indent, of which up to 8 tabs count as 8 columns.
        const qsizetype width = qsizetype(76 - 8 * std::min(depth, 8)) / 4 * 4;
        const QByteArray base64 = data.toBase64();
        writeLine(depth, "<data>");
        for (qsizetype start = 0; start < base64.size(); start += std::max<qsizetype>(width, 4))
            writeLine(depth, viewOf(base64.mid(start, std::max<qsizetype>(width, 4))));
        writeLine(depth, "</data>");
    }

    bool writeDate(const QDateTime &date, int depth)
    {
        const QDateTime utc = date.toUTC();
        if (!utc.isValid())
            return fail(u"an invalid date"_s);
        const QString rest = utc.toString(u"-MM-ddTHH:mm:ssZ"_s);
        const QByteArray text = yearText(utc.date().year()) + rest.toLatin1();
        writeElement(depth, "date", viewOf(text));
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
            writeInteger(depth, value.toLongLong());
            return true;
        case VariantKind::Unsigned:
            writeInteger(depth, value.toULongLong());
            return true;
        case VariantKind::Double:
            writeElement(depth, "real", viewOf(realText(value.toDouble())));
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

    std::string _bytes; // QByteArray takes ten times as long to be added to
    QString _error;
};
} // namespace

QByteArray KTPrivate::writeXMLPropertyList(const QVariant &propertyList, QString *error)
{
    return XMLWriter().write(propertyList, error);
}
