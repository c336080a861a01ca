#include "FuzzTarget.h"
#include "Targets.h"

#include <KTUtility/NSString_KTNaming>

void fuzzNaming(FuzzInput &input)
{
    const QString text = input.text();
    const QString property = KTAdditions::propertyStringFromString(text);
    const QString entity = KTAdditions::entityStringFromString(text);
    KTAdditions::libraryEntityNameFromString(text);
    KTAdditions::lowerCaseNameFromString(text);
    KTAdditions::stringFromBumpyCaseString(text);
    KTAdditions::bumpyCaseStringFromString(text, input.flag());
    KTAdditions::labelString(text);
    KTAdditions::properNounString(text);
    FUZZ_REQUIRE(KTAdditions::tableColumnString(text) == KTAdditions::tableColumnString(text));
    FUZZ_REQUIRE(KTAdditions::tableNameString(text) == KTAdditions::tableNameString(text));
    FUZZ_REQUIRE(property == KTAdditions::propertyStringFromString(text));
    FUZZ_REQUIRE(entity == KTAdditions::entityStringFromString(text));
}
