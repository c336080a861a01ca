#include "NSPercentEscapes.h"

#include "NSStringEncoding.h"

#include <QByteArray>

#include <cstring>

using namespace Qt::StringLiterals;

namespace {
constexpr char HexDigits[] = "0123456789ABCDEF";

bool staysAsItIs(char byte)
{
    const bool isLetterOrDigit = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
                                 (byte >= '0' && byte <= '9');
    return isLetterOrDigit || (byte != '\0' && std::strchr("!$&'()*+,-./:;=?@_~", byte));
}

int hexValue(char byte)
{
    const char *const digit =
        byte == '\0' ? nullptr : std::strchr(HexDigits, byte >= 'a' ? byte - 'a' + 'A' : byte);
    return digit ? int(digit - HexDigits) : -1;
}
} // namespace

QString NSString::stringByAddingPercentEscapes(const QString &text)
{
    if (text.isNull() || !text.isValidUtf16())
        return {};
    QString escaped = u""_s;
    const QByteArray bytes = text.toUtf8();
    for (const char byte : bytes) {
        if (staysAsItIs(byte)) {
            escaped += QLatin1Char(byte);
            continue;
        }
        escaped += u'%';
        escaped += QLatin1Char(HexDigits[uchar(byte) >> 4]);
        escaped += QLatin1Char(HexDigits[uchar(byte) & 15]);
    }
    return escaped;
}

QString NSString::stringByReplacingPercentEscapes(const QString &text)
{
    if (text.isNull() || !text.isValidUtf16())
        return {};
    const QByteArray escaped = text.toUtf8();
    QByteArray bytes("");
    bytes.reserve(escaped.size());
    for (qsizetype index = 0; index < escaped.size(); ++index) {
        if (escaped[index] != '%') {
            bytes += escaped[index];
            continue;
        }
        const int high = index + 2 < escaped.size() ? hexValue(escaped[index + 1]) : -1;
        const int low = high >= 0 ? hexValue(escaped[index + 2]) : -1;
        if (low < 0)
            return {};
        bytes += char(high << 4 | low);
        index += 2;
    }
    return stringWithUTF8Data(bytes);
}
