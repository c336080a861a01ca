#pragma once

#include <KTUtility/KTPropertyBinder>
#include <KTUtility/NSKeyValueBinding>

#include <QObject>
#include <QVariant>

/// A view with two bindings, "value" and "label", each kept in a property.
class BoundView : public QObject, public NSKeyValueBinding
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueBinding)
    Q_PROPERTY(QVariant value READ value WRITE setValue)
    Q_PROPERTY(QVariant label READ label WRITE setLabel)
    Q_PROPERTY(int row MEMBER row)

public:
    QStringList exposedBindings() const override { return {NSValueBinding, Label}; }
    void bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
              const QVariantMap &options) override
    {
        if (KTPropertyBinder *const binder = binderFor(binding))
            binder->bind(binding, toObject, withKeyPath, options);
    }
    void unbind(const QString &binding) override
    {
        if (KTPropertyBinder *const binder = binderFor(binding))
            binder->unbind(binding);
    }

    QVariant value() const { return _value; }
    /// What the binder sets; each is counted.
    void setValue(const QVariant &value)
    {
        _value = value;
        ++sets;
        if (changesBackAtOnce)
            valueBinder.ownerKeyPathChanged();
    }
    QVariant label() const { return _label; }
    void setLabel(const QVariant &label) { _label = label; }

    /// What a user does.
    void type(const QVariant &value)
    {
        _value = value;
        valueBinder.ownerKeyPathChanged();
    }

    inline static const QString Label = QStringLiteral("label");
    int row = 0;
    int sets = 0;
    bool changesBackAtOnce = false;
    KTPropertyBinder valueBinder{NSValueBinding, NSValueBinding, this};
    KTPropertyBinder labelBinder{Label, Label, this};

private:
    KTPropertyBinder *binderFor(const QString &binding)
    {
        if (valueBinder.willHandleBindingName(binding))
            return &valueBinder;
        return labelBinder.willHandleBindingName(binding) ? &labelBinder : nullptr;
    }

    QVariant _value;
    QVariant _label;
};
