#include "LogLevels.h"

#include "PackedLevels_p.h"

#include <algorithm>

using namespace KTPrivate;

namespace {
std::unique_ptr<const PackedLevels> packedLevelsOf(const LogLevels::Levels &levels)
{
    auto made = std::make_unique<PackedLevels>();
    for (const auto &[component, level] : levels)
        made->add(component, level);
    made->squeeze();
    return made;
}
} // namespace

LogLevels::LogLevels()
{
    for (std::atomic<int> &highest : _highestInSlot)
        highest.store(NothingIsOn, std::memory_order_relaxed);
    set({});
}

LogLevels::~LogLevels() = default;

void LogLevels::set(const Levels &levels)
{
    setSlots(levels);
    std::unique_ptr<const PackedLevels> made = packedLevelsOf(levels);
    auto known = std::find_if(_known.begin(), _known.end(),
                              [&made](const auto &list) { return *list == *made; });
    if (known == _known.end())
        known = _known.insert(known, std::move(made));
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
    return _active.load(std::memory_order_acquire)->levelOf(component);
}

bool LogLevels::isReached(const QString &component, int level) const
{
    const int highest = levelOf(component);
    return highest != 0 && level <= highest;
}
