#include "SilentChange_p.h"

#include <utility>

using namespace KTPrivate;

SilentChange::SilentChange(const KeyValueTarget &receiver, const QMetaProperty &property,
                           const QString &key)
{
    if (receiver.kind == KeyValueTarget::Kind::Object && !property.hasNotifySignal())
        _key = ObservedKey::existing(receiver.object(), key);
    if (!_key)
        return;
    const QPointer<QObject> object = receiver.object();
    _key->willChange(NSKeyValueChangeSetting, {});
    _isReceiverGone = !object;
}

SilentChange::~SilentChange()
{
    if (_key)
        _key->cancelChange();
}

void SilentChange::happened()
{
    const QPointer<ObservedKey> key = std::exchange(_key, nullptr);
    if (key && key->isChanging())
        key->didChange(NSKeyValueChangeSetting, {});
}
