#pragma once

#include "DateSaid_p.h"
#include "DateTokens_p.h"
#include <KTUtility/KTUtilityExport.h>

#include <QVarLengthArray>

#include <optional>

namespace KTPrivate {
/// Reads a time of day from the tokens of a text:
///
///     time   = [mark] [period]… clock [hour mark] [period]… | [mark] noon | [mark] midnight
///     clock  = h ":" mm [":" ss ["." fraction]] | h "." mm ["." ss]
///            | h "h" [mm ["min" [ss ["s"]]]] | h "half" | h
///     period = AM | PM | "in the evening" …
///
/// A bare h needs a mark ("at") or a period; h.mm needs a period, a mark that stands before nothing
/// but clocks ("um"), an hour mark behind it, or a field of times. Behind another mark it is a time
/// only if it can be no day and month. After a mark alone, an hour of a clock that goes to twelve is
/// no time.
class KTUTILITY_EXPORT TimeGrammar
{
public:
    /// \param isTimeField whether texts are times in the first place.
    TimeGrammar(const DateTokens &tokens, const DateWords &words, bool isTimeField)
        : _tokens(tokens), _words(words), _isTimeField(isTimeField)
    {
    }

    /// Whether a time begins at a token. What it says goes into \a said, also if there is no such
    /// time; \a at is then behind it.
    bool read(qsizetype *at, DateSaid *said);

private:
    using Kind = DateWord::Kind;

    struct Period
    {
        int hours = 0;
        bool isExact = false;
        bool isOfToday = false; ///< "tonight"
        qsizetype token = 0;
    };

    struct Clock
    {
        std::optional<int> hour;
        int minute = 0;
        int second = 0;
        int millisecond = 0;
        qsizetype hourToken = 0;
        qsizetype minuteToken = -1;
        qsizetype secondToken = -1;
        bool isPlain = false;  ///< an hour alone
        bool isDotted = false; ///< h.mm
        bool hasMark = false;  ///< "h", "Uhr"
    };

    void readLead();
    void skipPointOfWord();
    bool readPeriod(bool isBehind);
    bool isHalfOfDay(const DateToken &token, qsizetype index) const;
    void readPeriodsBehind();
    bool readName();
    bool readClock();
    void readColons();
    void readDots();
    void readMarked();
    void readMinutesBehindMark();
    bool isOfNumbers() const;
    bool isMinutes(qsizetype index) const;
    bool isOfADate(qsizetype index) const;
    bool isDayAndMonth() const;
    bool isTime() const;
    bool isConvincing() const;
    bool isConvincingWithDots() const;
    std::optional<int> hourOfDay() const;
    bool hasTwoHalves() const;
    bool isBehindMidnight(int hour) const;
    bool isOfNamedDate(int hour) const;
    void say(DateSaid *said) const;
    void sayParts(int hour, DateSaid *said) const;

    const DateToken &token(qsizetype ahead = 0) const { return _tokens.at(_at + ahead); }

    const DateTokens &_tokens;
    const DateWords &_words;
    const bool _isTimeField;
    qsizetype _at = 0;
    bool _hasTimeMark = false;
    bool _hasClockMark = false; ///< a mark that stands before nothing else
    std::optional<int> _named;
    qsizetype _nameToken = 0;
    Clock _clock;
    QVarLengthArray<Period, 4> _periods;
};
} // namespace KTPrivate
