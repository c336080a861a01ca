#include "NSPropertyListReaders_p.h"

#include "NSPropertyListSerialization.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <limits>
#include <optional>

namespace
{
using NSPropertyListSerialization::MaximumDepth;

QStringView trimmedBlanks(QStringView text)
{
    return text.trimmed();
}

/// A signed decimal or hexadecimal integer; blanks may stand around the sign.
std::optional<QVariant> integerFrom(QStringView text)
{
    QStringView rest = trimmedBlanks(text);
    const bool isNegative = rest.startsWith(u'-');
    if (isNegative || rest.startsWith(u'+'))
        rest = trimmedBlanks(rest.sliced(1));
    const bool isHexadecimal = rest.startsWith(u"0x", Qt::CaseInsensitive);
    if (isHexadecimal)
        rest = rest.sliced(2);
    bool isNumber = !rest.isEmpty() && rest.front() != u'+' && rest.front() != u'-';
    const quint64 magnitude = isNumber ? rest.toULongLong(&isNumber, isHexadecimal ? 16 : 10) : 0;
    constexpr quint64 limit = quint64(std::numeric_limits<qint64>::max());
    if (!isNumber || (isNegative && magnitude > limit + 1))
        return std::nullopt;
    if (isNegative)
        return QVariant(qlonglong(0 - magnitude));
    return magnitude <= limit ? QVariant(qlonglong(magnitude)) : QVariant(magnitude);
}

std::optional<QVariant> specialReal(const QString &text)
{
    if (text == u"nan")
        return QVariant(std::numeric_limits<double>::quiet_NaN());
    const QString unsignedText = text.startsWith(u'+') || text.startsWith(u'-') ? text.mid(1) : text;
    if (unsignedText != u"inf" && unsignedText != u"infinity")
        return std::nullopt;
    const double infinity = std::numeric_limits<double>::infinity();
    return QVariant(text.startsWith(u'-') ? -infinity : infinity);
}

std::optional<QVariant> realFrom(QStringView text)
{
    const QString number = trimmedBlanks(text).toString().toLower();
    if (const auto special = specialReal(number))
        return special;
    bool isNumber = false;
    const double value = number.toDouble(&isNumber);
    return isNumber ? std::optional<QVariant>(value) : std::nullopt;
}

/// "YYYY-MM-DDTHH:MM:SSZ" with an optional "-" before the year, and nothing else.
std::optional<QVariant> dateFrom(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("^(-?)(\\d{1,6})-(\\d\\d)-(\\d\\d)T(\\d\\d):(\\d\\d):(\\d\\d)Z$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const auto part = [&](int index) { return match.capturedView(index).toInt(); };
    const int year = match.capturedLength(1) > 0 ? -part(2) : part(2);
    const QDateTime date(QDate(year, part(3), part(4)), QTime(part(5), part(6), part(7)), Qt::UTC);
    return date.isValid() ? std::optional<QVariant>(date) : std::nullopt;
}

/// Base64; characters outside of the alphabet are skipped.
QByteArray dataFrom(const QString &text)
{
    return QByteArray::fromBase64(text.toLatin1(), QByteArray::Base64Encoding);
}

class XMLReader
{
public:
    explicit XMLReader(const QByteArray &data) : _xml(data) {}

    QVariant read(QString *error)
    {
        QVariant result;
        if (_xml.readNextStartElement() && _xml.name() == u"plist" && _xml.readNextStartElement())
            result = readValue(0);
        else if (!_xml.hasError() && _xml.isStartElement())
            result = readValue(0); // a bare element without <plist> around it
        else
            fail(QStringLiteral("no property list"));
        if (!_xml.hasError() && _xml.readNextStartElement())
            fail(QStringLiteral("more than one value"));
        while (!_xml.atEnd() && !_xml.hasError())
            _xml.readNext();
        if (_xml.hasError()) {
            *error = QStringLiteral("line %1: %2").arg(_xml.lineNumber()).arg(_xml.errorString());
            return {};
        }
        return result;
    }

private:
    void fail(const QString &reason)
    {
        if (!_xml.hasError())
            _xml.raiseError(reason);
    }

    QString readText() { return _xml.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement); }

    QVariant checked(const std::optional<QVariant> &value, const char *what)
    {
        if (!value)
            fail(QStringLiteral("not %1").arg(QLatin1String(what)));
        return value.value_or(QVariant());
    }

    QVariant readArray(int depth)
    {
        QVariantList array;
        while (!_xml.hasError() && _xml.readNextStartElement())
            array += readValue(depth + 1);
        return array;
    }

    QVariant readDictionary(int depth)
    {
        QVariantMap dictionary;
        while (!_xml.hasError() && _xml.readNextStartElement()) {
            if (_xml.name() != u"key") {
                fail(QStringLiteral("a value without a key"));
                break;
            }
            const QString key = readText();
            if (_xml.hasError())
                break;
            if (!_xml.readNextStartElement()) {
                fail(QStringLiteral("a key without a value"));
                break;
            }
            dictionary.insert(key, readValue(depth + 1));
        }
        return dictionary;
    }

    QVariant readBoolean(bool value)
    {
        _xml.skipCurrentElement();
        return value;
    }

    QVariant readData()
    {
        // "<data/>" has no text at all, which the platform takes for an error.
        const qint64 start = _xml.characterOffset();
        const QString text = readText();
        if (text.isEmpty() && _xml.characterOffset() == start)
            fail(QStringLiteral("empty data element"));
        return dataFrom(text);
    }

    QVariant readValue(int depth)
    {
        if (depth > MaximumDepth) {
            fail(QStringLiteral("nested too deep"));
            return {};
        }
        const QString name = _xml.name().toString();
        if (name == u"dict")
            return readDictionary(depth);
        if (name == u"array")
            return readArray(depth);
        if (name == u"string")
            return readText();
        if (name == u"integer")
            return checked(integerFrom(readText()), "an integer");
        if (name == u"real")
            return checked(realFrom(readText()), "a real number");
        if (name == u"true" || name == u"false")
            return readBoolean(name == u"true");
        if (name == u"date")
            return checked(dateFrom(readText()), "a date");
        if (name == u"data")
            return readData();
        fail(QStringLiteral("unknown element <%1>").arg(name));
        return {};
    }

    QXmlStreamReader _xml;
};
} // namespace

QVariant readXMLPropertyList(const QByteArray &data, QString *error)
{
    return XMLReader(data).read(error);
}
