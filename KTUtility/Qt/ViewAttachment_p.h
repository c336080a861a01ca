#pragma once

#include "KTArrayModel.h"

#include <QPointer>

#include <utility>

class QAbstractItemView;
class QHeaderView;

namespace KTPrivate {
/// A view that shows a KTArrayModel: the selections of both are one, the mark in its header is the
/// controller's sort descriptor. Belongs to the view; it takes the place of an earlier one.
class ViewAttachment : public QObject
{
    Q_OBJECT

public:
    ViewAttachment(KTArrayModel *model, QAbstractItemView *view);

    /// The first and the last row that a view shows; the last is less than the first if it shows
    /// none.
    static std::pair<int, int> visibleRows(const QAbstractItemView *view);

private:
    void prepareHeader();
    void showSortIndicator();

    QPointer<KTArrayModel> _model;
    QAbstractItemView *_view;
    QPointer<QHeaderView> _header;
};
} // namespace KTPrivate
