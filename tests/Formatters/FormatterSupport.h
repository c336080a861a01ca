#pragma once

#include <KTUtility/NSCalendar>
#include <KTUtility/NSLocale>

#include <QDateTime>
#include <QString>

#include <memory>

// What the tests of formatters share.

/// The user's locale for the length of a test.
class UserLocale
{
public:
    explicit UserLocale(const QString &identifier)
    {
        NSLocale::setCurrentLocale(NSLocale(identifier));
    }
    explicit UserLocale(const char *identifier) : UserLocale(QString::fromLatin1(identifier)) {}
    ~UserLocale() { NSLocale::resetCurrentLocale(); }
    UserLocale(const UserLocale &) = delete;
    UserLocale &operator=(const UserLocale &) = delete;
};

/// A formatter in a locale of its own, whatever the user's.
template<typename Formatter>
std::unique_ptr<Formatter> formatterIn(const QString &locale)
{
    auto formatter = std::make_unique<Formatter>();
    formatter->setLocale(NSLocale(locale));
    return formatter;
}

/// "2008-03-04T17:30:00" in the machine's zone; "NO" for an invalid date.
inline QString wallTime(const QDateTime &date)
{
    if (!date.isValid())
        return QStringLiteral("NO");
    return date.toTimeZone(NSCalendar::systemTimeZone())
        .toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss"));
}

/// Today's date in the machine's zone, "2008-02-20".
inline QString todayText()
{
    return wallTime(QDateTime::currentDateTimeUtc()).left(10);
}
