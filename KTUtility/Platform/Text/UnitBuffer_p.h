#pragma once

// Private to the library. For formats and log lines, which put texts together from short pieces.

#include "ShortCopy_p.h"

#include <QLatin1String>
#include <QStringView>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

namespace KTPrivate {
/// A UTF-16 text that is put together from many short pieces: formats, lines.
///
/// A piece costs a few moves and no call; QString::append() is a call with a test of who shares
/// the text. Short texts stay within the object, which may be used again and then allocates no
/// more.
class UnitBuffer
{
public:
    UnitBuffer() = default;
    UnitBuffer(const UnitBuffer &) = delete;
    UnitBuffer &operator=(const UnitBuffer &) = delete;

    QStringView view() const { return {_start, _end - _start}; }
    qsizetype size() const { return _end - _start; }
    /// What was allocated for longer texts, in units.
    qsizetype capacity() const { return _limit - _start; }
    void clear() { _end = _start; }
    /// Takes away what is behind a size.
    void truncate(qsizetype size) { _end = _start + size; }

    void append(QStringView piece)
    {
        char16_t *const end = grow(piece.size());
        copyShort(end, piece.utf16(), size_t(piece.size()));
    }

    /// ASCII only.
    void append(QLatin1String piece)
    {
        char16_t *const end = grow(piece.size());
        std::copy(piece.begin(), piece.end(), end);
    }

    void append(char16_t unit) { *grow(1) = unit; }

private:
    static constexpr size_t OwnSize = 256;

    /// Makes the text longer and returns where it ended.
    char16_t *grow(qsizetype size)
    {
        if (_limit - _end < size)
            reserve(size_t(_end - _start) + size_t(size));
        char16_t *const end = _end;
        _end += size;
        return end;
    }

    void reserve(size_t size)
    {
        const size_t used = size_t(_end - _start);
        auto units = std::make_unique_for_overwrite<char16_t[]>(2 * size);
        std::memcpy(units.get(), _start, used * sizeof(char16_t));
        _allocated = std::move(units);
        _start = _allocated.get();
        _end = _start + used;
        _limit = _start + 2 * size;
    }

    std::array<char16_t, OwnSize> _own;
    std::unique_ptr<char16_t[]> _allocated;
    char16_t *_start = _own.data();
    char16_t *_end = _start;
    char16_t *_limit = _start + OwnSize;
};
} // namespace KTPrivate
