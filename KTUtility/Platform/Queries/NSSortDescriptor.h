#pragma once

#include "NSComparator.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/KeyPath.h>
#include <KTUtility/Platform/Keys/MemberReader.h>
#include <KTUtility/Platform/Keys/NSCollections.h>

#include <QList>

#include <utility>
#include <vector>

/// How to sort objects: by the value of a key path or a member, ascending or descending.
///
/// Values are compared by NSObject::compare() unless a comparator is given: nil first, numbers by
/// value, texts by UTF-16 unit. For what people see, ask for the order of their language instead.
///
/// \code
/// controller.setSortDescriptors({{u"isPaid"_s},
///                                {.key = u"title"_s, .localized = true},
///                                NSSortDescriptor::by(&Expense::due, false)});
/// \endcode
struct KTUTILITY_EXPORT NSSortDescriptor
{
    /// Says which of two values comes first.
    using Comparator = NSComparator;

    /// The key or key path of the values that are compared, such as "name" or "library.name" (see
    /// KeyPath); nil compares the objects themselves.
    QString key = {};
    /// Whether the least value comes first.
    bool ascending = true;
    /// In place of NSObject::compare().
    Comparator comparator = NSObject::compare;
    /// Whether texts are sorted as people sort them (NSString::localizedCompare()); all other values
    /// by the comparator.
    bool localized = false;
    /// What is read in place of a key; see by().
    KTPrivate::MemberReader member = {};

    /// Sorts by a getter, a data member, or what a lambda makes of an object: a misspelt name does
    /// not compile. Objects of other classes have nil.
    /// \code
    /// NSSortDescriptor::by(&Expense::amount, false)
    /// NSSortDescriptor::by([](const Expense &each) { return each.title().size(); })
    /// \endcode
    template<KTPrivate::Readable T>
    static NSSortDescriptor by(T member, bool ascending = true)
    {
        return {.key = {}, .ascending = ascending, .member = KTPrivate::readerOf(member)};
    }
    /// The same descriptor, with texts in the order of people or not.
    NSSortDescriptor inLocalizedOrder(bool isLocalized = true) const;

    friend bool operator==(const NSSortDescriptor &, const NSSortDescriptor &) = default;

    /// A new list sorted by \a descriptors, the first being the most important. Elements that all
    /// descriptors call equal keep their order. Each key is read once per element.
    /// \throws NSException NSUndefinedKeyException if an object on the way has no such key.
    template<KTPrivate::KeyValueCodable T>
    static QList<T> sorted(const QList<T> &list, const QList<NSSortDescriptor> &descriptors)
    {
        std::vector<KTPrivate::KeyValueTarget> elements;
        elements.reserve(size_t(list.size()));
        for (const T &element : list)
            elements.push_back(KTPrivate::KeyValueTargets::target(element));
        QList<T> result;
        result.reserve(list.size());
        for (const qsizetype index : orderOf(elements, descriptors))
            result += list.at(index);
        return result;
    }

private:
    static std::vector<qsizetype> orderOf(const std::vector<KTPrivate::KeyValueTarget> &elements,
                                          const QList<NSSortDescriptor> &descriptors);
};
