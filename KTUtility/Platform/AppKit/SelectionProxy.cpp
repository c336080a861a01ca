#include "SelectionProxy_p.h"

#include <KTUtility/Platform/Keys/NSSelectionMarker.h>

#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Keys/NSKeyValueObserving.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QPointer>

#include <utility>

using namespace KTPrivate;

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

void SelectionProxy::setObjects(const QVariantList &objects)
{
    _objects = objects;
    for (auto &[key, observations] : _observations) {
        observations.clear();
        observe(key);
    }
    NSKeyValueObserving::didChangeAllValues(this);
}

std::optional<QVariant> SelectionProxy::valueForKey(const QString &key) const
{
    if (_objects.isEmpty())
        return NSNoSelectionMarker();
    try {
        return commonValue(_objects, key);
    } catch (const NSException &) {
        return NSNotApplicableMarker();
    }
}

bool SelectionProxy::setValueForKey(const QVariant &value, const QString &key)
{
    QVariantList objects = _objects;
    const QPointer<SelectionProxy> self = this;
    ++_setting;
    try {
        for (QVariant &object : objects)
            NSKeyValueCoding::setValue(object, value, key);
    } catch (...) {
        if (self)
            finishSetting();
        throw;
    }
    if (self)
        finishSetting();
    return true;
}

/// Notifies of what has changed, once for all objects: each notice has all of them read again.
void SelectionProxy::finishSetting()
{
    if (--_setting > 0)
        return;
    const QPointer<SelectionProxy> self = this;
    const QStringList keys = std::exchange(_changedWhileSetting, {});
    for (const QString &key : keys) {
        if (self)
            NSKeyValueObserving::didChangeValueForKey(self, key);
    }
}

void SelectionProxy::valueHasChanged(const QString &key)
{
    if (_setting == 0)
        NSKeyValueObserving::didChangeValueForKey(this, key);
    else if (!_changedWhileSetting.contains(key))
        _changedWhileSetting += key;
}

void SelectionProxy::firstObserverCame(const QString &key)
{
    _observations[key].clear();
    observe(key);
}

void SelectionProxy::lastObserverWent(const QString &key)
{
    _observations.erase(key);
}

/// Listens to a key of each object that has it.
void SelectionProxy::observe(const QString &key)
{
    const auto tell = [this, key](const NSKeyValueChange &) { valueHasChanged(key); };
    for (const QVariant &each : std::as_const(_objects)) {
        const KeyValueTarget target = KeyValueTarget::ofVariant(each);
        if (target.kind != KeyValueTarget::Kind::Object)
            continue;
        try {
            _observations[key].emplace_back(target.object(), key, 0, tell);
        } catch (const NSException &) {
            // It lacks the key, and the value is a marker.
        }
    }
}
