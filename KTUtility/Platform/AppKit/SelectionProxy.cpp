#include "SelectionProxy_p.h"

#include "ContentWatch_p.h"

#include <KTUtility/Platform/Keys/KeyPathObserver_p.h>
#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Keys/NSKeyValueObserving.h>
#include <KTUtility/Platform/Keys/NSSelectionMarker.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/ValueHash_p.h>

#include <QPointer>

#include <algorithm>
#include <utility>

using namespace KTPrivate;

namespace {
/// The value that all of the objects have; a marker if they have not one.
QVariant commonValue(const QVariantList &objects, const QString &path)
{
    KeyPath reader(path);
    QVariant common;
    for (qsizetype index = 0; index < objects.size(); ++index) {
        const QVariant value = reader.read(KeyValueTarget::ofVariant(objects.at(index)));
        if (index > 0 && !NSObject::isEqual(value, common))
            return NSMultipleValuesMarker();
        common = value;
    }
    return common;
}

/// Calls what uses a key.
/// \return false if it is lacking, which is no failure: the value is a marker.
template<typename Function>
bool useKey(FirstFailure *failure, const Function &function)
{
    bool isThere = true;
    failure->call([&] {
        try {
            function();
        } catch (const NSException &) {
            isThere = false;
        }
    });
    return isThere;
}

/// The object that a value is; null for everything else.
QObject *recordIn(const QVariant &value)
{
    const KeyValueTarget target = KeyValueTarget::ofVariant(value);
    return target.kind == KeyValueTarget::Kind::Object ? target.object() : nullptr;
}

/// Whether a path is about the objects as a collection ("@count").
bool isOperator(const QString &path)
{
    return path.startsWith(u'@');
}

/// The path that an operator is applied to, else the path itself.
QString pathOfElements(const QString &path)
{
    return isOperator(path) ? path.section(u'.', 1) : path;
}
} // namespace

void SelectionProxy::Watch::setValue(size_t index, const QVariant &value)
{
    const auto known = counts.find(hashes[index]);
    if (known != counts.end() && --*known == 0)
        counts.erase(known);
    hashes[index] = hashOf(value);
    ++counts[hashes[index]];
}

void SelectionProxy::setObjects(const QVariantList &objects)
{
    const QPointer<SelectionProxy> self = this;
    _objects = objects;
    _places.reset();
    QStringList keys;
    for (const auto &each : _watches)
        keys += each.first;
    FirstFailure failure;
    for (const QString &key : std::as_const(keys)) {
        if (self && _watches.contains(key))
            observe(key, &failure);
    }
    if (self)
        failure.call([this] { NSKeyValueObserving::didChangeAllValues(this); });
    failure.rethrow();
}

void SelectionProxy::objectIsGone(const QObject *object)
{
    if (!_places) {
        _places.emplace();
        for (qsizetype index = 0; index < _objects.size(); ++index)
            (*_places)[ContentWatch::objectIn(_objects.at(index))] += index;
    }
    for (const qsizetype index : _places->take(object))
        _objects[index] = QVariant();
}

std::optional<QVariant> SelectionProxy::valueForKey(const QString &key) const
{
    if (_objects.isEmpty() && key != u"@count")
        return NSNoSelectionMarker();
    try {
        return isOperator(key) ? NSKeyValueCoding::valueForKeyPath(QVariant(_objects), key)
                               : commonValue(_objects, key);
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
            NSKeyValueCoding::setValueForKeyPath(object, value, key);
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

void SelectionProxy::valueHasChanged(const QString &key, bool isNews)
{
    if (_setting == 0 && isNews)
        NSKeyValueObserving::didChangeValueForKey(this, key);
    else if (_setting > 0 && !_changedWhileSetting.contains(key))
        _changedWhileSetting += key;
}

bool SelectionProxy::validateValue(QVariant *value, const QString &key, NSError *error)
{
    const QVariantList objects = _objects;
    return std::all_of(objects.begin(), objects.end(), [&](const QVariant &object) {
        return NSKeyValueCoding::validateValue(object, value, key, error);
    });
}

void SelectionProxy::firstObserverCame(const QString &key)
{
    const QPointer<SelectionProxy> self = this;
    FirstFailure failure;
    observe(key, &failure);
    if (failure.isThere() && self)
        lastObserverWent(key);
    failure.rethrow();
}

void SelectionProxy::lastObserverWent(const QString &key)
{
    // It is out of the way when the objects learn that they are observed no more.
    const auto watch = _watches.extract(key);
}

bool SelectionProxy::isCurrent(const std::shared_ptr<Watch> &watch) const
{
    const auto known = _watches.find(watch->key);
    return known != _watches.end() && known->second == watch;
}

/// Listens to a key of each object that has it. What one raises keeps no other from being observed.
/// Getters may destroy this object, or lead here again.
void SelectionProxy::observe(const QString &key, FirstFailure *failure)
{
    const QPointer<SelectionProxy> self = this;
    const QVariantList objects = _objects;
    const auto watch = std::make_shared<Watch>();
    watch->key = key;
    watch->hashes.resize(size_t(objects.size()));
    _watches[key] = watch;
    for (qsizetype index = 0; index < objects.size(); ++index) {
        if (self && isCurrent(watch))
            observe(objects.at(index), size_t(index), watch, failure);
    }
}

void SelectionProxy::observe(const QVariant &object, size_t index,
                             const std::shared_ptr<Watch> &watch, FirstFailure *failure)
{
    const QString path = pathOfElements(watch->key);
    if (path.isEmpty())
        return;
    const QPointer<SelectionProxy> self = this;
    const QPointer<QObject> record = recordIn(object);
    const bool hasKey = useKey(failure, [&] {
        watch->setValue(index, KeyPath(path).read(KeyValueTarget::ofVariant(object)));
    });
    if (hasKey && record && self)
        useKey(failure, [&] { follow(record, path, index, watch); });
}

void SelectionProxy::follow(QObject *record, const QString &path, size_t index,
                            const std::shared_ptr<Watch> &watch)
{
    const auto tell = [self = QPointer(this), index,
                       watched = std::weak_ptr(watch)](const NSKeyValueChange &change) {
        const std::shared_ptr<Watch> known = watched.lock();
        if (!known || !self || !self->isCurrent(known))
            return;
        const bool hadSeveral = known->hasSeveralValues();
        known->setValue(index, change.newValue.value_or(QVariant()));
        self->valueHasChanged(known->key,
                              isOperator(known->key) || !hadSeveral || !known->hasSeveralValues());
    };
    watch->observations.emplace_back(
        record, path, NSKeyValueObservingOptionNew | ObservingWhatCannotBeRead, tell);
}
