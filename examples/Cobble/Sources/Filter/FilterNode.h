#pragma once

#include "FilterOperator.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What is wrong with a filter's text, and where.
struct FilterProblem
{
    /// For a person to read.
    QString reason;
    /// Of the part that is wrong, in UTF-16 units.
    qsizetype position = 0;
    qsizetype length = 0;
};

/// A value of a filter as it was typed.
struct FilterValue
{
    QString text;
    /// Where it stands in the filter's text, with its quotes.
    qsizetype position = 0;
    qsizetype length = 0;

    friend bool operator==(const FilterValue &left, const FilterValue &right)
    {
        return left.text == right.text;
    }
};

/// A field, an operator, and the values that it compares with.
struct FilterComparison
{
    /// The number of the field in its library.
    qsizetype field = 0;
    FilterOperator operation = FilterOperator::Equal;
    bool isNegated = false;
    /// What comparing texts passes over: "c" for case, "d" for accents.
    QString passesOver = QStringLiteral("cd");
    QList<FilterValue> values;

    friend bool operator==(const FilterComparison &, const FilterComparison &) = default;
};

/// A filter as a tree: comparisons, joined.
struct FilterNode
{
    enum class Kind { Comparison, All, Any, Not };

    Kind kind = Kind::Comparison;
    FilterComparison comparison;
    /// What is joined, or the one that is not to be.
    std::vector<FilterNode> parts;

    friend bool operator==(const FilterNode &, const FilterNode &) = default;
};

/// In which form the values and fields of a filter's text are written.
enum class FilterNotation {
    Typed,    ///< as people type them in their locale: First name = "Ada" AND Balance > 1,234.50
    Portable, ///< the same in every locale: "kt_first_name" = "Ada" AND "kt_balance" > 1234.5
};
