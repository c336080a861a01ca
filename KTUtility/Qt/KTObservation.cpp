#include "KTObservation.h"

#include "ChangeWatch_p.h"

using namespace KTPrivate;

KTObservation::KTObservation() = default;
KTObservation::KTObservation(KTObservation &&other) noexcept = default;

KTObservation::KTObservation(QObject *object, std::function<void()> changed)
    : _watch(std::make_shared<ChangeWatch>(object, std::move(changed)))
{
}

KTObservation::~KTObservation()
{
    invalidate();
}

KTObservation &KTObservation::operator=(KTObservation &&other) noexcept
{
    invalidate();
    _watch = std::move(other._watch);
    return *this;
}

bool KTObservation::isActive() const
{
    return _watch && _watch->isActive();
}

void KTObservation::invalidate()
{
    // A change may be on its way to it, which keeps it alive.
    if (_watch)
        _watch->stop();
    _watch.reset();
}

void KTObservation::endWith(QObject *context) &&
{
    QObject *const object = _watch ? _watch->object() : nullptr;
    if (!context || !object)
        return;
    // The connection keeps it, and goes with either of the two.
    QObject::connect(context, &QObject::destroyed, object,
                     [watch = std::move(_watch)] { watch->stop(); });
}
