#include "ImportValues.h"

#include "TypeInference.h"

#include <KTUtility/KTCurrencyFormatter>

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
std::vector<TypeInference> inferencesFor(QStringView text, const ImportSource &source,
                                         const ImportValues::Settings &settings)
{
    std::vector<TypeInference> inferences;
    for (qsizetype column = 0; column < source.headers.size(); ++column)
        inferences.emplace_back(settings.isMedia);
    source.whileRows(text, [&](qint64, const QStringList &fields) {
        for (qsizetype column = 0; column < fields.size(); ++column)
            inferences[size_t(column)].add(fields.at(column));
        return !areComplete(inferences) &&
               (!settings.progress || settings.progress(0, source.rowCount));
    });
    return inferences;
}

Readers readersFor(QStringView text, const ImportSource &source,
                   const ImportValues::Settings &settings)
{
    Readers readers;
    for (const TypeInference &inference : inferencesFor(text, source, settings)) {
        const auto known = settings.types.find(qsizetype(readers.size()));
        readers.push_back(known == settings.types.end() ? inference.reader()
                                                        : std::make_unique<FieldReader>(*known));
    }
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
    ValueReading(const Readers &readers, ImportSink *sink, ImportValues &values)
        : _readers(readers), _sink(sink), _values(values)
    {
        for (const auto &reader : readers) {
            ImportValues::Column column;
            column.typeName = typeNameOf(*reader);
            _values.columns.append(column);
        }
        check(!sink || sink->begin(readers));
    }

    /// \return whether to go on.
    bool readRow(qint64 row, const QStringList &fields)
    {
        QVariantList record;
        for (qsizetype column = 0; column < _values.columns.size(); ++column) {
            const QString text = fields.value(column);
            if (text.trimmed().isEmpty()) {
                ++_values.columns[column].empty;
                record.append(text.isEmpty() ? QVariant() : QVariant(text));
            } else {
                record.append(readValue(row, column, text));
            }
        }
        check(!_sink || _sink->addRow(record));
        return _values.errorDescription.isNull();
    }

    void cancel()
    {
        _values.isCancelled = true;
        _values.errorDescription = u"it was cancelled"_s;
    }

private:
    void check(bool isDone)
    {
        if (!isDone)
            _values.errorDescription = _sink->errorText();
    }

    FieldReading reading(const FieldReader &reader, const QString &text)
    {
        return reader.type() == FieldType::Media && _sink ? _sink->storeMedia(text)
                                                          : reader.read(text, true);
    }

    QVariant readValue(qint64 row, qsizetype column, const QString &text)
    {
        FieldReading result = reading(*_readers[size_t(column)], text);
        ImportValues::Column &counts = _values.columns[column];
        ++(result.isRead ? counts.read : counts.unread);
        if (result.isRead)
            return result.value;
        _values.unread.append({row, column, text, result.reason});
        return text;
    }

    const Readers &_readers;
    ImportSink *_sink;
    ImportValues &_values;
};
} // namespace

ImportValues ImportValues::fromText(QStringView text, const ImportSource &source,
                                    const Settings &settings)
{
    ImportValues values;
    const Readers readers = readersFor(text, source, settings);
    ValueReading reading(readers, settings.sink, values);
    source.whileRows(text, [&](qint64 row, const QStringList &fields) {
        if (settings.progress && !settings.progress(row, source.rowCount))
            reading.cancel();
        return values.errorDescription.isNull() && reading.readRow(row, fields);
    });
    return values;
}
