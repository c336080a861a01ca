#pragma once

#include "StandardDate_p.h"

namespace KTPrivate {
/// Reads a date with its time as programs write it in English: RFC 5322, RFC 850, asctime() and the
/// command "date", ECMAScript.
StandardDate readMailDate(const FoldedText &text, const NSLocale &locale);
} // namespace KTPrivate
