#include "CopiedRecords.h"

#include "Library/StoredValue.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int Version = 1;

QCborMap written(const CopiedField &field)
{
    return {{u"title"_s, field.title},
            {u"type"_s, FieldTypes::nameOf(field.type)},
            {u"currency"_s, field.currency}};
}

CopiedField fieldIn(const QCborValue &written)
{
    return {written[u"title"_s].toString(),
            FieldTypes::storedTypeNamed(written[u"type"_s].toString()),
            written[u"currency"_s].toString()};
}

QCborArray written(const CopiedCell &cell)
{
    const QVariant value = StoredValue::forDatabase(cell.value);
    return {value.isValid() ? QCborValue::fromVariant(value) : QCborValue(nullptr), cell.text};
}

CopiedCell cellIn(const QCborValue &written, FieldType type)
{
    const QCborValue value = written[0];
    const bool isStored = value.isInteger() || value.isDouble() || value.isString();
    return {isStored ? StoredValue::fromDatabase(type, value.toVariant()) : QVariant(),
            written[1].toString()};
}

QCborArray written(const QList<CopiedCell> &row)
{
    QCborArray cells;
    for (const CopiedCell &cell : row)
        cells.append(written(cell));
    return cells;
}

QList<CopiedCell> rowIn(const QCborArray &written, const QList<CopiedField> &fields)
{
    QList<CopiedCell> row;
    for (qsizetype field = 0; field < fields.size(); ++field)
        row += cellIn(written.at(field), fields.at(field).type);
    return row;
}
} // namespace

QByteArray CopiedRecords::bytes() const
{
    QCborArray titles;
    for (const CopiedField &field : fields)
        titles.append(written(field));
    QCborArray records;
    for (const QList<CopiedCell> &row : rows)
        records.append(written(row));
    const QCborMap all{{u"version"_s, Version},
                       {u"bundle"_s, bundle},
                       {u"fields"_s, titles},
                       {u"rows"_s, records}};
    return all.toCborValue().toCbor();
}

Outcome<CopiedRecords> CopiedRecords::read(const QByteArray &bytes)
{
    QCborParserError error;
    const QCborValue all = QCborValue::fromCbor(bytes, &error);
    if (error.error != QCborError::NoError || all[u"version"_s].toInteger() != Version)
        return Failure{QCoreApplication::translate("CopiedRecords", "these are no copied records")};
    CopiedRecords copied;
    copied.bundle = all[u"bundle"_s].toString();
    for (const QCborValue &field : all[u"fields"_s].toArray())
        copied.fields += fieldIn(field);
    for (const QCborValue &row : all[u"rows"_s].toArray())
        copied.rows += rowIn(row.toArray(), copied.fields);
    return copied;
}

QStringList CopiedRecords::titles() const
{
    QStringList titles;
    for (const CopiedField &field : fields)
        titles += field.title;
    return titles;
}

QStringList CopiedRecords::texts(qsizetype row) const
{
    QStringList texts;
    for (const CopiedCell &cell : rows.at(row))
        texts += cell.text;
    return texts;
}
