#include "DetailForm.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
const QString Fields = u"fields"_s;
const QString Record = u"record"_s;
const QString Keys = u"keys"_s;
const QString Titles = u"titles"_s;
} // namespace

DetailForm::DetailForm(NSArrayController *records)
    : _binder(std::make_unique<KTFieldDetailBinder>(this))
{
    _binder->setFieldsBindingName(Fields);
    _binder->setValueSourceBindingName(Record);
    _binder->setFieldDetailValuesBindingName(Keys);
    _binder->addFieldDependentBindingName(Keys, u"key"_s);
    _binder->addFieldDependentBindingName(Titles, FormRow::LabelBinding);
    _binder->bind(Record, records, u"selection"_s);
    _binder->bind(Fields, &_fields, u"arrangedObjects"_s);
    _binder->bind(Keys, &_fields, u"arrangedObjects.key"_s);
    _binder->bind(Titles, &_fields, u"arrangedObjects.title"_s);
}

DetailForm::~DetailForm()
{
    // Nobody is notified of the rows that are destroyed with it.
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
