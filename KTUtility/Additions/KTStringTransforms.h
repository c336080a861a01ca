#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringView>

#include <bit>
#include <cstring>
#include <vector>

/// Texts and what they were turned into, in the order in which they came: one domain of
/// KTStringTransformCache.
///
/// Made for short texts that are asked for over and over: asking costs less than the look-up in a
/// QHash, since the hash is a multiplication for each four units. It is worth nothing against
/// people who choose texts so that they collide; those only make themselves wait.
///
/// \code
/// KTStringTransforms transforms;
/// transforms.insert(u"First Name"_s, u"firstName"_s);
/// if (const QString *known = transforms.find(u"First Name"_s))
///     use(*known);
/// \endcode
class KTUTILITY_EXPORT KTStringTransforms
{
public:
    /// A text and what it was turned into.
    struct Entry
    {
        QString original;    ///< as it was given
        QString transformed; ///< what it was turned into
    };

    /// What a text was turned into; null if it is not known. The pointer holds until the next
    /// insert().
    const QString *find(QStringView original) const
    {
        if (_slots.empty())
            return nullptr;
        const quint64 hash = hashOf(original);
        for (size_t place = hash & _mask; _slots[place].entry != 0; place = (place + 1) & _mask) {
            const Slot slot = _slots[place];
            if (slot.tag == tagOf(hash) && isOf(_entries[slot.entry - 1], original))
                return &_entries[slot.entry - 1].transformed;
        }
        return nullptr;
    }

    /// Stores a text, in place of the one that the original has.
    void insert(const QString &original, const QString &transformed);
    /// Forgets all.
    void clear();

    /// How many originals there are.
    qsizetype size() const { return qsizetype(_entries.size()); }
    /// Whether there are none.
    bool isEmpty() const { return _entries.empty(); }
    /// The first entry.
    auto begin() const { return _entries.begin(); }
    /// Behind the last entry.
    auto end() const { return _entries.end(); }

private:
    /// Where an entry stands: one more than its index, 0 for none; and the upper half of its hash.
    struct Slot
    {
        quint32 entry = 0;
        quint32 tag = 0;
    };

    static constexpr quint64 Factor = 0x9E3779B97F4A7C15;

    static quint64 hashOf(QStringView text)
    {
        constexpr qsizetype Step = 4;
        const QChar *const units = text.data();
        quint64 hash = quint64(text.size());
        qsizetype at = 0;
        for (; at + Step < text.size(); at += Step)
            hash = mixed(hash, units + at);
        if (at > 0)
            hash = mixed(hash, units + text.size() - Step);
        else // at most four
            hash = mixed(hash, packed(text));
        // What the last units change is in the upper half until here.
        hash *= Factor;
        return hash ^ hash >> 32;
    }
    static quint64 packed(QStringView text)
    {
        quint64 units = 0;
        for (const QChar unit : text)
            units = units << 16 | unit.unicode();
        return units;
    }
    static quint64 mixed(quint64 hash, const QChar *fourUnits)
    {
        quint64 units;
        std::memcpy(&units, fourUnits, sizeof units);
        return mixed(hash, units);
    }
    static quint64 mixed(quint64 hash, quint64 units)
    {
        return std::rotl((hash ^ units) * Factor, 29);
    }
    static quint32 tagOf(quint64 hash) { return quint32(hash >> 32); }
    /// Whoever asks often does so with the same text, of which there is one copy. An empty text may
    /// have no units to look at.
    static bool isOf(const Entry &entry, QStringView original)
    {
        const QStringView known = entry.original;
        return known.size() == original.size() &&
               (known.isEmpty() || known.data() == original.data() ||
                std::memcmp(known.data(), original.data(),
                            size_t(original.size()) * sizeof(QChar)) == 0);
    }
    void addSlot(size_t entry);
    void grow();

    std::vector<Entry> _entries;
    // A power of two, at most half of them taken.
    std::vector<Slot> _slots;
    size_t _mask = 0;
};
