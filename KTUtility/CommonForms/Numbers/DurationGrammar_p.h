#pragma once

// Private to the library. For fields of durations.

#include "DurationWords_p.h"
#include "NumberSigns_p.h"
#include "TypedDecimal_p.h"

namespace KTPrivate {
/// Whose words and signs a duration may have.
struct DurationVocabulary
{
    const PhraseTable<DurationWord> &program; ///< the words that the field shows; they come first
    const DurationWords &locale;
    const NumberSigns &signs;
};

namespace DurationGrammar {
/// Reads a text that is a duration and nothing else: counts with units from the largest to the
/// smallest ("1 h 30 min", "an hour and a half"), a clock ("1:30", "2:04.5"), or both
/// ("2 days, 4:13:02"); with a sign of the whole before it.
KTUTILITY_EXPORT TypedDecimal read(const FoldedText &text, const DurationVocabulary &vocabulary);
} // namespace DurationGrammar
} // namespace KTPrivate
