#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringView>

#include <array>
#include <atomic>
#include <climits>
#include <memory>
#include <utility>
#include <vector>

namespace KTPrivate {
class PackedLevels;

/// The levels of the components that are on, for the question that every call site asks.
///
/// A component that is off is told from those that are on by a few of its letters: a slot for each
/// combination of them has the highest level that any component in it has. That takes the same time
/// however many are on.
///
/// Any thread may ask while one sets the levels. A component that stays on is on all the time.
class KTUTILITY_EXPORT LogLevels
{
public:
    using Levels = std::vector<std::pair<QString, int>>;

    LogLevels();
    ~LogLevels();
    LogLevels(const LogLevels &) = delete;
    LogLevels &operator=(const LogLevels &) = delete;

    /// Sets all levels; those that are 0 are left out.
    void set(const Levels &levels);

    /// The level of a component; 0 if it is not there.
    int levelOf(const QString &component) const;

    /// Whether a component has a level, and that is not below \a level. When nothing is on, this is
    /// one comparison.
    bool isOn(const QString &component, int level) const
    {
        return level <= _highest.load(std::memory_order_relaxed) &&
               level <= _highestInSlot[slotOf(component)].load(std::memory_order_relaxed) &&
               isReached(component, level);
    }

    /// Where a component is looked up. No two that have a menu entry share a slot.
    static constexpr size_t slotOf(QStringView component)
    {
        const auto size = size_t(component.size());
        if (size == 0)
            return 0;
        const auto unit = [component](size_t index) { return size_t(component.utf16()[index]); };
        return (2 * size + 4 * unit(0) + 16 * unit(size * 5 / 8) + unit(size - 1)) % Slots;
    }

private:
    static constexpr size_t Slots = 256;
    /// No level at all: below every level that can be asked for.
    static constexpr int NothingIsOn = INT_MIN;

    bool isReached(const QString &component, int level) const;
    void setSlots(const Levels &levels);

    std::atomic<int> _highest = NothingIsOn;
    std::array<std::atomic<int>, Slots> _highestInSlot;
    // Other threads may be walking a list while the levels change, so that lists stay once they are
    // made, and are used again when the same components are on.
    std::atomic<const PackedLevels *> _active = nullptr;
    std::vector<std::unique_ptr<const PackedLevels>> _known;
};
} // namespace KTPrivate
