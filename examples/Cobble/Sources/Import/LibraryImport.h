#pragma once

#include "ImportSchema.h"
#include "ImportSink.h"
#include "ImportTransaction.h"
#include "MediaDownloads.h"
#include "MediaSources.h"
#include "ReplacedLibrary.h"

/// Puts the rows of an import into a new library of the database.
///
/// The library gets the name that it is to have if no other has it, else "name 1", "name 2" and so
/// on, unless it replaces the other.
///
/// Media that cannot be stored are kept as the texts that were typed. They end the import if the
/// disk is to blame, and where a library is replaced, whose own files would go, unless that library
/// has the same text.
class LibraryImport : public ImportSink
{
public:
    /// Where media come from, and what becomes of the library of that name.
    struct Settings
    {
        const MediaSources &sources;
        /// What the URLs of the file name.
        const MediaDownloads &downloads;
        /// Is called again and again while a large file is copied; may be empty.
        std::function<void()> meanwhile;
        bool replaces = false;
    };

    LibraryImport(ImportTransaction &transaction, const ImportSchema &schema,
                  const Settings &settings);

    Outcome<> begin(const std::vector<std::unique_ptr<FieldReader>> &readers) override;
    Outcome<QVariant> storeMedia(qsizetype column, const QString &text) override;
    QVariant prepared(const QVariant &value) const override;
    bool keepsStoredValues() const override { return true; }
    Outcome<> addRow(const QVariantList &values) override;

    /// As it was made, with the names that it got.
    const Library &storedLibrary() const { return _library; }
    qint64 recordCount() const { return _recordCount; }

private:
    Outcome<> removeOther();
    Outcome<> makeNamesUnique();
    Outcome<NSURL> fileOf(const NSURL &url) const;
    Failure without(const QString &text, const QString &reason);
    Failure withoutCopy(const QString &text, const NSURL &file);
    void end(const QString &text, const QString &reason);

    ImportTransaction &_transaction;
    Settings _settings;
    Library _library;
    ReplacedLibrary _replaced;
    /// What ends the import with the current row.
    Outcome<> _ended;
    qint64 _recordCount = 0;
};
