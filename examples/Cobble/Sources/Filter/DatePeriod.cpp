#include "DatePeriod.h"

#include "ComparedText.h"

#include <KTUtility/NSCalendar>
#include <KTUtility/NSDateFormatter>
#include <KTUtility/NSLocale>

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
constexpr int MonthsOfYear = 12;
/// No name of a month and a year is longer.
constexpr qsizetype LongestPeriod = 60;

const QList<NSDateFormatterSymbols> &kindsOfNames()
{
    static const QList<NSDateFormatterSymbols> kinds{
        NSDateFormatterSymbols::StandaloneMonth, NSDateFormatterSymbols::Month,
        NSDateFormatterSymbols::ShortStandaloneMonth, NSDateFormatterSymbols::ShortMonth};
    return kinds;
}

/// The names of the months of the Gregorian calendar.
QStringList monthNames(const NSLocale &locale, NSDateFormatterSymbols kind)
{
    NSDateFormatter formatter;
    formatter.setLocale(locale);
    formatter.setCalendar(NSCalendar(NSGregorianCalendar));
    return formatter.symbols(kind);
}

QString foldedMonthName(const QString &name)
{
    QString folded = ComparedText::of(name.trimmed());
    if (folded.endsWith(u'.'))
        folded.chop(1);
    return folded;
}

int monthNamed(const QString &name, const NSLocale &locale)
{
    for (const NSDateFormatterSymbols kind : kindsOfNames()) {
        const QStringList names = monthNames(locale, kind);
        for (qsizetype month = 0; month < qMin<qsizetype>(names.size(), MonthsOfYear); ++month) {
            if (foldedMonthName(names.at(month)) == name)
                return int(month) + 1;
        }
    }
    return 0;
}

int monthNamed(const QString &text)
{
    const QString name = foldedMonthName(text);
    const int month = monthNamed(name, NSLocale::currentLocale(NSLocale::Category::Dates));
    return month != 0 ? month : monthNamed(name, NSLocale(u"en_US"_s));
}

/// The digits of other scripts as 0 to 9.
QString withPlainDigits(QString text)
{
    for (QChar &unit : text) {
        if (unit.isDigit() && unit.digitValue() >= 0)
            unit = QChar(u'0' + unit.digitValue());
    }
    return text;
}

std::optional<DatePeriod> periodOf(int month, int year)
{
    const bool isPeriod = month >= 0 && month <= MonthsOfYear && (month > 0 || year > 0);
    return isPeriod ? std::optional(DatePeriod{month, year}) : std::nullopt;
}

/// "2020-03", "--03", "2020年3月", "3/2020", "2020".
/// Nothing for a month without a number.
std::optional<DatePeriod> periodOfMonth(int month, int year)
{
    return month == 0 ? std::nullopt : periodOf(month, year);
}

std::optional<DatePeriod> periodInDigits(const QString &text)
{
    static const QRegularExpression yearFirst(uR"(\A(?:(\d{4})|-)[-./年]\s*(\d{1,2})\s*月?\z)"_s);
    static const QRegularExpression monthFirst(uR"(\A(\d{1,2})\s*[-./]\s*(\d{4})\z)"_s);
    static const QRegularExpression yearOnly(uR"(\A(\d{4})\s*年?\z)"_s);
    if (const auto match = yearFirst.match(text); match.hasMatch())
        return periodOfMonth(match.captured(2).toInt(), match.captured(1).toInt());
    if (const auto match = monthFirst.match(text); match.hasMatch())
        return periodOfMonth(match.captured(1).toInt(), match.captured(2).toInt());
    const auto match = yearOnly.match(text);
    return match.hasMatch() ? periodOf(0, match.captured(1).toInt()) : std::nullopt;
}
} // namespace

std::optional<DatePeriod> DatePeriod::read(const QString &text)
{
    if (text.size() > LongestPeriod)
        return std::nullopt;
    const QString plain = withPlainDigits(text.simplified());
    if (const auto period = periodInDigits(plain))
        return period;
    if (const int month = monthNamed(plain))
        return DatePeriod{month, 0};
    // The name and the year in either order; some languages have a word between: "marzo de 2020".
    static const QRegularExpression yearLast(
        uR"(\A(.*?)[\s,]+(?:de |di |do |of )?(\d{4})\s*(?:г\.?|年)?\z)"_s);
    static const QRegularExpression yearFirst(uR"(\A(\d{4})\s*年?[\s.,]*(\D.*)\z)"_s);
    if (const auto match = yearLast.match(plain); match.hasMatch()) {
        if (const int month = monthNamed(match.captured(1)))
            return periodOf(month, match.captured(2).toInt());
    }
    const auto match = yearFirst.match(plain);
    const int month = match.hasMatch() ? monthNamed(match.captured(2)) : 0;
    return month != 0 ? periodOf(month, match.captured(1).toInt()) : std::nullopt;
}

QString DatePeriod::text() const
{
    const QString yearText = year == 0 ? QString() : u"%1"_s.arg(year, 4, 10, QChar(u'0'));
    if (month == 0)
        return yearText;
    const QString name = monthNames(NSLocale::currentLocale(NSLocale::Category::Dates),
                                    NSDateFormatterSymbols::StandaloneMonth)
                             .value(month - 1);
    return year == 0 ? name : QString(name + u' ' + yearText);
}

QString DatePeriod::portableText() const
{
    const QString yearText = year == 0 ? u"-"_s : u"%1"_s.arg(year, 4, 10, QChar(u'0'));
    return month == 0 ? yearText : u"%1-%2"_s.arg(yearText).arg(month, 2, 10, QChar(u'0'));
}
