#pragma once

#include "Filter/FilterOperator.h"

#include <QCoreApplication>

/// The operators of filters in words, as a row of the filter bar offers them.
class FilterWords
{
    Q_DECLARE_TR_FUNCTIONS(FilterWords)

public:
    FilterWords() = delete;

    struct Choice
    {
        FilterOperator operation;
        bool isNegated;
        QString words;
    };

    /// What there is to choose for a field of a type.
    static QList<Choice> choicesFor(FieldType type);

private:
    static QList<Choice> forTexts();
    static QList<Choice> forNumbers();
    static QList<Choice> forDates(bool hasPeriods);
    static QList<Choice> forAll();
};
