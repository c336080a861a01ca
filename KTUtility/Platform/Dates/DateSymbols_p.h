#pragma once

#include "NSDateFormatterStyle.h"

#include <unicode/dtfmtsym.h>

#include <QStringList>

// The lists of names in ICU's symbols. ICU's weekdays have an empty name at 0; ours do not.

namespace KTPrivate::DateSymbols {
QStringList names(const icu::DateFormatSymbols &symbols, NSDateFormatterSymbols kind);
void setNames(icu::DateFormatSymbols *symbols, NSDateFormatterSymbols kind,
              const QStringList &names);
} // namespace KTPrivate::DateSymbols
