#pragma once

#include "FilterFields.h"

#include <KTUtility/NSPredicate>

/// A filter for the records of a library, as a person writes it: conditions about fields, by their
/// titles, with values as their fields read them in the user's locale.
///
/// | | |
/// |---|---|
/// | Balance > 1,234.50 | also =, !=, <, <=, >=, BETWEEN 1 AND 5, IN (1, 2, 3) |
/// | Name CONTAINS ann | also BEGINSWITH, ENDSWITH, LIKE "A*", MATCHES "[A-F].*", each with NOT before |
/// | Born in March | a month, a year (2020) or both (March 2020); Born < 3/1/1990 |
/// | Notes is empty | also is not empty |
/// | NOT (a = 1 OR b = 2) AND c = 3 | words in any letter case; also !, ||, && |
///
/// Texts compare without regard to case and accents, unless [c] behind the operator passes over case
/// only, [d] over accents only, or [] over nothing. An empty field is not less, equal or greater than
/// anything. Dates stand for their whole day, times for their minute.
///
/// \code
/// const RecordFilter filter = RecordFilter::read(u"balance > 100 AND born in March"_s, fields);
/// if (filter.problem())
///     complain(filter.outcome().reason());
/// records.setFilterPredicate(filter.predicate());
/// \endcode
class RecordFilter
{
public:
    using Fields = std::shared_ptr<const FilterFields>;

    /// Accepts every record.
    RecordFilter() = default;
    /// Reads a text; a blank one accepts every record.
    static RecordFilter read(const QString &text, const Fields &fields,
                             FilterNotation notation = FilterNotation::Typed);

    /// The records that two filters of one library accept. It has no text of its own.
    static RecordFilter both(const RecordFilter &first, const RecordFilter &second);

    /// What is wrong with the text; nothing if it was read.
    const std::optional<FilterProblem> &problem() const { return _problem; }
    /// The same as a sentence that quotes what is wrong.
    Outcome<> outcome() const;
    /// The tree; nothing if the text was blank or is no filter.
    const std::optional<FilterNode> &root() const { return _root; }

    /// The condition for records, objects or maps that have values under the names of the columns.
    /// Nil if the text was blank or is no filter. It is for one thread at a time.
    NSPredicate predicate() const { return _predicate; }
    /// The filter's text in a notation.
    QString text(FilterNotation notation) const;
    /// The columns that it asks for.
    QStringList columns() const;

private:
    QString _text;
    FilterNotation _notation = FilterNotation::Typed;
    Fields _fields;
    std::optional<FilterNode> _root;
    std::optional<FilterProblem> _problem;
    NSPredicate _predicate;
};
