#include "DateFormatterLists_p.h"

#include "DatePatterns_p.h"
#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Dates/DateFormatterAccess_p.h>

#include <QHash>

#include <array>
#include <functional>
#include <mutex>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
enum class Kind { Dates, Times, Iso, DatesWithTimes };

/// What the formatters of a list depend on.
struct ListKey
{
    Kind kind = Kind::Dates;
    int order = 0;            ///< of Dates
    QString datePattern = {}; ///< of DatesWithTimes
    QString locale = {};
    QTimeZone zone = {};
    bool hasDefaultDate = false;
    qint64 day = 0;

    friend bool operator==(const ListKey &, const ListKey &) = default;
    friend size_t qHash(const ListKey &key, size_t seed)
    {
        return qHashMulti(seed, int(key.kind), key.order, key.datePattern, key.locale, key.day);
    }
};

ListKey keyOf(Kind kind, const DateFormatterSettings &settings)
{
    const QDateTime &day = settings.defaultDate;
    return {.kind = kind,
            .locale = settings.locale.localeIdentifier(),
            .zone = settings.zone.isValid() ? settings.zone : NSCalendar::systemTimeZone(),
            .hasDefaultDate = day.isValid(),
            .day = (day.isValid() ? day : settings.today).toMSecsSinceEpoch()};
}

/// The lists of all fields.
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

bool isLogged()
{
    return KTLogger::sharedLogger()->shouldLogComponent(kLog_FormattersDateTimes, 4);
}

/// Has a formatter make what it makes on first use, so that nothing in it changes any more.
KTDateFormatterList::Formatter settled(std::shared_ptr<NSDateFormatter> formatter,
                                       const QTimeZone &zone)
{
    formatter->setTimeZone(zone);
    DateMatch match;
    DateFormatterAccess::parse(*formatter, DateText(QStringView()), &match);
    return formatter;
}

/// Makes the formatter at an index of a list.
using Make = std::function<std::shared_ptr<NSDateFormatter>(size_t index)>;

/// A list's formatters are logged when the list is made or never, not when a text needs them.
DateFormatterSettings forList(const DateFormatterSettings &settings)
{
    DateFormatterSettings used = settings;
    used.isSilent = !isLogged();
    return used;
}

/// A list of this field's own, made at once: what is logged shows when it is made.
DateFormatterLists::Shared loggedList(size_t size, const Make &make)
{
    auto list = std::make_shared<const KTDateFormatterList>(size, make);
    list->makeAll();
    return list;
}

/// The list under a key, made by this field or another one.
DateFormatterLists::Shared sharedList(const ListKey &key, size_t size, const Make &make)
{
    if (DateFormatterLists::Shared known = sharedLists().find(key))
        return known;
    // Whenever a formatter is asked for, it is one of the zone that the list was made in.
    auto list = std::make_shared<const KTDateFormatterList>(
        size, [make, zone = key.zone](size_t index) { return settled(make(index), zone); });
    sharedLists().insert(key, list);
    return list;
}

/// The list of a field. The fields of a form ask for the same ones again and again: then nothing is
/// made, not even what would make the list.
/// \param makeFor answers a Make for settings.
template<typename MakeFor>
DateFormatterLists::Shared listOf(const ListKey &key, size_t size,
                                  const DateFormatterSettings &settings, const MakeFor &makeFor)
{
    struct Last
    {
        ListKey key;
        DateFormatterLists::Shared list;
    };
    // One for each kind, since each makes its formatters in a way of its own.
    static thread_local Last last;
    if (isLogged())
        return loggedList(size, makeFor(forList(settings)));
    if (Last &known = last; !known.list || known.key != key)
        known = {key, sharedList(key, size, makeFor(forList(settings)))};
    return last.list;
}

void prepare(NSDateFormatter &formatter, const DateFormatterSettings &settings, bool isLenient)
{
    formatter.setFormatterBehavior(NSDateFormatterBehavior10_4);
    formatter.setLocale(settings.locale);
    formatter.setGeneratesCalendarDates(false);
    formatter.setDefaultDate(settings.defaultDate);
    formatter.setLenient(isLenient);
}

constexpr size_t StyleCount = 4;

uint styleAt(size_t index)
{
    return uint(NSDateFormatterShortStyle + index);
}

size_t countOfLocale(const NSLocale &locale)
{
    const bool isJapan = locale.countryCode() == u"JP";
    return StyleCount + (isJapan ? size_t(DatePatterns::japanese().size()) : 0);
}

std::shared_ptr<NSDateFormatter> dateOfLocale(const DateFormatterSettings &settings, size_t index)
{
    const bool isLenient = settings.isJapaneseCalendar();
    if (index < StyleCount)
        return DateFormatterLists::formatterWithStyles(settings, styleAt(index),
                                                       NSDateFormatterNoStyle, isLenient);
    const QString &pattern = DatePatterns::japanese()[qsizetype(index - StyleCount)];
    auto formatter = DateFormatterLists::formatterWithPattern(settings, pattern, isLenient);
    formatter->setDefaultDate(settings.today);
    return formatter;
}

