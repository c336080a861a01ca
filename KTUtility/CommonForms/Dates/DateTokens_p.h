#pragma once

#include "DateWords_p.h"
#include <KTUtility/CommonForms/Zones/TypedZone_p.h>
#include <KTUtility/KTUtilityExport.h>

#include <QStringView>
#include <QVarLengthArray>

#include <span>

namespace KTPrivate {
/// A number, word or sign of a typed date.
struct KTUTILITY_EXPORT DateToken
{
    enum class Type : quint8 { Number, Word, Sign, Zone };

    Type type = Type::Sign;
    bool isSpaced = false;  ///< whether a blank stands before it
    bool isOrdinal = false; ///< of a number, whether it has the ending of one
    char16_t sign = 0;
    int value = 0; ///< of a number
    int digits = 0;
    qsizetype begin = 0; ///< in the folded text
    qsizetype length = 0;
    std::span<const DateWord> words = {};

    bool isSign(char16_t character) const { return type == Type::Sign && sign == character; }
    bool isNumber() const { return type == Type::Number; }
    /// The meaning of a kind; null if it has none.
    const DateWord *word(DateWord::Kind kind) const;
    bool is(DateWord::Kind kind) const { return word(kind) != nullptr; }
    /// Whether it is a mark before times that stands before nothing else.
    bool isOnlyBeforeClocks() const;
};

/// A folded text taken apart. The words have to outlive it.
class KTUTILITY_EXPORT DateTokens
{
public:
    /// Nobody types more about a date.
    static constexpr qsizetype MaximumCount = 28;

    DateTokens(QStringView folded, const DateWords &words);

    /// Whether all of the text is known words, numbers and signs.
    bool isValid() const { return _isValid; }
    qsizetype count() const { return _tokens.size(); }
    /// What the token of a zone means.
    const TypedZone &zone() const { return _zone; }
    /// One without a type that fits anything behind the end.
    const DateToken &at(qsizetype index) const;

private:
    bool read(QStringView folded, const DateWords &words);
    qsizetype readNumber(QStringView folded, const DateWords &words, qsizetype at);
    qsizetype readWeekdayWithNumber(QStringView folded, const DateWords &words, qsizetype at);
    qsizetype readWord(QStringView folded, const DateWords &words, qsizetype at);
    qsizetype readSign(QStringView folded, qsizetype at);
    qsizetype readZone(QStringView folded, const DateWords &words, qsizetype at);
    bool isOffsetWest(QStringView folded, qsizetype at) const;
    bool isBehindTime() const;

    QVarLengthArray<DateToken, MaximumCount> _tokens;
    TypedZone _zone;
    bool _isSpaced = false;
    bool _isValid = false;
};

/// Whether "d.mm" at a token can be a day and a month.
bool isDayAndMonth(const DateTokens &tokens, qsizetype at);
} // namespace KTPrivate
