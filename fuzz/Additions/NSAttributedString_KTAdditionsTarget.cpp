#include "FuzzTarget.h"
#include "Targets.h"

#include <KTUtility/NSAttributedString_KTAdditions>
#include <KTUtility/NSString_KTAdditions>

void fuzzURLs(FuzzInput &input)
{
    const QString text = input.text();
    NSAttributedString attributed(text);
    KTURLTextAdditions::detectURLs(attributed);
    FUZZ_REQUIRE(attributed.string() == text);
    KTURLTextAdditions::_findURLInString(text);
    KTAdditions::integerNumberValue(text);
    KTAdditions::decimalNumberValue(text);
    KTAdditions::boolNumberValue(text);
    KTAdditions::shouldSearchWithCD(text);
}
