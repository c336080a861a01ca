#pragma once

#include "Open/OpenLibrary.h"

#include <QPoint>

class MainWindowController;

/// Which records of its library a window has selected, how far it is scrolled, and what is typed in a
/// cell. When the library is opened anew, since its fields or its records have changed, all of that is
/// as before; for its filter, see RecordFinder::keep().
///
/// \code
/// const ShownRecords before(controller);
/// …
/// before.restore();
/// \endcode
class ShownRecords
{
public:
    /// \param window its own window must be loaded.
    explicit ShownRecords(MainWindowController *window);

    /// Does nothing if the window shows another library now, or the same that it did.
    void restore() const;

private:
    void takeSelection();
    bool isOpenedAnew() const;
    void restoreSelection() const;
    void restoreTyped(const QModelIndex &cell) const;
    int columnOfCurrent() const;

    MainWindowController *_window;
    std::weak_ptr<OpenLibrary> _library;
    QString _tableName;
    RecordIds _selected;
    /// The record and the column of the current cell.
    qint64 _current = -1;
    QString _currentColumn;
    QPoint _scrolled;
    /// What is typed in that cell, and the title of its field.
    std::optional<QString> _typed;
    QString _title;
};
