#include "NSKeyValueObserving.h"

#include "KeyValueTarget.h"
#include "ObservedKey_p.h"
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
        auto tell = [observer, object, keyPath, context](const NSKeyValueChange &change) {
            observer->observeValueForKeyPath(keyPath, object, change, context);
        };
        // One whose object is destroyed is of no use any more.
        observer->_registrations.remove_if([](const NSKeyValueObserver::Registration &known) {
            return !known.observation.isActive();
        });
        NSKeyValueObservation observation(object, keyPath, options, std::move(tell));
        observer->_registrations.push_back({keyPath, object, std::move(observation)});
    }

    /// \return false if there is none.
    static bool remove(NSKeyValueObserver *observer, const QObject *object, const QString &keyPath)
    {
        auto &known = observer->_registrations;
        const auto found = std::find_if(known.rbegin(), known.rend(), [&](const auto &each) {
            return each.object == object && each.keyPath == keyPath;
        });
        if (found == known.rend())
            return false;
        known.erase(std::next(found).base());
        return true;
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

void NSKeyValueObserving::removeObserver(QObject *object, NSKeyValueObserver *observer,
                                         const KTText &forKeyPath)
{
    if (!object || KeyValueObserverAccess::remove(observer, object, forKeyPath))
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
    for (const QPointer<ObservedKey> &key : std::as_const(keys)) {
        if (key)
            key->didChange(NSKeyValueChangeSetting, {});
    }
}
