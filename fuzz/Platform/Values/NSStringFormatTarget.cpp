#include "FuzzTarget.h"
#include "Targets.h"

#include <KTUtility/NSStringFormat>

#include <limits>

namespace {
const NSFormatArgument Arguments[] = {
    NSFormatArgument(42),
    NSFormatArgument(-1LL),
    NSFormatArgument(std::numeric_limits<double>::quiet_NaN()),
    NSFormatArgument(1e300),
    NSFormatArgument(u"text"),
    NSFormatArgument("utf8"),
    NSFormatArgument(nullptr),
    NSFormatArgument(char32_t(0x1F600)),
};
} // namespace

void fuzzFormat(FuzzInput &input)
{
    const size_t count = size_t(input.below(int(std::size(Arguments)) + 1));
    const QString format = input.text();
    const std::span<const NSFormatArgument> arguments(Arguments, count);
    const QString text = NSString::stringWithFormatArguments(format, arguments);
    FUZZ_REQUIRE(text == NSString::stringWithFormatArguments(format, arguments));
}
