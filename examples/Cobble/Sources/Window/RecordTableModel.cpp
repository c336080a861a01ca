#include "RecordTableModel.h"

#include "ShortText.h"
#include "Text/CSVText.h"
#include "ValueOrder.h"

#include <KTUtility/NSObject>

#include <QBrush>
#include <QMap>
#include <QMimeData>

using namespace Qt::StringLiterals;

RecordTableModel::RecordTableModel(NSArrayController *records) : _records(records)
{
    QObject::connect(records, &NSArrayController::arrangedObjectsChanged, this,
                     &RecordTableModel::reset);
}

void RecordTableModel::setLibrary(const std::shared_ptr<OpenLibrary> &library)
{
    if (_library)
        QObject::disconnect(_library.get(), nullptr, this, nullptr);
    _library = library;
    if (_library)
        QObject::connect(_library.get(), &OpenLibrary::recordChanged, this,
                         &RecordTableModel::showChange);
    reset();
}

void RecordTableModel::reset()
{
    beginResetModel();
    _rows.clear();
    endResetModel();
}

StoredRecord *RecordTableModel::recordAt(qsizetype row) const
{
    return _records->arrangedObjects().value(row).value<StoredRecord *>();
}

int RecordTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !_library ? 0 : int(_records->arrangedObjects().size());
}

int RecordTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() || !_library ? 0 : int(_library->definition().fields.size());
}

QString RecordTableModel::shownText(const StoredRecord &record, qsizetype field) const
{
    return ShortText::firstLine(_library->text(record, field));
}

bool RecordTableModel::isNumber(qsizetype field) const
{
    const FieldType type = _library->reader(field).type();
    return type == FieldType::Number || type == FieldType::Currency || type == FieldType::Duration;
}

/// What the formatter writes the text in, as negative numbers.
QVariant RecordTableModel::colour(const StoredRecord &record, qsizetype field) const
{
    const NSFormatter *const formatter = _library->reader(field).formatter();
    const QVariant value = _library->value(record, field);
    if (!formatter || NSObject::isNil(value))
        return {};
    const auto text = formatter->attributedStringForObjectValue(value);
    return text ? text->attribute(NSForegroundColorAttributeName, 0) : QVariant();
}

QVariant RecordTableModel::data(const QModelIndex &index, int role) const
{
    const StoredRecord *const record = recordAt(index.row());
    if (!record || !_library)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return shownText(*record, index.column());
    case Qt::EditRole:
        return _library->text(*record, index.column());
    case Qt::TextAlignmentRole:
        return QVariant((isNumber(index.column()) ? Qt::AlignRight : Qt::AlignLeft) |
                        Qt::AlignVCenter);
    case Qt::ForegroundRole:
        return colour(*record, index.column());
    default:
        return {};
    }
}

QVariant RecordTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || !_library)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (role == Qt::DisplayRole)
        return ShortText::firstLine(_library->definition().fields.at(section).title());
    if (role == Qt::TextAlignmentRole)
        return QVariant((isNumber(section) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags RecordTableModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemIsDragEnabled;
    // Media are files that were stored; a name that somebody types is none of them.
    const bool isMedia =
        _library && _library->definition().fields.at(index.column()).type == FieldType::Media;
    return isMedia ? flags : flags | Qt::ItemIsEditable;
}

Outcome<> RecordTableModel::take(const QString &text, const QModelIndex &at)
{
    StoredRecord *const record = recordAt(at.row());
    if (!record || text == data(at, Qt::EditRole).toString())
        return {};
    const Outcome<QVariant> value = _library->reader(at.column()).readTyped(text);
    if (!value)
        return value.failure();
    const QString key = _library->definition().fields.at(at.column()).columnName;
    return _library->change([&] { record->setValueForKey(*value, key); });
}

bool RecordTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole)
        return false;
    const Outcome<> taken = take(value.toString(), index);
    if (!taken)
        Q_EMIT refused(taken.reason());
    return bool(taken);
}

void RecordTableModel::sort(int column, Qt::SortOrder order)
{
    if (!_library || column < 0 || column >= columnCount()) {
        _records->setSortDescriptors({});
        return;
    }
    _records->setSortDescriptors({{_library->definition().fields.at(column).columnName,
                                   order == Qt::AscendingOrder, ValueOrder::compare}});
}

QStringList RecordTableModel::mimeTypes() const
{
    return {u"text/csv"_s, u"text/plain"_s};
}

QStringList RecordTableModel::titles() const
{
    QStringList titles;
    for (int column = 0; column < columnCount(); ++column)
        titles += _library->definition().fields.at(column).title();
    return titles;
}

QStringList RecordTableModel::texts(int row) const
{
    QStringList texts;
    for (int column = 0; column < columnCount(); ++column)
        texts += index(row, column).data(Qt::EditRole).toString();
    return texts;
}

QMimeData *RecordTableModel::mimeData(const QModelIndexList &indexes) const
{
    QMap<int, bool> rows;
    for (const QModelIndex &index : indexes)
        rows.insert(index.row(), true);
    QString separated = CSVText::row(titles(), CSVText::Formulas::AsText);
    QString plain;
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        const QStringList cells = texts(row.key());
        separated += CSVText::row(cells, CSVText::Formulas::AsText);
        plain += CSVText::pastedRow(cells);
    }
    auto *const data = new QMimeData;
    data->setText(plain);
    data->setData(u"text/csv"_s, separated.toUtf8());
    return data;
}

void RecordTableModel::showChange(StoredRecord *record, const QString &)
{
    if (_rows.isEmpty()) {
        for (int row = 0; row < rowCount(); ++row)
            _rows.insert(recordAt(row), row);
    }
    const int row = _rows.value(record, -1);
    if (row >= 0)
        Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}
