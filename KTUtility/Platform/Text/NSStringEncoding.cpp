#include "NSStringEncoding.h"

#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
bool isBelow(QStringView text, char16_t limit)
{
    return std::all_of(text.begin(), text.end(),
                       [limit](QChar unit) { return unit.unicode() < limit; });
}

bool isLatin1(const QString &text)
{
    return isBelow(text, 0x100) || isBelow(text.normalized(QString::NormalizationForm_C), 0x100);
}

bool hasLoneSurrogates(const QString &text)
{
    return !text.isValidUtf16();
}
} // namespace

bool NSString::canBeConvertedToEncoding(const QString &text, NSStringEncoding encoding)
{
    switch (encoding) {
    case NSASCIIStringEncoding:
    case NSShiftJISStringEncoding:
    case NSMacOSRomanStringEncoding:
        return isBelow(text, 0x80);
    case NSISOLatin1StringEncoding:
        return isLatin1(text);
    case NSUTF8StringEncoding:
        return !hasLoneSurrogates(text);
    }
    return false;
}

QString NSString::stringWithUTF8Data(const QByteArray &data)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                     QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder.decode(data);
    if (decoder.hasError())
        return {};
    return text.isNull() ? u""_s : text;
}
