#pragma once

#include "Library/RecordIds.h"
#include "RecordSearch.h"

#include <KTUtility/NSPredicate>

#include <QDeadlineTimer>

class RecordScan;

/// By which field records are sorted, and whether its least value comes first.
struct RecordSort
{
    qsizetype field = 0;
    Qt::SortOrder order = Qt::AscendingOrder;

    friend bool operator==(const RecordSort &, const RecordSort &) = default;
};

/// Which of a library's records are shown, and in which order.
struct ArrangementWish
{
    /// What somebody has typed to find; see RecordSearch.
    QString search;
    /// A condition on the records' keys; nil is none. It is evaluated in another thread.
    NSPredicate filter;
    /// The first one is the most important.
    QList<RecordSort> sorts;
    /// The identifier of the locale whose order texts have.
    QString locale;
};

/// What an arrangement is made of.
struct ArrangementRequest
{
    Library library;
    FieldReaders readers;
    ArrangementWish wish;
    /// All records, ascending.
    SharedRecordIds all;
    /// Those that fulfilled a wish for less, ascending; null if none is known.
    SharedRecordIds among;
    /// All in the wished order; null if it is not known.
    SharedRecordIds known;
};

/// An arrangement, as it was wished for.
struct ArrangementResult
{
    /// In their order.
    SharedRecordIds ids;
    /// The same, ascending.
    SharedRecordIds found;
};

/// Finds and sorts records by reading them one after the other.
///
/// \code
/// RecordArranger arranger(store, request);
/// const Outcome<ArrangementResult> arranged = arranger.arrange();
/// \endcode
class RecordArranger
{
public:
    RecordArranger(LibraryStore &store, const ArrangementRequest &request);

    /// What is asked again and again whether to go on.
    void setGoesOn(const std::function<bool()> &goesOn) { _goesOn = goesOn; }
    /// What is told of records that were found, in the order of their numbers, while others are
    /// still looked at. Not told of those that are to be sorted.
    void setTold(const std::function<void(const RecordIds &)> &told) { _told = told; }

    /// Fails if the records cannot be read, if the filter raises, and if it was told not to go on.
    Outcome<ArrangementResult> arrange();

private:
    bool isFiltering() const;
    Outcome<RecordIds> found();
    Outcome<RecordIds> foundBy(const RecordIds &among,
                               const std::optional<QList<qsizetype>> &fields,
                               const std::function<bool(const RecordCursor &)> &matches);
    void tellSometimes(const RecordIds &ids);
    Outcome<RecordIds> sorted(const RecordIds &ids);
    RecordIds inKnownOrder(const RecordIds &ids) const;
    Outcome<> run(RecordScan *scan, const RecordIds &ids,
                  const std::function<void(const RecordCursor &)> &visit);

    LibraryStore &_store;
    const ArrangementRequest &_request;
    RecordSearch _search;
    std::function<bool()> _goesOn = [] { return true; };
    std::function<void(const RecordIds &)> _told;
    qsizetype _toldCount = 0;
    qint64 _timeToTell = 0;
    QDeadlineTimer _untilTold;
};
