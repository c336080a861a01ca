#include "KTDateTimeFormatter.h"

#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Dates/NSDateFormatter_p.h>

#include <array>
#include <mutex>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

// The patterns that typed dates are tried with, in their orders, and the formatters made of them.

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

/// What the formatters of a list depend on.
struct ListKey
{
    QString kind;
    QString locale;
    QTimeZone zone;
    bool hasDefaultDate = false;
    qint64 day = 0;

    friend bool operator==(const ListKey &, const ListKey &) = default;
    friend size_t qHash(const ListKey &key, size_t seed)
    {
        return qHashMulti(seed, key.kind, key.locale, key.day);
    }
};

/// The lists of formatters of all fields with the same settings, so that a form of a hundred date
/// fields makes them once.
class SharedLists
{
public:
    using List = std::shared_ptr<const KTDateFormatterList>;

    List find(const ListKey &key)
    {
        const std::lock_guard lock(_mutex);
        return _lists.value(key);
    }

    void insert(const ListKey &key, const List &list)
    {
        constexpr int MaximumLists = 1024;
        const std::lock_guard lock(_mutex);
        if (_lists.size() >= MaximumLists)
            _lists.clear();
        _lists.insert(key, list);
    }

private:
    std::mutex _mutex;
    QHash<ListKey, List> _lists;
};

SharedLists &sharedLists()
{
    static SharedLists lists;
    return lists;
}

/// Has the formatters make what they make on first use, so that nothing in them changes any more.
void settle(const KTDateFormatterList &formatters)
{
    const DateText text((QStringView()));
    DateMatch match;
    for (const auto &formatter : formatters)
        DateFormatterAccess::parse(*formatter, text, &match);
}

bool isLogged()
{
    return KTLogger::sharedLogger()->shouldLogComponent(kLog_FormattersDateTimes, 4);
}
} // namespace

const QStringList &KTDateTimeFormatter::dateFormatsForMonthDayYear()
{
    static const QStringList patterns = patternsOf({1, 2, 3, 4, 5, 6, 7, 8});
    return patterns;
}

const QStringList &KTDateTimeFormatter::dateFormatsForDayMonthYear()
{
    static const QStringList patterns = patternsOf({7, 5, 6, 8, 2, 3, 1, 4});
    return patterns;
}

const QStringList &KTDateTimeFormatter::dateFormatsForYearMonthDay()
{
    static const QStringList patterns = patternsOf({4, 8, 1, 2, 3, 5, 6, 7});
    return patterns;
}

const QStringList &KTDateTimeFormatter::dateFormatsForYearDayMonth()
{
    static const QStringList patterns = patternsOf({8, 4, 7, 5, 6, 1, 2, 3});
    return patterns;
}

const QStringList &KTDateTimeFormatter::timeFormats()
{
    static const QStringList patterns = u"h:m:s a|h:m:sa|k:m:s|h:m a|h:ma|k:m|h a|ha"_s.split(u'|');
    return patterns;
}

QStringList KTDateTimeFormatter::dateFormats() const
{
    displayFormatter(); // knows the input order
    switch (_inputOrder) {
    case MonthDayYear:
        return dateFormatsForMonthDayYear();
    case DayMonthYear:
        return dateFormatsForDayMonthYear();
    case YearMonthDay:
        return dateFormatsForYearMonthDay();
    case YearDayMonth:
        return dateFormatsForYearDayMonth();
    default:
        return {};
    }
}

QString KTDateTimeFormatter::formatStringForInputOrder(int inputOrder) const
{
    switch (inputOrder) {
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

/// The order that follows from the first two different fields.
int orderOf(char16_t first, char16_t second)
{
    if (first == u'M')
        return KTDateTimeFormatter::MonthDayYear;
    if (first == u'd')
        return KTDateTimeFormatter::DayMonthYear;
    return second == u'M' ? KTDateTimeFormatter::YearMonthDay : KTDateTimeFormatter::YearDayMonth;
}
} // namespace

int KTDateTimeFormatter::inputOrderForDateFormat(const QString &pattern)
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
                return orderOf(first, unit);
            first = unit;
        }
        ++at;
    }
    return MonthDayYear;
}

// --- Lists of formatters

/// A list made on first use, by this field or another one. While formatters are logged, each field
/// makes its own.
template<typename Make>
const KTDateFormatterList &KTDateTimeFormatter::list(SharedList &member, const QString &kind,
                                                     const Make &make) const
{
    if (member)
        return *member;
    if (isLogged()) {
        member = std::make_shared<const KTDateFormatterList>(make());
        return *member;
    }
    const QDateTime day = defaultDate();
    const ListKey key{kind, _locale.localeIdentifier(), NSCalendar::systemTimeZone(), day.isValid(),
                      (day.isValid() ? day : today()).toMSecsSinceEpoch()};
    member = sharedLists().find(key);
    if (!member) {
        member = std::make_shared<const KTDateFormatterList>(make());
        settle(*member);
        sharedLists().insert(key, member);
    }
    return *member;
}

