#include "LogLevels.h"

#include <algorithm>

using namespace KTPrivate;

LogLevels::LogLevels()
{
    for (std::atomic<int> &highest : _highestInSlot)
        highest.store(NothingIsOn, std::memory_order_relaxed);
    set({});
}

void LogLevels::set(Levels levels)
{
    setSlots(levels);
    auto known = std::find_if(_known.begin(), _known.end(),
                              [&levels](const auto &list) { return *list == levels; });
    if (known == _known.end())
        known = _known.insert(known, std::make_unique<const Levels>(std::move(levels)));
    _active.store(known->get(), std::memory_order_release);
}

/// Each slot changes once, so that none of a component that stays on is empty in between.
void LogLevels::setSlots(const Levels &levels)
{
    int highest = NothingIsOn;
    std::array<int, Slots> highestInSlot{};
    highestInSlot.fill(NothingIsOn);
    for (const auto &[component, level] : levels) {
        int &inSlot = highestInSlot[slotOf(component)];
        inSlot = std::max(inSlot, level);
        highest = std::max(highest, level);
    }
    for (size_t slot = 0; slot < Slots; ++slot)
        _highestInSlot[slot].store(highestInSlot[slot], std::memory_order_relaxed);
    _highest.store(highest, std::memory_order_relaxed);
}

int LogLevels::levelOf(const QString &component) const
{
    const Levels &active = *_active.load(std::memory_order_acquire);
    const auto found = std::find_if(active.begin(), active.end(),
                                    [&](const auto &entry) { return entry.first == component; });
    return found == active.end() ? 0 : found->second;
}

bool LogLevels::isReached(const QString &component, int level) const
{
    const int highest = levelOf(component);
    return highest != 0 && level <= highest;
}
