#include "KTDateFormatterList.h"

#include <algorithm>
#include <utility>

KTDateFormatterList::KTDateFormatterList(size_t size, Make make)
    : _make(std::move(make)), _entries(size)
{
}

void KTDateFormatterList::make(size_t index) const
{
    const std::lock_guard lock(_mutex);
    Entry &entry = _entries[index];
    if (entry.isMade.load(std::memory_order_relaxed))
        return;
    entry.formatter = _make(index);
    entry.isMade.store(true, std::memory_order_release);
}

size_t KTDateFormatterList::madeCount() const
{
    return size_t(std::count_if(_entries.begin(), _entries.end(), [](const Entry &entry) {
        return entry.isMade.load(std::memory_order_acquire);
    }));
}

void KTDateFormatterList::makeAll() const
{
    for (size_t index = 0; index < size(); ++index)
        (*this)[index];
}
