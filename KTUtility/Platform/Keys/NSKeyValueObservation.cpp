#include "NSKeyValueObservation.h"

#include "KeyPathObserver_p.h"

#include <utility>

using namespace KTPrivate;

NSKeyValueObservation::NSKeyValueObservation() = default;

NSKeyValueObservation::NSKeyValueObservation(NSKeyValueObservation &&other) noexcept
    : _observer(std::exchange(other._observer, nullptr))
{
}

NSKeyValueObservation::NSKeyValueObservation(QObject *object, const KTText &keyPath,
                                             NSKeyValueObservingOptions options, Callback callback)
    : _observer(new KeyPathObserver(keyPath, options, std::move(callback)))
{
    try {
        _observer->start(object);
    } catch (...) {
        invalidate();
        throw;
    }
}

NSKeyValueObservation::~NSKeyValueObservation()
{
    invalidate();
}

NSKeyValueObservation &NSKeyValueObservation::operator=(NSKeyValueObservation &&other) noexcept
{
    invalidate();
    _observer = std::exchange(other._observer, nullptr);
    return *this;
}

bool NSKeyValueObservation::isActive() const
{
    return _observer && _observer->isActive();
}

void NSKeyValueObservation::invalidate()
{
    // A change may be on its way to it, which keeps it alive.
    if (KeyPathObserver *const observer = std::exchange(_observer, nullptr))
        observer->end();
}
