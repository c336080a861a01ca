#include "VCardLine.h"

#include <QStringDecoder>

#include <optional>

using namespace Qt::StringLiterals;

namespace {
/// Splits at a separator that stands outside of double quotes.
QStringList splitOutsideQuotes(const QString &text, QChar separator)
{
    QStringList parts(QString{});
    bool isQuoted = false;
    for (const QChar unit : text) {
        isQuoted = (unit == u'"') != isQuoted;
        if (unit == separator && !isQuoted)
            parts += QString();
        else if (unit != u'"')
            parts.last() += unit;
    }
    return parts;
}

/// Where the value begins: behind the first colon outside of double quotes; −1 if there is none.
qsizetype colonIn(const QString &text)
{
    bool isQuoted = false;
    for (qsizetype index = 0; index < text.size(); ++index) {
        isQuoted = (text[index] == u'"') != isQuoted;
        if (text[index] == u':' && !isQuoted)
            return index;
    }
    return -1;
}

QChar unescaped(QChar unit)
{
    return unit == u'n' || unit == u'N' ? QChar(u'\n') : unit;
}

/// Splits at semicolons that are not escaped, and takes the escapes away.
QStringList unescapedParts(const QString &value, bool splits)
{
    QStringList parts(QString{});
    for (qsizetype index = 0; index < value.size(); ++index) {
        if (value[index] == u'\\' && index + 1 < value.size())
            parts.last() += unescaped(value[++index]);
        else if (value[index] == u';' && splits)
            parts += QString();
        else
            parts.last() += value[index];
    }
    return parts;
}

/// Looks at the beginning only: it is asked again for each line that is put to a value.
bool isQuotedPrintable(const QString &line)
{
    constexpr qsizetype LongestHead = 1000;
    const QString head = line.left(LongestHead);
    return head.left(colonIn(head)).contains(u"QUOTED-PRINTABLE", Qt::CaseInsensitive);
}

/// "=C3=BC" are the bytes of "ü", in the set of characters that the line names.
QString fromQuotedPrintable(const QString &value, const QString &charset)
{
    QByteArray bytes = value.toLatin1();
    bytes.replace('%', "%25").replace('=', '%');
    const QByteArray decoded = QByteArray::fromPercentEncoding(bytes);
    QStringDecoder decoder(charset.isEmpty() ? "UTF-8" : charset.toLatin1().constData());
    return decoder.isValid() ? QString(decoder(decoded)) : QString::fromUtf8(decoded);
}

/// Lines that begin with a space or tab belong to the one before; in quoted-printable, those behind
/// "=".
QStringList unfolded(const QString &text)
{
    QStringList lines;
    const QStringList typed =
        QString(text).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n');
    for (const QString &line : typed) {
        const bool isSoftBreak =
            !lines.isEmpty() && lines.last().endsWith(u'=') && isQuotedPrintable(lines.last());
        if (isSoftBreak)
            lines.last().replace(lines.last().size() - 1, 1, line);
        else if (!lines.isEmpty() && (line.startsWith(u' ') || line.startsWith(u'\t')))
            lines.last() += QStringView(line).sliced(1);
        else
            lines += line;
    }
    return lines;
}
} // namespace

QList<VCardLine> VCardLine::linesOf(const QString &text)
{
    QList<VCardLine> lines;
    const QStringList texts = unfolded(text);
    for (const QString &line : texts) {
        if (const std::optional<VCardLine> read = fromText(line))
            lines += *read;
    }
    return lines;
}

std::optional<VCardLine> VCardLine::fromText(const QString &text)
{
    const qsizetype colon = colonIn(text);
    if (colon <= 0)
        return std::nullopt;
    VCardLine line;
    line.parameters = splitOutsideQuotes(text.left(colon), u';');
    const QString name = line.parameters.takeFirst();
    line.name = name.mid(name.lastIndexOf(u'.') + 1).trimmed().toUpper();
    line.value = text.mid(colon + 1);
    if (isQuotedPrintable(text))
        line.value = fromQuotedPrintable(line.value, line.parameter(u"CHARSET"));
    return line;
}

QString VCardLine::parameter(QStringView wanted) const
{
    for (const QString &parameter : parameters) {
        const qsizetype equals = parameter.indexOf(u'=');
        if (equals >= 0 &&
            QStringView(parameter).left(equals).compare(wanted, Qt::CaseInsensitive) == 0)
            return parameter.mid(equals + 1);
    }
    return {};
}

bool VCardLine::hasType(QStringView type) const
{
    for (const QString &parameter : parameters) {
        const qsizetype equals = parameter.indexOf(u'=');
        const bool isType = equals < 0 || parameter.startsWith(u"TYPE=", Qt::CaseInsensitive);
        const QStringList types = parameter.mid(equals + 1).split(u',');
        if (isType && types.contains(type, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

QStringList VCardLine::parts() const
{
    return unescapedParts(value, true);
}

QString VCardLine::text() const
{
    return unescapedParts(value, false).first();
}

QByteArray VCardLine::data() const
{
    const QString encoding = parameter(u"ENCODING");
    if (encoding.compare(u"b", Qt::CaseInsensitive) == 0 ||
        encoding.compare(u"base64", Qt::CaseInsensitive) == 0 || hasType(u"BASE64"))
        return QByteArray::fromBase64(value.toLatin1());
    const qsizetype base64 = value.indexOf(u";base64,"_s);
    const bool isDataURL = value.startsWith(u"data:", Qt::CaseInsensitive) && base64 > 0;
    return isDataURL ? QByteArray::fromBase64(QStringView(value).mid(base64 + 8).toLatin1())
                     : QByteArray();
}
