#pragma once

#include <QVariant>

#include <compare>

// The order in which people look for values in a table.

namespace ValueOrder {
/// Texts as the user's language orders them, with numbers in them by their value ("a2" before
/// "a10"); everything else as NSObject::compare().
std::weak_ordering compare(const QVariant &left, const QVariant &right);
} // namespace ValueOrder
