#include "FieldListModel.h"

#include "Appearance/FieldTitle.h"
#include "FieldExample.h"
#include "Fields/FieldTypeTitles.h"
#include "Library/LibraryNames.h"
#include "Text/PrintableText.h"
#include "Text/ShortText.h"

/// "New Field", "New Field1" …
QString FieldListModel::newTitle() const
{
    QStringList taken;
    for (const FieldPlan::Field &each : _plan.fields())
        taken += each.field.title();
    return LibraryNames::unique(tr("New Field"), taken);
}

void FieldListModel::add()
{
    beginInsertRows({}, rowCount(), rowCount());
    _plan.add(FieldPlan::newField(newTitle(), FieldType::Text));
    endInsertRows();
    Q_EMIT planChanged();
}

void FieldListModel::remove(int row)
{
    beginRemoveRows({}, row, row);
    _plan.remove(row);
    endRemoveRows();
    Q_EMIT planChanged();
}

void FieldListModel::move(int from, int to)
{
    if (!beginMoveRows({}, from, from, {}, to > from ? to + 1 : to))
        return;
    _plan.move(from, to);
    endMoveRows();
    Q_EMIT planChanged();
}

void FieldListModel::setType(int row, FieldType type)
{
    const FieldPlan::Field &field = fieldAt(row);
    if (field.field.type == type)
        return;
    if (field.origin >= 0 && _plan.before(field).type == type)
        _plan.keepType(row);
    else
        _plan.setType(row, type, FieldPlan::newField({}, type).options);
    tellRow(row);
}

void FieldListModel::setOptions(int row, const QVariantMap &options)
{
    _plan.setOptions(row, options);
    tellRow(row);
}

void FieldListModel::tellRow(int row)
{
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
    Q_EMIT planChanged();
}

int FieldListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(_plan.fields().size());
}

int FieldListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant FieldListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) ||
        (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    const LibraryField &field = fieldAt(index.row()).field;
    if (index.column() == Type)
        return FieldTypeTitles::titleOf(field.type);
    if (index.column() == Example)
        return FieldExample::of(field);
    return role == Qt::EditRole ? field.title()
                                : printableText(ShortText::firstLine(FieldTitle::of(field)));
}

QVariant FieldListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return QStringList{tr("Name"), tr("Type"), tr("Example")}.value(section);
}

Qt::ItemFlags FieldListModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() && index.column() == Name ? flags | Qt::ItemIsEditable : flags;
}

bool FieldListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable))
        return false;
    _plan.rename(index.row(), value.toString());
    tellRow(index.row());
    return true;
}
