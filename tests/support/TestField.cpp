#include "TestField.h"

void TestField::setOrder(const QVariant &order)
{
    _order = order;
    ++_timesOrdered;
}

QString TestField::labelIfSmall(const QVariant &limit) const
{
    return _size < limit.toInt() ? _label : QString();
}

short TestJudge::acceptShort(TestField *field, int limit) const
{
    return short(field->size() - limit);
}

qlonglong TestJudge::acceptLong(TestField *field, int limit) const
{
    return field->size() - limit;
}

QVariant TestJudge::acceptObject(TestField *field, int limit) const
{
    return field->size() - limit;
}

QString TestJudge::describe(TestField *field, const QString &prefix)
{
    ++_calls;
    return field->name().isNull() ? QString() : QString(prefix + field->name());
}
