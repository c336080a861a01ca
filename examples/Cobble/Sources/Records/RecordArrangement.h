#pragma once

#include "ArrangementWorker.h"

#include <QTimer>

/// Where records come from that are arranged.
struct ArrangementSource
{
    KTDatabaseBundle bundle;
    Library library;
    FieldReaders readers;
    /// All records, ascending.
    SharedRecordIds all;
    /// What few records are read by, at once; null while there is none.
    std::function<LibraryStore *()> store;
};

/// Which records of a library are shown, and in which order. Some thousand are arranged at once;
/// more in a thread, while those are shown that were before, or, in a search, those that were found
/// so far.
///
/// \code
/// RecordArrangement arrangement;
/// arrangement.setSource(source);
/// arrangement.setSearch(u"ada"_s);
/// QObject::connect(&arrangement, &RecordArrangement::changed, …);
/// \endcode
class RecordArrangement : public QObject
{
    Q_OBJECT

public:
    /// More records than these are arranged in a thread.
    static constexpr qsizetype MostAtOnce = 5000;

    RecordArrangement();

    /// Begins anew, without a search, a filter and an order; nothing shows no records.
    void setSource(const std::optional<ArrangementSource> &source);
    /// The library has other records than before.
    void setRecords(const SharedRecordIds &all);
    /// Values have changed; what is shown stays as it is until something else is wished for.
    void forgetValues();

    void setSearch(const QString &typed);
    /// A condition on the records' keys, by the names of columns; nil is none. It must be one that
    /// can be evaluated in any thread.
    /// \param isSlow whether a single record may take long; few of them are looked at in a thread, too.
    void setFilter(const NSPredicate &filter, bool isSlow = false);
    void setSorts(const QList<RecordSort> &sorts);
    const QList<RecordSort> &sorts() const { return _wish.sorts; }
    bool isFiltering() const;

    /// What is shown, in its order; never null.
    const SharedRecordIds &ids() const { return _ids; }
    /// Whether other records are still looked for.
    bool isWorking() const { return _worker.isWorking(); }
    /// Whether what is shown is in the order in which it was stored. While others are looked for, or if
    /// that has failed, that need not be what was wished for.
    bool isAscending() const { return _isAscending; }
    /// Whether this takes so long that people should know.
    bool isSlow() const { return _isSlow; }

Q_SIGNALS:
    /// Other records are shown, or in another order. While isWorking(), more may come.
    void changed();
    /// Whether the work takes long has changed.
    void slowChanged();
    /// The records could not be arranged; they are shown as before.
    void failed(const QString &reason);

private:
    bool isArranging() const;
    bool isAtOnce(const ArrangementRequest &request) const;
    void arrange();
    ArrangementRequest request() const;
    SharedRecordIds narrowed() const;
    void arrangeAtOnce(LibraryStore &store, const ArrangementRequest &request);
    void arrangeInThread(const ArrangementRequest &request);
    void showMore(const RecordIds &ids);
    void show(const SharedRecordIds &ids);
    void finish(const Outcome<ArrangementResult> &arranged);
    void remember(const ArrangementResult &result);
    void setSlow(bool isSlow);

    /// What was found, to look only there for more letters.
    struct Found
    {
        QStringList words;
        SharedRecordIds ids;
    };

    std::optional<ArrangementSource> _source;
    ArrangementWish _wish;
    SharedRecordIds _ids = std::make_shared<RecordIds>();
    /// Of the present filter.
    Found _found;
    /// All records in an order that they were sorted by.
    QList<RecordSort> _knownSorts;
    SharedRecordIds _known;
    /// Whether some of what is looked for is shown already.
    bool _hasTold = false;
    /// What was shown before the first of them; null if there are none.
    SharedRecordIds _before;
    /// Whether values have changed since the last arrangement.
    bool _isOutdated = false;
    bool _hasFailed = false;
    bool _isAscending = true;
    /// The same of what was shown before.
    bool _wasAscending = true;
    bool _isFilterSlow = false;
    bool _isSlow = false;
    QTimer _slowTimer;
    ArrangementWorker _worker;
};
