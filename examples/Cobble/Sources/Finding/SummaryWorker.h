#pragma once

#include "FieldSummary.h"
#include "Library/RecordIds.h"

#include <KTUtility/KTDatabaseBundle>

#include <QThreadPool>

#include <atomic>

/// Sums up a field of many records in a thread of its own, on a connection of its own. Who asks for
/// something else meanwhile gets that alone.
///
/// \code
/// SummaryWorker worker;
/// QObject::connect(&worker, &SummaryWorker::done, this, &Label::show);
/// worker.start(bundle, {library, 2, ids});
/// \endcode
class SummaryWorker : public QObject
{
    Q_OBJECT

public:
    /// What is summed up.
    struct Request
    {
        Library library;
        qsizetype field = 0;
        /// Ascending.
        SharedRecordIds ids;
    };

    SummaryWorker();
    /// Waits until the thread has noticed that nobody wants its result.
    ~SummaryWorker() override;

    void start(const KTDatabaseBundle &bundle, const Request &request);
    void cancel();

    /// The same at once.
    /// \param goesOn is asked now and then whether to go on.
    static Outcome<FieldSummary> summary(LibraryStore &store, const Request &request,
                                         const std::function<bool()> &goesOn);

Q_SIGNALS:
    void done(const FieldSummary &summary);

private:
    using Flag = std::shared_ptr<std::atomic<bool>>;
    void work(const KTDatabaseBundle &bundle, const Request &request, const Flag &flag);

    /// Whether the result of the last one is wanted.
    Flag _isWanted;
    QThreadPool _pool;
};
