#include "NSKeyValueObservation.h"

#include "KeyPathObserver_p.h"

using namespace KTPrivate;

NSKeyValueObservation::NSKeyValueObservation() = default;
NSKeyValueObservation::NSKeyValueObservation(NSKeyValueObservation &&other) noexcept = default;

NSKeyValueObservation::NSKeyValueObservation(QObject *object, const KTText &keyPath,
                                             NSKeyValueObservingOptions options, Callback callback)
    : _observer(std::make_shared<KeyPathObserver>(object, keyPath, options, std::move(callback)))
{
    _observer->start();
}

NSKeyValueObservation::~NSKeyValueObservation()
{
    invalidate();
}

NSKeyValueObservation &NSKeyValueObservation::operator=(NSKeyValueObservation &&other) noexcept
{
    invalidate();
    _observer = std::move(other._observer);
    return *this;
}

bool NSKeyValueObservation::isActive() const
{
    return _observer && _observer->isActive();
}

void NSKeyValueObservation::invalidate()
{
    // A change may be on its way to it, which keeps it alive.
    if (_observer)
        _observer->stop();
    _observer.reset();
}
