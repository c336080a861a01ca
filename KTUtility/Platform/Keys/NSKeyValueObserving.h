#pragma once

#include "NSKeyValueObservation.h"
#include <KTUtility/KTUtilityExport.h>

#include <QPointer>
#include <QString>

#include <forward_list>

namespace KTPrivate {
class KeyValueObserverAccess;
}

/// Is notified of changes to what it observes; see NSKeyValueObserving::addObserver(). Its
/// observations end with it.
///
/// Use it where one object observes many things, or where a class shows the outside that it
/// observes. For a single function, NSKeyValueObservation is shorter.
class KTUTILITY_EXPORT NSKeyValueObserver
{
public:
    NSKeyValueObserver();
    virtual ~NSKeyValueObserver();
    NSKeyValueObserver(const NSKeyValueObserver &) = delete;
    NSKeyValueObserver &operator=(const NSKeyValueObserver &) = delete;

    /// A value has changed.
    /// \param keyPath,ofObject,context as they were given to addObserver().
    virtual void observeValueForKeyPath(const QString &keyPath, QObject *ofObject,
                                        const NSKeyValueChange &change, const QString &context);

private:
    friend class KTPrivate::KeyValueObserverAccess;
    struct Registration
    {
        QString keyPath;
        QString context;
        QObject *object = nullptr;
        NSKeyValueObservation observation;
    };

    // The last one first. Their addresses stay.
    std::forward_list<Registration> _registrations;
};

/// Observing values by key path, and notifying observers of changes that no signal reports.
///
/// \code
/// NSKeyValueObserving::addObserver(record, this, u"library.name",
///                                  NSKeyValueObservingOptionNew, u"title"_s);
/// …
/// NSKeyValueObserving::removeObserver(record, this, u"library.name");
/// \endcode
namespace NSKeyValueObserving {
/// Has an observer notified of changes; see NSKeyValueObservation. The same may be added several
/// times, and is notified as often then. It may take itself back or be destroyed in any of the
/// calls, the initial one included.
/// \param context is handed to the observer, to distinguish its observations.
/// \throws NSException as NSKeyValueObservation does.
KTUTILITY_EXPORT void addObserver(QObject *object, NSKeyValueObserver *observer,
                                  const KTText &forKeyPath, NSKeyValueObservingOptions options,
                                  const QString &context = {});
/// Takes back the last addObserver() with that object and path. A nil object is ignored.
/// \throws NSException NSRangeException if there was none.
KTUTILITY_EXPORT void removeObserver(QObject *object, NSKeyValueObserver *observer,
                                     const KTText &forKeyPath);
/// The same for whoever does not mind that there was none, as in a destructor.
/// \return whether there was one.
KTUTILITY_EXPORT bool removeObserverIfAdded(QObject *object, NSKeyValueObserver *observer,
                                            const KTText &forKeyPath);

// --- Explicit notices, for keys without NOTIFY signal, and to notify of a change before it

/// Announces a change: observers that want to know before are notified. Until
/// didChangeValueForKey(), the signal of the property is not listened to.
KTUTILITY_EXPORT void willChangeValueForKey(QObject *object, const KTText &key);
/// Notifies of a change. Without willChangeValueForKey() before, it is a notification like a
/// signal.
KTUTILITY_EXPORT void didChangeValueForKey(QObject *object, const KTText &key);
/// The same for elements of a list.
KTUTILITY_EXPORT void willChange(NSKeyValueChangeKind kind, QObject *object,
                                 const QList<qsizetype> &valuesAtIndexes, const KTText &forKey);
/// The end of what willChange() of elements began.
KTUTILITY_EXPORT void didChange(NSKeyValueChangeKind kind, QObject *object,
                                const QList<qsizetype> &valuesAtIndexes, const KTText &forKey);
/// Notifies of a change of every key of an object that is observed: it has become a stand-in for
/// something else. If observers of one key raise, those of the others are notified all the same.
KTUTILITY_EXPORT void didChangeAllValues(QObject *object);
} // namespace NSKeyValueObserving
