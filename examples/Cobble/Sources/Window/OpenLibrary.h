#pragma once

#include "Journal/StepRecorder.h"
#include "Library/RecordTexts.h"
#include "StoredRecord.h"

#include <functional>
#include <memory>
#include <vector>

class OpenBundle;

/// A library whose records are in memory, for windows to show and change. Windows that show the
/// same library share it.
///
/// \code
/// const Outcome<std::shared_ptr<OpenLibrary>> library = bundle.open(u"contacts"_s);
/// records.setContent((*library)->records());
/// \endcode
class OpenLibrary : public QObject
{
    Q_OBJECT

public:
    /// Reads all records.
    /// \param bundle must outlive the library.
    static Outcome<std::shared_ptr<OpenLibrary>> load(OpenBundle *bundle, const Library &library);

    /// Its names and fields, as the catalogue has them.
    const Library &definition() const { return _library; }
    /// The fields, in their order; they live as long as the library.
    QList<FormField *> fields() const;
    /// The records, in the order in which they were stored, as pointers to StoredRecord.
    QVariantList records() const;
    qsizetype recordCount() const { return qsizetype(_records.size()); }
    /// The path of the bundle that it is in.
    QString bundlePath() const;

    const FieldReader &reader(qsizetype field) const { return *_readers.at(size_t(field)); }
    /// A record's value of a field.
    QVariant value(const FormRecord &record, qsizetype field) const;
    /// The value as the field shows it.
    QString text(const FormRecord &record, qsizetype field) const;
    /// All texts of a record, folded for comparing; see folded().
    const QString &searchText(const StoredRecord &record) const;
    /// A text without the differences that a search passes over: those of case, accents and width.
    static QString folded(const QString &text);

    /// Makes changes to records of the library, all of them or none.
    /// \param changes sets values of records.
    /// \param kind one of StepKinds, of which the step is.
    Outcome<> change(const std::function<void()> &changes, const QString &kind = StepKinds::Edit);
    /// Adds records, all of them or none.
    /// \param kind one of StepKinds, of which the step is.
    /// \param values of the fields, in their order.
    /// \param ids the numbers that the records got.
    Outcome<> insertRecords(const QString &kind, const QList<QVariantList> &values,
                            std::vector<qint64> *ids);
    /// Takes records away, all of them or none.
    Outcome<> removeRecords(const QList<StoredRecord *> &records);
    /// Looks at the database again after records have come, gone or changed there.
    Outcome<> refresh(const std::vector<qint64> &ids);
    /// For records: writes a value to the database.
    Outcome<> save(StoredRecord &record, const QString &key, const QVariant &value);

Q_SIGNALS:
    void recordChanged(StoredRecord *record, const QString &key);
    /// records() has others than before. Those that were removed will be destroyed when the signal
    /// has been handled.
    void recordsWillGo();
    /// A value that was set outside of change() could not be stored.
    void refused(const QString &reason);

private:
    OpenLibrary(OpenBundle *bundle, const Library &library);
    QVariantMap valuesOf(const RecordCursor &cursor) const;
    Outcome<> readRecords();
    qsizetype fieldWithKey(const QString &key) const;
    StepTitle titleOfChanges(const QString &kind) const;
    StoredRecord *recordWithId(qint64 id) const;
    void takeValues(StoredRecord *record, const QVariantMap &values);
    void replaceRecords(const QSet<StoredRecord *> &gone,
                        std::vector<std::unique_ptr<StoredRecord>> &&added);
    void takeBack();

    /// A value that change() has replaced.
    struct Replaced
    {
        StoredRecord *record;
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
    std::vector<std::unique_ptr<FieldReader>> _readers;
    std::vector<std::unique_ptr<StoredRecord>> _records;
};