KTDateFormatterList KTDateTimeFormatter::localeStrictDateFormatters() const
{
    const bool isLenient = isJapaneseCalendar();
    KTDateFormatterList formatters;
    for (uint style = NSDateFormatterShortStyle; style <= NSDateFormatterFullStyle; ++style)
        formatters.push_back(formatterWithDateStyle(style, NSDateFormatterNoStyle, isLenient));
    if (_locale.countryCode() != u"JP")
        return formatters;
    for (const QString &pattern : {u"M月d日"_s, u"d日M月"_s}) {
        const auto formatter = _formatterWithDateFormat(pattern, isLenient);
        formatter->setDefaultDate(today());
        formatters.push_back(formatter);
    }
    return formatters;
}

KTDateFormatterList KTDateTimeFormatter::localeStrictTimeFormatters() const
{
    KTDateFormatterList formatters;
    for (uint style = NSDateFormatterShortStyle; style <= NSDateFormatterFullStyle; ++style)
        formatters.push_back(formatterWithDateStyle(NSDateFormatterNoStyle, style, false));
    return formatters;
}

KTDateFormatterList KTDateTimeFormatter::makeStrictDateFormatters() const
{
    KTDateFormatterList formatters;
    const QStringList patterns = dateFormats();
    for (const QString &pattern : patterns)
        formatters.push_back(_formatterWithDateFormat(pattern, false));
    const KTDateFormatterList own = localeStrictDateFormatters();
    formatters.insert(formatters.end(), own.begin(), own.end());
    return formatters;
}

KTDateFormatterList KTDateTimeFormatter::makeStrictTimeFormatters() const
{
    KTDateFormatterList formatters;
    for (const QString &pattern : timeFormats())
        formatters.push_back(_formatterWithDateFormat(pattern, false));
    const KTDateFormatterList own = localeStrictTimeFormatters();
    formatters.insert(formatters.end(), own.begin(), own.end());
    return formatters;
}

/// ISO 8601 in the Gregorian calendar, whatever the locale's is.
KTDateFormatterList KTDateTimeFormatter::makeStrictIsoFormatters() const
{
    const NSCalendar gregorian(NSGregorianCalendar);
    KTDateFormatterList formatters;
    for (const QString &pattern :
         {u"yyyy-MM-dd'T'HH:mm:ss"_s, u"yyyy-MM-dd HH:mm:ss"_s, u"yyyy-MM-dd"_s}) {
        const auto formatter = _formatterWithDateFormat(pattern, false);
        formatter->setCalendar(gregorian);
        formatters.push_back(formatter);
    }
    return formatters;
}

KTDateFormatterList
KTDateTimeFormatter::makeFormattersForDateFormat(const QString &datePattern) const
{
    KTDateFormatterList formatters;
    for (const auto &time : strictTimeFormatters()) {
        const QString pattern = datePattern + u' ' + time->dateFormat();
        KTLog(kLog_FormattersDateTimes, 4, u"adding date/time format: %@", pattern);
        formatters.push_back(_formatterWithDateFormat(pattern, isJapaneseCalendar()));
    }
    return formatters;
}

const KTDateFormatterList &KTDateTimeFormatter::strictDateFormatters() const
{
    if (_strictDateFormatters)
        return *_strictDateFormatters;
    displayFormatter(); // knows the input order
    static const QStringList kinds{u"dates 0"_s, u"dates 1"_s, u"dates 2"_s, u"dates 3"_s};
    return list(_strictDateFormatters, kinds.value(_inputOrder),
                [this] { return makeStrictDateFormatters(); });
}

const KTDateFormatterList &KTDateTimeFormatter::strictTimeFormatters() const
{
    return list(_strictTimeFormatters, u"times"_s, [this] { return makeStrictTimeFormatters(); });
}

const KTDateFormatterList &KTDateTimeFormatter::strictIsoFormatters() const
{
    return list(_strictIsoFormatters, u"iso"_s, [this] { return makeStrictIsoFormatters(); });
}

const KTDateFormatterList &
KTDateTimeFormatter::strictFormattersForDateFormat(const QString &datePattern) const
{
    return list(_strictFormatterMap[datePattern], u'+' + datePattern,
                [this, &datePattern] { return makeFormattersForDateFormat(datePattern); });
}
