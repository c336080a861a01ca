#include "LibraryExport.h"

#include "LibraryStore.h"
#include "PlugIns.h"
#include "RecordTexts.h"

#include <KTUtility/NSFileHandle>

#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {
/// The records of a library for an exporter.
class LibraryRecords : public CobbleRecordSource
{
public:
    LibraryRecords(LibraryStore &store, const Library &library,
                   const LibraryExport::Progress &progress)
        : _library(library)
        , _texts(library)
        , _records(store.records(library))
        , _progress(progress)
        , _total(progress ? store.recordCount(library) : 0)
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
        const bool hasNext = !_isCancelled && _records.next();
        _count += hasNext;
        return hasNext;
    }
    QVariant value(qsizetype field) const override { return _records.value(field); }
    QString text(qsizetype field) const override
    {
        return _texts.textOf(field, _records.value(field));
    }

    qint64 count() const { return _count; }
    bool isCancelled() const { return _isCancelled; }
    QString errorText() const { return _records.errorText(); }

private:
    Library _library;
    RecordTexts _texts;
    RecordCursor _records;
    const LibraryExport::Progress &_progress;
    qint64 _total;
    qint64 _count = 0;
    bool _isCancelled = false;
};

/// What an exporter throws is its failure, not the host's.
bool runExporter(CobbleExporter &exporter, CobbleRecordSource &records, const QString &fileType,
                 QIODevice *to, QString *error)
{
    bool isDone = false;
    const QString failure =
        PlugIns::failureOf([&] { isDone = exporter.exportRecords(records, fileType, to, error); });
    if (!failure.isNull())
        *error = u"the exporter failed: %1"_s.arg(failure);
    return isDone;
}

/// Lets the new file take the old one's place when it is on the disk.
/// \return why it does not; nil if it does.
QString commit(QSaveFile &file)
{
    if (!file.flush())
        return file.errorString();
    if (!NSFileHandle(file.handle(), NSFileHandle::Ownership::Borrowed).synchronizeFile())
        return qt_error_string(errno);
    return file.commit() ? QString() : file.errorString();
}

LibraryExport::Outcome failure(const QString &subject, const QString &reason)
{
    LibraryExport::Outcome outcome;
    outcome.subject = subject;
    outcome.errorDescription = reason;
    return outcome;
}

/// Writes the records to an open file, which is still to be committed.
LibraryExport::Outcome write(LibraryRecords &records, CobbleExporter &exporter, QSaveFile &file)
{
    const QString path = file.fileName();
    QString error;
    const QString fileType = QFileInfo(path).suffix().toLower();
    const bool isWritten = runExporter(exporter, records, fileType, &file, &error);
    LibraryExport::Outcome outcome;
    outcome.recordCount = records.count();
    outcome.isCancelled = records.isCancelled();
    if (outcome.isCancelled)
        error = u"it was cancelled"_s;
    else if (isWritten && !records.errorText().isNull())
        return failure(records.libraryName(), records.errorText());
    if (!isWritten || outcome.isCancelled) {
        outcome.subject = path;
        outcome.errorDescription = error;
    }
    return outcome;
}
} // namespace

LibraryExport::Outcome LibraryExport::run(LibraryStore &store, const Library &library,
                                          const QString &path, const Progress &progress)
{
    const PlugIns plugIns;
    const QString fileType = QFileInfo(path).suffix().toLower();
    CobbleExporter *const exporter = plugIns.exporterFor(fileType);
    if (!exporter)
        return failure(path, u"there is no exporter for '%1'; there are %2"_s.arg(
                                 fileType, plugIns.exportedTypes().join(u", "_s)));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return failure(path, file.errorString());
    LibraryRecords records(store, library, progress);
    Outcome outcome = write(records, *exporter, file);
    if (!outcome.errorDescription.isNull())
        return outcome;
    const QString reason = commit(file);
    return reason.isNull() ? outcome : failure(path, reason);
}
