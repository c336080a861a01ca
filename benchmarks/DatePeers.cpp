#include "DatePeers.h"

#include <unicode/smpdtfmt.h>

#include <memory>

void peerDateFormatMade(benchmark::State &state)
{
    const icu::Locale locale("en_US");
    const icu::UnicodeString pattern(u"M/d/yy");
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        auto format = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
        benchmark::DoNotOptimize(format);
    }
}
