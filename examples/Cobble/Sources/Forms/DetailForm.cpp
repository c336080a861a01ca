#include "DetailForm.h"

#include <algorithm>

namespace {
const QString Fields = QStringLiteral("fields");
const QString Record = QStringLiteral("record");
const QString Keys = QStringLiteral("keys");
const QString Titles = QStringLiteral("titles");
} // namespace

DetailForm::DetailForm(NSArrayController *records)
    : _binder(std::make_unique<KTFieldDetailBinder>(this))
{
    _binder->setFieldsBindingName(Fields);
    _binder->setValueSourceBindingName(Record);
    _binder->setFieldDetailValuesBindingName(Keys);
    _binder->addFieldDependentBindingName(Keys, QStringLiteral("key"));
    _binder->addFieldDependentBindingName(Titles, FormRow::LabelBinding);
    _binder->bind(Record, records, QStringLiteral("selection"));
    _binder->bind(Fields, &_fields, QStringLiteral("arrangedObjects"));
    _binder->bind(Keys, &_fields, QStringLiteral("arrangedObjects.key"));
    _binder->bind(Titles, &_fields, QStringLiteral("arrangedObjects.title"));
}

DetailForm::~DetailForm()
{
    // Nobody is told of the rows that go with it.
    blockSignals(true);
}

void DetailForm::setFields(const QList<FormField *> &fields)
{
    QVariantList objects;
    for (FormField *const field : fields)
        objects += QVariant::fromValue(field);
    _fields.setContent(objects);
}

QList<FormRow *> DetailForm::rows() const
{
    QList<FormRow *> rows;
    for (const QVariant &field : _fields.arrangedObjects()) {
        const auto row = std::find_if(_rows.begin(), _rows.end(), [&](const auto &each) {
            return each->field() == field.value<FormField *>();
        });
        if (row != _rows.end())
            rows += row->get();
    }
    return rows;
}

QObject *DetailForm::createNewFieldDetailObjectForField(QObject *field)
{
    _rows.push_back(std::make_unique<FormRow>(qobject_cast<FormField *>(field)));
    return _rows.back().get();
}

void DetailForm::fieldDetailObjectWasBound(QObject *, QObject *) {}

void DetailForm::fieldDetailObjectWillBeDestroyed(QObject *detail)
{
    std::erase_if(_rows, [detail](const auto &row) { return row.get() == detail; });
}

void DetailForm::fieldDetailObjectsFinishedRearrange()
{
    Q_EMIT rowsChanged();
}
