#include "LibraryExport.h"

#include "ExportDevice.h"
#include "Library/LibraryStore.h"
#include "Library/RecordTexts.h"
#include "PlugIns/PlugIns.h"
#include "Text/Reasons.h"

#include <KTUtility/KTSaveFile>

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
/// All records of a library.
class AllRows : public RecordRows
{
public:
    AllRows(LibraryStore &store, const Library &library)
        : _library(library), _cursor(store.records(library))
    {
    }

    const Library &library() const override { return _library; }
    bool next() override { return _cursor.next(); }
    QVariant value(qsizetype field) const override { return _cursor.value(field); }
    Outcome<> outcome() const override { return _cursor.outcome(); }

private:
    Library _library;
    RecordCursor _cursor;
};

/// Records for an exporter.
class LibraryRecords : public CobbleRecordSource
{
public:
    LibraryRecords(RecordRows &rows, qint64 total, const LibraryExport::Progress &progress)
        : _library(rows.library())
        , _texts(_library)
        , _records(rows)
        , _progress(progress)
        , _total(total)
    {
    }

    QString libraryName() const override { return _library.name; }
    QStringList fieldTitles() const override
    {
        QStringList titles;
        for (const LibraryField &field : _library.fields)
            titles += field.header;
        return titles;
    }
    QStringList fieldNames() const override
    {
        QStringList names;
        for (const LibraryField &field : _library.fields)
            names += field.propertyName;
        return names;
    }
    bool next() override
    {
        _isCancelled = _isCancelled || (_progress && !_progress(_count, _total));
        _hasRecord = !_isCancelled && _asked && _records.next();
        _count += _hasRecord;
        return _hasRecord;
    }
    QVariant value(qsizetype field) const override
    {
        return has(field) ? _records.value(field) : QVariant();
    }
    QString text(qsizetype field) const override
    {
        return has(field) ? _texts.textOf(field, _records.value(field)) : u""_s;
    }

    qint64 count() const { return _count; }
    bool isCancelled() const { return _isCancelled; }
    Outcome<> outcome() const { return _records.outcome(); }
    /// Whether only fields were asked for that there are.
    const Outcome<> &asked() const { return _asked; }

private:
    /// Exporters are other people's code.
    bool has(qsizetype field) const
    {
        if (!_hasRecord)
            refuse(Reasons::tr("it asked for a field where there is no record"));
        else if (field < 0 || field >= _library.fields.size())
            refuse(Reasons::tr("it asked for a field that there is not: %1").arg(field));
        else
            return true;
        return false;
    }
    void refuse(const QString &reason) const
    {
        if (_asked)
            _asked = Failure{Reasons::tr("the exporter failed: %1").arg(reason)};
    }

    Library _library;
    RecordTexts _texts;
    RecordRows &_records;
    const LibraryExport::Progress &_progress;
    qint64 _total;
    qint64 _count = 0;
    bool _hasRecord = false;
    bool _isCancelled = false;
    mutable Outcome<> _asked;
};

Failure failure(const QString &subject, const QString &reason)
{
    return {u"%1: %2"_s.arg(subject, reason)};
}

QString noExporterText(const PlugIns &plugIns, const QString &fileType)
{
    QStringList texts{Reasons::tr("there is no exporter for '%1'").arg(fileType)};
    if (const QStringList types = plugIns.exportedTypes(); !types.isEmpty())
        texts += Reasons::tr("there are %1").arg(types.join(u", "_s));
    for (const QString &text : {plugIns.failedExporters(), plugIns.passedOverExporters()}) {
        if (!text.isNull())
            texts += text;
    }
    return texts.join(u"; "_s);
}

/// What an exporter throws is its failure, not the host's.
Outcome<> runExporter(const PlugIns &plugIns, CobbleExporter &exporter, CobbleRecordSource &records,
                      const QString &fileType, QIODevice *to)
{
    bool isDone = false;
    QString error;
    const Outcome<> called = plugIns.call(
        exporter, [&] { isDone = exporter.exportRecords(records, fileType, to, &error); });
    if (!called)
        return Failure{Reasons::tr("the exporter failed: %1").arg(called.reason())};
    if (isDone)
        return called;
    return Failure{error.isEmpty() ? Reasons::tr("the exporter failed") : error};
}

/// Writes the records to an open file, which is still to be committed.
Outcome<> write(LibraryRecords &records, const PlugIns &plugIns, CobbleExporter &exporter,
                KTSaveFile &file)
{
    const QString path = file.fileName();
    const QString fileType = QFileInfo(path).suffix().toLower();
    ExportDevice device(&file);
    const Outcome<> written =
        runExporter(plugIns, exporter, records, fileType, &device).andThen([&records] {
            return records.asked();
        });
    if (records.isCancelled())
        return Failure{Reasons::tr("%1: it was cancelled").arg(path), true};
    if (!written)
        return failure(path, written.reason());
    if (const Outcome<> read = records.outcome(); !read)
        return failure(records.libraryName(), read.reason());
    return {};
}

/// Lets the new file take the old one's place when it is on the disk.
Outcome<> commit(KTSaveFile &file)
{
    return file.commit() ? Outcome<>() : failure(file.fileName(), file.errorString());
}
} // namespace

Outcome<qint64> LibraryExport::run(LibraryStore &store, const Library &library, const QString &path,
                                   const Progress &progress)
{
    AllRows rows(store, library);
    return run(rows, path, progress ? store.recordCount(library).valueOr(0) : 0, progress);
}

Outcome<qint64> LibraryExport::run(RecordRows &rows, const QString &path, qint64 total,
                                   const Progress &progress)
{
    const PlugIns plugIns;
    const QString fileType = QFileInfo(path).suffix().toLower();
    CobbleExporter *const exporter = plugIns.exporterFor(fileType);
    if (!exporter)
        return failure(path, noExporterText(plugIns, fileType));
    KTSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return failure(path, file.errorString());
    LibraryRecords records(rows, total, progress);
    const Outcome<> outcome =
        write(records, plugIns, *exporter, file).andThen([&file] { return commit(file); });
    if (!outcome)
        return outcome.failure();
    return records.count();
}
