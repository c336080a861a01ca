#pragma once

// Private to the library. For what copies runs of a few units: buffers, log lines.

#include <cstddef>
#include <cstring>

namespace KTPrivate {
/// Copies a short run of units: by blocks of eight bytes, the last of which may overlap with the
/// one before.
///
/// Runs are mostly below a hundred bytes, for which a call of memcpy() costs more than the copying:
/// its vector instructions are of another kind than those of code for every x86-64, and processors
/// may take tens of nanoseconds for each change between the two kinds.
template<typename Unit>
void copyShort(Unit *to, const Unit *from, size_t size)
{
    constexpr size_t Block = 8 / sizeof(Unit);
    constexpr size_t Long = 1024 / sizeof(Unit);
    if (size > Long) {
        std::memcpy(to, from, size * sizeof(Unit));
        return;
    }
    if (size < Block) {
        for (size_t unit = 0; unit < size; ++unit)
            to[unit] = from[unit];
        return;
    }
    for (size_t unit = 0; unit < size - Block; unit += Block)
        std::memcpy(to + unit, from + unit, 8);
    std::memcpy(to + size - Block, from + size - Block, 8);
}
} // namespace KTPrivate
