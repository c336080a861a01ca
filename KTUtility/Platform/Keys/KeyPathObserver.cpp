#include "KeyPathObserver_p.h"

#include "KeyValueTarget.h"
#include "ObservedKey_p.h"
#include <KTUtility/Platform/Values/NSException.h>

#include <utility>

using namespace KTPrivate;

namespace {
quint64 nextObserverSerial()
{
    static quint64 serial = 0;
    return ++serial;
}

/// The object that a value is; null for everything else.
QObject *objectIn(const QVariant &value)
{
    const KeyValueTarget target = KeyValueTarget::ofVariant(value);
    return target.kind == KeyValueTarget::Kind::Object ? target.object() : nullptr;
}
} // namespace

KeyPathObserver::KeyPathObserver(const QString &keyPath, NSKeyValueObservingOptions options,
                                 NSKeyValueObservation::Callback callback)
    : _options(options), _callback(std::move(callback)), _serial(nextObserverSerial())
{
    // One key is not copied.
    const QStringList keys = keyPath.contains(u'.') ? keyPath.split(u'.') : QStringList{keyPath};
    _steps.reserve(keys.size());
    for (const QString &key : keys)
        _steps.push_back({key, {}});
    if (wants(NSKeyValueObservingOptionOld))
        _lastValue = std::make_unique<QVariant>();
}

void KeyPathObserver::start(QObject *object)
{
    if (!object)
        return;
    const Call call(this);
    _isActive = true;
    QVariant value;
    try {
        followFrom(0, object);
        value = read();
        if (_lastValue)
            *_lastValue = value;
    } catch (const NSException &) {
        stop();
        throw;
    } catch (...) {
        if (!wants(ObservingWhatCannotBeRead)) {
            stop();
            throw;
        }
    }
    tellInitial(value);
}

/// What nobody asks for is not kept.
void KeyPathObserver::tellInitial(const QVariant &value)
{
    NSKeyValueChange change;
    if (wants(NSKeyValueObservingOptionNew))
        change.newValue = _lastValue ? *_lastValue : value;
    if (!wants(NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld))
        _rest.reset();
    if (_isActive && wants(NSKeyValueObservingOptionInitial))
        _callback(change);
}

void KeyPathObserver::end()
{
    const Call call(this);
    _isOwned = false;
    stop();
}

void KeyPathObserver::stop()
{
    _isActive = false;
    leaveFrom(0);
}

/// Observes the keys from a step on, whose object is known, as far as there are objects. A getter
/// on the way may lead here again, or end everything.
void KeyPathObserver::followFrom(size_t step, QObject *object)
{
    const quint64 turn = _turn;
    for (;; ++step) {
        follow(step, object);
        if (turn != _turn || stepAt(step).takesRest || step + 1 == stepCount())
            return;
        object = objectBehind(step);
        if (!object || turn != _turn)
            return;
    }
}

/// Observes the key at a step; of an object that answers key paths, the rest of the path. The object
/// may go when it is told.
void KeyPathObserver::follow(size_t step, QObject *object)
{
    const quint64 turn = _turn;
    Step &here = stepAt(step);
    here.takesRest = step + 1 < stepCount() && KeyValueTarget::of(object).answersKeyPaths();
    const QPointer<ObservedKey> key =
        ObservedKey::of(object, here.takesRest ? pathFrom(step) : here.key);
    if (turn != _turn) {
        if (key)
            key->goIfUnused();
        return;
    }
    if (!key) {
        objectIsGone(step);
        return;
    }
    here.observed = key;
    key->add(this, step);
    setFollowed(step + 1);
}

QString KeyPathObserver::pathFrom(size_t step) const
{
    QString path = stepAt(step).key;
    for (++step; step < stepCount(); ++step)
        path += u'.' + stepAt(step).key;
    return path;
}

/// So many steps lead over objects; the rest of the path begins at the last of them.
void KeyPathObserver::setFollowed(size_t count)
{
    _followed = uint(count);
    _rest.reset();
}

