#pragma once

// Private to the library. For words in cases that the locale's data does not list.

#include <KTUtility/KTUtilityExport.h>

#include <QStringView>

namespace KTPrivate {
/// How many letters two words have in common at the beginning if they differ by their endings only,
/// as "рублях" and "рублей" do; 0 if they do not: fewer than four in common, or more than three
/// left over. Of folded words.
KTUTILITY_EXPORT qsizetype commonStem(QStringView word, QStringView other);
} // namespace KTPrivate
