#include "WorkThread.h"

#include <QEventLoop>
#include <QTimer>

#include <exception>
#include <thread>

void WorkThread::run(const std::function<void()> &work, const std::function<void()> &look,
                     int interval)
{
    QEventLoop loop;
    std::exception_ptr thrown;
    std::thread thread([&] {
        try {
            work();
        } catch (...) {
            thrown = std::current_exception();
        }
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, look);
    timer.start(interval);
    look();
    loop.exec();
    thread.join();
    if (thrown)
        std::rethrow_exception(thrown);
}
