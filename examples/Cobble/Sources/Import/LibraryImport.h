#pragma once

#include "ImportSchema.h"
#include "ImportSink.h"
#include "ImportTransaction.h"

/// Puts the rows of an import into a new library of the database.
///
/// The library gets the name that it is to have if no other has it, else "name 1", "name 2" and so
/// on, unless it replaces the other.
class LibraryImport : public ImportSink
{
public:
    /// \param folder where relative paths of media begin.
    LibraryImport(ImportTransaction &transaction, const ImportSchema &schema, const QString &folder,
                  bool replaces);

    Outcome<> begin(const std::vector<std::unique_ptr<FieldReader>> &readers) override;
    Outcome<QVariant> storeMedia(const QString &text) override;
    Outcome<> addRow(const QVariantList &values) override;

    /// As it was made, with the names that it got.
    const Library &storedLibrary() const { return _library; }
    qint64 recordCount() const { return _recordCount; }

private:
    Outcome<> removeOther();
    Outcome<> makeNamesUnique();

    ImportTransaction &_transaction;
    QString _folder;
    bool _replaces;
    Library _library;
    qint64 _recordCount = 0;
};