void KeyPathObserver::leaveFrom(size_t step)
{
    ++_turn;
    for (; step < stepCount(); ++step) {
        Step &here = stepAt(step);
        const QPointer<ObservedKey> key = std::exchange(here.observed, nullptr);
        if (key)
            key->remove(this, step);
    }
}

/// The object at a step; null if there is none any more.
QObject *KeyPathObserver::objectAt(size_t step) const
{
    const ObservedKey *const observed = stepAt(step).observed.data();
    return observed ? observed->object() : nullptr;
}

QObject *KeyPathObserver::objectBehind(size_t step)
{
    KeyAccessor accessor(stepAt(step).key);
    return objectIn(accessor.read(KeyValueTarget::of(objectAt(step))));
}

/// Reads the rest of the path. A getter may lead here again, and to another rest: what reads is
/// out of the way until then.
QVariant KeyPathObserver::read()
{
    const size_t followed = _followed;
    const QObject *const last = followed > 0 ? objectAt(followed - 1) : nullptr;
    if (!last)
        return {};
    const quint64 turn = _turn;
    std::unique_ptr<KeyPath> rest = std::exchange(_rest, nullptr);
    if (!rest)
        rest = std::make_unique<KeyPath>(pathFrom(followed - 1));
    QVariant value = rest->read(KeyValueTarget::of(last));
    if (turn == _turn)
        _rest = std::move(rest);
    return value;
}

/// The value at the end of the path. A key that an object lacks has none.
QVariant KeyPathObserver::value()
{
    try {
        return read();
    } catch (const NSException &) {
        return {};
    }
}

void KeyPathObserver::keyChanged(size_t step, const NSKeyValueChange &change)
{
    const Call call(this);
    if (change.isPrior) {
        tellPrior(change);
        return;
    }
    if (_isActive && step + 1 < stepCount() && !stepAt(step).takesRest)
        followAgainBehind(step);
    tell(change);
}

/// Another object may be the value of the key at a step. If that lacks a key, there is no value.
void KeyPathObserver::followAgainBehind(size_t step)
{
    leaveFrom(step + 1);
    setFollowed(step + 1);
    const quint64 turn = _turn;
    try {
        QObject *const next = objectBehind(step);
        if (!next || turn != _turn)
            return;
        followFrom(step + 1, next);
    } catch (const NSException &) {
        // The value is read once more, and is nil then.
    }
}

void KeyPathObserver::tellPrior(const NSKeyValueChange &change)
{
    if (!_isActive)
        return;
    // The value may have changed in silence before.
    if (_lastValue)
        *_lastValue = value();
    if (!_isActive || !wants(NSKeyValueObservingOptionPrior))
        return;
    NSKeyValueChange told = change;
    if (_lastValue)
        told.oldValue = *_lastValue;
    _callback(told);
}

/// Whoever wants no values is told of the change as it came, which has none.
void KeyPathObserver::tell(const NSKeyValueChange &change)
{
    if (!_isActive)
        return;
    if (wants(NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld))
        tellValues(change);
    else
        _callback(change);
}

void KeyPathObserver::tellValues(const NSKeyValueChange &change)
{
    NSKeyValueChange told{change.kind, {}, {}, change.indexes, false};
    if (_lastValue)
        setValues(&told);
    else
        told.newValue = value();
    // A getter may have ended the observation.
    if (_isActive)
        _callback(told);
}

void KeyPathObserver::setValues(NSKeyValueChange *change)
{
    // A getter may lead here again.
    change->oldValue = *_lastValue;
    QVariant now = value();
    if (wants(NSKeyValueObservingOptionNew))
        change->newValue = now;
    *_lastValue = std::move(now);
}

// Nobody is notified: whoever held the object says so when it holds another one.
void KeyPathObserver::objectIsGone(size_t step)
{
    const Call call(this);
    if (step == 0) {
        stop();
        return;
    }
    leaveFrom(step);
    setFollowed(step);
}
