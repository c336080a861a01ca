#pragma once

#include <QList>

/// Rows that follow each other.
struct RowRun
{
    qsizetype first = 0;
    qsizetype last = 0;

    qsizetype count() const { return last - first + 1; }
    friend bool operator==(const RowRun &, const RowRun &) = default;
};

/// Some rows of a table, as the runs that they make: all of a million are one run.
///
/// \code
/// RowRuns rows;
/// rows.append({0, 9});
/// rows.append({10, 10});
/// rows.runs().size(); // 1
/// \endcode
class RowRuns
{
public:
    RowRuns() = default;
    /// \param runs in any order; they may overlap.
    explicit RowRuns(QList<RowRun> runs);
    /// \param rows in any order.
    static RowRuns of(const QList<qsizetype> &rows);
    /// The first rows.
    static RowRuns upTo(qsizetype count);

    /// Adds rows behind all others.
    void append(RowRun run);
    /// Ascending, with other rows between them.
    const QList<RowRun> &runs() const { return _runs; }
    bool isEmpty() const { return _runs.isEmpty(); }
    qsizetype count() const;
    /// The first row; −1 if there is none.
    qsizetype first() const { return isEmpty() ? -1 : _runs.constFirst().first; }
    bool contains(qsizetype row) const;
    /// Each row, ascending.
    QList<qsizetype> rows() const;
    /// Those below a number of rows.
    RowRuns below(qsizetype count) const;

    friend bool operator==(const RowRuns &, const RowRuns &) = default;

private:
    QList<RowRun> _runs;
};
