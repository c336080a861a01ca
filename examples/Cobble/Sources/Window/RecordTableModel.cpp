#include "RecordTableModel.h"

#include "Appearance/FieldTitle.h"
#include "Editing/CopiedForms.h"
#include "Text/ShortText.h"

#include <KTUtility/NSAttributedString>
#include <KTUtility/NSObject>

#include <QHash>
#include <QSet>

#include <algorithm>

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

RecordTableModel::RecordTableModel(RecordList *records) : _records(records)
{
    QObject::connect(records, &RecordList::arrangedObjectsChanged, this,
                     &RecordTableModel::rearrange);
    QObject::connect(records, &RecordList::valueChanged, this, &RecordTableModel::tellChanged);
    QObject::connect(records, &RecordList::valuesChanged, this, &RecordTableModel::tellAllChanged);
}

void RecordTableModel::setLibrary(const std::shared_ptr<OpenLibrary> &library)
{
    if (!_columns.isEmpty()) {
        beginRemoveColumns({}, 0, columnCount() - 1);
        _columns.clear();
        endRemoveColumns();
    }
    _library = library;
    const QList<KTArrayColumn> columns = columnsOf(library);
    if (columns.isEmpty())
        return;
    beginInsertColumns({}, 0, int(columns.size()) - 1);
    _columns = columns;
    endInsertColumns();
}

// --- The rows -----------------------------------------------------------------------------------

/// First come the rows that are missing, then all go to their places, then those go that are too
/// many.
void RecordTableModel::rearrange()
{
    const SharedRecordIds ids = _records->ids();
    if (ids == _ids)
        return;
    _isRearranging = true;
    const int count = int(ids->size());
    const auto [left, right] = std::mismatch(_ids->begin(), _ids->end(), ids->begin(), ids->end());
    const bool areOnlyMore = left == _ids->end();
    if (!areOnlyMore)
        Q_EMIT willRearrange();
    insertAtEnd(count - _rowCount);
    if (areOnlyMore)
        _ids = ids;
    else
        moveRows(ids);
    removeFromEnd(_rowCount - count);
    _isRearranging = false;
    Q_EMIT rearranged();
}

void RecordTableModel::insertAtEnd(int count)
{
    if (count <= 0)
        return;
    beginInsertRows({}, _rowCount, _rowCount + count - 1);
    _rowCount += count;
    endInsertRows();
}

void RecordTableModel::removeFromEnd(int count)
{
    if (count <= 0)
        return;
    beginRemoveRows({}, _rowCount - count, _rowCount - 1);
    _rowCount -= count;
    endRemoveRows();
}

void RecordTableModel::moveRows(const SharedRecordIds &ids)
{
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    const QModelIndexList now = placesIn(*ids, before);
    _ids = ids;
    changePersistentIndexList(before, now);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

/// Where the records of cells are now; no cells for those that are not shown any more.
QModelIndexList RecordTableModel::placesIn(const RecordIds &ids,
                                           const QModelIndexList &before) const
{
    QHash<qint64, int> rows;
    for (const QModelIndex &each : before) {
        if (size_t(each.row()) < _ids->size())
            rows.insert((*_ids)[size_t(each.row())], -1);
    }
    for (size_t row = 0; row < ids.size() && !rows.isEmpty(); ++row) {
        const auto wanted = rows.find(ids[row]);
        if (wanted != rows.end())
            *wanted = int(row);
    }
    QModelIndexList now;
    for (const QModelIndex &each : before) {
        const bool wasThere = size_t(each.row()) < _ids->size();
        const int row = wasThere ? rows.value((*_ids)[size_t(each.row())], -1) : -1;
        now += row < 0 ? QModelIndex() : index(row, each.column());
    }
    return now;
}

void RecordTableModel::tellChanged(qsizetype row, qsizetype field)
{
    if (_isRearranging || row >= _rowCount || field >= columnCount())
        return;
    const QModelIndex cell = index(int(row), int(field));
    Q_EMIT dataChanged(cell, cell);
}

void RecordTableModel::tellAllChanged()
{
    if (!_isRearranging && _rowCount > 0 && columnCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(_rowCount - 1, columnCount() - 1));
}

int RecordTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : _rowCount;
}

int RecordTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(_columns.size());
}

void RecordTableModel::sort(int column, Qt::SortOrder order)
{
    const bool isColumn = column >= 0 && column < columnCount();
    _records->setSorts(isColumn ? QList<RecordSort>{{column, order}} : QList<RecordSort>());
}

// --- The cells ----------------------------------------------------------------------------------

QVariant RecordTableModel::valueAt(const QModelIndex &index) const
{
    const StoredRecord *const record = recordAt(index.row());
    return record ? _library->value(*record, index.column()) : QVariant();
}

QString RecordTableModel::textAt(const QModelIndex &index) const
{
    const StoredRecord *const record = recordAt(index.row());
    return record ? _library->text(*record, index.column()) : QString();
}

/// The colour that the formatter gives negative numbers.
QVariant RecordTableModel::colourAt(const QModelIndex &index) const
{
    const NSFormatter *const formatter = _library->reader(index.column()).formatter();
    const QVariant value = valueAt(index);
    if (!formatter || NSObject::isNil(value))
        return {};
    const auto text = formatter->attributedStringForObjectValue(value);
    return text ? text->attribute(NSForegroundColorAttributeName, 0) : QVariant();
}

QVariant RecordTableModel::data(const QModelIndex &index, int role) const
{
    if (!_library || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return ShortText::firstLine(textAt(index));
    case Qt::EditRole:
        return textAt(index);
    case Qt::ForegroundRole:
        return colourAt(index);
    case Qt::TextAlignmentRole:
        return int(_columns.at(index.column()).alignment());
    case ValueRole:
        return valueAt(index);
    default:
        return {};
    }
}

QVariant RecordTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    const KTArrayColumn &column = _columns.at(section);
    if (role == Qt::DisplayRole)
        return column.title();
    return role == Qt::TextAlignmentRole ? QVariant(int(column.alignment())) : QVariant();
}

Qt::ItemFlags RecordTableModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid())
        return flags;
    const bool isEditable = _columns.at(index.column()).isEditable();
    return flags | Qt::ItemIsDragEnabled | (isEditable ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

Outcome<> RecordTableModel::take(const QString &text, const QModelIndex &at)
{
    StoredRecord *const record = recordAt(at.row());
    if (!record)
        return Failure{tr("the record cannot be read now")};
    if (text == data(at, Qt::EditRole).toString())
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

QList<CopiedCell> RecordTableModel::copiedCells(const QVariantList &values) const
{
    QList<CopiedCell> cells;
    for (qsizetype field = 0; field < values.size(); ++field)
        cells += {values.at(field), RecordTexts::textOf(_library->reader(field), values.at(field))};
    return cells;
}

Outcome<CopiedRecords> RecordTableModel::copied(const RowRuns &rows) const
{
    CopiedRecords copied;
    if (!_library || rows.count() > MostCopied)
        return copied;
    copied.bundle = _library->bundlePath();
    copied.fields = copiedFields();
    RecordIds ids;
    for (const qsizetype row : rows.rows())
        ids.push_back(_records->ids()->at(size_t(row)));
    const Outcome<QList<QVariantList>> records = _library->valuesOf(ids);
    if (!records)
        return records.failure();
    for (const QVariantList &values : *records)
        copied.rows += copiedCells(values);
    return copied;
}

QMimeData *RecordTableModel::mimeData(const QModelIndexList &indexes) const
{
    QSet<qsizetype> rows;
    for (const QModelIndex &index : indexes)
        rows += index.row();
    const Outcome<CopiedRecords> wanted = copied(RowRuns::of(rows.values()));
    // Views begin no drag without anything to drag.
    return wanted ? new CopiedForms(*wanted) : nullptr;
}
