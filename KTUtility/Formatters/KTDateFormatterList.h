#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Dates/NSDateFormatter.h>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

/// Platform formatters in the order in which they are tried, each made when it is first asked for.
///
/// Fields share their lists, so that the formatters cannot be changed; threads may ask at once.
///
/// \code
/// const KTDateFormatterList &dates = formatter.strictDateFormatters();
/// for (size_t index = 0; index < dates.size(); ++index)
///     patterns.append(dates[index]->dateFormat());
/// \endcode
class KTUTILITY_EXPORT KTDateFormatterList
{
public:
    /// What the list holds.
    using Formatter = std::shared_ptr<const NSDateFormatter>;
    /// Makes the formatter at an index. May be called much later than the list was made.
    using Make = std::function<Formatter(size_t index)>;

    /// A list of that many formatters, none of which is made yet.
    KTDateFormatterList(size_t size, Make make);
    KTDateFormatterList(const KTDateFormatterList &) = delete;
    KTDateFormatterList &operator=(const KTDateFormatterList &) = delete;

    /// How many formatters there are, made or not.
    size_t size() const { return _entries.size(); }

    /// The formatter at an index below size(); it stays where it is.
    const Formatter &operator[](size_t index) const
    {
        const Entry &entry = _entries[index];
        if (!entry.isMade.load(std::memory_order_acquire))
            make(index);
        return entry.formatter;
    }

    /// How many formatters were asked for so far.
    size_t madeCount() const;
    /// Makes all that were not asked for yet.
    void makeAll() const;

private:
    struct Entry
    {
        std::atomic<bool> isMade = false;
        Formatter formatter;
    };

    void make(size_t index) const;

    const Make _make;
    mutable std::mutex _mutex;
    mutable std::vector<Entry> _entries;
};
