#include "ChangeWatch_p.h"

#include <KTUtility/Platform/Diagnostics/NSLog.h>
#include <KTUtility/Platform/Keys/KeyValueTarget.h>
#include <KTUtility/Platform/Keys/NotifySignals_p.h>

#include <QMetaProperty>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

ChangeWatch::ChangeWatch(QObject *object, std::function<void()> changed)
    : _object(object), _changed(std::make_shared<const std::function<void()>>(std::move(changed)))
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
    _changed.reset();
}

QString ChangeWatch::changingName() const
{
    return KeyValueTarget::of(_object.data()).description();
}

/// Called through Qt's signals, which no exception may leave. The function may end the observation.
void ChangeWatch::objectChanged()
{
    const std::shared_ptr<ChangeWatch> self = shared_from_this();
    const auto changed = _changed;
    const ChangeChain chain(this);
    if (chain.isEndless() || !_object)
        return;
    try {
        (*changed)();
    } catch (const std::exception &failure) {
        NSLog(u"*** exception in an observer of %@: %@", changingName(),
              QString::fromUtf8(failure.what()));
    } catch (...) {
        NSLog(u"*** exception in an observer of %@", changingName());
    }
}
