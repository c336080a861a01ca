#include "RowRuns.h"

#include <algorithm>
#include <numeric>

RowRuns::RowRuns(QList<RowRun> runs)
{
    std::sort(runs.begin(), runs.end(),
              [](const RowRun &left, const RowRun &right) { return left.first < right.first; });
    for (const RowRun &run : runs)
        append(run);
}

RowRuns RowRuns::of(const QList<qsizetype> &rows)
{
    QList<RowRun> runs;
    runs.reserve(rows.size());
    for (const qsizetype row : rows)
        runs += {row, row};
    return RowRuns(runs);
}

RowRuns RowRuns::upTo(qsizetype count)
{
    RowRuns rows;
    if (count > 0)
        rows._runs += {0, count - 1};
    return rows;
}

void RowRuns::append(RowRun run)
{
    if (!_runs.isEmpty() && run.first <= _runs.constLast().last + 1)
        _runs.last().last = std::max(_runs.constLast().last, run.last);
    else
        _runs += run;
}

qsizetype RowRuns::count() const
{
    return std::accumulate(_runs.begin(), _runs.end(), qsizetype(0),
                           [](qsizetype sum, const RowRun &run) { return sum + run.count(); });
}

bool RowRuns::contains(qsizetype row) const
{
    const auto run =
        std::lower_bound(_runs.begin(), _runs.end(), row,
                         [](const RowRun &each, qsizetype wanted) { return each.last < wanted; });
    return run != _runs.end() && run->first <= row;
}

QList<qsizetype> RowRuns::rows() const
{
    QList<qsizetype> rows;
    rows.reserve(count());
    for (const RowRun &run : _runs) {
        for (qsizetype row = run.first; row <= run.last; ++row)
            rows += row;
    }
    return rows;
}

RowRuns RowRuns::below(qsizetype count) const
{
    RowRuns rows;
    for (const RowRun &run : _runs) {
        if (run.first < count)
            rows._runs += {run.first, std::min(run.last, count - 1)};
    }
    return rows;
}
