#include "PastePlan.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
bool isSame(const QString &one, const QString &other)
{
    return !one.trimmed().isEmpty() &&
           one.trimmed().compare(other.trimmed(), Qt::CaseInsensitive) == 0;
}

bool isNamed(const LibraryField &field, const QString &title)
{
    return isSame(field.title(), title) || isSame(field.label, title) ||
           isSame(field.propertyName, title) || isSame(field.columnName, title);
}
} // namespace

PastePlan::PastePlan(const PasteTarget &target, const PastedTable &table)
    : _target(target), _table(table)
{
    if (_table.exact)
        _titles = _table.exact->titles();
}

qsizetype PastePlan::rowCount() const
{
    return _table.exact ? _table.exact->rows.size() : _table.rows.size();
}

qsizetype PastePlan::columnCount() const
{
    if (_table.exact)
        return _table.exact->fields.size();
    qsizetype count = 0;
    for (const QStringList &row : _table.rows)
        count = qMax(count, row.size());
    return count;
}

CopiedCell PastePlan::cell(qsizetype row, qsizetype column) const
{
    return _table.exact ? _table.exact->rows.at(row).value(column)
                        : CopiedCell{QVariant(), _table.rows.at(row).value(column)};
}

/// \param taken fields that are not looked at.
/// \return −1 if there is none.
qsizetype PastePlan::fieldNamed(const QString &title, const Places &taken) const
{
    const QList<LibraryField> &fields = _target.library.fields;
    // What stands above a field goes before its other names.
    for (qsizetype field = 0; field < fields.size(); ++field) {
        if (isSame(fields.at(field).title(), title) && !taken.contains(field))
            return field;
    }
    for (qsizetype field = 0; field < fields.size(); ++field) {
        if (isNamed(fields.at(field), title) && !taken.contains(field))
            return field;
    }
    return -1;
}

/// A field is filled by the first column that names it; where several fields have one title, the
/// second column fills the second of them.
PastePlan::Places PastePlan::placesOfTitles(const QStringList &titles) const
{
    Places places;
    for (const QString &title : titles)
        places += fieldNamed(title, places);
    return places;
}

PastePlan::Places PastePlan::placesByOrder() const
{
    Places places;
    for (qsizetype column = 0; column < columnCount(); ++column)
        places += column < _target.library.fields.size() ? column : -1;
    return places;
}

/// Takes the first row away if it holds titles.
bool PastePlan::takeTitles()
{
    if (_table.exact || _table.rows.size() < 2)
        return false;
    const QStringList &first = _table.rows.first();
    const bool areNames = std::all_of(
        first.begin(), first.end(), [this](const QString &text) { return fieldNamed(text) >= 0; });
    if (!areNames)
        return false;
    _titles = _table.rows.takeFirst();
    return true;
}

PastePlan PastePlan::records(const PasteTarget &target, const PastedTable &table)
{
    PastePlan plan(target, table);
    const bool hasTitles = plan.takeTitles() || plan._table.exact;
    const Places places = hasTitles ? plan.placesOfTitles(plan._titles) : plan.placesByOrder();
    for (qsizetype row = 0; row < plan.rowCount(); ++row) {
        if (!plan.isBlank(row))
            plan.addRecord(row, places);
    }
    return plan;
}

/// Lines without anything stand between records, and at the end of what is copied.
bool PastePlan::isBlank(qsizetype row) const
{
    return !_table.exact && QString(_table.rows.at(row).join(QString())).trimmed().isEmpty();
}

void PastePlan::addRecord(qsizetype row, const Places &places)
{
    QVariantList values(_target.library.fields.size());
    for (qsizetype column = 0; column < columnCount(); ++column) {
        const CopiedCell from = cell(row, column);
        const qsizetype field = places.value(column, -1);
        if (field < 0) {
            addProblem(row, columnName(column), from.text, tr("there is no field for this column"));
            continue;
        }
        const Outcome<QVariant> value = read(from, column, field);
        values[field] = value.valueOr(QVariant());
        if (!value)
            addProblem(row, _target.library.fields.at(field).title(), from.text, value.reason());
    }
    _records += values;
}

PastePlan PastePlan::cells(const PasteTarget &target, const PastedTable &table,
                           const QList<qsizetype> &fields, qsizetype rowCount)
{
    PastePlan plan(target, table);
    for (qsizetype row = 0; row < plan.rowCount(); ++row) {
        for (qsizetype column = 0; column < plan.columnCount(); ++column) {
            const QString text = plan.cell(row, column).text;
            if (row >= rowCount)
                plan.addProblem(row, plan.columnName(column), text,
                                tr("there is no record in this row"));
            else if (column >= fields.size())
                plan.addProblem(row, plan.columnName(column), text,
                                tr("there is no field for this column"));
            else
                plan.addCell(row, column, fields.at(column));
        }
    }
    return plan;
}

void PastePlan::addCell(qsizetype row, qsizetype column, qsizetype field)
{
    // Rows from elsewhere may end early; what they do not have stays as it is.
    if (!_table.exact && column >= _table.rows.at(row).size())
        return;
    const CopiedCell from = cell(row, column);
    const Outcome<QVariant> value = read(from, column, field);
    if (value)
        _cells += {row, field, *value};
    else
        addProblem(row, _target.library.fields.at(field).title(), from.text, value.reason());
}

/// Values of the same kind are taken as they are, others as they were shown.
Outcome<QVariant> PastePlan::read(const CopiedCell &cell, qsizetype column, qsizetype field) const
{
    const LibraryField &into = _target.library.fields.at(field);
    const FieldReader &reader = _target.reader(field);
    if (into.type == FieldType::Media)
        return readMedia(cell, column);
    if (_table.exact && _table.exact->fields.at(column).type == into.type &&
        _table.exact->fields.at(column).currency == reader.currencyType())
        return cell.value;
    return reader.readTyped(cell.text);
}

/// Records of one bundle may share a file.
Outcome<QVariant> PastePlan::readMedia(const CopiedCell &cell, qsizetype column) const
{
    if (cell.text.isEmpty())
        return QVariant();
    const bool isOurs = _table.exact && _table.exact->fields.at(column).type == FieldType::Media &&
                        _table.exact->bundle == _target.bundle;
    if (isOurs)
        return cell.value;
    return Failure{tr("a text is no picture, and pictures of other databases are not here")};
}

/// What is empty is missed nowhere.
void PastePlan::addProblem(qsizetype row, const QString &name, const QString &text,
                           const QString &reason)
{
    if (!text.isEmpty())
        _problems += {row + 1, name, text, reason};
}

QString PastePlan::columnName(qsizetype column) const
{
    return _titles.value(column, QString::number(column + 1));
}
