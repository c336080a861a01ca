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
/// anything. Dates stand for their whole day, times for their minute. A text that is no filter accepts
/// no record.
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

    /// The records that two filters of one library accept; what is wrong with one of them is wrong with
    /// both. It has no text of its own.
    static RecordFilter both(const RecordFilter &first, const RecordFilter &second);

    /// The same filter for other fields: those of a library that was opened anew, or for another
    /// thread. Each field is the one of the same column. It has a problem if that is gone, or no longer
    /// reads its value.
    RecordFilter withFields(const Fields &fields) const;

    /// What is wrong with the text; nothing if it was read.
    const std::optional<FilterProblem> &problem() const { return _problem; }
    /// The same as a sentence that quotes what is wrong.
    Outcome<> outcome() const;
    /// The tree; nothing if the text was blank or is no filter.
    const std::optional<FilterNode> &root() const { return _root; }
    /// The same with its values in a notation.
    std::optional<FilterNode> root(FilterNotation notation) const;
    /// How its text and its values are written.
    FilterNotation notation() const { return _notation; }
    /// Whether a single record may take long: there is an expression to match.
    bool isSlow() const;

    /// The condition for records, objects or maps that have values under the names of the columns.
    /// Nil if the text was blank; no record fulfils that of a text that is no filter. It is for one
    /// thread at a time, and raises an NSException where a record takes too long.
    NSPredicate predicate() const
    {
        return _problem ? NSPredicate::predicateWithValue(false) : _predicate;
    }
    /// The filter's text in a notation.
    QString text(FilterNotation notation) const;
    /// The columns that it asks for.
    QStringList columns() const;

private:
    RecordFilter(const QString &text, const Fields &fields, FilterNotation notation)
        : _text(text), _notation(notation), _fields(fields)
    {
    }
    void take(const FilterNode &root);

    QString _text;
    FilterNotation _notation = FilterNotation::Typed;
    Fields _fields;
    std::optional<FilterNode> _root;
    std::optional<FilterProblem> _problem;
    NSPredicate _predicate;
};
