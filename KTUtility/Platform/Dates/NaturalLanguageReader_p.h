#pragma once

#include "NSCalendar.h"
#include "NaturalLanguageWords_p.h"

#include <QString>
#include <QStringView>

#include <optional>
#include <vector>

namespace KTPrivate {
/// What a text says about a date, in its own terms.
struct NaturalLanguageSaid
{
    struct Move
    {
        NSCalendarUnits unit;
        int amount;
    };

    struct Number
    {
        int value;
        int digits;
    };

    bool isNow = false;
    std::optional<int> daysFromToday;
    std::optional<int> weekday; ///< 0 for Sunday
    int weekdayDirection = 0;   ///< how many weekdays after today (or before); 0: this week's
    std::optional<int> year;
    std::optional<int> month;
    std::optional<int> day;
    std::vector<Move> moves;
    std::optional<int> hour;
    int minute = 0;
    int second = 0;
    std::optional<int> half;     ///< 0 AM, 1 PM
    std::vector<Number> numbers; ///< that are nothing yet

    bool hasDate() const
    {
        return daysFromToday || weekday || year || month || day || !moves.empty();
    }
};

/// Takes a text apart into words and numbers.
class KTUTILITY_EXPORT NaturalLanguageReader
{
public:
    /// \param order the letters d, m and y in the user's order.
    /// \param centuryStart the first of the hundred years that two digits mean.
    NaturalLanguageReader(const NaturalLanguageWords &words, QStringView text, const QString &order,
                          int centuryStart);

    /// What the text says; nothing if it has a word that is unknown or out of place.
    std::optional<NaturalLanguageSaid> read();

private:
    using Kind = NaturalLanguageMeaning::Kind;
    using Number = NaturalLanguageSaid::Number;

    bool readNext();
    bool readWord(const NaturalLanguageWord &word);
    bool readDateWord(const NaturalLanguageMeaning &meaning);
    bool readTimeWord(const NaturalLanguageMeaning &meaning);
    bool readDirection(int sign);
    bool readAmountInWords(int number, bool isInFuture);
    bool readNumber();
    bool readDateOfNumbers(const Number &first);
    QString orderOf(const std::vector<Number> &numbers) const;
    bool assignDate(const std::vector<Number> &numbers, const QString &order);
    bool readClock(int hour);
    bool readNumberWithMark(int number, int digits);
    bool readHourMark(int hour);
    std::optional<int> readMarked(Kind mark);
    bool assignNumbers();
    bool assignYear(int number, int digits);
    bool setHour(int hour);
    bool move(NSCalendarUnits unit, int amount);

    template<typename Value>
    static bool setOnce(std::optional<Value> *field, Value value)
    {
        const bool isNew = !field->has_value();
        *field = value;
        return isNew;
    }

    QStringView rest() const { return QStringView(_text).sliced(_at); }
    char16_t unitAt(qsizetype at) const { return at < _text.size() ? _text[at].unicode() : u'\0'; }
    void skipWhitespace();
    bool take(Kind kind, NaturalLanguageMeaning *meaning = nullptr);
    std::optional<int> takeDigits(int *digits = nullptr);

    const NaturalLanguageWords &_words;
    const QString _text;
    const QString _order;
    const int _centuryStart;
    qsizetype _at = 0;
    NaturalLanguageSaid _said;
};
} // namespace KTPrivate
