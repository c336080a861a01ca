#include "FormField.h"

#include <KTUtility/NSKeyValueObserving>

std::optional<QVariant> FormRecord::valueForKey(const QString &key) const
{
    const auto value = _values.constFind(key);
    return value == _values.constEnd() ? std::nullopt : std::optional(*value);
}

bool FormRecord::setValueForKey(const QVariant &value, const QString &key)
{
    if (!_values.contains(key))
        return false;
    NSKeyValueObserving::willChangeValueForKey(this, key);
    _values.insert(key, value);
    NSKeyValueObserving::didChangeValueForKey(this, key);
    return true;
}
