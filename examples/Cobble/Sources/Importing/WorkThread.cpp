#include "WorkThread.h"

#include <QEventLoop>
#include <QScopeGuard>
#include <QTimer>

#include <atomic>
#include <exception>
#include <system_error>
#include <thread>

namespace {
/// Work on its way.
class WorkOnItsWay
{
public:
    explicit WorkOnItsWay(const std::function<void()> &work) : _work(work) {}

    void run()
    {
        try {
            _work();
        } catch (...) {
            _thrown = std::current_exception();
        }
        _isOver = true;
        // Whoever waits for events gets one.
        QMetaObject::invokeMethod(
            &_loop, [] {}, Qt::QueuedConnection);
    }
    /// Where no thread can start, it is done here, and windows wait.
    std::thread start()
    {
        try {
            return std::thread([this] { run(); });
        } catch (const std::system_error &) {
            run();
            return {};
        }
    }
    /// Handles events until it is done. They may be handled elsewhere, too, also the last one.
    void wait()
    {
        while (!_isOver)
            _loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    void rethrow() const
    {
        if (_thrown)
            std::rethrow_exception(_thrown);
    }

private:
    const std::function<void()> &_work;
    QEventLoop _loop;
    std::atomic<bool> _isOver = false;
    std::exception_ptr _thrown;
};
} // namespace

void WorkThread::run(const std::function<void()> &work, const std::function<void()> &look,
                     int interval)
{
    WorkOnItsWay working(work);
    std::thread thread = working.start();
    const auto join = qScopeGuard([&thread] {
        if (thread.joinable())
            thread.join();
    });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, look);
    timer.start(interval);
    look();
    working.wait();
    working.rethrow();
}
