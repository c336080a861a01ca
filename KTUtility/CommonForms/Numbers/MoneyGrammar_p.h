#pragma once

// Private to the library. For fields of money.

#include "MoneyWords_p.h"
#include "NumberSigns_p.h"
#include "TypedDecimal_p.h"

namespace KTPrivate {
/// The currency of a field, and where it is written how.
struct MoneyField
{
    const NSLocale &locale;
    const QString &code;
    const QString &symbol; ///< what the field shows for it
};

namespace MoneyGrammar {
/// Reads a text that is an amount with the currency's code, signs or names on either side of it; a
/// sign of negative amounts may stand before, between and behind them, or parentheses around all.
KTUTILITY_EXPORT TypedDecimal read(const FoldedText &text, const MoneyField &field);
} // namespace MoneyGrammar
} // namespace KTPrivate
