#include "FuzzTarget.h"
#include "Targets.h"

#include <KTUtility/NSPropertyListSerialization>

void fuzzPropertyList(FuzzInput &input)
{
    const QVariant list = NSPropertyListSerialization::propertyListFromData(input.rest());
    if (!list.isValid())
        return;
    // Binary lists may hold texts that XML cannot.
    const QByteArray written = NSPropertyListSerialization::dataWithPropertyList(list);
    FUZZ_REQUIRE(NSPropertyListSerialization::isPropertyList(list) == !written.isNull());
    if (written.isNull())
        return;
    // Once written, a list stays as it is.
    const QVariant again = NSPropertyListSerialization::propertyListFromData(written);
    FUZZ_REQUIRE(NSPropertyListSerialization::dataWithPropertyList(again) == written);
}
