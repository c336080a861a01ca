#include "KTBoundCheckBox.h"

#include <KTUtility/Platform/Keys/NSSelectionMarker.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QPointer>

#include <utility>

KTBoundCheckBox::KTBoundCheckBox(QWidget *parent) : KTBoundCheckBox(QString(), parent) {}

KTBoundCheckBox::KTBoundCheckBox(const QString &text, QWidget *parent)
    : QCheckBox(text, parent), KTBoundEditor(static_cast<QWidget *>(this))
{
}

void KTBoundCheckBox::setValue(const QVariant &value)
{
    const bool isOther = !NSObject::isEqual(value, _value);
    _value = value;
    showValue();
    showReason({});
    showEnabledFor(value);
    if (isOther)
        Q_EMIT valueChanged();
}

void KTBoundCheckBox::showValue()
{
    const bool isMixed = _value == NSMultipleValuesMarker();
    setTristate(isMixed);
    setCheckState(isMixed                       ? Qt::PartiallyChecked
                  : NSObject::boolValue(_value) ? Qt::Checked
                                                : Qt::Unchecked);
}

/// A click: never half checked.
void KTBoundCheckBox::nextCheckState()
{
    const QPointer<KTBoundCheckBox> self = this;
    const QVariant before = std::exchange(_value, checkState() != Qt::Checked);
    const QString reason = commitValue();
    if (!self)
        return;
    if (!reason.isNull())
        _value = before;
    showValue();
    showReason(reason);
    if (reason.isNull())
        Q_EMIT valueChanged();
    else
        Q_EMIT rejected(reason);
}
