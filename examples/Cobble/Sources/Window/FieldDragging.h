#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>

class QHeaderView;

/// Has the fields of a library follow when somebody drags the title of a column. The columns of the
/// table always stand as the fields do: what is dragged goes back to its place, until the fields have
/// moved.
///
/// \code
/// FieldDragging dragging(table->horizontalHeader(), [&](int from, int to) { moveField(from, to); });
/// \endcode
class FieldDragging : public QObject
{
    Q_OBJECT

public:
    /// Moves a field to the place where it stands then.
    using Move = std::function<void(int from, int to)>;

    FieldDragging(QHeaderView *header, const Move &move);

private:
    void sectionMoved(int section);
    void finish();
    void putBack();

    QPointer<QHeaderView> _header;
    Move _move;
    /// The column that was dragged.
    std::optional<int> _dragged;
    bool _isPuttingBack = false;
};
