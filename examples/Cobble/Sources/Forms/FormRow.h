#pragma once

#include "Fields/FieldReader.h"

#include <KTUtility/KTPropertyBinder>
#include <KTUtility/NSKeyValueBinding>

class FormField;

/// A row of a form: the title of a field, and a record's value of it as its formatter shows it.
///
/// It follows what it is bound to by the bindings "value" and "label". What is typed is read by the
/// field's formatter, and goes to the record.
class FormRow : public QObject, public NSKeyValueBinding
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueBinding)
    Q_PROPERTY(QVariant value READ value WRITE setValue NOTIFY changed)
    Q_PROPERTY(QVariant label READ label WRITE setLabel NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)

public:
    inline static const QString LabelBinding = QStringLiteral("label");

    explicit FormRow(FormField *field);

    FormField *field() const { return _field; }
    /// The value as it is shown; "" for nil, and where there is no single value.
    QString text() const;
    /// A value as the field shows it.
    QString textOf(const QVariant &value) const;
    /// What the field reads of a text that a user has typed.
    Outcome<QVariant> read(const QString &text) const { return _reader->readTyped(text); }
    /// What a user has typed. If the field cannot read it, the value stays.
    Outcome<> setText(const QString &text);

    QVariant value() const { return _value; }
    void setValue(const QVariant &value);
    QVariant label() const { return _label; }
    void setLabel(const QVariant &label);

    QStringList exposedBindings() const override { return {NSValueBinding, LabelBinding}; }
    void bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
              const QVariantMap &options) override;
    void unbind(const QString &binding) override;

Q_SIGNALS:
    void changed();

private:
    KTPropertyBinder *binderFor(const QString &binding);

    FormField *_field;
    std::unique_ptr<FieldReader> _reader;
    QVariant _value;
    QVariant _label;
    KTPropertyBinder _valueBinder{NSValueBinding, NSValueBinding, this};
    KTPropertyBinder _labelBinder{LabelBinding, LabelBinding, this};
};
