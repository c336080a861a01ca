#pragma once

#include <KTUtility/NSManualClock>

#include "TestSupport.h"

namespace testing_support {
/// A test with windows in which time passes when it says so.
class ClockedTest : public WindowedTest
{
protected:
    NSManualClock clock;
};
} // namespace testing_support
