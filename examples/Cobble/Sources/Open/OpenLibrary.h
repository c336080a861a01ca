#pragma once

#include "Journal/StepRecorder.h"
#include "Library/RecordIds.h"
#include "Library/RecordTexts.h"
#include "Records/RecentObjects.h"
#include "Records/RecordSearch.h"
#include "StoredRecord.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class OpenBundle;

/// A library for windows to show and change. Windows that show the same library share it.
///
/// It knows which records there are, and reads those that are asked for. Of these it keeps some, and
/// those that somebody holds.
///
/// \code
/// const Outcome<std::shared_ptr<OpenLibrary>> library = bundle.open(u"contacts"_s);
/// for (const qint64 id : *(*library)->recordIds())
///     use((*library)->record(id));
/// \endcode
class OpenLibrary : public QObject
{
    Q_OBJECT

public:
    /// Reads which records there are.
    /// \param bundle must outlive the library.
    static Outcome<std::shared_ptr<OpenLibrary>> load(OpenBundle *bundle, const Library &library);

    OpenBundle *bundle() const { return _bundle; }
    /// Its names and fields, as the catalogue has them.
    const Library &definition() const { return _library; }
    /// The fields, in their order; they live as long as the library.
    QList<FormField *> fields() const;
    /// The path of the bundle that it is in.
    QString bundlePath() const;
    /// The numbers of all records, ascending: the order in which they were stored.
    const SharedRecordIds &recordIds() const { return _ids; }
    qsizetype recordCount() const { return qsizetype(_ids->size()); }
    /// The record of a number; null if it is gone, or cannot be read now, see readable().
    std::shared_ptr<StoredRecord> record(qint64 id);
    bool isInMemory(qint64 id) { return bool(_records.find(id)); }
    /// Reads records that will be asked for, a few hundred of them at most.
    void prepare(const RecordIds &ids);

    /// The readers of the fields, for searches.
    const FieldReaders &readers() const { return _readers; }
    /// New ones, for other threads.
    FieldReaders newReaders() const;
    /// The position of the field whose values have a key.
    qsizetype fieldWithKey(const QString &key) const;
    const FieldReader &reader(qsizetype field) const { return *_readers.at(size_t(field)); }
    /// A record's value of a field.
    QVariant value(const FormRecord &record, qsizetype field) const;
    /// The value as the field shows it.
    QString text(const FormRecord &record, qsizetype field) const;

    /// The values of all fields of some records, as the database has them, in the order of the
    /// numbers. Those that are no longer there are left out. Waits for somebody who writes.
    Outcome<QList<QVariantList>> valuesOf(const RecordIds &ids);

    /// Makes changes to records of the library, all of them or none.
    /// \param changes sets values of records.
    /// \param kind one of StepKinds, of which the step is.
    Outcome<> change(const std::function<void()> &changes, const QString &kind = StepKinds::Edit);
    /// Adds records, all of them or none.
    /// \param kind one of StepKinds, of which the step is.
    /// \param values of the fields, in their order.
    /// \param ids the numbers that the records got.
    Outcome<> insertRecords(const QString &kind, const QList<QVariantList> &values, RecordIds *ids);
    /// Adds the same records again, all of them or none.
    /// \param copies the numbers of the new ones, in the order of the others.
    Outcome<> duplicateRecords(const RecordIds &ids, RecordIds *copies);
    /// Takes records away, all of them or none.
    Outcome<> removeRecords(const RecordIds &ids);
    /// Gives records the same value of a field, all of them or none.
    /// \param kind one of StepKinds, of which the step is.
    Outcome<> changeAll(const RecordIds &ids, qsizetype field, const QVariant &value,
                        const QString &kind = StepKinds::Edit);
    /// Looks at the database again after records were changed, removed or inserted there by others
    /// than these functions.
    Outcome<> refresh(const RecordIds &ids);
    /// For records: writes a value to the database.
    Outcome<> save(StoredRecord &record, const QString &key, const QVariant &value);

Q_SIGNALS:
    void recordChanged(StoredRecord *record, const QString &key);
    /// recordIds() has changed. Those that were removed are destroyed when the signal has been
    /// handled, unless somebody holds them.
    void recordIdsChanged();
    /// The values of many records have changed, each of which is told of by recordChanged() only if
    /// it is in memory.
    void manyChanged();
    /// Records that could not be read, since somebody was writing, may be asked for again.
    void readable();
    /// A value that was set outside of change() could not be stored.
    void refused(const QString &reason);

private:
    OpenLibrary(OpenBundle *bundle, const Library &library);
    QVariantMap valuesOf(const RecordCursor &cursor) const;
    StepTitle titleOfChanges(const QString &kind) const;
    StepTitle titleFor(const QString &kind, qsizetype count) const;
    Outcome<> changeEach(const StepTitle &title, const RecordIds &ids,
                         const std::function<Outcome<>(StepRecorder &, qint64)> &change);
    Outcome<> duplicateSome(StepRecorder &step, const RecordIds &ids, RecordIds *copies);
    Outcome<> eachOf(RecordIds ids, const std::function<void(const RecordCursor &)> &visit);
    Outcome<> takeNew(const RecordIds &ids);
    Outcome<> readIds();
    void read(const RecordIds &ids);
    void take(const RecordCursor &cursor);
    void forget(const RecordIds &gone);
    void takeBack();
    void takeAll(const RecordIdSet &ids, const QString &key, const QVariant &value);
    Outcome<> rereadKnown(const RecordIds &ids);

    /// A value that change() has replaced.
    struct Replaced
    {
        std::shared_ptr<StoredRecord> record;
        QString key;
        QVariant value;
    };

    OpenBundle *_bundle;
    Library _library;
    /// Null while nothing is changed.
    StepRecorder *_recorder = nullptr;
    /// Of the changes that are being made.
    Outcome<> _saved;
    std::vector<Replaced> _replaced;
    std::vector<std::unique_ptr<FormField>> _fields;
    FieldReaders _readers;
    SharedRecordIds _ids = std::make_shared<RecordIds>();
    RecentObjects<StoredRecord> _records;
    /// Runs while nothing is read, since somebody is writing.
    QTimer _pause;
};
