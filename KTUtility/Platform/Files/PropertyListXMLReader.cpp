#include "PropertyListXMLReader_p.h"

#include "NSPropertyListSerialization.h"
#include "XMLTagLength_p.h"
#include <KTUtility/Platform/Values/UTC_p.h>

#include <QDateTime>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <algorithm>
#include <limits>
#include <optional>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using NSPropertyListSerialization::MaximumDepth;

/// Tags of property lists have no more than a version; one that is full of attributes takes parsers
/// the square of its length.
constexpr qsizetype MaximumTagLength = 512;

bool isDigit(QChar unit, bool isHexadecimal)
{
    const char16_t code = unit.unicode() | (isHexadecimal ? 0x20 : 0);
    return (unit >= u'0' && unit <= u'9') || (isHexadecimal && code >= u'a' && code <= u'f');
}

/// A signed decimal or hexadecimal integer; whitespace may stand around the sign.
std::optional<QVariant> integerFrom(QStringView text)
{
    QStringView rest = text.trimmed();
    const bool isNegative = rest.startsWith(u'-');
    if (isNegative || rest.startsWith(u'+'))
        rest = rest.sliced(1).trimmed();
    const bool isHexadecimal = rest.startsWith(u"0x", Qt::CaseInsensitive);
    if (isHexadecimal)
        rest = rest.sliced(2);
    bool isNumber = std::all_of(rest.begin(), rest.end(),
                                [&](QChar unit) { return isDigit(unit, isHexadecimal); });
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
    const QString unsignedText =
        text.startsWith(u'+') || text.startsWith(u'-') ? text.mid(1) : text;
    if (unsignedText != u"inf" && unsignedText != u"infinity")
        return std::nullopt;
    const double infinity = std::numeric_limits<double>::infinity();
    return QVariant(text.startsWith(u'-') ? -infinity : infinity);
}

std::optional<QVariant> realFrom(QStringView text)
{
    const QString number = text.trimmed().toString().toLower();
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
        u"\\A(-?)(\\d{1,9})-(\\d\\d)-(\\d\\d)T(\\d\\d):(\\d\\d):(\\d\\d)Z\\z"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const auto part = [&](int index) { return match.capturedView(index).toInt(); };
    // There is a year 0 in ISO 8601 and none in Qt.
    const int written = match.capturedLength(1) > 0 ? -part(2) : part(2);
    const int year = written <= 0 ? written - 1 : written;
    // QDateTime would take an invalid time for midnight.
    const QTime time(part(5), part(6), part(7));
    const QDateTime date(QDate(year, part(3), part(4)), time, UTC);
    return time.isValid() && date.isValid() ? std::optional<QVariant>(date) : std::nullopt;
}

/// Base64; characters outside of the alphabet are skipped.
QByteArray dataFrom(const QString &text)
{
    return QByteArray::fromBase64(text.toLatin1(), QByteArray::Base64Encoding);
}

/// What decodes data that does not show its encoding: as its first line says, else as UTF-8.
QStringDecoder decoderFor(const QByteArray &data)
{
    static const QRegularExpression form(
        u"\\A<\\?xml[^>]*\\sencoding\\s*=\\s*[\"']([^\"']*)[\"']"_s);
    constexpr qsizetype LongestLine = 256;
    const QRegularExpressionMatch match =
        form.match(QString::fromLatin1(data.first(std::min(data.size(), LongestLine))));
    const QByteArray name = match.hasMatch() ? match.captured(1).toLatin1() : QByteArray("UTF-8");
    return QStringDecoder(name.constData(), QStringConverter::Flag::Stateless);
}

/// The text of an XML document; nothing if it cannot be decoded.
std::optional<QString> decoded(const QByteArray &data)
{
    const auto shown = QStringConverter::encodingForData(data, u'<');
    QStringDecoder decoder =
        shown ? QStringDecoder(*shown, QStringConverter::Flag::Stateless) : decoderFor(data);
    if (!decoder.isValid())
        return std::nullopt;
    const QString text = decoder(data);
    return decoder.hasError() || !text.isValidUtf16() ? std::nullopt : std::optional(text);
}

