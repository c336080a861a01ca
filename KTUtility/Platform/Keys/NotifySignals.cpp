#include "NotifySignals_p.h"

#include <QMetaMethod>
#include <QMetaProperty>

void KTPrivate::connectNotifySignals(const QObject *object, QObject *receiver, const char *slot)
{
    const QMetaObject *const offered = object->metaObject();
    const QMetaObject *const receiving = receiver->metaObject();
    const QMetaMethod called = receiving->method(receiving->indexOfSlot(slot));
    for (int index = 0; index < offered->propertyCount(); ++index) {
        const QMetaProperty property = offered->property(index);
        if (property.hasNotifySignal())
            QObject::connect(object, property.notifySignal(), receiver, called,
                             Qt::UniqueConnection);
    }
}
