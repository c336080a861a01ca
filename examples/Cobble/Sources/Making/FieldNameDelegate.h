#pragma once

#include <QStyledItemDelegate>

/// Edits the names of fields in their list. A name that nobody has changed stays as it is, also if an
/// editor cannot show it as it is.
class FieldNameDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
};
