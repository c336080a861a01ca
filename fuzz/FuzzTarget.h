#pragma once

#include "FuzzInput.h"

#include <span>

/// What is done with bytes that a fuzzer makes up. A broken promise ends the process.
struct FuzzTarget
{
    const char *name;
    void (*run)(FuzzInput &input);
};

/// All targets, by name.
std::span<const FuzzTarget> fuzzTargets();

/// The target with a name; null if there is none.
const FuzzTarget *fuzzTargetNamed(const char *name);

/// Ends the process with a message unless a promise holds.
#define FUZZ_REQUIRE(promise)                                                                      \
    do {                                                                                           \
        if (!(promise))                                                                            \
            fuzzFailed(#promise, __FILE__, __LINE__);                                              \
    } while (false)

[[noreturn]] void fuzzFailed(const char *promise, const char *file, int line);
