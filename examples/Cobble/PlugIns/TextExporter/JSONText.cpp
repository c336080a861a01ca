#include "JSONText.h"

#include "Text/ISODateText.h"

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {
/// The letter behind "\" for the units that have one; 0 for others.
char16_t shortEscape(char16_t unit)
{
    switch (unit) {
    case u'"':
    case u'\\':
        return unit;
    case u'\n':
        return u'n';
    case u'\r':
        return u'r';
    case u'\t':
        return u't';
    default:
        return 0;
    }
}

bool isLoneSurrogate(QStringView text, qsizetype index)
{
    const QChar unit = text[index];
    if (unit.isHighSurrogate())
        return index + 1 == text.size() || !text[index + 1].isLowSurrogate();
    return unit.isLowSurrogate() && (index == 0 || !text[index - 1].isHighSurrogate());
}

QString quoted(const QString &text)
{
    QString result = u"\""_s;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const char16_t unit = text[index].unicode();
        if (const char16_t letter = shortEscape(unit)) {
            result += u'\\';
            result += QChar(letter);
        } else if (unit < 0x20 || isLoneSurrogate(text, index)) {
            result += u"\\u%1"_s.arg(uint(unit), 4, 16, QLatin1Char('0'));
        } else {
            result += QChar(unit);
        }
    }
    return result + u'"';
}

QString numberText(const QVariant &number)
{
    const NSDecimalNumber decimal = NSDecimalNumber::decimalNumberWithNumber(number);
    return decimal.isNaN() ? u"null"_s : decimal.description();
}
} // namespace

QString JSONText::of(const QVariant &value)
{
    if (NSObject::isNil(value))
        return u"null"_s;
    if (NSObject::isNumber(value))
        return numberText(value);
    if (value.metaType() == QMetaType::fromType<QDateTime>())
        return quoted(isoDateText(value.toDateTime()));
    return quoted(value.toString());
}
