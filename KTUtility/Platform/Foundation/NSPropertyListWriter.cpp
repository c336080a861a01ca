// The XML form of property lists, character by character that of the platform.

#include "NSPropertyListSerialization.h"

#include <QDateTime>

#include <array>
#include <cmath>
#include <cstdio>

namespace
{
using NSPropertyListSerialization::MaximumDepth;

constexpr char Head[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";

/// Whether XML 1.0 can hold all characters of a text (XML 1.0, production 2).
bool fitsXML(const QString &text)
{
    return text.isValidUtf16() && std::all_of(text.begin(), text.end(), [](QChar unit) {
               return unit >= u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r';
           })
        && !text.contains(QChar(0xFFFE)) && !text.contains(QChar(0xFFFF));
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
    std::array<char, 40> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), "%.17g", value);
    return QByteArray(buffer.data(), length);
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

    void writeLine(int depth, const QByteArray &text) { _bytes += QByteArray(depth, '\t') + text + '\n'; }

    bool writeText(const char *tag, const QString &text, int depth)
    {
        if (!fitsXML(text))
            return fail(QStringLiteral("a text with characters that XML cannot hold: ")
                        + text.left(40));
        writeLine(depth, QByteArray("<") + tag + '>' + escaped(text) + "</" + tag + '>');
        return true;
    }

    void writeData(const QByteArray &data, int depth)
    {
        // Lines are 76 columns wide less the indent, of which up to 8 tabs count as 8 columns.
        const qsizetype width = (76 - 8 * std::min(depth, 8)) / 4 * 4;
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
            return fail(QStringLiteral("an invalid date"));
        const int year = utc.date().year();
        const QByteArray sign = year < 0 ? "-" : "";
        const QString rest = utc.toString(QStringLiteral("-MM-ddTHH:mm:ssZ"));
        writeLine(depth, "<date>" + sign
                      + QByteArray::number(std::abs(year)).rightJustified(4, '0') + rest.toLatin1()
                      + "</date>");
        return true;
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
            return fail(QStringLiteral("nested too deep"));
        switch (value.typeId()) {
        case QMetaType::Bool:
            writeLine(depth, value.toBool() ? "<true/>" : "<false/>");
            return true;
        case QMetaType::Int: case QMetaType::Long: case QMetaType::LongLong: case QMetaType::Short:
            writeLine(depth, "<integer>" + QByteArray::number(value.toLongLong()) + "</integer>");
            return true;
        case QMetaType::UInt: case QMetaType::ULong: case QMetaType::ULongLong:
        case QMetaType::UShort:
            writeLine(depth, "<integer>" + QByteArray::number(value.toULongLong()) + "</integer>");
            return true;
        case QMetaType::Double: case QMetaType::Float:
            writeLine(depth, "<real>" + realText(value.toDouble()) + "</real>");
            return true;
        case QMetaType::QString:
            return value.toString().isNull() ? fail(QStringLiteral("nil"))
                                             : writeText("string", value.toString(), depth);
        case QMetaType::QDateTime:
            return writeDate(value.toDateTime(), depth);
        case QMetaType::QByteArray:
            writeData(value.toByteArray(), depth);
            return true;
        case QMetaType::QVariantList: case QMetaType::QStringList:
            return writeArray(value.toList(), depth);
        case QMetaType::QVariantMap:
            return writeDictionary(value.toMap(), depth);
        default:
            return fail(value.isValid() ? QStringLiteral("no property list type: ")
                                + QString::fromLatin1(value.typeName())
                                        : QStringLiteral("nil"));
        }
    }

    QByteArray _bytes;
    QString _error;
};
} // namespace

QByteArray NSPropertyListSerialization::dataWithPropertyList(const QVariant &propertyList,
                                                             QString *error)
{
    return XMLWriter().write(propertyList, error);
}

bool NSPropertyListSerialization::isPropertyList(const QVariant &value)
{
    return !dataWithPropertyList(value).isNull();
}
