#include "TestSupport.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {
/// The process whose tests have not all been run yet; 0 when they have. Children do not run them.
pid_t running = 0;

void expectThatAllTestsHaveRun()
{
    if (running != ::getpid())
        return;
    std::fputs("The process was ended before its tests were over.\n", stderr);
    ::_exit(EXIT_FAILURE);
}
} // namespace

int testing_support::runTests(int argc, char **argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    running = ::getpid();
    std::atexit(expectThatAllTestsHaveRun);
    const int result = RUN_ALL_TESTS();
    running = 0;
    return result;
}

#ifdef __SANITIZE_ADDRESS__
extern "C" __attribute__((visibility("default"))) const char *__lsan_default_suppressions();

/// What these libraries keep is their own affair.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libdbus-1\n";
}
#endif
