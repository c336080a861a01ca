#pragma once

#include "DateNames_p.h"
#include "NSDateFormatterStyle.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>

#include <QString>
#include <QStringList>

#include <array>
#include <memory>
#include <mutex>
#include <optional>

namespace KTPrivate {
/// What a formatter sets beside a locale and calendar, and what ICU has to be given; most
/// formatters set nothing of it.
struct DateCustoms
{
    std::array<std::optional<QStringList>, size_t(NSDateFormatterSymbols::AMPM) + 1> symbols;
    int twoDigitStartYear = 1950;
    int firstWeekday = 0;           ///< 0: the locale's
    int minimumDaysInFirstWeek = 0; ///< 0: the locale's

    friend bool operator==(const DateCustoms &, const DateCustoms &) = default;
};

/// The names that dates are written with; abbreviated and wide ones.
struct DateShownNames
{
    using Lists = std::array<QStringList, 2>;

    Lists months;
    Lists standaloneMonths;
    Lists weekdays;
    Lists halvesOfDay; ///< the same twice
};

/// Everything about dates that comes from a locale and calendar. Immutable; shared by all
/// formatters of the locale, except by those with customs of their own.
class KTUTILITY_EXPORT DateEnvironment : public std::enable_shared_from_this<DateEnvironment>
{
public:
    static std::shared_ptr<const DateEnvironment> environmentOf(const NSLocale &locale,
                                                                const QString &calendar);
    /// One with customs: the shared one if they are none after all.
    static std::shared_ptr<const DateEnvironment>
    environmentOf(const NSLocale &locale, const QString &calendar, const DateCustoms &customs);

    DateEnvironment(const NSLocale &locale, const QString &calendar, const DateCustoms &customs);

    /// The pattern of a pair of styles, with plain spaces only.
    QString patternOfStyles(unsigned date, unsigned time) const;
    /// The names of a kind.
    QStringList symbolsOf(NSDateFormatterSymbols kind) const;

    const icu::Locale locale;
    const icu::DateFormatSymbols &symbols() const { return *_symbols; }
    const DateCustoms customs;
    /// ICU's type of the calendar.
    QString calendarType;
    bool isGregorian = false;
    /// Whether years begin again with each emperor.
    bool hasShortEras() const;
    /// Whether years are counted on for centuries, not by emperors or in cycles of sixty.
    bool hasCenturies() const;
    bool isEnglish = false;
    /// The day on which weeks begin, 1 for Sunday, by the locale.
    int firstWeekday = 1;
    /// Whether numbers are written with 0 to 9.
    bool hasASCIIDigits = false;
    /// What "not a number" starts with, lower case; a number field would read it.
    char16_t startOfNaN = 0;

    const DateNames &names() const { return _names; }
    const DateShownNames &shownNames() const { return _shownNames; }

private:
    static std::shared_ptr<const DateEnvironment> knownEnvironmentOf(const NSLocale &locale,
                                                                     const QString &calendar);
    /// A style's pattern, asked of ICU on first use, by any thread: most formatters have patterns of
    /// their own.
    class StylePattern
    {
    public:
        using Make = QString (*)(size_t style, const icu::Locale &locale);
        const QString &value(Make make, size_t style, const icu::Locale &locale) const;

    private:
        mutable std::once_flag _once;
        mutable QString _pattern;
    };

    void readCalendar();
    void makeSymbols(const icu::SimpleDateFormat *format, const QString &calendar);
    void readFormat(icu::SimpleDateFormat *format);
    void makeNames(icu::SimpleDateFormat *format);

    void makeShownNames();

    DateNames _names;
    DateShownNames _shownNames;
    std::unique_ptr<icu::DateFormatSymbols> _symbols;
    std::array<StylePattern, 5> _datePatterns;
    std::array<StylePattern, 5> _timePatterns;
};
} // namespace KTPrivate
