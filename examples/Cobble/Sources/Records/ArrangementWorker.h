#pragma once

#include "RecordArranger.h"

#include <KTUtility/KTDatabaseBundle>

#include <QThreadPool>

#include <atomic>

/// Arranges records in a thread of its own, on a connection of its own. Who wishes for something
/// else meanwhile gets that alone.
///
/// \code
/// ArrangementWorker worker;
/// QObject::connect(&worker, &ArrangementWorker::done, this, &List::take);
/// worker.start(bundle, request);
/// \endcode
class ArrangementWorker : public QObject
{
    Q_OBJECT

public:
    ArrangementWorker();
    /// Waits until the thread has noticed that nobody wants its result.
    ~ArrangementWorker() override;

    void start(const KTDatabaseBundle &bundle, const ArrangementRequest &request);
    void cancel();
    /// Cancels, and waits until the thread uses nothing of its request any more.
    void stop();
    bool isWorking() const { return bool(_isWanted); }

Q_SIGNALS:
    /// Some more records that are to be shown; see RecordArranger::setTold().
    void told(const RecordIds &ids);
    void done(const Outcome<ArrangementResult> &arranged);

private:
    using Flag = std::shared_ptr<std::atomic<bool>>;
    void work(const KTDatabaseBundle &bundle, const ArrangementRequest &request, const Flag &flag);
    void finish(const Outcome<ArrangementResult> &arranged, const Flag &flag);

    /// Whether the result of the last one is wanted; null if there is none any more.
    Flag _isWanted;
    QThreadPool _pool;
};
