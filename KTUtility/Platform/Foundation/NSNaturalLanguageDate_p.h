#pragma once

#include "NSDateEngine_p.h"

#include <QStringView>

namespace NSNaturalLanguageDate {
/// Reads a whole text as people talk.
/// \param pattern the formatter's own pattern; its order of day, month and year is the user's.
bool parse(QStringView text, const QString &pattern, const NSDateReading &reading,
           NSDateMatch *match);
} // namespace NSNaturalLanguageDate
