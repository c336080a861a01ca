#include "StoredRecord.h"

#include "OpenLibrary.h"

#include <KTUtility/NSApplication>
#include <KTUtility/NSKeyValueObserving>
#include <KTUtility/NSObject>

bool StoredRecord::setValueForKey(const QVariant &value, const QString &key)
{
    if (!values().contains(key))
        return false;
    if (NSObject::isEqual(values().value(key), value))
        return true;
    if (_library->save(*this, key, value))
        setSavedValue(value, key);
    else
        NSApplication::performOnNextTurn(
            this, [this, key] { NSKeyValueObserving::didChangeValueForKey(this, key); });
    return true;
}

void StoredRecord::setSavedValue(const QVariant &value, const QString &key)
{
    FormRecord::setValueForKey(value, key);
    Q_EMIT _library->recordChanged(this, key);
}
