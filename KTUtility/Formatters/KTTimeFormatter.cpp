#include "KTTimeFormatter.h"

#include <KTUtility/Platform/Classes/NSClassRegistry.h>

namespace {
/// The year of the day that all times are on.
constexpr int ReferenceYear = 2001;
} // namespace

std::unique_ptr<KTTimeFormatter> KTTimeFormatter::createTimeFormatter()
{
    return std::make_unique<KTTimeFormatter>();
}

KTTimeFormatter::KTTimeFormatter()
    : KTDateTimeFormatter(NSDateFormatterNoStyle, NSDateFormatterShortStyle, false, true)
{
}

QDateTime KTTimeFormatter::defaultDate() const
{
    return today();
}

bool KTTimeFormatter::getObjectValue(QVariant *value, const QString &forString,
                                     QString *errorDescription) const
{
    QDateTime clock;
    const bool isRead = readTyped(value, &clock, forString, errorDescription);
    if (isRead && value)
        *value = onReferenceDay(clock.time());
    return isRead;
}

QDateTime KTTimeFormatter::onReferenceDay(const QTime &time) const
{
    return calendar().dateFromComponents({.year = ReferenceYear,
                                          .hour = time.hour(),
                                          .minute = time.minute(),
                                          .second = time.second()});
}

KT_REGISTER_CLASS(KTTimeFormatter)
