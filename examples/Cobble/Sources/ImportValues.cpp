#include "ImportValues.h"

#include "ProgressLine.h"
#include "TypeInference.h"

#include <KTUtility/Formatters/KTCurrencyFormatter.h>

#include <vector>

namespace {
using Readers = std::vector<std::unique_ptr<FieldReader>>;

Readers readersFor(QStringView text, const ImportSource &source)
{
    std::vector<TypeInference> inferences(size_t(source.headers.size()));
    source.forEachRow(text, [&](qint64, const QStringList &fields) {
        for (qsizetype column = 0; column < fields.size(); ++column)
            inferences[size_t(column)].add(fields.at(column));
    });
    Readers readers;
    for (const TypeInference &inference : inferences)
        readers.push_back(inference.reader());
    return readers;
}

QString typeNameOf(const FieldReader &reader)
{
    const QString name = FieldTypes::nameOf(reader.type());
    const auto *const currency = qobject_cast<const KTCurrencyFormatter *>(reader.formatter());
    return currency ? QString(name + u" (" + currency->currencyType() + u')') : name;
}

/// The second reading: every value through its column's formatter.
class ValueReading
{
public:
    ValueReading(const Readers &readers, ImportValues &values) : _readers(readers), _values(values)
    {
        for (const auto &reader : readers) {
            ImportValues::Column column;
            column.typeName = typeNameOf(*reader);
            _values.columns.append(column);
        }
    }

    void readRow(qint64 row, const QStringList &fields)
    {
        for (qsizetype column = 0; column < _values.columns.size(); ++column) {
            const QString text = fields.value(column);
            if (text.trimmed().isEmpty())
                ++_values.columns[column].empty;
            else
                readValue(row, column, text);
        }
    }

private:
    void readValue(qint64 row, qsizetype column, const QString &text)
    {
        const FieldReading reading = _readers[size_t(column)]->read(text, true);
        ImportValues::Column &counts = _values.columns[column];
        ++(reading.isRead ? counts.read : counts.unread);
        if (!reading.isRead)
            _values.unread.append({row, column, text, reading.reason});
    }

    const Readers &_readers;
    ImportValues &_values;
};
} // namespace

ImportValues ImportValues::fromText(QStringView text, const ImportSource &source,
                                    QTextStream *progress)
{
    ImportValues values;
    const Readers readers = readersFor(text, source);
    ValueReading reading(readers, values);
    ProgressLine line(progress, QStringLiteral("Reading values"), source.rowCount);
    source.forEachRow(text, [&](qint64 row, const QStringList &fields) {
        reading.readRow(row, fields);
        line.show(row);
    });
    return values;
}
