#pragma once

#include "KTDateFormatterList.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Dates/DateFormatterAccess_p.h>

#include <QDateTime>
#include <QString>
#include <QStringView>
#include <QVarLengthArray>

namespace KTPrivate {
/// One text on its way through formatters, which are tried one after the other; the first that
/// takes all of the text wins.
class KTUTILITY_EXPORT DateReading
{
public:
    /// \a text has to outlive the reading.
    explicit DateReading(const QString &text);

    bool hasOnlyWhitespace() const;
    /// Whether the text begins as dates of ISO 8601 do: four, two and two digits.
    bool hasIsoShape() const;
    /// Whether the text is an hour alone, and what took it is the pattern for such.
    bool isBareHour() const;

    // Each returns whether the text is read so. The latest success is the result, whatever comes
    // of it.

    /// With the formatter that read the last text; null if there is none.
    bool readWithRecent(const NSDateFormatter *recent);
    /// The first that reads anything will do.
    bool readIso(const KTDateFormatterList &formatters);
    bool readTime(const KTDateFormatterList &formatters);
    /// The first formatter at or after \a from that reads a date at the start; the size of the list
    /// if there is none. All of the text is read if then chosen() is set.
    size_t nextDate(const KTDateFormatterList &formatters, size_t from);
    /// Of the attempts that leave text over, only that of the last formatter counts.
    bool readDateAndTime(const KTDateFormatterList &formatters);

    /// Which formatter took all of the text; null if the text was read otherwise.
    const NSDateFormatter *chosen() const { return _chosen; }
    QDateTime date() const;
    /// The day and time that a clock shows then, in UTC; as it was typed where summer time skips
    /// that time.
    QDateTime clock() const;

private:
    bool parse(const NSDateFormatter &formatter);
    bool parse(const NSDateFormatter &formatter, QStringView message);
    bool note(const NSDateFormatter &formatter);
    bool wasTried(const KTDateFormatterList &formatters);
    bool choose(const NSDateFormatter &formatter, QStringView message);
    bool readWithLast(const KTDateFormatterList &formatters, QStringView attempt, QStringView match,
                      QStringView exactMatch);

    const QString &_string;
    const DateText _text;
    const bool _isLogged;
    DateMatch _match; ///< of the last attempt
    qint64 _time = 0;
    qint64 _localTime = 0;
    bool _isExact = false;
    QVarLengthArray<const KTDateFormatterList *, 8> _tried; ///< of dates with times
    const NSDateFormatter *_successful = nullptr;
    const NSDateFormatter *_chosen = nullptr;
};
} // namespace KTPrivate
