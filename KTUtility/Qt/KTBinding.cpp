#include "KTBinding.h"

#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Diagnostics/NSLog.h>
#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>

#include <QScopedValueRollback>

#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

KTBinding::Parts::~Parts() = default;

KTBinding::KTBinding() = default;
KTBinding::KTBinding(std::shared_ptr<Parts> parts) : _parts(std::move(parts)) {}
KTBinding::KTBinding(KTBinding &&other) noexcept = default;

KTBinding::~KTBinding()
{
    invalidate();
}

KTBinding &KTBinding::operator=(KTBinding &&other) noexcept
{
    invalidate();
    _parts = std::move(other._parts);
    return *this;
}

bool KTBinding::isActive() const
{
    return _parts && _parts->isActive();
}

void KTBinding::invalidate()
{
    // A change may be on its way, which keeps the parts.
    if (const auto parts = std::exchange(_parts, nullptr))
        parts->end();
}

OneWay::OneWay(KTObservation observation, QObject *target)
    : _observation(std::move(observation)), _target(target)
{
}

bool OneWay::isActive() const
{
    return _target && _observation.isActive();
}

void OneWay::end()
{
    _observation.invalidate();
}

// --- Key paths ----------------------------------------------------------------------------------

void PathLink::begin(QObject *object, const QString &keyPath, Taken taken)
{
    _object = object;
    _keyPath = keyPath;
    _taken = std::move(taken);
    if (!object)
        return;
    take(NSKeyValueCoding::valueForKeyPath(object, keyPath));
    if (!_object)
        return;
    _observation = NSKeyValueObservation(object, keyPath, NSKeyValueObservingOptionNew,
                                         [weak = weak_from_this()](const NSKeyValueChange &change) {
                                             if (const auto kept = weak.lock())
                                                 kept->take(change.newValue.value_or(QVariant()));
                                         });
}

void PathLink::take(const QVariant &value)
{
    const QScopedValueRollback<bool> passing(_isPassing, true);
    try {
        _taken(value);
    } catch (...) {
        NSLog(u"*** a property cannot hold the value of %@: %@", _keyPath, reasonOfException());
    }
}

void PathLink::set(const QVariant &value)
{
    if (_isPassing || !_object)
        return;
    const QScopedValueRollback<bool> passing(_isPassing, true);
    try {
        NSKeyValueCoding::setValueForKeyPath(_object.data(), value, _keyPath);
    } catch (...) {
        NSLog(u"*** a property cannot be passed to %@: %@", _keyPath, reasonOfException());
    }
}

bool PathLink::isActive() const
{
    return _object && _observation.isActive();
}

void PathLink::end()
{
    _observation.invalidate();
    notifier = QPropertyNotifier();
    _object = nullptr;
}
