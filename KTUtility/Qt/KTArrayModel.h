#pragma once

#include "KTArrayColumn.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/AppKit/NSArrayController.h>

#include <QAbstractTableModel>
#include <QPointer>
#include <QSet>

#include <memory>

class QAbstractItemView;
namespace KTPrivate {
class ArrayDifference;
class RowWatches;
} // namespace KTPrivate

/// What a NSArrayController arranges as a table for Qt's views: a row for each object, a column for
/// each KTArrayColumn.
///
/// When the controller arranges other objects or in another order, rows are removed, moved and
/// inserted, the model is never reset: selections, current cells, editors and scroll positions stay
/// with their objects. Many changes at once are made as a few ranges. A value that changes is
/// reported for its cell alone.
///
/// Clicking on a header sets the controller's sort descriptors, and the mark in the header follows
/// them. Text that is typed into an editable cell is read by the column's formatter; what cannot be
/// read, or what the object does not take, is reported by rejected(). Negative numbers are red where
/// the formatter says so.
///
/// Only objects whose rows a view has asked for lately are observed, see setObservedRows(). Objects
/// are not owned: the row of one that is destroyed is removed. They may be of several classes.
/// Maps, gadgets and other values are shown, but not observed or edited. For the main thread.
///
/// \code
/// NSArrayController expenses;
/// KTArrayModel model(&expenses,
///                    {{u"title"_s, tr("Title")},
///                     KTArrayColumn(u"amount"_s, tr("Amount"), money).setEditable(true)});
/// model.attach(tableView);
/// QObject::connect(&model, &KTArrayModel::rejected, this,
///                  [=](const QModelIndex &, const QString &why) { status->showMessage(why); });
/// \endcode
class KTUTILITY_EXPORT KTArrayModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Roles besides those of Qt.
    enum Role {
        /// The value as it is; can be set without being read by a formatter.
        ValueRole = Qt::UserRole,
        /// The object of the row.
        ObjectRole,
        /// A std::shared_ptr<const NSFormatter>; null for none.
        FormatterRole,
    };
    Q_ENUM(Role)

    /// \param controller what arranges the objects; without it (or after its end) there are no rows.
    explicit KTArrayModel(NSArrayController *controller, const QList<KTArrayColumn> &columns = {},
                          QObject *parent = nullptr);
    ~KTArrayModel() override;

    /// What arranges the objects; null once it is destroyed.
    NSArrayController *controller() const { return _controller; }
    /// The columns from the left to the right.
    const QList<KTArrayColumn> &columns() const { return _columns; }
    /// Replaces all columns.
    void setColumns(const QList<KTArrayColumn> &columns);

    /// The object of a row; nil if there is no such row.
    QVariant objectAt(int row) const { return _rows.value(row); }
    /// The row of an object; −1 if it is not shown. Takes linear time.
    int rowOf(const QVariant &object) const;

    /// Shows the rows in a view (a QTableView, QTreeView or QListView): sets its model, joins its
    /// selection with the controller's (see KTArraySelection), lets it sort by clicks on its header,
    /// and edit by KTFormatterDelegate. The view selects whole rows from then on.
    void attach(QAbstractItemView *view);

    /// How many objects are observed, those that were asked for last; 1000 at first, and never fewer
    /// than what attached views show. −1 observes all that are asked for: for models on top of this
    /// one, such as a QSortFilterProxyModel, which remember what they have read.
    int observedRows() const;
    void setObservedRows(int count);

    /// How many objects are arranged.
    int rowCount(const QModelIndex &parent = {}) const override;
    /// How many columns there are.
    int columnCount(const QModelIndex &parent = {}) const override;
    /// What a cell shows: texts, numbers and dates, check marks, colours and alignments, and the roles above.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// Has the formatter read a text, and sets the value of the object.
    /// \return whether it was set; see rejected().
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    /// The columns' titles and alignments.
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    /// Whether a cell can be edited or checked: if its column may be, and its row is an object.
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Sets the controller's sort descriptor; for a column that there is not, takes away the one of
    /// a column.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /// The column that the controller's first sort descriptor is for; −1 if it is for none.
    int sortColumn() const;

    /// Whether the rows are just being brought to those of the controller; see rearranged().
    bool isRearranging() const { return _isRearranging; }

Q_SIGNALS:
    /// The rows are those of the controller again, after they have changed.
    void rearranged();
    /// A text could not be read, or the object did not take the value.
    /// \param reason for a person, never empty.
    void rejected(const QModelIndex &index, const QString &reason);

private:
    struct Step;

    void rearrange();
    void objectIsGone(qsizetype index);
    void arrangeAs(const QVariantList &objects);
    void performSteps(const QList<Step> &steps, const QVariantList *result);
    void perform(const Step &step, const QVariantList *result);
    void removeMany(const KTPrivate::ArrayDifference &difference);
    void insertMany(const KTPrivate::ArrayDifference &difference, const QVariantList &objects);
    void arrangeRows(const QVariantList &objects, const std::vector<int> &newRows);
    void tellChanged(int row, int column);
    QVariant valueAt(const QModelIndex &index) const;
    QVariant shown(const QModelIndex &index) const;
    QVariant edited(const QModelIndex &index) const;
    QVariant foreground(const QModelIndex &index) const;
    QVariant checkState(const QModelIndex &index) const;
    bool setText(const QModelIndex &index, const QString &text);
    bool store(const QModelIndex &index, const QVariant &value);
    bool reject(const QModelIndex &index, const QString &reason);
    void ask(int row) const;
    void askAgain();

    QPointer<NSArrayController> _controller;
    QList<KTArrayColumn> _columns;
    QVariantList _rows;
    std::unique_ptr<KTPrivate::RowWatches> _watches;
    QList<QPointer<QAbstractItemView>> _views;
    mutable QSet<int> _columnsWithoutKey; ///< that the log tells of already
    mutable bool _willAskAgain = false;
    quint64 _changesTold = 0;
    bool _isRearranging = false;
    bool _isOutdated = false;
    bool _hasChangedMeanwhile = false;
};
