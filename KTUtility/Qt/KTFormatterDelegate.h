#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Numbers/NSFormatter.h>

#include <QHash>
#include <QStyledItemDelegate>

#include <memory>

class KTFormatterEdit;

/// Shows and edits cells by formatters, with KTFormatterEdit.
///
/// The formatter of a cell is the one that KTArrayModel gives it; other models need setFormatter().
/// Return and Tab do not close an editor over a text that cannot be read, or that the model does not
/// take: the reason stands below it. Leaving the table gives such a text up; KTArrayModel::rejected()
/// says why. What changes in a cell while it is edited does not disturb the text.
///
/// \code
/// auto *const delegate = new KTFormatterDelegate(view);
/// delegate->setFormatter(2, std::make_shared<KTDurationFormatter>());
/// view->setItemDelegate(delegate);
/// \endcode
class KTUTILITY_EXPORT KTFormatterDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Sets the formatter of a column for models that give none: it shows and reads the values that
    /// the model has for Qt::EditRole. Null takes it away.
    void setFormatter(int column, const std::shared_ptr<const NSFormatter> &formatter);
    /// The formatter of a cell; null if it has none.
    std::shared_ptr<const NSFormatter> formatterFor(const QModelIndex &index) const;

    /// A KTFormatterEdit, if the cell has a formatter or is one of a KTArrayModel.
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    /// Shows the value of the cell; a text that is being typed stays.
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    /// Sets the value that was typed, if it can be read.
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    /// Puts the editor over the cell, with room for a reason.
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

protected:
    /// Has the formatter of setFormatter() show the value.
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
    /// Return, Tab and Escape in the editor.
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    bool finish(KTFormatterEdit *editor);

    QHash<int, std::shared_ptr<const NSFormatter>> _formatters;
};
