#include "NSSelectionProxy_p.h"

#include "NSSelectionMarker.h"

#include <KTUtility/Platform/Foundation/NSException.h>
#include <KTUtility/Platform/Foundation/NSKeyValueCoding.h>
#include <KTUtility/Platform/Foundation/NSKeyValueObserving.h>
#include <KTUtility/Platform/Foundation/NSObject.h>

namespace {
/// The value that all of the objects have; a marker if they have not one.
QVariant commonValue(const QVariantList &objects, const QString &key)
{
    QVariant common;
    for (qsizetype index = 0; index < objects.size(); ++index) {
        const QVariant value = NSKeyValueCoding::valueForKey(objects.at(index), key);
        if (index > 0 && !NSObject::isEqual(value, common))
            return NSMultipleValuesMarker();
        common = value;
    }
    return common;
}
} // namespace

void NSSelectionProxy::setObjects(const QVariantList &objects)
{
    _objects = objects;
    for (auto &[key, observations] : _observations) {
        observations.clear();
        observe(key);
    }
    NSKeyValueObserving::didChangeAllValues(this);
}

std::optional<QVariant> NSSelectionProxy::valueForKey(const QString &key) const
{
    if (_objects.isEmpty())
        return NSNoSelectionMarker();
    try {
        return commonValue(_objects, key);
    } catch (const NSException &) {
        return NSNotApplicableMarker();
    }
}

bool NSSelectionProxy::setValueForKey(const QVariant &value, const QString &key)
{
    QVariantList objects = _objects;
    for (QVariant &object : objects)
        NSKeyValueCoding::setValue(object, value, key);
    return true;
}

void NSSelectionProxy::firstObserverCame(const QString &key)
{
    _observations[key].clear();
    observe(key);
}

void NSSelectionProxy::lastObserverWent(const QString &key)
{
    _observations.erase(key);
}

/// Listens to a key of each object that has it.
void NSSelectionProxy::observe(const QString &key)
{
    const auto tell = [this, key](const NSKeyValueChange &) {
        NSKeyValueObserving::didChangeValueForKey(this, key);
    };
    for (const QVariant &each : std::as_const(_objects)) {
        const NSKeyValueTarget target = NSKeyValueTarget::ofVariant(each);
        if (target.kind != NSKeyValueTarget::Kind::Object)
            continue;
        try {
            _observations[key].emplace_back(target.object(), key, 0, tell);
        } catch (const NSException &) {
            // It lacks the key, and the value is a marker.
        }
    }
}
