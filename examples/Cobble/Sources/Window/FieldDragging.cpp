#include "FieldDragging.h"

#include <KTUtility/NSApplication>

#include <QHeaderView>
#include <QScopedValueRollback>

#include <utility>

FieldDragging::FieldDragging(QHeaderView *header, const Move &move) : _header(header), _move(move)
{
    QObject::connect(header, &QHeaderView::sectionMoved, this, &FieldDragging::sectionMoved);
}

/// The header is in the middle of its work.
void FieldDragging::sectionMoved(int section)
{
    if (_isPuttingBack || std::exchange(_dragged, section).has_value())
        return;
    NSApplication::performOnNextTurn(this, [this] { finish(); });
}

void FieldDragging::finish()
{
    const int from = std::exchange(_dragged, std::nullopt).value_or(-1);
    if (!_header || from < 0 || from >= _header->count())
        return;
    const int to = _header->visualIndex(from);
    putBack();
    if (to != from)
        _move(from, to);
}

void FieldDragging::putBack()
{
    const QScopedValueRollback<bool> puttingBack(_isPuttingBack, true);
    for (int column = 0; column < _header->count(); ++column)
        _header->moveSection(_header->visualIndex(column), column);
}
