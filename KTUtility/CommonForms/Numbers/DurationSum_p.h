#pragma once

// Private to the library. For the grammars of durations.

#include "DurationWords_p.h"
#include "TypedDecimal_p.h"

#include <optional>

namespace KTPrivate {
/// Counts of units added up exactly, from the largest to the smallest, none of them twice.
class KTUTILITY_EXPORT DurationSum
{
public:
    explicit DurationSum(const FoldedText &text) : _text(text) {}

    /// Takes a sign of the whole duration, which may stand before it.
    void takeSign(qsizetype *position);

    /// Adds what stands at a part of the text.
    /// \param divisor what the count has to be divided by: a third of an hour is 20 minutes exactly.
    /// \return false if no such unit can stand behind the ones before.
    bool add(qsizetype begin, qsizetype end, const NSDecimalNumber &count, DurationUnit unit,
             const NSDecimalNumber &divisor = NSDecimalNumber(1));
    /// Adds a part of the unit that was added last ("and a half").
    void addToLast(qsizetype begin, qsizetype end, const NSDecimalNumber &count);

    bool isEmpty() const { return !_last; }
    /// The unit that was added last.
    std::optional<DurationUnit> last() const { return _last; }
    bool isNegative() const { return _isNegative; }

    /// The sum in a form, refused if it has units without a fixed length.
    TypedDecimal result(const QString &form) const;

private:
    void addSeconds(const NSDecimalNumber &count, DurationUnit unit,
                    const NSDecimalNumber &divisor);

    const FoldedText &_text;
    NSDecimalNumber _seconds;
    QList<KTReadingPart> _parts;
    std::optional<DurationUnit> _last;
    bool _isNegative = false;
    bool _isOfFixedLength = true;
};
} // namespace KTPrivate
