#pragma once

#include "FilterFields.h"

/// Reads the text of a filter into a tree.
///
/// A comparison is a field, an operator and a value; AND, OR, NOT (&&, ||, !) and parentheses join
/// them. Fields and values need quotes ("…" or '…', with "\" before a quote or "\" in them) only
/// where they hold what would be read as something else. A value goes on to the next AND or OR that
/// a comparison follows: "Talked > 1 hour and 5 minutes AND Visits = 3" has two. Lists stand in
/// parentheses, with commas or, where values hold these, semicolons between: "Visits IN (1; 1,5)".
///
/// \code
/// FilterParser parser(u"balance > 100 AND born in March"_s, fields, FilterNotation::Typed);
/// const std::optional<FilterNode> filter = parser.parse();
/// if (!filter)
///     complain(parser.problem());
/// \endcode
class FilterParser
{
public:
    /// \param fields must outlive the parser.
    FilterParser(const QString &text, const FilterFields &fields, FilterNotation notation)
        : _text(text), _fields(fields), _notation(notation)
    {
    }

    /// The tree; nothing if the text is no filter.
    std::optional<FilterNode> parse();
    /// What is wrong then.
    const FilterProblem &problem() const { return _problem; }

private:
    struct Named;
    using Parsed = std::optional<FilterNode>;

    Parsed parseJoined(FilterNode::Kind kind);
    Parsed parsePart();
    Parsed parseNegated();
    Parsed parseGroup();
    Parsed parseComparison();
    std::optional<Named> parseName();
    std::optional<Named> longestName() const;
    std::optional<QString> parseQuoted();
    bool parseOptions(FilterComparison *comparison);
    bool parseValues(FilterComparison *comparison);
    bool parseValue(FilterComparison *comparison);
    bool parseRange(FilterComparison *comparison);
    bool parseList(FilterComparison *comparison, QChar close);
    bool parseElement(FilterComparison *comparison, QChar close, QChar separator);
    bool addBare(FilterComparison *comparison, qsizetype end);
    bool isOfDates(qsizetype field) const;

    qsizetype joiningWord(qsizetype position, FilterNode::Kind kind) const;
    qsizetype anyJoiningWord(qsizetype position) const;
    bool beginsCondition(qsizetype position) const;
    qsizetype endOfValue(bool isFirstOfRange) const;
    qsizetype endOfElement(QChar close, QChar separator) const;
    QChar separatorBefore(QChar close) const;
    qsizetype placeOfOperator(qsizetype from) const;
    qsizetype behindQuotes(qsizetype position) const;

    QChar at(qsizetype position) const
    {
        return position < _text.size() ? _text.at(position) : QChar();
    }
    void skipSpaces();
    bool skip(QChar character);
    std::nullopt_t fail(const QString &reason, qsizetype position, qsizetype length = 1);
    bool refuse(const QString &reason, qsizetype position, qsizetype length = 1);

    QString _text;
    const FilterFields &_fields;
    FilterNotation _notation;
    qsizetype _position = 0;
    int _depth = 0;
    FilterProblem _problem;
};
