#include "FuzzTarget.h"

#include "Targets.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {
constexpr std::array<FuzzTarget, 13> Targets = {{
    {"common", fuzzCommonForms},
    {"csv", fuzzCSV},
    {"currency", fuzzCurrency},
    {"datetime", fuzzDateTime},
    {"duration", fuzzDuration},
    {"encodings", fuzzEncodings},
    {"format", fuzzFormat},
    {"media", fuzzMedia},
    {"naming", fuzzNaming},
    {"number", fuzzNumber},
    {"phone", fuzzPhone},
    {"propertylist", fuzzPropertyList},
    {"urls", fuzzURLs},
}};
} // namespace

std::span<const FuzzTarget> fuzzTargets()
{
    return Targets;
}

const FuzzTarget *fuzzTargetNamed(const char *name)
{
    for (const FuzzTarget &target : Targets) {
        if (std::strcmp(target.name, name) == 0)
            return &target;
    }
    return nullptr;
}

void fuzzFailed(const char *promise, const char *file, int line)
{
    std::fprintf(stderr, "%s:%d: broken: %s\n", file, line, promise);
    std::abort();
}
