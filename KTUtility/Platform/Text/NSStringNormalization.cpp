#include "NSStringNormalization.h"

#include "ASCII_p.h"
#include "ICU_p.h"

#include <unicode/normalizer2.h>

using namespace KTPrivate;

namespace {
QString normalized(const icu::Normalizer2 *normalizer, const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString result = normalizer->normalize(ICU::aliasOf(text), status);
    return U_SUCCESS(status) ? ICU::stringOf(result) : text;
}
} // namespace

QString NSString::decomposedStringWithCompatibilityMapping(const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    return ASCII::isAllOf(text) ? text
                                : normalized(icu::Normalizer2::getNFKDInstance(status), text);
}

QString NSString::foldedStringWithCompatibilityMapping(const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    return ASCII::isAllOf(text)
               ? text.toLower()
               : normalized(icu::Normalizer2::getNFKCCasefoldInstance(status), text);
}
