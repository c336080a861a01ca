#include "ImportValues.h"

#include "ColumnThreads.h"
#include "Fields/PlainColumn.h"
#include "Text/Reasons.h"
#include "TypeInference.h"

#include <algorithm>
#include <numeric>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
using Readers = std::vector<std::unique_ptr<FieldReader>>;

/// So much of values that are not read is listed, in UTF-16 units.
constexpr qsizetype MostListedText = qsizetype(1) << 24;

bool areComplete(const std::vector<TypeInference> &inferences)
{
    return std::all_of(inferences.begin(), inferences.end(),
                       [](const TypeInference &inference) { return inference.isComplete(); });
}

/// Takes the values of a batch of rows into account, of columns that need more.
void addTo(std::vector<TypeInference> *inferences, const RowBatch &batch)
{
    for (size_t column = 0; column < inferences->size(); ++column) {
        TypeInference &inference = (*inferences)[column];
        for (qsizetype row = 0; row < batch.rowCount() && !inference.isComplete(); ++row)
            inference.add(batch.field(row, qsizetype(column)));
    }
}

/// Looks at as many rows as it takes to know the types.
Outcome<> inferTypes(const RowSource &rows, const ImportValues::Settings &settings,
                     std::vector<TypeInference> *inferences)
{
    for (qsizetype column = 0; column < rows.headers().size(); ++column)
        inferences->emplace_back(settings.isMedia, settings.conventions.value(column),
                                 settings.locale);
    return rows.whileBatches([&](const RowBatch &batch) {
        addTo(inferences, batch);
        return !areComplete(*inferences) &&
               (!settings.progress || settings.progress(0, rows.rowCount()));
    });
}

Outcome<> makeReaders(const RowSource &rows, const ImportValues::Settings &settings,
                      Readers *readers)
{
    std::vector<TypeInference> inferences;
    const Outcome<> inferred = inferTypes(rows, settings, &inferences);
    for (const TypeInference &inference : inferences) {
        const auto known = settings.types.find(qsizetype(readers->size()));
        readers->push_back(known == settings.types.end() ? inference.reader()
                                                         : inference.readerOf(*known));
    }
    return inferred;
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
Outcome<> decideColumns(const RowSource &rows, const ImportValues::Settings &settings,
                        Readers *readers)
{
    ColumnReadings columns = newColumnsFor(*readers, settings);
    if (std::none_of(columns.begin(), columns.end(), [](const auto &column) { return column; }))
        return {};
    const auto addFields = [&columns](const RowBatch &batch, qsizetype column) {
        auto &reading = columns[size_t(column)];
        for (qsizetype row = 0; reading && row < batch.rowCount(); ++row)
            reading->add(batch.field(row, column));
        return ColumnPart();
    };
    const Outcome<> outcome =
        ColumnThreads(settings.threads)
            .run(rows, qsizetype(columns.size()), addFields,
                 [&](const RowBatch &, const std::vector<ColumnPart> &) {
                     return !settings.progress || settings.progress(0, rows.rowCount());
                 });
    for (size_t column = 0; column < columns.size(); ++column) {
        if (columns[column])
            (*readers)[column]->setColumn(*columns[column]);
    }
    return outcome;
}

QString typeNameOf(const FieldReader &reader)
{
    const QString name = FieldTypes::nameOf(reader.type());
    const QString currency = reader.currencyType();
    return currency.isNull() ? name : QString(name + u" (" + currency + u')');
}

/// About a currency that is not the user's, or that the user names.
ColumnDecision currencyDecisionOf(const FieldReader &reader, const ColumnConventions &told,
                                  const std::optional<NSLocale> &locale)
{
    const QString code = reader.currencyType();
    if (code.isNull())
        return {};
    if (code == told.currency())
        return ColumnDecision::ofCurrency(code, Reasons::tr("you say so"));
    const QString own = FieldReader(FieldType::Currency, locale).currencyType();
    return code == own ? ColumnDecision()
                       : ColumnDecision::ofCurrency(code, Reasons::tr("the values name it"));
}

ImportValues::Column columnOf(const FieldReader &reader, const ColumnConventions &told,
                              const std::optional<NSLocale> &locale)
{
    ImportValues::Column column;
    column.typeName = typeNameOf(reader);
    column.type = reader.type();
    column.currencyType = reader.currencyType();
    if (reader.column())
        column.decision = ColumnDecision::of(*reader.column());
    column.currency = currencyDecisionOf(reader, told, locale);
    column.unused = ColumnDecision::ofUnused(told.unusedBy(reader), column.typeName);
    return column;
}

/// What imported fields are made of.
class FieldReading
{
public:
    /// \param plain what is known of texts that are alike; may be null.
    FieldReading(const FieldReader &reader, const ImportSink *sink, PlainColumn *plain)
        : _reader(reader)
        , _sink(sink)
        , _plain(plain)
        , _isStored(sink && reader.type() == FieldType::Media)
    {
    }

    ColumnPart read(const RowBatch &batch, qsizetype column)
    {
        _part.values.reserve(size_t(batch.rowCount()));
        for (qsizetype row = 0; row < batch.rowCount(); ++row)
            add(row, batch.field(row, column));
        return std::move(_part);
    }

private:
    void add(qsizetype row, const QString &text)
    {
        if (isBlank(text)) {
            ++_part.emptyCount;
            _part.values.push_back(text.isEmpty() ? QVariant() : QVariant(text));
        } else if (_isStored) { // by who has the row
            _part.values.push_back(text);
        } else if (const QVariant known = _plain ? _plain->valueOf(text) : QVariant();
                   known.isValid()) {
            ++_part.readCount;
            _part.values.push_back(known);
        } else {
            addRead(row, text);
        }
    }
    void addRead(qsizetype row, const QString &text)
    {
        const Outcome<QVariant> value = _reader.read(text, true);
        if (value)
            ++_part.readCount;
        else
            _part.unread.push_back({row, value.reason()});
        const QVariant kept = value ? *value : QVariant(text);
        _part.values.push_back(_sink ? _sink->prepared(kept) : kept);
        if (_plain)
            _plain->learn(value ? _part.values.back() : QVariant());
    }
    static bool isBlank(QStringView text)
    {
        return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.isSpace(); });
    }

    const FieldReader &_reader;
    const ImportSink *_sink;
    PlainColumn *_plain;
    bool _isStored;
    ColumnPart _part;
};

