#include "NSKeyValueObserving.h"

#include "KeyPathObserver_p.h"
#include "KeyValueTarget.h"
#include "ObservedKey_p.h"
#include <KTUtility/Platform/Values/FirstFailure_p.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <iterator>

using namespace KTPrivate;

NSKeyValueObserver::NSKeyValueObserver() = default;
NSKeyValueObserver::~NSKeyValueObserver()
{
    // The first one ends first.
    _registrations.reverse();
}

void NSKeyValueObserver::observeValueForKeyPath(const QString &, QObject *,
                                                const NSKeyValueChange &, const QString &)
{
}

namespace KTPrivate {
/// Adds to and takes from an observer's registrations.
class KeyValueObserverAccess
{
public:
    static void add(NSKeyValueObserver *observer, QObject *object, const QString &keyPath,
                    NSKeyValueObservingOptions options, const QString &context)
    {
        forgetDestroyedObjects(observer);
        Registration &added = observer->_registrations.emplace_front();
        added.keyPath = keyPath;
        added.context = context;
        added.object = object;
        begin(observer, &added, options);
    }

    /// \return false if there is none.
    static bool remove(NSKeyValueObserver *observer, const QObject *object, const QString &keyPath)
    {
        auto &known = observer->_registrations;
        for (auto before = known.before_begin(); std::next(before) != known.end(); ++before) {
            const Registration &each = *std::next(before);
            if (each.object == object && each.keyPath == keyPath) {
                known.erase_after(before);
                return true;
            }
        }
        return false;
    }

private:
    using Registration = NSKeyValueObserver::Registration;

    /// The observer may take the registration back, or go, in the first call and in any other:
    /// nothing is called any more then.
    static void begin(NSKeyValueObserver *observer, Registration *registration,
                      NSKeyValueObservingOptions options)
    {
        auto tell = [observer, registration](const NSKeyValueChange &change) {
            const QString keyPath = registration->keyPath;
            const QString context = registration->context;
            observer->observeValueForKeyPath(keyPath, registration->object, change, context);
        };
        auto *const begun = new KeyPathObserver(registration->keyPath, options, tell);
        const KeyPathObserver::Call kept(begun);
        registration->observation._observer = begun;
        try {
            begun->start(registration->object);
        } catch (...) {
            if (begun->isOwned())
                observer->_registrations.remove_if(
                    [begun](const auto &known) { return known.observation._observer == begun; });
            throw;
        }
    }

    /// Registrations whose object is destroyed are of no use any more.
    static void forgetDestroyedObjects(NSKeyValueObserver *observer)
    {
        observer->_registrations.remove_if(
            [](const auto &known) { return !known.observation.isActive(); });
    }
};
} // namespace KTPrivate

void NSKeyValueObserving::addObserver(QObject *object, NSKeyValueObserver *observer,
                                      const KTText &forKeyPath, NSKeyValueObservingOptions options,
                                      const QString &context)
{
    if (object && observer)
        KeyValueObserverAccess::add(observer, object, forKeyPath, options, context);
}

bool NSKeyValueObserving::removeObserverIfAdded(QObject *object, NSKeyValueObserver *observer,
                                                const KTText &forKeyPath)
{
    return object && observer && KeyValueObserverAccess::remove(observer, object, forKeyPath);
}

void NSKeyValueObserving::removeObserver(QObject *object, NSKeyValueObserver *observer,
                                         const KTText &forKeyPath)
{
    if (!object || removeObserverIfAdded(object, observer, forKeyPath))
        return;
    NSException::raise(
        NSRangeException,
        NSString::stringWithFormat(u"Cannot remove an observer for the key path \"%@\" from %@ "
                                   u"because it is not registered as an observer.",
                                   forKeyPath.string(), KeyValueTarget::of(object).description()));
}

void NSKeyValueObserving::willChangeValueForKey(QObject *object, const KTText &key)
{
    willChange(NSKeyValueChangeSetting, object, {}, key);
}

void NSKeyValueObserving::didChangeValueForKey(QObject *object, const KTText &key)
{
    didChange(NSKeyValueChangeSetting, object, {}, key);
}

void NSKeyValueObserving::willChange(NSKeyValueChangeKind kind, QObject *object,
                                     const QList<qsizetype> &valuesAtIndexes, const KTText &forKey)
{
    if (ObservedKey *const observed = ObservedKey::existing(object, forKey))
        observed->willChange(kind, valuesAtIndexes);
}

void NSKeyValueObserving::didChange(NSKeyValueChangeKind kind, QObject *object,
                                    const QList<qsizetype> &valuesAtIndexes, const KTText &forKey)
{
    if (ObservedKey *const observed = ObservedKey::existing(object, forKey))
        observed->didChange(kind, valuesAtIndexes);
}

void NSKeyValueObserving::didChangeAllValues(QObject *object)
{
    QList<QPointer<ObservedKey>> keys;
    for (ObservedKey *const key : ObservedKey::allOf(object))
        keys += key;
    FirstFailure failure;
    for (const QPointer<ObservedKey> &key : std::as_const(keys)) {
        if (key)
            failure.call([&key] { key->didChange(NSKeyValueChangeSetting, {}); });
    }
    failure.rethrow();
}
