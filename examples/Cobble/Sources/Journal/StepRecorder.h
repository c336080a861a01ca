#pragma once

#include "CatalogueChange.h"
#include "Library/Library.h"
#include "Library/LibraryTable.h"
#include "RecordChanges.h"
#include "SpentNumbers.h"
#include "StepTitle.h"
#include "Text/Outcome.h"

#include <QSet>
#include <QSqlDatabase>

#include <functional>
#include <optional>

/// Changes the records, the fields and the names of libraries within one step of the journal, and
/// writes down how each change can be taken back. ChangeJournal::make() gives one.
///
/// What changes a library takes it as the catalogue has it, and gives it as it is then.
///
/// \code
/// journal.make({StepKinds::AddField, {}}, [&](StepRecorder &step) -> Outcome<> {
///     const auto wider = step.addField(contacts, {.header = u"Notes"_s});
///     return wider ? step.update(*wider, 12, wider->fields.size() - 1, u"new"_s)
///                  : wider.failure();
/// });
/// \endcode
class StepRecorder
{
public:
    /// What a value becomes in a field of another type; a failure ends the step.
    using Conversion = std::function<Outcome<QVariant>(const QVariant &value)>;

    /// Another title than that which the step was made with, for what is known only in the end.
    void setTitle(const StepTitle &title) { _title = title; }

    // --- Records

    /// Adds a record.
    /// \param values those of the fields, in their order; as StoredValue takes them.
    /// \return its number, which no other record has had.
    Outcome<qint64> insert(const Library &library, const QVariantList &values);
    /// Adds a record of a number that no other has.
    Outcome<> insertWithId(const Library &library, qint64 id, const QVariantList &values);
    /// Writes one value of a record. A record that was deleted is an error.
    Outcome<> update(const Library &library, qint64 id, qsizetype field, const QVariant &value);
    /// Deletes a record. One that was deleted already is an error.
    Outcome<> remove(const Library &library, qint64 id);

    // --- Libraries

    /// Makes an empty library.
    /// \param library a name that no other has, and at least one field, of which the header and the
    /// type are enough; what lacks of the names for the database is made.
    Outcome<Library> createLibrary(const Library &library);
    Outcome<Library> renameLibrary(const Library &library, const QString &name);
    /// Takes a library out of the catalogue. Its table stays until the step is forgotten.
    Outcome<> removeLibrary(const Library &library);

    // --- Fields

    /// \param position where it comes to stand; at the end if negative.
    Outcome<Library> addField(const Library &library, const LibraryField &field,
                              qsizetype position = -1);
    /// Gives a field another title; its column keeps its name.
    Outcome<Library> renameField(const Library &library, qsizetype field, const QString &title);
    /// \param order the present place of each field, in the new order.
    Outcome<Library> reorderFields(const Library &library, const QList<qsizetype> &order);
    /// Gives a field another type. The values are written into a new column.
    /// \param conversion makes the new value of each that is not nil.
    Outcome<Library> changeType(const Library &library, qsizetype field, FieldType type,
                                const QVariantMap &options, const Conversion &conversion);
    Outcome<Library> changeOptions(const Library &library, qsizetype field,
                                   const QVariantMap &options);
    /// Takes a field away, of which there must be another one. Its column stays until the step is
    /// forgotten.
    Outcome<Library> removeField(const Library &library, qsizetype field);

    // --- What was done otherwise

    /// Writes down that a library was made within the transaction, with its records.
    Outcome<> noteCreated(const Library &library);
    /// Writes down that a library was taken out of the catalogue within the transaction.
    Outcome<> noteRemoved(const Library &library);

private:
    friend class ChangeJournal;
    StepRecorder(const QSqlDatabase &database, qint64 step)
        : _database(database), _step(step), _numbers(database)
    {
    }
    bool isEmpty() const { return _place == 0; }
    qint64 size() const { return _size; }
    const std::optional<StepTitle> &title() const { return _title; }
    Outcome<> finish();

    Outcome<LibraryTable *> tableOf(const Library &library);
    Outcome<qint64> insertInto(const Library &library, const std::optional<qint64> &id,
                               const QVariantList &values);
    Outcome<> noteInserted(const Library &library, qint64 id);
    Outcome<> note(const RecordChange &change);
    void noteMedia(const std::optional<QVariantList> &values);
    Outcome<> writeRecords();
    Outcome<> writeMedia();
    Outcome<> write(const QString &kind, const QString &table, const QByteArray &content);
    Outcome<> write(const CatalogueChange &change);
    Outcome<> checkCurrent(const Library &library);
    Outcome<> checkNameIsFree(const QString &name, const QString &except = {});
    Outcome<> putAway(const Library &library, const QString &column = {});
    Outcome<QString> addColumn(const Library &library, LibraryField *field);
    Outcome<> convert(const Library &library, qsizetype field, const QString &column,
                      const Conversion &conversion);
    Outcome<Library> replace(const Library &before, const Library &after);

    QSqlDatabase _database;
    qint64 _step;
    /// Of the next part of the step.
    qint64 _place = 0;
    qint64 _size = 0;
    std::optional<LibraryTable> _table;
    SpentNumbers _numbers;
    RecordChanges _changes;
    QSet<QString> _media;
    std::optional<StepTitle> _title;
};
