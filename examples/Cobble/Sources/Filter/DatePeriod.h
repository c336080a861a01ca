#pragma once

#include <QDate>
#include <QString>

#include <optional>

/// A month, a year, or a month of whatever year, as people name it: "March 2020", "2020", "March".
///
/// \code
/// DatePeriod::read(u"March 2020"_s)->contains(QDate(2020, 3, 31));    // true
/// \endcode
struct DatePeriod
{
    /// 1 to 12; 0 for any.
    int month = 0;
    /// 0 for any; there is no such year.
    int year = 0;

    /// Reads a month by its name or its abbreviation, in the user's language or in English, and
    /// years in the digits of any script; also "2020-03", "3/2020" and "2020年3月".
    /// \return nothing if it is no period.
    static std::optional<DatePeriod> read(const QString &text);

    bool contains(QDate date) const
    {
        return (month == 0 || date.month() == month) && (year == 0 || date.year() == year);
    }
    /// As it can be read in the user's language: "March 2020".
    QString text() const;
    /// As it can be read in every language: "2020-03", "2020", "--03".
    QString portableText() const;

    friend bool operator==(const DatePeriod &, const DatePeriod &) = default;
};
