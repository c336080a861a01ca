#pragma once

#include <KTUtility/Platform/Keys/SharedFunction.h>

#include <QVariant>

#include <compare>

/// Says which of two values comes first: a function, or a lambda that may capture what it needs.
///
/// \code
/// QCollator collator;
/// collator.setNumericMode(true);
/// const NSComparator byNumber = [collator](const QVariant &left, const QVariant &right) {
///     return collator.compare(left.toString(), right.toString()) <=> 0;
/// };
/// \endcode
using NSComparator =
    KTPrivate::SharedFunction<std::weak_ordering(const QVariant &left, const QVariant &right)>;
