#pragma once

#include "DateEnvironment_p.h"

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace KTPrivate {
/// What a word, or several, means in a date.
struct NaturalLanguageMeaning
{
    enum class Kind : quint8 {
        Filler, ///< "at", "on"
        Now,
        Day,             ///< value: days from today
        Weekday,         ///< value: 0 for Sunday
        RelativeWeekday, ///< value: 0 for Sunday; sign: the next or the last one, 0 this week's
        Month,           ///< value: from 1
        Unit,            ///< value: an NSCalendarUnits
        RelativeUnit,    ///< "next week"; value: an NSCalendarUnits; sign: how many
        Amount,          ///< "in 3 days", the number in the text; value: an NSCalendarUnits; sign
        FixedAmount,     ///< the same in words; amount: the number
        Direction,       ///< "next", "last"; sign
        InFuture,        ///< "in", before an amount
        Suffix,          ///< "ago", "from now", behind an amount; sign
        Number,          ///< "a", before a unit; value
        HourName,        ///< "noon"; value: the hour
        HalfOfDay,       ///< value: 0 AM, 1 PM
        HourMark,        ///< "o'clock", "Uhr"
        MinuteMark,
        SecondMark,
        YearMark, ///< behind the number of a year, as in Japanese
        MonthMark,
        DayMark
    };

    Kind kind = Kind::Filler;
    int value = 0;
    int sign = 0;
    int amount = 0;
};

/// A meaning found in a text.
struct NaturalLanguageWord
{
    NaturalLanguageMeaning meaning;
    qsizetype length = 0; ///< in the text; 0 if nothing was found
};

/// The words for dates of one language: those in ICU's locale data (relative days and amounts,
/// weekdays, months, AM and PM), and for English, German, French and Japanese more.
class KTUTILITY_EXPORT NaturalLanguageWords
{
public:
    using Kind = NaturalLanguageMeaning::Kind;

    /// The words of the environment's language; made on first use and kept.
    static std::shared_ptr<const NaturalLanguageWords> wordsOf(const DateEnvironment &environment);

    explicit NaturalLanguageWords(const DateEnvironment &environment);

    /// The longest words at the start of \a text, which has to be folded (see folded()).
    NaturalLanguageWord find(QStringView text) const;
    /// The same for one kind only.
    NaturalLanguageWord find(QStringView text, Kind kind) const;

    /// A text as the words are kept: no upper case.
    static QString folded(QStringView text) { return text.toString().toCaseFolded(); }

private:
    struct Entry
    {
        QString start;
        QString end; ///< what stands behind the number of an Amount
        NaturalLanguageMeaning meaning;

        qsizetype lengthIn(QStringView text) const;
    };

    void add(const QString &words, const NaturalLanguageMeaning &meaning);
    void addNames(const DateEnvironment &environment);
    void addRelativeWords(const DateEnvironment &environment);
    void addAmount(const QString &words, const NaturalLanguageMeaning &meaning);
    void addTable(const QString &language);

    std::vector<Entry> _entries;
};

/// A row of the tables: a language, words of it separated by "|", and what they mean.
struct NaturalLanguageRow
{
    const char *language;
    const char16_t *words;
    NaturalLanguageMeaning meaning;
};

/// The words that ICU's data do not have.
const std::vector<NaturalLanguageRow> &naturalLanguageTable();
} // namespace KTPrivate
