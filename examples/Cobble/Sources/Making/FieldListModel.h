#pragma once

#include "FieldPlan.h"

#include <QAbstractTableModel>

/// The fields that a plan has, one in each row: their names, which can be typed over, their types, and
/// what a value looks like in them.
class FieldListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Name, Type, Example, ColumnCount };

    explicit FieldListModel(const Library &library) : _plan(library) {}

    const FieldPlan &plan() const { return _plan; }
    const FieldPlan::Field &fieldAt(int row) const { return _plan.fields().at(row); }

    /// Adds a field of texts at the end, with a name that no other has.
    void add();
    void remove(int row);
    /// \param to where it stands then.
    void move(int from, int to);
    void setType(int row, FieldType type);
    void setOptions(int row, const QVariantMap &options);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

Q_SIGNALS:
    /// The plan is another one.
    void planChanged();

private:
    QString newTitle() const;
    void tellRow(int row);

    FieldPlan _plan;
};
