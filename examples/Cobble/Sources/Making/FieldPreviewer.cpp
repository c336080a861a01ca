#include "FieldPreviewer.h"

#include "Text/Safely.h"

FieldPreviewer::FieldPreviewer(const KTDatabaseBundle &bundle) : _bundle(bundle)
{
    _pool.setMaxThreadCount(1);
}

FieldPreviewer::~FieldPreviewer()
{
    cancel();
    _pool.waitForDone();
}

void FieldPreviewer::cancel()
{
    if (_isWanted)
        *_isWanted = false;
    _isWanted.reset();
    _pool.clear();
}

void FieldPreviewer::look(const FieldPlan &plan)
{
    if (_parts != FieldScan::partsOf(plan))
        lookAgain(plan);
}

void FieldPreviewer::lookAgain(const FieldPlan &plan)
{
    cancel();
    _parts = FieldScan::partsOf(plan);
    _preview.reset();
    _reason = QString();
    if (_parts->isEmpty())
        take(FieldPreview());
    else
        start(plan);
}

void FieldPreviewer::start(const FieldPlan &plan)
{
    _isWanted = std::make_shared<std::atomic<bool>>(true);
    const auto scan = std::make_shared<const FieldScan>(plan);
    _pool.start([this, scan, flag = _isWanted] { work(*scan, flag); });
}

/// In the thread.
void FieldPreviewer::work(const FieldScan &scan, const Flag &flag)
{
    const auto store = LibraryStore::open(_bundle, LibraryStore::Mode::Existing);
    const Result result =
        store ? safely([&] { return scan.run(**store, [&flag] { return flag->load(); }); })
              : store.failure();
    const auto tell = [this, flag, result] {
        if (*flag)
            take(result);
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

void FieldPreviewer::take(const Result &result)
{
    _reason = result.reason();
    _preview = result ? std::optional(*result) : std::nullopt;
    Q_EMIT changed();
}
