#pragma once

// Private to the library. For fields of numbers.

#include "NumberSigns_p.h"
#include "TypedDecimal_p.h"

namespace KTPrivate::NumberGrammar {
/// What a plain number may be beside digits with separators.
enum class Kind {
    Number,  ///< a number
    Percent, ///< a number of hundredths, with or without a percent sign
};

/// Reads a text that is a number and nothing else: with a sign before or behind it or in
/// parentheses, with a fraction or an exponent.
KTUTILITY_EXPORT TypedDecimal read(const FoldedText &text, const NumberSigns &signs,
                                   Kind kind = Kind::Number);
} // namespace KTPrivate::NumberGrammar
