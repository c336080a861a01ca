#include "NSStringNormalization.h"

#include "NSICU_p.h"

#include <unicode/normalizer2.h>

#include <algorithm>

namespace {
bool isASCII(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit < QChar(0x80); });
}

QString normalized(const icu::Normalizer2 *normalizer, const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString result = normalizer->normalize(NSICU::aliasOf(text), status);
    return U_SUCCESS(status) ? NSICU::stringOf(result) : text;
}
} // namespace

QString NSString::decomposedStringWithCompatibilityMapping(const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    return isASCII(text) ? text : normalized(icu::Normalizer2::getNFKDInstance(status), text);
}

QString NSString::foldedStringWithCompatibilityMapping(const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    return isASCII(text) ? text.toLower()
                         : normalized(icu::Normalizer2::getNFKCCasefoldInstance(status), text);
}
