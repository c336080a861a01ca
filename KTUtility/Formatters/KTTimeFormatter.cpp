#include "KTTimeFormatter.h"

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
    QVariant read;
    const bool isRead = KTDateTimeFormatter::getObjectValue(&read, forString, errorDescription);
    if (isRead && read.metaType() == QMetaType::fromType<QDateTime>()) {
        NSDateComponents time = calendar().components(NSTimeCalendarUnits, read.toDateTime());
        time.year = ReferenceYear;
        read = calendar().dateFromComponents(time);
    }
    if (value)
        *value = read;
    return isRead;
}
