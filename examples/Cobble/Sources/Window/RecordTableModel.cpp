#include "RecordTableModel.h"

#include "Appearance/FieldTitle.h"
#include "Editing/CopiedForms.h"
#include "Records/ValueOrder.h"
#include "Text/ShortText.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace {
bool isNumber(FieldType type)
{
    return type == FieldType::Number || type == FieldType::Currency || type == FieldType::Duration;
}

KTArrayColumn columnFor(const std::shared_ptr<OpenLibrary> &library, qsizetype index)
{
    const LibraryField &field = library->definition().fields.at(index);
    // The formatter lives as long as the library.
    const std::shared_ptr<const NSFormatter> formatter(library, library->reader(index).formatter());
    return KTArrayColumn(field.columnName, ShortText::firstLine(FieldTitle::of(field)), formatter)
        .setComparator(ValueOrder::compare)
        .setAlignment((isNumber(field.type) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter)
        // Media are files that were stored; a name that somebody types is none of them.
        .setEditable(field.type != FieldType::Media);
}

QList<KTArrayColumn> columnsOf(const std::shared_ptr<OpenLibrary> &library)
{
    QList<KTArrayColumn> columns;
    for (qsizetype field = 0; library && field < library->definition().fields.size(); ++field)
        columns += columnFor(library, field);
    return columns;
}
} // namespace

void RecordTableModel::setLibrary(const std::shared_ptr<OpenLibrary> &library)
{
    _library = library;
    setColumns(columnsOf(library));
}

StoredRecord *RecordTableModel::recordAt(qsizetype row) const
{
    return objectAt(int(row)).value<StoredRecord *>();
}

QVariant RecordTableModel::data(const QModelIndex &index, int role) const
{
    const StoredRecord *const record = recordAt(index.row());
    if (!record || !_library || (role != Qt::DisplayRole && role != Qt::EditRole))
        return KTArrayModel::data(index, role);
    const QString text = _library->text(*record, index.column());
    return role == Qt::EditRole ? text : ShortText::firstLine(text);
}

Qt::ItemFlags RecordTableModel::flags(const QModelIndex &index) const
{
    return KTArrayModel::flags(index) | Qt::ItemIsDragEnabled;
}

Outcome<> RecordTableModel::take(const QString &text, const QModelIndex &at)
{
    StoredRecord *const record = recordAt(at.row());
    if (!record || text == data(at, Qt::EditRole).toString())
        return {};
    const Outcome<QVariant> value = _library->reader(at.column()).readTyped(text);
    if (!value)
        return value.failure();
    const QString key = columns().at(at.column()).keyPath();
    const auto change = [&] { record->setValueForKey(*value, key); };
    return _changer ? _changer(change) : _library->change(change);
}

bool RecordTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole)
        return false;
    const Outcome<> taken = take(value.toString(), index);
    if (!taken)
        Q_EMIT rejected(index, taken.reason());
    return bool(taken);
}

// --- Copying ------------------------------------------------------------------------------------

QStringList RecordTableModel::mimeTypes() const
{
    return CopiedForms::names();
}

QList<CopiedField> RecordTableModel::copiedFields() const
{
    QList<CopiedField> fields;
    for (qsizetype field = 0; field < _library->definition().fields.size(); ++field)
        fields += {_library->definition().fields.at(field).title(), typeAt(int(field)),
                   _library->reader(field).currencyType()};
    return fields;
}

QList<CopiedCell> RecordTableModel::copiedCells(const StoredRecord &record) const
{
    QList<CopiedCell> cells;
    for (qsizetype field = 0; field < _library->definition().fields.size(); ++field)
        cells += {_library->value(record, field), _library->text(record, field)};
    return cells;
}

CopiedRecords RecordTableModel::copied(const QList<qsizetype> &rows) const
{
    CopiedRecords copied;
    if (!_library)
        return copied;
    copied.bundle = _library->bundlePath();
    copied.fields = copiedFields();
    for (const qsizetype row : rows) {
        if (const StoredRecord *const record = recordAt(row))
            copied.rows += copiedCells(*record);
    }
    return copied;
}

QMimeData *RecordTableModel::mimeData(const QModelIndexList &indexes) const
{
    QMap<qsizetype, bool> rows;
    for (const QModelIndex &index : indexes)
        rows.insert(index.row(), true);
    return new CopiedForms(copied(rows.keys()));
}
