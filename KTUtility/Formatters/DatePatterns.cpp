#include "DatePatterns_p.h"

#include <array>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Groups of patterns, numbered from 1; the lists below put them into their orders.
const std::array<QStringList, 9> &patternGroups()
{
    static const std::array<QStringList, 9> groups{
        QStringList(), u"M-d-yy|M/d/yy|M.d.yy|M-d-yyyy|M/d/yyyy|M.d.yyyy"_s.split(u'|'),
        u"M-d|M/d|M.d"_s.split(u'|'),
        u"MMM d, yy|MMMM d, yy|MMM d, yyyy|MMMM d, yyyy|MMM d|MMMM d"_s.split(u'|'),
        u"yy.M.d|yy-M-d|yy/M/d|yyyy.M.d|yyyy-M-d|yyyy/M/d"_s.split(u'|'),
        u"d-M|d/M|d.M"_s.split(u'|'),
        // No "d MMMM" without a year, on purpose: "d MMM" takes whole names, too.
        u"d MMM yy|d MMMM yy|d MMM yyyy|d MMMM yyyy|d MMM"_s.split(u'|'),
        u"d-M-yy|d/M/yy|d.M.yy|d-M-yyyy|d/M/yyyy|d.M.yyyy"_s.split(u'|'),
        u"yy.d.M|yy-d-M|yy/d/M|yyyy.d.M|yyyy-d-M|yyyy/d/M"_s.split(u'|')};
    return groups;
}

QStringList patternsOf(const std::array<size_t, 8> &order)
{
    QStringList patterns;
    for (const size_t group : order)
        patterns += patternGroups()[group];
    return patterns;
}

const std::array<QStringList, 4> &patternsByOrder()
{
    static const std::array<QStringList, 4> patterns{
        patternsOf({1, 2, 3, 4, 5, 6, 7, 8}), patternsOf({7, 5, 6, 8, 2, 3, 1, 4}),
        patternsOf({4, 8, 1, 2, 3, 5, 6, 7}), patternsOf({8, 4, 7, 5, 6, 1, 2, 3})};
    return patterns;
}
} // namespace

const QStringList &DatePatterns::dates(int order)
{
    static const QStringList none;
    const bool isKnown = order >= MonthDayYear && order <= YearDayMonth;
    return isKnown ? patternsByOrder()[size_t(order)] : none;
}

const QStringList &DatePatterns::times()
{
    static const QStringList patterns = u"h:m:s a|h:m:sa|k:m:s|h:m a|h:ma|k:m|h a|ha"_s.split(u'|');
    return patterns;
}

const QStringList &DatePatterns::iso()
{
    static const QStringList patterns{u"yyyy-MM-dd'T'HH:mm:ss"_s, u"yyyy-MM-dd HH:mm:ss"_s,
                                      u"yyyy-MM-dd"_s};
    return patterns;
}

const QStringList &DatePatterns::japanese()
{
    static const QStringList patterns{u"M月d日"_s, u"d日M月"_s};
    return patterns;
}

QString DatePatterns::numeric(int order)
{
    switch (order) {
    case DayMonthYear:
        return u"%d/%m/%y"_s;
    case YearMonthDay:
        return u"%y/%m/%d"_s;
    case YearDayMonth:
        return u"%y/%d/%m"_s;
    default:
        return u"%m/%d/%y"_s;
    }
}

QString DatePatterns::numericTime()
{
    return u"%I:%M:%S %p"_s;
}

QString DatePatterns::monthAndDay(int order, const QString &country)
{
    const bool isMonthFirst = order == MonthDayYear || order == YearMonthDay;
    if (country == u"JP")
        return japanese()[isMonthFirst ? 0 : 1];
    const QString separator = country == u"DE" ? u"."_s : u" "_s;
    return isMonthFirst ? QString(u"MMMM" + separator + u'd') : QString(u'd' + separator + u"MMMM");
}

namespace {
/// The end of a quoted part of a pattern that begins at \a at; two quotes in it are one of the
/// text.
qsizetype endOfQuoted(QStringView pattern, qsizetype at)
{
    for (++at;; at += 2) {
        at = pattern.indexOf(u'\'', at);
        if (at < 0)
            return pattern.size();
        if (at + 1 >= pattern.size() || pattern[at + 1] != u'\'')
            return at + 1;
    }
}

/// A pattern in parts: what is quoted, with its quotes, and what is not.
QStringList partsOf(const QString &pattern)
{
    QStringList parts;
    for (qsizetype at = 0; at < pattern.size();) {
        const qsizetype quote = pattern.indexOf(u'\'', at);
        const qsizetype end =
            quote == at ? endOfQuoted(pattern, at) : (quote < 0 ? pattern.size() : quote);
        parts.append(pattern.mid(at, end - at));
        at = end;
    }
    return parts;
}

/// The order that follows from the first two different fields.
DatePatterns::Order orderOf(char16_t first, char16_t second)
{
    if (first == u'M')
        return DatePatterns::MonthDayYear;
    if (first == u'd')
        return DatePatterns::DayMonthYear;
    return second == u'M' ? DatePatterns::YearMonthDay : DatePatterns::YearDayMonth;
}

QString madeWithFourDigitYear(const QString &pattern)
{
    QString result;
    qsizetype first = -1;
    for (QString part : partsOf(pattern)) {
        const bool isText = part.startsWith(u'\''); // a "y" in it stays
        if (!isText && part.contains(u"yyyy"))
            return {};
        if (!isText && first < 0 && part.contains(u'y'))
            first = result.size() + part.indexOf(u'y');
        result += isText ? part : part.remove(u'y');
    }
    return first < 0 ? QString() : result.insert(first, u"yyyy");
}
} // namespace

QString DatePatterns::withFourDigitYear(const QString &pattern)
{
    // The fields of a form mostly show dates in one style.
    struct Last
    {
        QString pattern;
        QString widened;
    };
    static thread_local Last last;
    if (last.pattern.isNull() || last.pattern != pattern)
        last = {pattern, madeWithFourDigitYear(pattern)};
    return last.widened;
}

DatePatterns::Order DatePatterns::orderOf(const QString &pattern)
{
    char16_t first = 0;
    for (qsizetype at = 0; at < pattern.size();) {
        const char16_t unit = pattern[at].unicode();
        if (unit == u'\'') {
            at = endOfQuoted(pattern, at);
            continue;
        }
        if (unit == u'M' || unit == u'd' || unit == u'y') {
            if (first != 0 && first != unit)
                return ::orderOf(first, unit);
            first = unit;
        }
        ++at;
    }
    return MonthDayYear;
}
