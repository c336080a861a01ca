#pragma once

#include "NumberReader_p.h"
#include "NumberSettings_p.h"
#include "NumberWriter_p.h"
#include "ScientificWriter_p.h"

#include <unicode/decimfmt.h>

#include <optional>

/// How numbers are read and written without ICU, with its results: what that takes comes from ICU's
/// own symbols and texts.
namespace KTPrivate::NumberQuickPaths {
/// Nothing if only ICU can write what the settings ask for.
std::optional<NumberWriter> writerFor(const NumberSettings &settings,
                                      const icu::DecimalFormat &format);
/// The same for powers of ten.
std::optional<ScientificWriter> scientificWriterFor(const NumberSettings &settings,
                                                    const icu::DecimalFormat &format);
/// Nothing if only ICU can read what the settings allow.
std::optional<NumberReader> readerFor(const NumberSettings &settings,
                                      const icu::DecimalFormat &format);
} // namespace KTPrivate::NumberQuickPaths
