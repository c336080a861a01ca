#include "ArrangementWorker.h"

#include "Text/Safely.h"

ArrangementWorker::ArrangementWorker()
{
    _pool.setMaxThreadCount(1);
}

ArrangementWorker::~ArrangementWorker()
{
    stop();
}

void ArrangementWorker::cancel()
{
    if (_isWanted)
        *_isWanted = false;
    _isWanted.reset();
    _pool.clear();
}

void ArrangementWorker::stop()
{
    cancel();
    _pool.waitForDone();
}

void ArrangementWorker::start(const KTDatabaseBundle &bundle, const ArrangementRequest &request)
{
    cancel();
    _isWanted = std::make_shared<std::atomic<bool>>(true);
    _pool.start([this, bundle, request, flag = _isWanted] { work(bundle, request, flag); });
}

/// In the thread.
void ArrangementWorker::work(const KTDatabaseBundle &bundle, const ArrangementRequest &request,
                             const Flag &flag)
{
    const auto pass = [this, &flag](const std::function<void()> &result) {
        QMetaObject::invokeMethod(
            this, [flag, result] { *flag ? result() : void(); }, Qt::QueuedConnection);
    };
    const auto store = LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    if (!store) {
        pass([this, failure = store.failure(), flag] { finish(failure, flag); });
        return;
    }
    RecordArranger arranger(**store, request);
    arranger.setGoesOn([&flag] { return flag->load(); });
    arranger.setTold([&](const RecordIds &ids) { pass([this, ids] { Q_EMIT told(ids); }); });
    const auto arranged = safely([&] { return arranger.arrange(); });
    pass([this, arranged, flag] { finish(arranged, flag); });
}

void ArrangementWorker::finish(const Outcome<ArrangementResult> &arranged, const Flag &flag)
{
    if (_isWanted == flag)
        _isWanted.reset();
    Q_EMIT done(arranged);
}
