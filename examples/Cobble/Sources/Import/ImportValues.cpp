#include "ImportValues.h"

#include "Text/Reasons.h"
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
        inferences.emplace_back(settings.isMedia, settings.conventions.value(column));
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

using ColumnReadings = std::vector<std::optional<KTColumnReading>>;

ColumnReadings newColumnsFor(const Readers &readers, const ImportValues::Settings &settings)
{
    ColumnReadings columns;
    for (const auto &reader : readers) {
        const auto told = settings.conventions.value(qsizetype(columns.size()));
        columns.push_back(told.newColumnFor(*reader));
    }
    return columns;
}

/// Has each column read by what all of its values decide together.
void decideColumns(const RowSource &rows, const ImportValues::Settings &settings, Readers *readers)
{
    ColumnReadings columns = newColumnsFor(*readers, settings);
    if (std::none_of(columns.begin(), columns.end(), [](const auto &column) { return column; }))
        return;
    rows.whileRows([&](qint64, const QStringList &fields) {
        for (size_t column = 0; column < columns.size(); ++column) {
            if (columns[column])
                columns[column]->add(fields.value(qsizetype(column)));
        }
        return !settings.progress || settings.progress(0, rows.rowCount());
    });
    for (size_t column = 0; column < columns.size(); ++column) {
        if (columns[column])
            (*readers)[column]->setColumn(*columns[column]);
    }
}

QString typeNameOf(const FieldReader &reader)
{
    const QString name = FieldTypes::nameOf(reader.type());
    const QString currency = reader.currencyType();
    return currency.isNull() ? name : QString(name + u" (" + currency + u')');
}

/// About a currency that is not the user's, or that the user names.
ColumnDecision currencyDecisionOf(const FieldReader &reader, const ColumnConventions &told)
{
    const QString code = reader.currencyType();
    if (code.isNull())
        return {};
    if (code == told.currency())
        return ColumnDecision::ofCurrency(code, Reasons::tr("you say so"));
    const QString own = FieldReader(FieldType::Currency).currencyType();
    return code == own ? ColumnDecision()
                       : ColumnDecision::ofCurrency(code, Reasons::tr("the values name it"));
}

ImportValues::Column columnOf(const FieldReader &reader, const ColumnConventions &told)
{
    ImportValues::Column column;
    column.typeName = typeNameOf(reader);
    if (reader.column())
        column.decision = ColumnDecision::of(*reader.column());
    column.currency = currencyDecisionOf(reader, told);
    column.unused = ColumnDecision::ofUnused(told.unusedBy(reader), column.typeName);
    return column;
}

/// The last reading: every value through its column's formatter.
class ValueReading
{
public:
    ValueReading(const Readers &readers, const ImportValues::Settings &settings)
        : _readers(readers), _sink(settings.sink)
    {
        for (const auto &reader : readers) {
            const auto told = settings.conventions.value(_values.columns.size());
            _values.columns.append(columnOf(*reader, told));
        }
        if (_sink)
            _outcome = _sink->begin(readers);
    }

    /// Whether it goes on.
    explicit operator bool() const { return bool(_outcome); }
    void cancel() { _outcome = Failure{Reasons::tr("it was cancelled"), true}; }
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
    Readers readers = readersFor(rows, settings);
    decideColumns(rows, settings, &readers);
    ValueReading reading(readers, settings);
    rows.whileRows([&](qint64 row, const QStringList &fields) {
        if (settings.progress && !settings.progress(row, rows.rowCount()))
            reading.cancel();
        if (reading)
            reading.readRow(row, fields);
        return bool(reading);
    });
    return reading.values();
}
