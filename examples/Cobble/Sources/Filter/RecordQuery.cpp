#include "RecordQuery.h"

#include "FilterTexts.h"
#include "Records/ValueOrder.h"

using namespace Qt::StringLiterals;

namespace {
/// Whether a quotation mark that comes now is one: an apostrophe in a name is none.
bool beginsPart(const QString &part)
{
    const QString before = part.trimmed();
    return before.isEmpty() || before == u"-";
}

/// The parts of a list; commas in quotes do not count, and neither do the quotes then.
QStringList partsOf(const QString &text)
{
    QStringList parts{u""_s};
    QChar quote;
    for (qsizetype place = 0; place < text.size(); ++place) {
        const QChar unit = text.at(place);
        if (unit == u'\\' && !quote.isNull() && place + 1 < text.size())
            parts.last() += text.at(++place);
        else if (!quote.isNull() && unit == quote)
            quote = QChar();
        else if (quote.isNull() && (unit == u'"' || unit == u'\'') && beginsPart(parts.last()))
            quote = unit;
        else if (unit == u',' && quote.isNull())
            parts += u""_s;
        else
            parts.last() += unit;
    }
    return parts;
}

QString quotedName(const QString &name)
{
    const bool isPlain = std::none_of(name.begin(), name.end(), [](QChar unit) {
        return unit == u',' || unit == u'"' || unit == u'\'' || unit == u'\\' || unit == u'-';
    });
    QString text = name;
    return isPlain ? name
                   : QString(u'"' + text.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s) + u'"');
}

/// A field that may have "-" before it; one whose name begins so is found by it.
Outcome<RecordOrder> orderOf(const QString &name, const FilterFields &fields,
                             FilterNotation notation)
{
    const Outcome<qsizetype> plain = fields.named(name, notation);
    if (plain || !name.startsWith(u'-'))
        return plain ? Outcome<RecordOrder>(RecordOrder{*plain, true}) : plain.failure();
    const Outcome<qsizetype> field = fields.named(name.sliced(1).trimmed(), notation);
    return field ? Outcome<RecordOrder>(RecordOrder{*field, false}) : field.failure();
}
} // namespace

Outcome<QList<RecordOrder>> RecordQuery::orderIn(const QString &text, const FilterFields &fields,
                                                 FilterNotation notation)
{
    QList<RecordOrder> order;
    for (const QString &part : partsOf(text)) {
        const Outcome<RecordOrder> each = orderOf(part.trimmed(), fields, notation);
        if (!each)
            return each.failure();
        order += *each;
    }
    return order;
}

Outcome<QList<qsizetype>> RecordQuery::columnsIn(const QString &text, const FilterFields &fields,
                                                 FilterNotation notation)
{
    QList<qsizetype> columns;
    for (const QString &part : partsOf(text)) {
        const Outcome<qsizetype> field = fields.named(part.trimmed(), notation);
        if (!field)
            return field.failure();
        if (columns.contains(*field))
            return Failure{FilterTexts::tr("“%1” is there twice").arg(part.trimmed())};
        columns += *field;
    }
    return columns;
}

QString RecordQuery::textOf(const QList<RecordOrder> &order, const FilterFields &fields,
                            FilterNotation notation)
{
    QStringList names;
    for (const RecordOrder &each : order)
        names +=
            (each.isAscending ? u""_s : u"-"_s) + quotedName(fields.nameOf(each.field, notation));
    return names.join(u',');
}

QString RecordQuery::textOf(const QList<qsizetype> &columns, const FilterFields &fields,
                            FilterNotation notation)
{
    QStringList names;
    for (const qsizetype column : columns)
        names += quotedName(fields.nameOf(column, notation));
    return names.join(u',');
}

QList<NSSortDescriptor> RecordQuery::sortDescriptors(const QList<RecordOrder> &order,
                                                     const FilterFields &fields)
{
    QList<NSSortDescriptor> descriptors;
    for (const RecordOrder &each : order)
        descriptors += NSSortDescriptor{.key = fields.field(each.field).columnName,
                                        .ascending = each.isAscending,
                                        .comparator = ValueOrder::compare};
    return descriptors;
}
