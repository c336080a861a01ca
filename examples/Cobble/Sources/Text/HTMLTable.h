#pragma once

#include <QStringList>

// Tables in HTML, as programs put them on the clipboard.

namespace HTMLTable {
/// A table with titles above its rows. Line breaks in cells stay line breaks.
QString text(const QStringList &titles, const QList<QStringList> &rows);

/// The texts of the first table in a page, row by row; titles are a row like others. Whitespace
/// counts as browsers show it, a cell that spans columns is followed by empty ones.
///
/// \code
/// HTMLTable::rows(u"<table><tr><td>a<td>b &amp; c</table>"_s);    // {{"a", "b & c"}}
/// \endcode
///
/// \return empty if there is no table, or one of more than four million cells.
QList<QStringList> rows(const QString &html);
} // namespace HTMLTable
