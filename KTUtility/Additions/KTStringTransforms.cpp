#include "KTStringTransforms.h"

#include <algorithm>

void KTStringTransforms::insert(const QString &original, const QString &transformed)
{
    if (const QString *const known = find(original)) {
        // An entry of this, which is no constant.
        const_cast<QString &>(*known) = transformed;
        return;
    }
    _entries.push_back({original, transformed});
    if (2 * _entries.size() > _slots.size())
        grow();
    else
        addSlot(_entries.size() - 1);
}

void KTStringTransforms::clear()
{
    _entries.clear();
    _slots.clear();
    _mask = 0;
}

void KTStringTransforms::addSlot(size_t entry)
{
    const quint64 hash = hashOf(_entries[entry].original);
    size_t place = hash & _mask;
    while (_slots[place].entry != 0)
        place = (place + 1) & _mask;
    _slots[place] = {quint32(entry + 1), tagOf(hash)};
}

void KTStringTransforms::grow()
{
    constexpr size_t Least = 16;
    _slots.assign(std::max(Least, 2 * _slots.size()), Slot());
    _mask = _slots.size() - 1;
    for (size_t entry = 0; entry < _entries.size(); ++entry)
        addSlot(entry);
}
