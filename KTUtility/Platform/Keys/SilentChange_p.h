#pragma once

#include "KeyValueTarget.h"
#include "ObservedKey_p.h"

#include <QMetaProperty>
#include <QPointer>
#include <QString>

namespace KTPrivate {
/// Notifies observers of a key that is set and that no signal reports.
class SilentChange
{
public:
    /// \param property the key's property, if it has one.
    SilentChange(const KeyValueTarget &receiver, const QMetaProperty &property, const QString &key);
    ~SilentChange();
    SilentChange(const SilentChange &) = delete;
    SilentChange &operator=(const SilentChange &) = delete;

    /// Whether somebody who was told before has destroyed the object.
    bool isReceiverGone() const { return _isReceiverGone; }
    /// The value was set. A setter that reported it itself has ended the change.
    void happened();

private:
    QPointer<ObservedKey> _key;
    bool _isReceiverGone = false;
};
} // namespace KTPrivate
