#pragma once

#include "DateWord_p.h"
#include <KTUtility/CommonForms/Text/PhraseTable_p.h>
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace KTPrivate {
/// The words that dates and times are typed with in a locale and its calendar: those of CLDR in all
/// widths and cases, a few that CLDR lacks, and English ones where they mean nothing else.
/// Immutable once made; shared by all formatters of the locale.
class KTUTILITY_EXPORT DateWords
{
public:
    using Kind = DateWord::Kind;
    using Match = PhraseTable<DateWord>::Match;

    /// The words of a locale; made on first use and kept.
    static std::shared_ptr<const DateWords> wordsOf(const NSLocale &locale);

    explicit DateWords(const NSLocale &locale);

    /// The longest phrase at a position of a folded text.
    Match longestAt(QStringView folded, qsizetype position) const;
    /// The month or weekday that a word is short for, or another case of; all of the word counts.
    /// Nothing if it could be several.
    const DateWord *nameLike(QStringView word) const;
    /// The length of what makes the number before it an ordinal: "st", ":e", "-го"; 0 if it does
    /// not.
    qsizetype ordinalAt(QStringView folded, qsizetype position) const;

    const NSLocale &locale() const { return _locale; }
    /// Whether people say before which noon an hour is.
    bool hasTwelveHours() const { return _hasTwelveHours; }

    /// Whether the hour behind noon is called 0, as in Japan.
    bool hasHourZero() const { return _hasHourZero; }
    /// The sign between day and month where the day comes first; 0 if the month does.
    char16_t dayMonthSign() const { return _dayMonthSign; }

    // --- For those that fill the table

    /// Adds words, with and without points.
    void add(QStringView words, const DateWord &meaning);
    /// The same for a name, which may also be typed in part or in another case.
    void addName(QStringView name, const DateWord &meaning);
    void addOrdinal(QStringView suffix);
    /// Adds a word of another language unless it means something in this one.
    void addForeign(QStringView word, const DateWord &meaning);
    /// Adds all names of months with what a pattern attaches to them.
    void addMonthsWith(const QString &prefix, const QString &suffix);
    void setDayMonthSign(char16_t sign) { _dayMonthSign = sign; }
    void setHasTwelveHours(bool hasTwelveHours) { _hasTwelveHours = hasTwelveHours; }
    void setHasHourZero(bool hasHourZero) { _hasHourZero = hasHourZero; }

private:
    struct Name
    {
        QString name;
        DateWord meaning;
    };

    bool isKnown(const QString &folded) const;

    const NSLocale _locale;
    PhraseTable<DateWord> _table;
    PhraseTable<char> _ordinals;
    std::vector<Name> _names;
    bool _hasTwelveHours = false;
    bool _hasHourZero = false;
    char16_t _dayMonthSign = 0;
};
} // namespace KTPrivate
