#pragma once

#include <benchmark/benchmark.h>

/// The peer of what makes formatters of dates: ICU makes one.
void peerDateFormatMade(benchmark::State &state);
