#pragma once

#include "KTText.h"
#include "NSKeyValueChange.h"
#include <KTUtility/KTUtilityExport.h>

#include <QObject>
#include <QString>

#include <functional>

namespace KTPrivate {
class KeyPathObserver;
class KeyValueObserverAccess;
} // namespace KTPrivate

/// Calls a function whenever the value at a key path of an object changes, as long as it lives.
///
/// The path is followed through QObjects: a key is observed by its property's NOTIFY signal, or as a
/// bindable property (BINDABLE) without one, a dynamic property by its events, every other key by
/// NSKeyValueObserving::didChangeValueForKey(). When an object in the middle is replaced, the new
/// one is followed from there. What lies beyond a map, list or gadget changes when that does. A nil
/// in the middle makes the value nil; so does an object there that lacks the key.
///
/// A property without NOTIFY and BINDABLE that its owner changes does so in silence; whoever sets it
/// by key (NSKeyValueCoding) notifies. Properties that hold objects must give null
/// once the object is destroyed: keep them in a QPointer.
///
/// The observed object may be destroyed first; nothing is called then any more. Functions are
/// called in the order in which observations were made. An observation that is made or ended while
/// observers are notified of a change is not called for it. Observers are notified at once of what
/// a function changes itself, so that the ones behind it see the newer value twice. What a function
/// raises passes to whoever reported the change with NSKeyValueObserving or set the value by key;
/// out of a signal or event of Qt, which no exception may leave, it is written to the log, and the
/// others are called all the same. Values that change each other without end are left alone after
/// some rounds; the log tells which they are. For the main thread.
///
/// \code
/// const NSKeyValueObservation observation(
///     record, u"library.name",
///     NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld,
///     [&](const NSKeyValueChange &change) { show(*change.oldValue, *change.newValue); });
/// \endcode
class KTUTILITY_EXPORT NSKeyValueObservation
{
public:
    /// What is called on each change.
    using Callback = std::function<void(const NSKeyValueChange &change)>;

    /// An observation of nothing.
    NSKeyValueObservation();
    /// \throws NSException NSUndefinedKeyException if an object on the path lacks its key, nil if
    /// the path is empty; nothing is observed then.
    NSKeyValueObservation(QObject *object, const KTText &keyPath,
                          NSKeyValueObservingOptions options, Callback callback);
    ~NSKeyValueObservation();
    /// Takes over what \a other observes, whose callback moves along.
    NSKeyValueObservation(NSKeyValueObservation &&other) noexcept;
    /// Ends its own observation and takes over that of \a other.
    NSKeyValueObservation &operator=(NSKeyValueObservation &&other) noexcept;

    /// Whether something is observed: not after the object was destroyed.
    bool isActive() const;
    /// Ends it.
    void invalidate();

private:
    friend class KTPrivate::KeyValueObserverAccess;

    // Its own; null: none.
    KTPrivate::KeyPathObserver *_observer = nullptr;
};
