#pragma once

// Private to the library. For finding out the order of day and month of a column.

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QString>

/// The order of day, month and year in dates of digits: "13/2/2016", "13.2.16 14:30", "13/2".
/// Texts without such a date are possible in no order, also those with four digits of the year first,
/// which are clear by themselves.
namespace KTPrivate::ColumnDates {
/// Of the conventions of KTColumnReading. Where the year is clear, or is not typed, the last one says
/// that the month comes before the day.
enum Order { DayMonthYear, MonthDayYear, YearMonthDay };

/// A bit for each order that a text is possible in.
KTUTILITY_EXPORT unsigned possibleOrders(QStringView text);
/// The units of a locale's short dates as they follow each other: 'd', 'M' and 'y'.
KTUTILITY_EXPORT QString unitsOf(const NSLocale &locale);
/// Whether a locale has day and month in the order of these units where the year is not typed, too.
/// Swedish short dates are "2016-02-03", and without the year "3/2".
KTUTILITY_EXPORT bool haveOrderWithoutYear(const QString &units, const NSLocale &locale);
/// The order of such units.
KTUTILITY_EXPORT size_t orderOf(const QString &units);
/// A text whose date is in an order, with the parts as these units follow each other.
KTUTILITY_EXPORT QString reordered(const QString &text, size_t order, const QString &units);
/// A text whose date is in an order, with the month in words of the locale if there is no year: "3
/// februari" for "3/2". The text itself otherwise.
KTUTILITY_EXPORT QString withMonthName(const QString &text, size_t order, const NSLocale &locale);
} // namespace KTPrivate::ColumnDates
