#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QString>
#include <QStringView>
#include <QVariantMap>

#include <vector>

namespace KTPrivate {
/// Names of components and their levels, in the order in which they were added, in little more memory
/// than the names have units: each name stands behind the one before.
class KTUTILITY_EXPORT PackedLevels
{
public:
    void add(QStringView name, int level);
    /// Gives back the memory that more would have been added in.
    void squeeze();

    size_t count() const { return _entries.size(); }
    QStringView nameAt(size_t index) const;
    int levelAt(size_t index) const { return _entries[index].level; }

    /// The level of the first component of that name; 0 if there is none.
    int levelOf(QStringView name) const;

    friend bool operator==(const PackedLevels &, const PackedLevels &) = default;

private:
    struct Entry
    {
        qint32 end; ///< of its name
        qint32 level;

        friend bool operator==(const Entry &, const Entry &) = default;
    };

    QString _names;
    std::vector<Entry> _entries;
};

/// The levels of components as they stand in the settings, texts and whatever else stands there
/// included. Nearly all are integers, which are packed.
class KTUTILITY_EXPORT StoredLevels
{
public:
    explicit StoredLevels(const QVariantMap &levels);

    /// What it was made from.
    QVariantMap levels() const;

private:
    bool isPacked(const QString &name, const QVariant &level) const;

    QMetaType _type; ///< of the packed ones
    PackedLevels _packed;
    QVariantMap _others;
};
} // namespace KTPrivate
