#include "ChangeWatch_p.h"

#include <KTUtility/Platform/Diagnostics/NSLog.h>
#include <KTUtility/Platform/Keys/KeyValueTarget.h>
#include <KTUtility/Platform/Keys/NotifySignals_p.h>

#include <QMetaProperty>
#include <QScopeGuard>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

ChangeWatch::ChangeWatch(QObject *object, std::function<void()> changed)
    : _object(object), _changed(std::move(changed))
{
    if (!object)
        return;
    connectNotifySignals(object, this, "objectChanged()");
    const QMetaObject *const type = object->metaObject();
    for (int index = 0; index < type->propertyCount(); ++index) {
        const QMetaProperty property = type->property(index);
        if (!property.hasNotifySignal() && property.isBindable())
            _notifiers.push_back(
                property.bindable(object).addNotifier([this] { objectChanged(); }));
    }
}

void ChangeWatch::stop()
{
    if (_object)
        QObject::disconnect(_object, nullptr, this, nullptr);
    _object = nullptr;
    // The function may be running.
    if (_calls == 0)
        _changed = nullptr;
}

QString ChangeWatch::changingName() const
{
    return KeyValueTarget::of(_object.data()).description();
}

/// Called through Qt's signals, which no exception may leave. The function may end the observation.
void ChangeWatch::objectChanged()
{
    const std::shared_ptr<ChangeWatch> self = shared_from_this();
    ++_calls;
    const auto returning = qScopeGuard([this] {
        if (--_calls == 0 && !_object)
            _changed = nullptr;
    });
    const ChangeChain chain(this);
    if (chain.isEndless() || !_object)
        return;
    try {
        _changed();
    } catch (const std::exception &failure) {
        NSLog(u"*** exception in an observer of %@: %@", changingName(),
              QString::fromUtf8(failure.what()));
    } catch (...) {
        NSLog(u"*** exception in an observer of %@", changingName());
    }
}
