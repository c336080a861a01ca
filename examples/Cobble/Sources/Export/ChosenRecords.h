#pragma once

#include "Library/RecordIds.h"
#include "Library/RecordRows.h"

class LibraryStore;

/// Records of a library that somebody has chosen, in their order. Those that are no longer there are
/// left out. They are read piece by piece, so that a million take no more memory than their numbers.
///
/// \code
/// ChosenRecords records(store, library, ids);
/// const Outcome<qint64> count = LibraryExport::run(records, path, qint64(ids->size()));
/// \endcode
class ChosenRecords : public RecordRows
{
public:
    ChosenRecords(LibraryStore &store, const Library &library, SharedRecordIds ids);

    const Library &library() const override { return _library; }
    bool next() override;
    QVariant value(qsizetype field) const override;
    Outcome<> outcome() const override { return _outcome; }

private:
    RecordIds nextIds();
    bool readPiece();

    LibraryStore &_store;
    Library _library;
    SharedRecordIds _ids;
    /// How many of the numbers were read.
    size_t _readCount = 0;
    /// The values of the records that were read last; the first are those of the record.
    std::vector<QVariantList> _piece;
    size_t _position = 0;
    Outcome<> _outcome;
};
