#pragma once

#include <QList>
#include <QStringList>

class QTextStream;

/// How many columns of a terminal \a text takes: two for the wide characters of East Asian scripts
/// and most emoji, none for combining marks and format characters, one for the rest.
qsizetype displayWidth(const QString &text);

/// Rows of cells printed in aligned columns, two spaces apart.
///
/// A cell that is wider than WidestAligned is printed whole and moves the rest of its row only.
/// Lines have no trailing spaces.
///
/// \code
/// AlignedTable table;
/// table.addRow({u"Table:"_s, u"kt_contacts"_s});
/// table.addRow({u"Rows read:"_s, u"300"_s});
/// table.print(out);
/// // Table:      kt_contacts
/// // Rows read:  300
/// \endcode
class AlignedTable
{
public:
    static constexpr qsizetype WidestAligned = 48;

    /// Adds a row below; rows may differ in length. Cells are made printable.
    void addRow(const QStringList &cells);
    /// Prints the rows, each with \a indentation spaces before it.
    void print(QTextStream &out, int indentation = 0) const;

private:
    QList<QStringList> _rows;
    QList<qsizetype> _widths;
};
