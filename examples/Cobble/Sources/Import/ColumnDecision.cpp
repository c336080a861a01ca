#include "ColumnDecision.h"

#include "Text/Reasons.h"

#include <QHash>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype MostRows = 5;

/// How people call a convention.
QString conventionName(const QString &convention)
{
    const QHash<QString, QString> names{
        {u"dmy"_s, Reasons::tr("day, month, year")},
        {u"mdy"_s, Reasons::tr("month, day, year")},
        {u"ymd"_s, Reasons::tr("year, month, day")},
        {u"."_s, u"1,234.5"_s},
        {u","_s, u"1.234,5"_s},
        {u"h:m"_s, Reasons::tr("hours:minutes")},
        {u"m:s"_s, Reasons::tr("minutes:seconds")},
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
    const QString named = (texts.size() == 1 ? Reasons::tr("row %1") : Reasons::tr("rows %1"))
                              .arg(rows.join(u", "_s));
    return others > 0 ? Reasons::tr("%1 and %2 more").arg(named, QString::number(others)) : named;
}

/// "3 of 12 values decide", of all that say anything.
QString decidingText(qsizetype count, const KTColumnReading &column)
{
    const qsizetype all = column.ambiguousCount() + column.contradictionCount() +
                          column.decidingCount(column.convention());
    return Reasons::tr("%1 of %2 values decide").arg(count).arg(all);
}

QString sinceText(const KTColumnReading &column)
{
    switch (column.basis()) {
    case KTColumnReading::Locale:
        return Reasons::tr("no value decides; the locale's own");
    case KTColumnReading::Values:
        return decidingText(column.decidingCount(column.convention()), column);
    case KTColumnReading::Mixed:
        return Reasons::tr("the values contradict each other; the locale's own");
    case KTColumnReading::Told:
        return Reasons::tr("you say so");
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
    return {typeName, Reasons::tr("told without effect: %1").arg(told.join(u", "_s)), {}};
}
