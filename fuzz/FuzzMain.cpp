// The entry of libFuzzer. KT_FUZZ_TARGET names the target.

#include "FuzzTarget.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>

extern "C" int LLVMFuzzerInitialize(int *argumentCount, char ***arguments);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {
const FuzzTarget *chosenTarget = nullptr;
}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    setenv("TZ", "America/New_York", 1);
    setenv("HOME", "/nonexistent", 1);
    tzset();
    const char *const name = std::getenv("KT_FUZZ_TARGET");
    chosenTarget = name ? fuzzTargetNamed(name) : nullptr;
    if (chosenTarget)
        return 0;
    std::fprintf(stderr, "KT_FUZZ_TARGET names no target; there are:");
    for (const FuzzTarget &target : fuzzTargets())
        std::fprintf(stderr, " %s", target.name);
    std::fprintf(stderr, "\n");
    std::exit(2);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzInput input(std::span(data, size));
    chosenTarget->run(input);
    return 0;
}