class XMLReader
{
public:
    explicit XMLReader(const QString &text) : _xml(text)
    {
        // Names are what they are; and prefixes would be looked up among all that are declared.
        _xml.setNamespaceProcessing(false);
    }

    QVariant read(QString *error)
    {
        QVariant result;
        // The element around the value may be left out.
        const bool isInside =
            readNextElement() && _xml.qualifiedName() == u"plist" && readNextElement();
        if (isInside || (!_xml.hasError() && _xml.isStartElement()))
            result = readValue(0);
        else
            fail(u"no property list"_s);
        if (!_xml.hasError() && readNextElement())
            fail(u"more than one value"_s);
        while (!_xml.atEnd() && !_xml.hasError())
            _xml.readNext();
        if (_xml.hasError()) {
            *error = u"line %1: %2"_s.arg(_xml.lineNumber()).arg(_xml.errorString());
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

    /// Moves to the next element inside of the current one; what may stand between is whitespace,
    /// comments and the DOCTYPE line. Entities are not for property lists.
    bool readNextElement()
    {
        while (!_xml.hasError() && !_xml.atEnd()) {
            const QXmlStreamReader::TokenType token = _xml.readNext();
            if (token == QXmlStreamReader::StartElement)
                return true;
            if (token == QXmlStreamReader::EndElement)
                return false;
            if (!_xml.entityDeclarations().isEmpty() || _xml.isEntityReference() ||
                (_xml.isCharacters() && !_xml.isWhitespace()))
                fail(u"text between elements"_s);
        }
        return false;
    }

    /// The text of the current element; empty, but never nil.
    QString readText()
    {
        QString text = u""_s;
        while (!_xml.hasError() && _xml.readNext() != QXmlStreamReader::EndElement) {
            if (_xml.isCharacters())
                text += _xml.text();
            else if (!_xml.isComment() && !_xml.isProcessingInstruction())
                fail(u"an element or entity inside of a value"_s);
        }
        return text;
    }

    QVariant checked(const std::optional<QVariant> &value, const char *what)
    {
        if (!value)
            fail(u"not %1"_s.arg(QLatin1String(what)));
        return value.value_or(QVariant());
    }

    QVariant readArray(int depth)
    {
        QVariantList array;
        while (!_xml.hasError() && readNextElement())
            array += readValue(depth + 1);
        return array;
    }

    QVariant readDictionary(int depth)
    {
        QVariantMap dictionary;
        while (!_xml.hasError() && readNextElement()) {
            if (_xml.qualifiedName() != u"key") {
                fail(u"a value without a key"_s);
                break;
            }
            const QString key = readText();
            if (_xml.hasError())
                break;
            if (!readNextElement()) {
                fail(u"a key without a value"_s);
                break;
            }
            dictionary.insert(key, readValue(depth + 1));
        }
        return dictionary;
    }

    QVariant readBoolean(bool value)
    {
        if (!readText().isEmpty())
            fail(u"text in a boolean"_s);
        return value;
    }

    QVariant readData()
    {
        // "<data/>" has no text at all, which the platform takes for an error.
        const qint64 start = _xml.characterOffset();
        const QString text = readText();
        if (text.isEmpty() && _xml.characterOffset() == start)
            fail(u"empty data element"_s);
        const QByteArray data = dataFrom(text);
        return data.isNull() ? QByteArray("") : data;
    }

    QVariant readValue(int depth)
    {
        if (depth > MaximumDepth) {
            fail(u"nested too deep"_s);
            return {};
        }
        const QString name = _xml.qualifiedName().toString();
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
        fail(u"unknown element <%1>"_s.arg(name));
        return {};
    }

    QXmlStreamReader _xml;
};
} // namespace

QVariant KTPrivate::readXMLPropertyList(const QByteArray &data, QString *error)
{
    const std::optional<QString> text = decoded(data);
    if (!text) {
        *error = u"text that cannot be decoded"_s;
        return {};
    }
    if (longestXMLTag(*text) > MaximumTagLength) {
        *error = u"a tag that is longer than %1"_s.arg(MaximumTagLength);
        return {};
    }
    return XMLReader(*text).read(error);
}
