#pragma once

#include <QObject>

#include <functional>

/// What a KTFieldDetailBinder calls in place of the methods of an owner. All but the first may be
/// empty.
///
/// \code
/// KTFieldDetailBinder binder(this, {.create = [this](QObject *) { return addRow(); },
///                                   .willBeDestroyed = [this](QObject *row) { remove(row); }});
/// \endcode
struct KTFieldDetailCallbacks
{
    /// Makes the detail object of a field, which the program owns; null for none.
    std::function<QObject *(QObject *field)> create = {};
    /// A detail object is bound: show it.
    std::function<void(QObject *detail, QObject *field)> wasBound = {};
    /// A detail object is not needed any more.
    std::function<void(QObject *detail)> willBeDestroyed = {};
    /// All fields of a change were added.
    std::function<void()> finishedAdding = {};
    /// All fields of a change were removed.
    std::function<void()> finishedRemoving = {};
    /// The collection has changed.
    std::function<void()> finishedRearrange = {};
    /// False while all is replaced, true after each change.
    std::function<void(bool scrolls)> setAutoScrollToInsertedObject = {};
};
