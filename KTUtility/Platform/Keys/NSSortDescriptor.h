#pragma once

#include "KeyPath.h"
#include "NSCollections.h"

#include <QList>

#include <algorithm>
#include <utility>
#include <vector>

/// How to sort objects: by the value of a key path, ascending or descending.
///
/// Values are compared by NSObject::compare() unless a comparator is given: nil first, numbers by
/// value, texts by UTF-16 unit.
struct NSSortDescriptor
{
    /// Says which of two values comes first.
    using Comparator = std::weak_ordering (*)(const QVariant &left, const QVariant &right);

    /// The key or key path of the values that are compared, such as "name" or "library.name" (see
    /// KeyPath); nil compares the objects themselves.
    QString key;
    /// Whether the least value comes first.
    bool ascending = true;
    /// In place of NSObject::compare().
    Comparator comparator = NSObject::compare;

    friend bool operator==(const NSSortDescriptor &, const NSSortDescriptor &) = default;

    /// A new list sorted by \a descriptors, the first being the most important. Elements that all
    /// descriptors call equal keep their order. Each key is read once per element.
    /// \throws NSException NSUndefinedKeyException if an object on the way has no such key.
    template<KTPrivate::KeyValueCodable T>
    static QList<T> sorted(const QList<T> &list, const QList<NSSortDescriptor> &descriptors)
    {
        using Entry = std::pair<std::vector<QVariant>, qsizetype>;
        std::vector<Entry> entries;
        entries.reserve(size_t(list.size()));
        for (qsizetype index = 0; index < list.size(); ++index)
            entries.emplace_back(std::vector<QVariant>(), index);
        for (const NSSortDescriptor &descriptor : descriptors) {
            KTPrivate::KeyPath path(descriptor.key);
            for (Entry &entry : entries)
                entry.first.push_back(
                    path.read(KTPrivate::KeyValueTargets::target(list.at(entry.second))));
        }
        std::stable_sort(entries.begin(), entries.end(), [&](const Entry &a, const Entry &b) {
            return isBefore(a.first, b.first, descriptors);
        });
        QList<T> result;
        result.reserve(list.size());
        for (const Entry &entry : entries)
            result += list.at(entry.second);
        return result;
    }

private:
    static bool isBefore(const std::vector<QVariant> &left, const std::vector<QVariant> &right,
                         const QList<NSSortDescriptor> &descriptors)
    {
        for (size_t level = 0; level < left.size(); ++level) {
            const NSSortDescriptor &descriptor = descriptors.at(qsizetype(level));
            const auto order = descriptor.comparator(left[level], right[level]);
            if (order != 0)
                return descriptor.ascending ? order < 0 : order > 0;
        }
        return false;
    }
};
