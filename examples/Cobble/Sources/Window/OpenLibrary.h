#pragma once

#include "RecordTexts.h"
#include "StoredRecord.h"

#include <memory>
#include <vector>

class OpenBundle;

/// A library whose records are in memory, for windows to show and change. Windows that show the
/// same library share it.
///
/// \code
/// QString error;
/// const std::shared_ptr<OpenLibrary> library = bundle.open(QStringLiteral("contacts"), &error);
/// records.setContent(library->records());
/// \endcode
class OpenLibrary : public QObject
{
    Q_OBJECT

public:
    /// Reads all records.
    /// \param bundle must outlive the library.
    /// \param error receives why there is no result.
    static std::shared_ptr<OpenLibrary> load(OpenBundle *bundle, const Library &library,
                                             QString *error);

    const Library &library() const { return _library; }
    /// The fields, in their order; they live as long as the library.
    QList<FormField *> fields() const;
    /// The records, in the order in which they were stored, as pointers to StoredRecord.
    QVariantList records() const;
    qsizetype recordCount() const { return qsizetype(_records.size()); }

    const FieldReader &reader(qsizetype field) const { return *_readers.at(size_t(field)); }
    /// A record's value of a field.
    QVariant value(const FormRecord &record, qsizetype field) const;
    /// The value as the field shows it.
    QString text(const FormRecord &record, qsizetype field) const;
    /// All texts of a record, folded for comparing; see folded().
    const QString &searchText(const StoredRecord &record) const;
    /// A text without the differences that a search passes over: those of case, accents and width.
    static QString folded(const QString &text);

    /// Writes a value of a record to the database. \return false after refused().
    bool save(const StoredRecord &record, const QString &key, const QVariant &value);
    /// Takes records away, all of them or none, with their media files that no other record uses.
    /// \return false after refused().
    bool removeRecords(const QList<StoredRecord *> &records);

Q_SIGNALS:
    void recordChanged(StoredRecord *record, const QString &key);
    /// Records are gone from records(), and will be destroyed when the signal has been handled.
    void recordsWillGo();
    /// A change could not be stored.
    void refused(const QString &reason);

private:
    OpenLibrary(OpenBundle *bundle, const Library &library);
    QVariantMap valuesOf(const RecordCursor &cursor) const;
    QString readRecords();
    qsizetype fieldWithKey(const QString &key) const;
    void addMediaOf(const FormRecord &record, QSet<QString> *media) const;
    QString removeFromDatabase(const QList<StoredRecord *> &records);

    OpenBundle *_bundle;
    Library _library;
    std::vector<std::unique_ptr<FormField>> _fields;
    std::vector<std::unique_ptr<FieldReader>> _readers;
    std::vector<std::unique_ptr<StoredRecord>> _records;
};
