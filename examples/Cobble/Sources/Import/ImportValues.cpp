#include "ImportValues.h"

#include "TypeInference.h"

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
using Readers = std::vector<std::unique_ptr<FieldReader>>;

bool areComplete(const std::vector<TypeInference> &inferences)
{
    return std::all_of(inferences.begin(), inferences.end(),
                       [](const TypeInference &inference) { return inference.isComplete(); });
}

/// Looks at as many rows as it takes to know the types.
std::vector<TypeInference> inferencesFor(const RowSource &rows,
                                         const ImportValues::Settings &settings)
{
    std::vector<TypeInference> inferences;
    for (qsizetype column = 0; column < rows.headers().size(); ++column)
        inferences.emplace_back(settings.isMedia);
    rows.whileRows([&](qint64, const QStringList &fields) {
        for (qsizetype column = 0; column < fields.size(); ++column)
            inferences[size_t(column)].add(fields.at(column));
        return !areComplete(inferences) &&
               (!settings.progress || settings.progress(0, rows.rowCount()));
    });
    return inferences;
}

Readers readersFor(const RowSource &rows, const ImportValues::Settings &settings)
{
    Readers readers;
    for (const TypeInference &inference : inferencesFor(rows, settings)) {
        const auto known = settings.types.find(qsizetype(readers.size()));
        readers.push_back(known == settings.types.end() ? inference.reader()
                                                        : std::make_unique<FieldReader>(*known));
    }
    return readers;
}

QString typeNameOf(const FieldReader &reader)
{
    const QString name = FieldTypes::nameOf(reader.type());
    const QString currency = reader.currencyType();
    return currency.isNull() ? name : QString(name + u" (" + currency + u')');
}

/// The second reading: every value through its column's formatter.
class ValueReading
{
public:
    ValueReading(const Readers &readers, ImportSink *sink) : _readers(readers), _sink(sink)
    {
        for (const auto &reader : readers) {
            ImportValues::Column column;
            column.typeName = typeNameOf(*reader);
            _values.columns.append(column);
        }
        if (sink)
            _outcome = sink->begin(readers);
    }

    /// Whether it goes on.
    explicit operator bool() const { return bool(_outcome); }
    void cancel() { _outcome = Failure{u"it was cancelled"_s, true}; }
    void readRow(qint64 row, const QStringList &fields)
    {
        QVariantList record;
        for (qsizetype column = 0; column < _values.columns.size(); ++column)
            record.append(valueOf(row, column, fields.value(column)));
        if (_sink)
            _outcome = _sink->addRow(record);
    }

    Outcome<ImportValues> values() const
    {
        if (!_outcome)
            return _outcome.failure();
        return _values;
    }

private:
    QVariant valueOf(qint64 row, qsizetype column, const QString &text)
    {
        if (!text.trimmed().isEmpty())
            return readValue(row, column, text);
        ++_values.columns[column].empty;
        return text.isEmpty() ? QVariant() : QVariant(text);
    }

    Outcome<QVariant> reading(qsizetype column, const QString &text)
    {
        const FieldReader &reader = *_readers[size_t(column)];
        return reader.type() == FieldType::Media && _sink ? _sink->storeMedia(column, text)
                                                          : reader.read(text, true);
    }

    QVariant readValue(qint64 row, qsizetype column, const QString &text)
    {
        const Outcome<QVariant> value = reading(column, text);
        ImportValues::Column &counts = _values.columns[column];
        ++(value ? counts.read : counts.unread);
        if (value)
            return *value;
        _values.unread.append({row, column, text, value.reason()});
        return text;
    }

    const Readers &_readers;
    ImportSink *_sink;
    ImportValues _values;
    Outcome<> _outcome;
};
} // namespace

Outcome<ImportValues> ImportValues::of(const RowSource &rows, const Settings &settings)
{
    const Readers readers = readersFor(rows, settings);
    ValueReading reading(readers, settings.sink);
    rows.whileRows([&](qint64 row, const QStringList &fields) {
        if (settings.progress && !settings.progress(row, rows.rowCount()))
            reading.cancel();
        if (reading)
            reading.readRow(row, fields);
        return bool(reading);
    });
    return reading.values();
}
