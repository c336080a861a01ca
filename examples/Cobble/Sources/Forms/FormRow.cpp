#include "FormRow.h"

#include "FormField.h"
#include "Library/RecordTexts.h"

#include <KTUtility/NSSelectionMarker>

using namespace Qt::StringLiterals;

FormRow::FormRow(FormField *field) : _field(field), _reader(field->field().reader()) {}

QString FormRow::text() const
{
    return NSIsControllerMarker(_value) ? u""_s : textOf(_value);
}

QString FormRow::textOf(const QVariant &value) const
{
    return RecordTexts::textOf(*_reader, value);
}

Outcome<> FormRow::setText(const QString &text)
{
    const Outcome<QVariant> value = read(text);
    if (!value)
        return value.failure();
    setValue(*value);
    _valueBinder.ownerKeyPathChanged();
    return {};
}

void FormRow::setValue(const QVariant &value)
{
    _value = value;
    Q_EMIT changed();
}

void FormRow::setLabel(const QVariant &label)
{
    _label = label;
    Q_EMIT changed();
}

KTPropertyBinder *FormRow::binderFor(const QString &binding)
{
    if (_valueBinder.willHandleBindingName(binding))
        return &_valueBinder;
    return _labelBinder.willHandleBindingName(binding) ? &_labelBinder : nullptr;
}

void FormRow::bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
                   const QVariantMap &options)
{
    if (KTPropertyBinder *const binder = binderFor(binding))
        binder->bind(binding, toObject, withKeyPath, options);
}

void FormRow::unbind(const QString &binding)
{
    if (KTPropertyBinder *const binder = binderFor(binding))
        binder->unbind(binding);
}
