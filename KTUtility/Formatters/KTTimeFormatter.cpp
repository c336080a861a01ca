#include "KTTimeFormatter.h"

namespace {
/// The year of the day that all times are on.
constexpr int ReferenceYear = 2001;

/// The time of day in \a date, on the reference day. That is the same one in all calendars: a year
/// 2001 of another one is centuries away, and times of different locales would not compare.
QDateTime onReferenceDay(const QDateTime &date)
{
    const NSCalendar calendar(NSGregorianCalendar);
    NSDateComponents time = calendar.components(NSTimeCalendarUnits, date);
    time.year = ReferenceYear;
    return calendar.dateFromComponents(time);
}
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
    QVariant read;
    const bool isRead = KTDateTimeFormatter::getObjectValue(&read, forString, errorDescription);
    if (isRead && read.metaType() == QMetaType::fromType<QDateTime>())
        read = onReferenceDay(read.toDateTime());
    if (value)
        *value = read;
    return isRead;
}