std::shared_ptr<NSDateFormatter> timeOfLocale(const DateFormatterSettings &settings, size_t index)
{
    return DateFormatterLists::formatterWithStyles(settings, NSDateFormatterNoStyle, styleAt(index),
                                                   false);
}

/// Whether a date pattern is a style's, and none of those that are tried in every locale: these
/// come in pairs, for two digits of the year and for four.
bool isOfStyle(const DateFormatterSettings &settings, const QString &datePattern)
{
    if (DatePatterns::dates(DatePatterns::MonthDayYear).contains(datePattern))
        return false;
    NSDateFormatter formatter;
    formatter.setLocale(settings.locale);
    for (size_t index = 0; index < StyleCount; ++index) {
        formatter.setDateStyle(styleAt(index));
        if (formatter.dateFormat() == datePattern)
            return true;
    }
    return false;
}

/// A pattern's formatter, or one of the locale's behind them.
template<typename OfLocale>
auto patternsThen(const DateFormatterSettings &settings, const QStringList &patterns,
                  const OfLocale &ofLocale)
{
    return [=](size_t index) {
        const auto count = size_t(patterns.size());
        return index < count ? DateFormatterLists::formatterWithPattern(
                                   settings, patterns[qsizetype(index)], false)
                             : ofLocale(settings, index - count);
    };
}
} // namespace

std::shared_ptr<NSDateFormatter>
DateFormatterLists::formatterWithPattern(const DateFormatterSettings &settings,
                                         const QString &pattern, bool isLenient)
{
    auto formatter = std::make_shared<NSDateFormatter>();
    prepare(*formatter, settings, isLenient);
    if (!settings.isSilent)
        KTLog(kLog_FormattersDateTimes, 4, u"KTDateTimeFormatter creating formatter, format=%@",
              pattern);
    formatter->setDateFormat(pattern);
    return formatter;
}

std::shared_ptr<NSDateFormatter>
DateFormatterLists::formatterWithStyles(const DateFormatterSettings &settings, uint dateStyle,
                                        uint timeStyle, bool isLenient)
{
    auto formatter = std::make_shared<NSDateFormatter>();
    prepare(*formatter, settings, isLenient);
    formatter->setDateStyle(dateStyle);
    formatter->setTimeStyle(timeStyle);
    if (!settings.isSilent)
        KTLog(kLog_FormattersDateTimes, 4,
              u"KTDateTimeFormatter creating date/time formatter, format=%@",
              formatter->dateFormat());
    return formatter;
}

KTDateFormatterList DateFormatterLists::datesOfLocale(const DateFormatterSettings &settings)
{
    return KTDateFormatterList(countOfLocale(settings.locale),
                               [=](size_t index) { return dateOfLocale(settings, index); });
}

KTDateFormatterList DateFormatterLists::timesOfLocale(const DateFormatterSettings &settings)
{
    return KTDateFormatterList(StyleCount,
                               [=](size_t index) { return timeOfLocale(settings, index); });
}

DateFormatterLists::Shared DateFormatterLists::dates(const DateFormatterSettings &settings,
                                                     int order)
{
    ListKey key = keyOf(Kind::Dates, settings);
    key.order = order;
    const QStringList &patterns = DatePatterns::dates(order);
    return listOf(key, size_t(patterns.size()) + countOfLocale(settings.locale), settings,
                  [&patterns](const DateFormatterSettings &used) {
                      return patternsThen(used, patterns, dateOfLocale);
                  });
}

DateFormatterLists::Shared DateFormatterLists::times(const DateFormatterSettings &settings)
{
    const QStringList &patterns = DatePatterns::times();
    return listOf(keyOf(Kind::Times, settings), size_t(patterns.size()) + StyleCount, settings,
                  [&patterns](const DateFormatterSettings &used) {
                      return patternsThen(used, patterns, timeOfLocale);
                  });
}

DateFormatterLists::Shared DateFormatterLists::iso(const DateFormatterSettings &settings)
{
    const auto makeFor = [](const DateFormatterSettings &used) {
        return [used](size_t index) {
            const QString &pattern = DatePatterns::iso()[qsizetype(index)];
            auto formatter = formatterWithPattern(used, pattern, false);
            formatter->setCalendar(NSCalendar(NSGregorianCalendar));
            return formatter;
        };
    };
    return listOf(keyOf(Kind::Iso, settings), size_t(DatePatterns::iso().size()), settings,
                  makeFor);
}

DateFormatterLists::Shared DateFormatterLists::datesWithTimes(const DateFormatterSettings &settings,
                                                              const QString &datePattern,
                                                              const Shared &times)
{
    ListKey key = keyOf(Kind::DatesWithTimes, settings);
    key.datePattern = datePattern;
    const auto makeFor = [&](const DateFormatterSettings &used) {
        return [=](size_t index) {
            const QString pattern = datePattern + u' ' + (*times)[index]->dateFormat();
            if (!used.isSilent)
                KTLog(kLog_FormattersDateTimes, 4, u"adding date/time format: %@", pattern);
            auto formatter = formatterWithPattern(used, pattern, used.isJapaneseCalendar());
            if (isOfStyle(used, datePattern))
                DateFormatterAccess::setFormatOfStyle(*formatter, pattern);
            return formatter;
        };
    };
    return listOf(key, times->size(), settings, makeFor);
}
