#include "KTBoundComboBox.h"

#include <KTUtility/Platform/Values/NSObject.h>

#include <QPointer>

#include <utility>

KTBoundComboBox::KTBoundComboBox(QWidget *parent)
    : QComboBox(parent), KTBoundEditor(static_cast<QWidget *>(this))
{
    QObject::connect(this, &QComboBox::activated, this, &KTBoundComboBox::take);
    // What is there when the items come is shown then.
    QObject::connect(model(), &QAbstractItemModel::rowsInserted, this, &KTBoundComboBox::showValue,
                     Qt::QueuedConnection);
}

void KTBoundComboBox::addChoice(const QString &text, const QVariant &value)
{
    addItem(text, value);
    showValue();
}

QVariant KTBoundComboBox::valueAt(int index) const
{
    const QVariant value = itemData(index);
    return value.isValid() || index < 0 || index >= count() ? value : QVariant(itemText(index));
}

int KTBoundComboBox::indexOf(const QVariant &value) const
{
    for (int index = 0; index < count(); ++index) {
        if (NSObject::isEqual(valueAt(index), value))
            return index;
    }
    return -1;
}

void KTBoundComboBox::setValue(const QVariant &value)
{
    const bool isOther = !NSObject::isEqual(value, _value);
    _value = value;
    showValue();
    showReason({});
    showEnabledFor(value);
    if (isOther)
        Q_EMIT valueChanged();
}

void KTBoundComboBox::showValue()
{
    const QString placeholder = bindingOptions().placeholderFor(_value);
    if (placeholderText() != placeholder)
        setPlaceholderText(placeholder);
    setCurrentIndex(indexOf(_value));
}

void KTBoundComboBox::take(int index)
{
    const QPointer<KTBoundComboBox> self = this;
    const QVariant before = std::exchange(_value, valueAt(index));
    if (NSObject::isEqual(before, _value))
        return;
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
