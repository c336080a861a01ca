#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringList>

/// The patterns of dates and times: those that typed texts are tried with, in their orders, and what
/// follows from the order of a locale's own.
namespace KTPrivate::DatePatterns {
/// The order of day, month and year; KTDateTimeFormatter::InputOrder.
enum Order { MonthDayYear = 0, DayMonthYear = 1, YearMonthDay = 2, YearDayMonth = 3 };

/// The order in which a pattern has its first two of day, month and year.
KTUTILITY_EXPORT Order orderOf(const QString &pattern);

/// The patterns of dates that are tried where an order is usual; none for an unknown order.
KTUTILITY_EXPORT const QStringList &dates(int order);
/// The patterns of times.
KTUTILITY_EXPORT const QStringList &times();
/// ISO 8601.
KTUTILITY_EXPORT const QStringList &iso();
/// Month and day in Japan.
KTUTILITY_EXPORT const QStringList &japanese();

/// The numeric pattern for an order, as for strftime: "%m/%d/%y".
KTUTILITY_EXPORT QString numeric(int order);
/// The same for times.
KTUTILITY_EXPORT QString numericTime();

/// Month and day without year, in words as a country writes them.
KTUTILITY_EXPORT QString monthAndDay(int order, const QString &country);
/// A pattern with four digits of the year; nil if it has no year or four digits already.
KTUTILITY_EXPORT QString withFourDigitYear(const QString &pattern);
} // namespace KTPrivate::DatePatterns
