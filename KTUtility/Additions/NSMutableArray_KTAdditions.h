#pragma once

#include <KTUtility/Platform/Keys/NSCollections.h>
#include <KTUtility/Platform/Values/NSException.h>

#include <QList>

#include <algorithm>
#include <type_traits>

/// Lists that people re-order.
///
/// \code
/// KTMutableArrayAdditions::moveObject(fields, price, 2);    // price now stands before the element
///                                                           // that was at position 2
/// \endcode
namespace KTMutableArrayAdditions {
/// Moves an object to just before the element that is at \a toIndex now, or to the end if there
/// is none; moving to a higher position puts it one place earlier than that. Every element equal to
/// the object is removed first. Moving an element onto its own position changes nothing.
template<typename T>
void moveObject(QList<T> &list, const std::type_identity_t<T> &object, qsizetype toIndex)
{
    const NSIsEqual<T> isEqual;
    const T moved = object;
    const bool hasAnchor = toIndex >= 0 && toIndex < list.size();
    const T anchor = hasAnchor ? list.at(toIndex) : T();
    if (hasAnchor && isEqual(anchor, moved))
        return;
    list.removeIf([&](const T &element) { return isEqual(element, moved); });
    const auto place =
        hasAnchor ? std::find_if(list.begin(), list.end(),
                                 [&](const T &element) { return isEqual(element, anchor); })
                  : list.end();
    list.insert(place, moved);
}

/// Inserts all of \a objects as a block that begins at \a atIndex.
/// \throws NSException NSRangeException if the index is beyond the end of the list.
template<typename T>
void insertObjects(QList<T> &list, const std::type_identity_t<QList<T>> &objects, qsizetype atIndex)
{
    if (atIndex < 0 || atIndex > list.size())
        NSException::raise(NSRangeException,
                           QStringLiteral("insertObjects:atIndex: beyond bounds"));
    const QList<T> block = objects;
    list.insert(atIndex, block.size(), T());
    std::copy(block.begin(), block.end(), list.begin() + atIndex);
}
} // namespace KTMutableArrayAdditions

/// A list as a stack, its top at the end.
///
/// \code
/// QList<Dialog *> open;
/// KTStackAdditions::push(open, dialog);
/// KTStackAdditions::pop(open);    // dialog; nil when the stack is empty
/// \endcode
namespace KTStackAdditions {
/// Puts an object on top.
template<typename T>
void push(QList<T> &stack, const std::type_identity_t<T> &object)
{
    stack.append(object);
}

/// Takes the object on top away and returns it; nil when there is none.
template<typename T>
NSNullable<T> pop(QList<T> &stack)
{
    return stack.isEmpty() ? NSNullable<T>() : NSNullable<T>(stack.takeLast());
}

/// Takes all objects away.
template<typename T>
void clearStack(QList<T> &stack)
{
    stack.clear();
}

/// The number of objects.
template<typename T>
qsizetype stackSize(const QList<T> &stack)
{
    return stack.size();
}
} // namespace KTStackAdditions
