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

KeyPathObserver::KeyPathObserver(QObject *object, const QString &keyPath,
                                 NSKeyValueObservingOptions options,
                                 NSKeyValueObservation::Callback callback)
    : _root(object)
    , _options(options)
    , _callback(std::move(callback))
    , _serial(nextObserverSerial())
{
    const QStringList keys = keyPath.split(u'.');
    _steps.reserve(size_t(keys.size()));
    for (const QString &key : keys)
        _steps.push_back({KeyAccessor(key), {}, {}});
}

KeyPathObserver::~KeyPathObserver()
{
    stop();
}

void KeyPathObserver::start()
{
    if (!_root)
        return;
    _isActive = true;
    _steps.front().object = _root;
    try {
        followFrom(0);
        _lastValue = _rest->read(KeyValueTarget::of(_steps[_followed - 1].object.data()));
    } catch (...) {
        stop();
        throw;
    }
    if ((_options & NSKeyValueObservingOptionInitial) == 0)
        return;
    NSKeyValueChange change;
    if ((_options & NSKeyValueObservingOptionNew) != 0)
        change.newValue = _lastValue;
    _callback(change);
}

void KeyPathObserver::stop()
{
    _isActive = false;
    leaveFrom(0);
}

/// Observes the keys from a step on, whose object is known, as far as there are objects.
void KeyPathObserver::followFrom(size_t step)
{
    for (;; ++step) {
        Step &here = _steps[step];
        here.key = ObservedKey::of(here.object, here.accessor.key());
        here.key->add(this, step);
        setFollowed(step + 1);
        QObject *const next = step + 1 < _steps.size() ? objectBehind(step) : nullptr;
        if (!next)
            return;
        _steps[step + 1].object = next;
    }
}

/// So many steps lead over objects; the rest of the path begins at the last of them.
void KeyPathObserver::setFollowed(size_t count)
{
    _followed = count;
    QString rest = _steps[count - 1].accessor.key();
    for (size_t index = count; index < _steps.size(); ++index)
        rest += u'.' + _steps[index].accessor.key();
    _rest.emplace(rest);
}

void KeyPathObserver::leaveFrom(size_t step)
{
    for (; step < _steps.size(); ++step) {
        Step &here = _steps[step];
        const QPointer<ObservedKey> key = std::exchange(here.key, nullptr);
        here.object = nullptr;
        if (key)
            key->remove(this, step);
    }
}

QObject *KeyPathObserver::objectBehind(size_t step)
{
    return objectIn(_steps[step].accessor.read(KeyValueTarget::of(_steps[step].object.data())));
}

/// The value at the end of the path. A key that an object lacks has none.
QVariant KeyPathObserver::value()
{
    const QPointer<QObject> &last = _steps[_followed - 1].object;
    try {
        return last ? _rest->read(KeyValueTarget::of(last.data())) : QVariant();
    } catch (const NSException &) {
        return {};
    }
}

void KeyPathObserver::keyChanged(size_t step, const NSKeyValueChange &change)
{
    // A callback may end the observation.
    const std::shared_ptr<KeyPathObserver> self = shared_from_this();
    if (change.isPrior) {
        tellPrior(change);
        return;
    }
    if (_isActive && step + 1 < _steps.size())
        followAgainBehind(step);
    tell(change);
}

/// Another object may be the value of the key at a step. If that lacks a key, there is no value.
void KeyPathObserver::followAgainBehind(size_t step)
{
    leaveFrom(step + 1);
    setFollowed(step + 1);
    try {
        QObject *const next = objectBehind(step);
        _steps[step + 1].object = next;
        if (next)
            followFrom(step + 1);
    } catch (const NSException &) {
        // The value is read once more, and is nil then.
    }
}

void KeyPathObserver::tellPrior(const NSKeyValueChange &change)
{
    if (!_isActive)
        return;
    // The value may have changed in silence before.
    if ((_options & NSKeyValueObservingOptionOld) != 0)
        _lastValue = value();
    if ((_options & NSKeyValueObservingOptionPrior) == 0)
        return;
    NSKeyValueChange told = change;
    if ((_options & NSKeyValueObservingOptionOld) != 0)
        told.oldValue = _lastValue;
    _callback(told);
}

void KeyPathObserver::tell(const NSKeyValueChange &change)
{
    if (!_isActive)
        return;
    NSKeyValueChange told{change.kind, {}, {}, change.indexes, false};
    if ((_options & NSKeyValueObservingOptionOld) != 0) {
        told.oldValue = std::move(_lastValue);
        _lastValue = value();
        if ((_options & NSKeyValueObservingOptionNew) != 0)
            told.newValue = _lastValue;
    } else if ((_options & NSKeyValueObservingOptionNew) != 0) {
        told.newValue = value();
    }
    _callback(told);
}

// Nobody is notified: whoever held the object says so when it holds another one.
void KeyPathObserver::objectIsGone(size_t step)
{
    const std::shared_ptr<KeyPathObserver> self = shared_from_this();
    if (step == 0) {
        stop();
        return;
    }
    leaveFrom(step);
    setFollowed(step);
}
