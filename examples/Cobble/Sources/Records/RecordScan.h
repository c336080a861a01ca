#pragma once

#include "Library/LibraryStore.h"

/// Goes through records of a library, some hundreds at a time, so that nobody who writes has to wait
/// for its end.
///
/// \code
/// RecordScan scan(store, library);
/// const Outcome<> done = scan.run(ids, [&](const RecordCursor &record) { count += 1; });
/// \endcode
class RecordScan
{
public:
    /// \param fields those whose values are read; all if not given.
    RecordScan(LibraryStore &store, const Library &library,
               const std::optional<QList<qsizetype>> &fields = std::nullopt);

    /// What is asked between the records whether to go on; always if not set.
    void setGoesOn(const std::function<bool()> &goesOn) { _goesOn = goesOn; }

    using Visit = std::function<void(const RecordCursor &record)>;
    /// Has each record looked at that is there, ascending.
    /// \param ids ascending.
    Outcome<> run(const RecordIds &ids, const Visit &visit);

private:
    Outcome<> runThrough(const RecordIds &ids, const Visit &visit);
    static qint64 visitIfWanted(const RecordCursor &record, const RecordIds &ids,
                                RecordIds::const_iterator *wanted, const Visit &visit);
    Outcome<> runEach(const RecordIds &ids, const Visit &visit);

    LibraryStore &_store;
    const Library &_library;
    RecordPart _part;
    std::function<bool()> _goesOn = [] { return true; };
};
