#pragma once

#include <QPointer>
#include <QStringList>
#include <QVariantMap>

class QHeaderView;

/// The widths of a table's columns and the column that it is sorted by, as the user has left them.
/// What the user has not changed is not remembered, and so fits what comes to be.
///
/// \code
/// RememberedColumns columns(table->horizontalHeader());
/// columns.open(u"contacts"_s, {u"name"_s, u"phone"_s});    // as they were left
/// columns.save();
/// \endcode
class RememberedColumns
{
public:
    explicit RememberedColumns(QHeaderView *header);

    /// Shows the columns of a table as they were left.
    /// \param name what they are remembered by.
    /// \param keys what stands for the columns, in the order of the model.
    void open(const QString &name, const QStringList &keys);
    /// Remembers how they are, if that is not how they were opened; then nothing is open.
    void save();
    /// Remembers how they are now, whatever is done to them until comeBack().
    void leave();
    /// Shows them as they were when they were left; nothing if they were not.
    void comeBack();

private:
    bool isOpen() const;
    QVariantMap layout() const;
    void apply(const QVariantMap &layout);

    QPointer<QHeaderView> _header;
    QString _name;
    QStringList _keys;
    QVariantMap _opened;
    /// As they were left; empty if they are not.
    QVariantMap _left;
};
