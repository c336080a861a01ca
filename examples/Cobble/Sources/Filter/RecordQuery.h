#pragma once

#include "RecordFilter.h"

#include <KTUtility/NSSortDescriptor>

/// A field that records are sorted by.
struct RecordOrder
{
    qsizetype field = 0;
    bool isAscending = true;

    friend bool operator==(const RecordOrder &, const RecordOrder &) = default;
};

/// Which records of a library are wanted, in which order, and which fields of them.
///
/// \code
/// RecordQuery query;
/// query.filter = RecordFilter::read(u"balance > 100"_s, fields);
/// query.order = *RecordQuery::orderIn(u"-Balance,Name"_s, *fields);
/// \endcode
struct RecordQuery
{
    RecordFilter filter;
    /// The first is the most important one; none is the order in which they were stored.
    QList<RecordOrder> order;
    /// The fields from the left to the right; none are all of them.
    QList<qsizetype> columns;
    /// The most records that are wanted; all if negative.
    qint64 limit = -1;

    /// Reads the names of fields to sort by, with commas between, and "-" before those from the
    /// last to the first: "-Balance,Name". Names that hold commas stand in quotes.
    static Outcome<QList<RecordOrder>> orderIn(const QString &text, const FilterFields &fields,
                                               FilterNotation notation = FilterNotation::Typed);
    /// Reads the names of fields, with commas between.
    static Outcome<QList<qsizetype>> columnsIn(const QString &text, const FilterFields &fields,
                                               FilterNotation notation = FilterNotation::Typed);
    /// The texts that the two read.
    static QString textOf(const QList<RecordOrder> &order, const FilterFields &fields,
                          FilterNotation notation);
    static QString textOf(const QList<qsizetype> &columns, const FilterFields &fields,
                          FilterNotation notation);

    /// The order for records with values under the names of their columns.
    static QList<NSSortDescriptor> sortDescriptors(const QList<RecordOrder> &order,
                                                   const FilterFields &fields);
};
