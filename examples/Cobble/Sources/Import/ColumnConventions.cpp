#include "ColumnConventions.h"

using namespace Qt::StringLiterals;

namespace {
bool isClock(const QString &unit)
{
    return KTColumnReading::conventionsOf(KTColumnReading::Durations).contains(unit);
}
} // namespace

QString ColumnConventions::conventionOf(KTColumnReading::Kind kind) const
{
    switch (kind) {
    case KTColumnReading::Dates:
        return order;
    case KTColumnReading::Numbers:
    case KTColumnReading::Amounts:
        return point;
    case KTColumnReading::Durations:
        return isClock(unit) ? unit : QString();
    }
    return {};
}

QString ColumnConventions::currency() const
{
    return isClock(unit) ? QString() : unit;
}

QStringList ColumnConventions::unusedBy(const FieldReader &reader) const
{
    QStringList unused{order, point, unit};
    unused.removeAll(reader.currencyType());
    if (const std::optional<KTColumnReading> column = reader.newColumn())
        unused.removeAll(conventionOf(column->kind()));
    unused.removeAll(QString());
    return unused;
}

std::optional<KTColumnReading> ColumnConventions::newColumnFor(const FieldReader &reader) const
{
    std::optional<KTColumnReading> column = reader.newColumn();
    if (column)
        column->setConvention(conventionOf(column->kind()));
    return column;
}
