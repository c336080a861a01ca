#pragma once

#include "Fields/FieldType.h"

#include <QList>
#include <QString>

#include <optional>

/// How a filter compares a field with what was typed.
enum class FilterOperator {
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    Between, ///< two values, both included
    In,      ///< any of several values
    During,  ///< a month, a year, or a month of any year
    Contains,
    BeginsWith,
    EndsWith,
    Like,    ///< "?" is any character, "*" any number of them
    Matches, ///< the whole of the text against a regular expression
    Empty,   ///< no value
};

namespace FilterOperators {
/// An operator where it stands in a text.
struct Found
{
    FilterOperator operation;
    bool isNegated = false;
    qsizetype length = 0;
};

/// The operator that begins at a place of a filter's text; nothing if there is none. Words are in
/// any letter case, and stand between spaces: "name BEGINSWITH x", "visits >= 3", "city not in (…)".
std::optional<Found> at(QStringView text, qsizetype position);
/// How it is written: "<=", "BEGINSWITH", "NOT IN", "IS NOT EMPTY".
QString spelled(FilterOperator operation, bool isNegated = false);
/// Whether it is about texts, which it compares as the field shows them.
bool isForTexts(FilterOperator operation);
/// Whether NOT can stand before its word, "NOT CONTAINS"; before signs it stands before the field.
bool isWord(FilterOperator operation);
} // namespace FilterOperators
