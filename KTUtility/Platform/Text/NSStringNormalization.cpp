#include "NSStringNormalization.h"

#include "NSASCII_p.h"
#include "NSICU_p.h"

#include <unicode/normalizer2.h>

namespace {
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
    return NSASCII::isAllOf(text) ? text
                                  : normalized(icu::Normalizer2::getNFKDInstance(status), text);
}

QString NSString::foldedStringWithCompatibilityMapping(const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    return NSASCII::isAllOf(text)
               ? text.toLower()
               : normalized(icu::Normalizer2::getNFKCCasefoldInstance(status), text);
}
