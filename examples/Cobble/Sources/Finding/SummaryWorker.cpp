#include "SummaryWorker.h"

#include "Records/RecordScan.h"
#include "Text/Safely.h"

SummaryWorker::SummaryWorker()
{
    _pool.setMaxThreadCount(1);
}

SummaryWorker::~SummaryWorker()
{
    cancel();
    _pool.waitForDone();
}

void SummaryWorker::cancel()
{
    if (_isWanted)
        *_isWanted = false;
    _isWanted.reset();
    _pool.clear();
}

void SummaryWorker::start(const KTDatabaseBundle &bundle, const Request &request)
{
    cancel();
    _isWanted = std::make_shared<std::atomic<bool>>(true);
    _pool.start([this, bundle, request, flag = _isWanted] { work(bundle, request, flag); });
}

/// In the thread. What cannot be read has no summary.
void SummaryWorker::work(const KTDatabaseBundle &bundle, const Request &request, const Flag &flag)
{
    const auto store = LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    if (!store)
        return;
    const auto summed =
        safely([&] { return summary(**store, request, [&flag] { return flag->load(); }); });
    if (!summed)
        return;
    const auto tell = [this, flag, result = *summed] {
        if (*flag)
            Q_EMIT done(result);
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

Outcome<FieldSummary> SummaryWorker::summary(LibraryStore &store, const Request &request,
                                             const std::function<bool()> &goesOn)
{
    RecordScan scan(store, request.library, QList<qsizetype>{request.field});
    scan.setGoesOn(goesOn);
    FieldSummary summary;
    const Outcome<> done = scan.run(*request.ids, [&](const RecordCursor &record) {
        summary.add(record.value(request.field));
    });
    if (!done)
        return done.failure();
    return summary;
}
