#include "NSKeyValueObserving.h"

#include "KeyValueTarget.h"
#include "ObservedKey_p.h"
#include <KTUtility/Platform/Values/FirstFailure_p.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <algorithm>

using namespace KTPrivate;

NSKeyValueObserver::NSKeyValueObserver() = default;
NSKeyValueObserver::~NSKeyValueObserver() = default;

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
        observer->_registrations.push_back(std::make_shared<Registration>());
        // Only the observer keeps it, which may take it back or go in the first call.
        const std::weak_ptr<Registration> added = observer->_registrations.back();
        observer->_registrations.back()->keyPath = keyPath;
        observer->_registrations.back()->object = object;
        auto tell = [observer, object, keyPath, context, added](const NSKeyValueChange &change) {
            if (!added.expired())
                observer->observeValueForKeyPath(keyPath, object, change, context);
        };
        try {
            NSKeyValueObservation observation(object, keyPath, options, std::move(tell));
            if (const auto registration = added.lock())
                registration->begin(std::move(observation));
        } catch (...) {
            if (const auto registration = added.lock())
                observer->_registrations.remove(registration);
            throw;
        }
    }

    /// \return false if there is none.
    static bool remove(NSKeyValueObserver *observer, const QObject *object, const QString &keyPath)
    {
        auto &known = observer->_registrations;
        const auto found = std::find_if(known.rbegin(), known.rend(), [&](const auto &each) {
            return each->object == object && each->keyPath == keyPath;
        });
        if (found == known.rend())
            return false;
        known.erase(std::next(found).base());
        return true;
    }

private:
    using Registration = NSKeyValueObserver::Registration;

    /// Registrations whose object is destroyed are of no use any more.
    static void forgetDestroyedObjects(NSKeyValueObserver *observer)
    {
        observer->_registrations.remove_if(
            [](const auto &known) { return known->hasBegun && !known->observation.isActive(); });
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
