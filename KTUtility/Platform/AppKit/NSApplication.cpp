#include "NSApplication.h"

#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QPointer>
#include <QWindow>

#include <deque>

using namespace KTPrivate;

namespace {
constexpr const char *SheetProperty = "_NSApplicationSheet";

/// A modal session, which ends with its window.
class ModalSession : public QObject
{
public:
    explicit ModalSession(QWidget *window);
    /// The session is over, also if an exception ends it.
    ~ModalSession() override;
    ModalSession(const ModalSession &) = delete;
    ModalSession &operator=(const ModalSession &) = delete;

    QWidget *window() const { return _window; }
    int run()
    {
        _loop.exec();
        return _code;
    }
    void stop(int code)
    {
        _code = code;
        _loop.quit();
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Hide)
            _loop.quit();
        return false;
    }

private:
    QPointer<QWidget> _window;
    QEventLoop _loop;
    int _code = 0;
};

QList<ModalSession *> &sessions()
{
    static QList<ModalSession *> list;
    return list;
}

struct Perform
{
    QPointer<QObject> receiver;
    std::function<void()> perform;
};

std::deque<Perform> &waiting()
{
    static std::deque<Perform> queue;
    return queue;
}

/// Calls what waited when this was scheduled. What is added meanwhile has an iteration of its own.
void flush()
{
    for (size_t count = waiting().size(); count > 0 && sessions().isEmpty(); --count) {
        if (waiting().empty())
            return;
        const Perform next = std::move(waiting().front());
        waiting().pop_front();
        if (next.receiver)
            guarded(u"a deferred call", next.perform);
    }
}

void scheduleFlush()
{
    if (QCoreApplication::instance())
        QMetaObject::invokeMethod(QCoreApplication::instance(), flush, Qt::QueuedConnection);
}

ModalSession::ModalSession(QWidget *window) : _window(window)
{
    window->installEventFilter(this);
    QObject::connect(window, &QObject::destroyed, &_loop, [this] { stop(0); });
    window->setWindowModality(Qt::ApplicationModal);
    sessions().append(this);
}

ModalSession::~ModalSession()
{
    sessions().removeOne(this);
    if (_window)
        _window->setWindowModality(Qt::NonModal);
    if (!waiting().empty())
        scheduleFlush();
}

/// A sheet has a tie while it is one: an object that goes with it, and ends it when the host goes.
void tieToHost(QWidget *sheet, const QWidget *host)
{
    auto *const tie = new QObject(sheet);
    sheet->setProperty(SheetProperty, QVariant::fromValue(tie));
    if (sheet != host)
        QObject::connect(host, &QObject::destroyed, tie, [sheet] {
            sheet->hide();
            NSApplication::endSheet(sheet);
        });
}

void untie(QWidget *sheet)
{
    const auto *const tie = sheet->property(SheetProperty).value<QObject *>();
    sheet->setProperty(SheetProperty, QVariant());
    delete tie;
}

/// Makes a sheet that is hidden a window like others.
void endHidden(QWidget *sheet)
{
    untie(sheet);
    sheet->setWindowModality(Qt::NonModal);
    QWindow *const handle = sheet->windowHandle();
    QWindow *const host = handle ? handle->transientParent() : nullptr;
    if (handle)
        handle->setTransientParent(nullptr);
    // The keyboard goes back, unless the user is with another program.
    if (host && QGuiApplication::applicationState() == Qt::ApplicationActive)
        host->requestActivate();
}

void present(QWidget *window)
{
    window->show();
    window->raise();
    window->activateWindow();
}
} // namespace

int NSApplication::runModalForWindow(QWidget *window)
{
    window->hide();
    ModalSession session(window);
    present(window);
    return session.run();
}

void NSApplication::stopModal(int code)
{
    if (!sessions().isEmpty())
        sessions().last()->stop(code);
}

QWidget *NSApplication::modalWindow()
{
    return sessions().isEmpty() ? nullptr : sessions().last()->window();
}

bool NSApplication::isModalSessionRunning()
{
    return !sessions().isEmpty();
}

void NSApplication::beginSheet(QWidget *sheet, QWidget *modalForWindow)
{
    QWidget *const host = modalForWindow->window();
    sheet->hide();
    untie(sheet);
    sheet->setWindowModality(Qt::WindowModal);
    tieToHost(sheet, host);
    // The host does not become the sheet's parent, which would own it.
    sheet->winId();
    host->winId();
    if (sheet != host)
        sheet->windowHandle()->setTransientParent(host->windowHandle());
    present(sheet);
}

void NSApplication::endSheet(QWidget *sheet)
{
    if (!isSheet(sheet))
        return;
    // Only a window that is hidden while it blocks others is taken from the list of those that do.
    const bool isShown = sheet->isVisible();
    sheet->hide();
    // Whoever noticed that may have ended it.
    if (!isSheet(sheet))
        return;
    endHidden(sheet);
    if (isShown)
        sheet->show();
}

bool NSApplication::isSheet(const QWidget *window)
{
    return window && window->property(SheetProperty).isValid();
}

void NSApplication::performOnNextTurn(QObject *receiver, std::function<void()> perform)
{
    waiting().push_back({receiver, std::move(perform)});
    scheduleFlush();
}
