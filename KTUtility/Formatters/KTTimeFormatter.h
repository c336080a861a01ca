#pragma once

#include "KTDateTimeFormatter.h"

#include <memory>

/// Formats the times of day of a field: short times without a date.
///
/// Reads what KTDateTimeFormatter reads, and puts every time on one day, the first of the year
/// 2001, so that times compare with each other. A date that is typed with the time is dropped. What
/// is typed on the day on which summer time begins counts as it is typed, also in the hour that this
/// day does not have.
///
/// \code
/// const auto formatter = KTTimeFormatter::createTimeFormatter();   // in the user's locale
/// QVariant value;
/// formatter->getObjectValue(&value, u"5:30pm"_s);     // 2001-01-01 17:30
/// formatter->stringForObjectValue(value);                          // "5:30 PM"
/// \endcode
class KTUTILITY_EXPORT KTTimeFormatter : public KTDateTimeFormatter
{
    Q_OBJECT

public:
    /// A new formatter in the user's current locale, which the caller owns.
    static std::unique_ptr<KTTimeFormatter> createTimeFormatter();

    /// Short times without date, in the user's current locale.
    KTTimeFormatter();

    bool getObjectValue(QVariant *value, const QString &forString,
                        QString *errorDescription = nullptr) const override;
    /// today(), in Japan, too.
    QDateTime defaultDate() const override;

private:
    QDateTime onReferenceDay(const QTime &time) const;
};
