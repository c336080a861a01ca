#include "FilterWords.h"

QList<FilterWords::Choice> FilterWords::choicesFor(FieldType type)
{
    switch (type) {
    case FieldType::Number:
    case FieldType::Currency:
    case FieldType::Duration:
        return forNumbers() + forAll();
    case FieldType::Date:
    case FieldType::DateTime:
    case FieldType::Time:
        return forDates(type != FieldType::Time) + forAll();
    default:
        return forTexts() + forAll();
    }
}

QList<FilterWords::Choice> FilterWords::forTexts()
{
    return {{FilterOperator::Contains, false, tr("contains")},
            {FilterOperator::Contains, true, tr("does not contain")},
            {FilterOperator::Equal, false, tr("is")},
            {FilterOperator::NotEqual, false, tr("is not")},
            {FilterOperator::BeginsWith, false, tr("begins with")},
            {FilterOperator::EndsWith, false, tr("ends with")},
            {FilterOperator::In, false, tr("is one of")},
            {FilterOperator::Less, false, tr("stands before")},
            {FilterOperator::Greater, false, tr("stands behind")},
            {FilterOperator::Like, false, tr("looks like (? and *)")},
            {FilterOperator::Matches, false, tr("matches the expression")}};
}

QList<FilterWords::Choice> FilterWords::forNumbers()
{
    return {{FilterOperator::Equal, false, tr("is")},
            {FilterOperator::NotEqual, false, tr("is not")},
            {FilterOperator::Less, false, tr("is less than")},
            {FilterOperator::LessOrEqual, false, tr("is at most")},
            {FilterOperator::Greater, false, tr("is more than")},
            {FilterOperator::GreaterOrEqual, false, tr("is at least")},
            {FilterOperator::Between, false, tr("is between")},
            {FilterOperator::In, false, tr("is one of")},
            {FilterOperator::Contains, false, tr("contains")}};
}

QList<FilterWords::Choice> FilterWords::forDates(bool hasPeriods)
{
    QList<Choice> choices{{FilterOperator::Equal, false, tr("is")},
                          {FilterOperator::NotEqual, false, tr("is not")},
                          {FilterOperator::Less, false, tr("is before")},
                          {FilterOperator::LessOrEqual, false, tr("is until")},
                          {FilterOperator::Greater, false, tr("is after")},
                          {FilterOperator::GreaterOrEqual, false, tr("is from")},
                          {FilterOperator::Between, false, tr("is between")},
                          {FilterOperator::In, false, tr("is one of")}};
    if (hasPeriods)
        choices += {{FilterOperator::During, false, tr("is in the month or year")},
                    {FilterOperator::During, true, tr("is not in the month or year")}};
    return choices;
}

QList<FilterWords::Choice> FilterWords::forAll()
{
    return {{FilterOperator::Empty, false, tr("is empty")},
            {FilterOperator::Empty, true, tr("is not empty")}};
}
