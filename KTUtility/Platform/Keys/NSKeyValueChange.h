#pragma once

#include <QList>
#include <QVariant>

#include <optional>

/// What was done to a value. The numbers are those of the platform.
enum NSKeyValueChangeKind {
    NSKeyValueChangeSetting = 1,     ///< it was set, or is reported for the first time
    NSKeyValueChangeInsertion = 2,   ///< elements came into a list
    NSKeyValueChangeRemoval = 3,     ///< elements left a list
    NSKeyValueChangeReplacement = 4, ///< elements of a list gave way to others
};

/// What observers want to be notified of; combine them with "|".
using NSKeyValueObservingOptions = unsigned;
inline constexpr NSKeyValueObservingOptions NSKeyValueObservingOptionNew = 1;
inline constexpr NSKeyValueObservingOptions NSKeyValueObservingOptionOld = 2;
/// One call at once, with the new value if that is wanted, and without an old one.
inline constexpr NSKeyValueObservingOptions NSKeyValueObservingOptionInitial = 4;
/// One more call before each change that is announced with willChangeValueForKey(), or made by key
/// to what has no NOTIFY signal.
inline constexpr NSKeyValueObservingOptions NSKeyValueObservingOptionPrior = 8;

/// A change, as observers are notified of it.
struct NSKeyValueChange
{
    /// What happened: a value was set, or elements were inserted, removed or replaced.
    NSKeyValueChangeKind kind = NSKeyValueChangeSetting;
    /// The value now, nil included; nothing if it was not asked for, or before the change.
    std::optional<QVariant> newValue;
    /// The value at the time the change was announced, else the one that was reported or read last;
    /// nil included. Nothing if it was not asked for.
    std::optional<QVariant> oldValue;
    /// The elements that came, left or changed; empty for NSKeyValueChangeSetting.
    QList<qsizetype> indexes;
    /// Whether the change is still to come.
    bool isPrior = false;
};