/// The last reading: every value through its column's formatter.
class ValueReading
{
public:
    ValueReading(const Readers &readers, const ImportValues::Settings &settings)
        : _readers(readers), _sink(settings.sink)
    {
        for (const auto &reader : readers) {
            const auto told = settings.conventions.value(_values.columns.size());
            _values.columns.append(columnOf(*reader, told, settings.locale));
            _plain.push_back(_sink && _sink->keepsStoredValues()
                                 ? std::make_unique<PlainColumn>(*reader)
                                 : nullptr);
        }
        if (_sink)
            _outcome = _sink->begin(readers);
    }

    /// Whether it goes on.
    explicit operator bool() const { return bool(_outcome); }
    void cancel() { _outcome = Failure{Reasons::tr("it was cancelled"), true}; }

    ColumnPart read(const RowBatch &batch, qsizetype column) const
    {
        PlainColumn *const plain = _plain[size_t(column)].get();
        return FieldReading(*_readers[size_t(column)], _sink, plain).read(batch, column);
    }

    void begin(const std::vector<ColumnPart> &parts)
    {
        _unreadSoFar.assign(parts.size(), 0);
        for (size_t column = 0; column < parts.size(); ++column) {
            ImportValues::Column &counts = _values.columns[qsizetype(column)];
            counts.read += parts[column].readCount;
            counts.unread += qint64(parts[column].unread.size());
            counts.empty += parts[column].emptyCount;
        }
    }
    void useRow(const RowBatch &batch, qsizetype row, std::vector<ColumnPart> &parts)
    {
        QVariantList record;
        record.reserve(qsizetype(parts.size()));
        for (size_t column = 0; column < parts.size(); ++column) {
            record.append(std::move(parts[column].values[size_t(row)]));
            if (_sink && _readers[column]->type() == FieldType::Media)
                storeMedia(batch.number(row), qsizetype(column), &record.last());
            else
                noteUnread(batch, row, column, parts[column]);
        }
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
    void noteUnread(const RowBatch &batch, qsizetype row, size_t column, const ColumnPart &part)
    {
        size_t &next = _unreadSoFar[column];
        if (next == part.unread.size() || part.unread[next].row != row)
            return;
        if (listsMore())
            list({batch.number(row), qsizetype(column), batch.field(row, qsizetype(column)),
                  part.unread[next].reason});
        ++next;
    }
    bool listsMore() const
    {
        return _values.unread.size() < ImportValues::MostListed && _listedText < MostListedText;
    }
    void list(const ImportValues::Unread &unread)
    {
        _listedText += unread.text.size();
        _values.unread.append(unread);
    }
    void storeMedia(qint64 row, qsizetype column, QVariant *value)
    {
        const QString text = value->toString();
        if (text.trimmed().isEmpty())
            return;
        const Outcome<QVariant> stored = _sink->storeMedia(column, text);
        ImportValues::Column &counts = _values.columns[column];
        ++(stored ? counts.read : counts.unread);
        if (stored)
            *value = *stored;
        else if (listsMore())
            list({row, column, text, stored.reason()});
    }

    const Readers &_readers;
    ImportSink *_sink;
    /// What the columns' readers are not asked about; null for values that are not stored.
    std::vector<std::unique_ptr<PlainColumn>> _plain;
    ImportValues _values;
    Outcome<> _outcome;
    /// The length of the values that are listed.
    qsizetype _listedText = 0;
    /// How many of the unread fields of each column of a batch are noted.
    std::vector<size_t> _unreadSoFar;
};

Outcome<> readValues(const RowSource &rows, const ImportValues::Settings &settings,
                     qsizetype columnCount, ValueReading *reading)
{
    const auto useRows = [&](const RowBatch &batch, std::vector<ColumnPart> &parts) {
        reading->begin(parts);
        for (qsizetype row = 0; *reading && row < batch.rowCount(); ++row) {
            if (settings.progress && !settings.progress(batch.number(row), rows.rowCount()))
                reading->cancel();
            else
                reading->useRow(batch, row, parts);
        }
        return bool(*reading);
    };
    if (!*reading)
        return {};
    return ColumnThreads(settings.threads)
        .run(
            rows, columnCount,
            [reading](const RowBatch &batch, qsizetype column) {
                return reading->read(batch, column);
            },
            useRows);
}
} // namespace

qint64 ImportValues::unreadCount() const
{
    return std::accumulate(columns.begin(), columns.end(), qint64(0),
                           [](qint64 sum, const Column &column) { return sum + column.unread; });
}

Outcome<ImportValues> ImportValues::of(const RowSource &rows, const Settings &settings)
{
    Readers readers;
    const Outcome<> prepared = makeReaders(rows, settings, &readers).andThen([&] {
        return decideColumns(rows, settings, &readers);
    });
    if (!prepared)
        return prepared.failure();
    ValueReading reading(readers, settings);
    const Outcome<> read = readValues(rows, settings, qsizetype(readers.size()), &reading);
    return read ? reading.values() : read.failure();
}
