#include "support/TestSupport.h"

int main(int argc, char **argv)
{
    testing_support::pinEnvironment("offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#ifdef __SANITIZE_ADDRESS__
extern "C" __attribute__((visibility("default"))) const char *__lsan_default_suppressions();

/// What fontconfig keeps of its configuration is its own affair.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}
#endif
