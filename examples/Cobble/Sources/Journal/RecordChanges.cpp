#include "RecordChanges.h"

#include "Text/Reasons.h"

#include <QDataStream>
#include <QIODevice>

namespace {
enum class ValueKind : quint8 { Nil, Integer, Real, Text, Blob };

/// What a change consists of.
enum ChangePart : quint8 { Before = 1, After = 2, Columns = 4 };

void prepare(QDataStream &stream)
{
    stream.setVersion(QDataStream::Qt_6_0);
    stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
}

void write(QDataStream &stream, const QVariant &value)
{
    const auto begin = [&stream](ValueKind kind) -> auto &
    {
        return stream << quint8(kind);
    };
    if (value.isNull())
        begin(ValueKind::Nil);
    else if (value.typeId() == QMetaType::Double)
        begin(ValueKind::Real) << value.toDouble();
    else if (value.typeId() == QMetaType::QByteArray)
        begin(ValueKind::Blob) << value.toByteArray();
    else if (value.typeId() == QMetaType::QString)
        begin(ValueKind::Text) << value.toString();
    else
        begin(ValueKind::Integer) << value.toLongLong();
}

void writeValues(QDataStream &stream, const QVariantList &values)
{
    for (const QVariant &value : values)
        write(stream, value);
}

template<typename Value>
QVariant readAs(QDataStream &stream)
{
    Value value{};
    stream >> value;
    return QVariant::fromValue(value);
}

QVariant readValue(QDataStream &stream)
{
    quint8 kind = 0;
    stream >> kind;
    switch (ValueKind(kind)) {
    case ValueKind::Nil:
        return {};
    case ValueKind::Integer:
        return readAs<qint64>(stream);
    case ValueKind::Real:
        return readAs<double>(stream);
    case ValueKind::Text:
        return readAs<QString>(stream);
    case ValueKind::Blob:
        return readAs<QByteArray>(stream);
    }
    stream.setStatus(QDataStream::ReadCorruptData);
    return {};
}

bool isOk(const QDataStream &stream)
{
    return stream.status() == QDataStream::Ok;
}

QVariantList readValues(QDataStream &stream, qsizetype count)
{
    QVariantList values;
    for (qsizetype place = 0; place < count && isOk(stream); ++place)
        values += readValue(stream);
    return values;
}

/// One after the other: QDataStream would make room first for as many as the bytes say.
QStringList readColumns(QDataStream &stream)
{
    quint32 count = 0;
    stream >> count;
    QStringList columns;
    for (quint32 place = 0; place < count && isOk(stream); ++place)
        columns += readAs<QString>(stream).toString();
    return columns;
}

/// \param columns those of the change before, and then of this one.
RecordChange readChange(QDataStream &stream, QStringList *columns)
{
    RecordChange change;
    quint8 parts = 0;
    stream >> change.id >> parts;
    if (parts & Columns)
        *columns = readColumns(stream);
    change.columns = *columns;
    if (parts & Before)
        change.before = readValues(stream, columns->size());
    if (parts & After)
        change.after = readValues(stream, columns->size());
    return change;
}
} // namespace

void RecordChanges::add(const RecordChange &change)
{
    QDataStream stream(&_bytes, QIODevice::WriteOnly | QIODevice::Append);
    prepare(stream);
    const bool hasColumns = _bytes.isEmpty() || change.columns != _columns;
    const int parts =
        (hasColumns ? Columns : 0) | (change.before ? Before : 0) | (change.after ? After : 0);
    stream << change.id << quint8(parts);
    if (hasColumns)
        stream << change.columns;
    _columns = change.columns;
    for (const auto *side : {&change.before, &change.after}) {
        if (*side)
            writeValues(stream, **side);
    }
}

Outcome<QList<RecordChange>> RecordChanges::read(const QByteArray &bytes)
{
    QDataStream stream(bytes);
    prepare(stream);
    QStringList columns;
    QList<RecordChange> changes;
    while (isOk(stream) && !stream.atEnd())
        changes += readChange(stream, &columns);
    if (!isOk(stream))
        return Failure{.reason = Reasons::tr("the step cannot be read"), .isFinal = true};
    return changes;
}
