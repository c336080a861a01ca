#include "Stems_p.h"

#include <algorithm>

qsizetype KTPrivate::commonStem(QStringView word, QStringView other)
{
    constexpr qsizetype MinimumStem = 4;
    constexpr qsizetype MaximumEnding = 3;
    const auto differing = std::mismatch(word.begin(), word.end(), other.begin(), other.end());
    const qsizetype stem = differing.first - word.begin();
    const bool isSame = stem >= MinimumStem && word.size() - stem <= MaximumEnding &&
                        other.size() - stem <= MaximumEnding;
    return isSame ? stem : 0;
}
