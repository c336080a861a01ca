#pragma once

#include "StandardDate_p.h"

namespace KTPrivate {
/// Reads a date, a time or both in a form of ISO 8601, RFC 3339 or RFC 9557.
StandardDate readISODate(const FoldedText &text, const NSLocale &locale);
} // namespace KTPrivate
