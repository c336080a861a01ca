#include "ColumnDecision.h"

#include <QHash>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype MostRows = 5;

/// How people call a convention.
QString conventionName(const QString &convention)
{
    static const QHash<QString, QString> names{
        {u"dmy"_s, u"day, month, year"_s},
        {u"mdy"_s, u"month, day, year"_s},
        {u"ymd"_s, u"year, month, day"_s},
        {u"."_s, u"1,234.5"_s},
        {u","_s, u"1.234,5"_s},
        {u"h:m"_s, u"hours:minutes"_s},
        {u"m:s"_s, u"minutes:seconds"_s},
    };
    return names.value(convention);
}

QString rowsText(const KTColumnReading &column)
{
    const QList<qsizetype> texts = column.contradictions();
    if (texts.isEmpty())
        return {};
    QStringList rows;
    for (const qsizetype text : texts.first(qMin(texts.size(), MostRows)))
        rows += QString::number(text + 1);
    const qsizetype others = column.contradictionCount() - rows.size();
    const QString named = (texts.size() == 1 ? u"row "_s : u"rows "_s) + rows.join(u", "_s);
    return others > 0 ? u"%1 and %2 more"_s.arg(named).arg(others) : named;
}

/// "3 values" of which a column has so many that say anything.
QString countText(qsizetype count, const KTColumnReading &column)
{
    const qsizetype all = column.ambiguousCount() + column.contradictionCount() +
                          column.decidingCount(column.convention());
    return u"%1 of %2 values"_s.arg(count).arg(all);
}

QString sinceText(const KTColumnReading &column)
{
    switch (column.basis()) {
    case KTColumnReading::Locale:
        return u"no value decides; the locale's own"_s;
    case KTColumnReading::Values:
        return countText(column.decidingCount(column.convention()), column) + u" decide"_s;
    case KTColumnReading::Mixed:
        return u"the values contradict each other; the locale's own"_s;
    case KTColumnReading::Told:
        return u"you say so"_s;
    }
    return {};
}
} // namespace

ColumnDecision ColumnDecision::of(const KTColumnReading &column)
{
    const bool isOpen = column.ambiguousCount() > 0 || column.contradictionCount() > 0 ||
                        column.decidingCount(column.convention()) > 0;
    if (!isOpen)
        return {};
    return {conventionName(column.convention()), sinceText(column), rowsText(column)};
}

ColumnDecision ColumnDecision::ofCurrency(const QString &code, const QString &since)
{
    return {code, since, {}};
}

ColumnDecision ColumnDecision::ofUnused(const QStringList &told, const QString &typeName)
{
    if (told.isEmpty())
        return {};
    return {typeName, u"told without effect: %1"_s.arg(told.join(u", "_s)), {}};
}
