#pragma once

#include "DateSaid_p.h"
#include "DateTokens_p.h"
#include <KTUtility/KTUtilityExport.h>

#include <optional>

namespace KTPrivate {
/// Takes a typed date, time, or both apart:
///
///     text   = part [separator] text | part
///     part   = time (see TimeGrammar) | relative (see RelativeDates)
///            | number [ending or mark] | "'" two digits | month | ["("] weekday [")"] | era | word
///     separator = "." | "," | "/" | "-"
///
/// Which of the numbers is the day comes later: see DateCandidates.
class KTUTILITY_EXPORT DateGrammar
{
public:
    DateGrammar(const DateTokens &tokens, const DateWords &words, bool isTimeField)
        : _tokens(tokens), _words(words), _isTimeField(isTimeField)
    {
    }

    /// What the text says; nothing if something in it is out of place.
    std::optional<DateSaid> read();

private:
    using Kind = DateWord::Kind;

    bool readPart();
    bool readSeparator();
    bool readTime();
    bool readZone();
    bool readNumber();
    bool readApostropheYear();
    bool readMonth();
    bool isRatherWeekday() const;
    bool readWeekday();
    bool readEra();
    void readFirstYear();
    bool readFiller();
    void readMark(DateSaid::Number *number);
    DateSaid::Number numberHere() const;
    bool isSpanOfHours() const;
    void joinToTime(DateSaid::Number *number);
    bool hasMinutes() const;
    bool isEnd() const;

    const DateToken &token(qsizetype ahead = 0) const { return _tokens.at(_at + ahead); }

    const DateTokens &_tokens;
    const DateWords &_words;
    const bool _isTimeField;
    qsizetype _at = 0;
    /// The sign since the last part; 0 if there is none.
    char16_t _separator = 0;
    bool _isBehindTime = false; ///< the last part is a time, or words behind one
    bool _isBehindWord = false; ///< the last part is a word that decides nothing
    DateSaid _said;
};
} // namespace KTPrivate
