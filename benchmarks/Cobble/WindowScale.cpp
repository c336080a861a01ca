// Measures the host's window over libraries of several sizes:
//
//     CobbleWindowScale [RECORDS ...]
//
// prints a table for each size: how long each thing takes until it is shown, the longest time in
// which the window did not answer meanwhile, and the memory of the process. Each size has a process
// of its own.

#include "LargeLibrary.h"
#include "Window/DesktopApplication.h"
#include "Window/MainWindow.h"
#include "Window/MainWindowController.h"
#include "Window/RecordTableModel.h"
#include "Window/RecordTableView.h"

#include <KTUtility/KTLogger>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {
constexpr int Tick = 5;

double megabytesOf(const QByteArray &what)
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(what))
            return line.simplified().split(' ').value(1).toDouble() / 1024;
    }
    return 0;
}

/// Notices how long the event loop did not turn.
class Pauses
{
public:
    Pauses()
    {
        _timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&_timer, &QTimer::timeout, &_timer, [this] { tick(); });
    }
    void begin()
    {
        _longest = 0;
        _last.start();
        _timer.start(Tick);
    }
    void tick() { _longest = qMax(_longest, _last.restart()); }
    qint64 longest() const { return _longest; }

private:
    QTimer _timer;
    QElapsedTimer _last;
    qint64 _longest = 0;
};

/// The window, and what somebody does in it.
class Session
{
public:
    explicit Session(const KTDatabaseBundle &bundle) : _application(bundle, &_logger)
    {
        step(u"open"_s, [this] {
            _application.newWindow();
            _window = _application.windows().first();
        });
    }
    void run()
    {
        step(u"scroll to the end, 200 places"_s, [this] { scroll(200); });
        step(u"sort by text"_s, [this] { _window->model()->sort(0); });
        step(u"scroll, 200 places"_s, [this] { scroll(200); });
        step(u"sort by number"_s, [this] { _window->model()->sort(5); });
        step(u"sort by date, descending"_s,
             [this] { _window->model()->sort(7, Qt::DescendingOrder); });
        step(u"as stored"_s, [this] { _window->model()->sort(-1); });
        for (const QString &text : {u"a"_s, u"ad"_s, u"ada 123"_s, u"ada 1234"_s, u""_s})
            step(u"search “%1”"_s.arg(text), [this, text] { search(text); });
        step(u"select all"_s, [this] { _window->mainWindow()->table()->selectAll(); });
        step(u"sort, all selected"_s, [this] { _window->model()->sort(0); });
        step(u"search “bj”, all selected"_s, [this] { search(u"bj"_s); });
        step(u"search “”, some selected"_s, [this] { search(QString()); });
        step(u"arrow down, 100 times"_s, [this] {
            for (int row = 0; row < 100; ++row)
                _window->records()->setSelectionIndex(row);
        });
    }

private:
    void step(const QString &title, const std::function<void()> &action)
    {
        QElapsedTimer time;
        time.start();
        _pauses.begin();
        action();
        QCoreApplication::processEvents();
        while (_window->records()->isArranging())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::processEvents();
        _pauses.tick();
        const qint64 whole = time.elapsed();
        QTextStream(stdout) << u"| %1 | %2 | %3 | %4 | %5 |\n"_s.arg(title)
                                   .arg(whole)
                                   .arg(_pauses.longest())
                                   .arg(megabytesOf("VmRSS"), 0, 'f', 0)
                                   .arg(_window->records()->count());
    }
    void scroll(int places)
    {
        QScrollBar *const bar = _window->mainWindow()->table()->verticalScrollBar();
        for (int place = 1; place <= places; ++place) {
            bar->setValue(int(qint64(bar->maximum()) * place / places));
            QCoreApplication::processEvents();
        }
    }
    void search(const QString &text)
    {
        _window->mainWindow()->search()->setText(text);
        _window->search();
    }

    KTLogger _logger;
    Pauses _pauses;
    DesktopApplication _application;
    MainWindowController *_window = nullptr;
};

int measure(const QString &path)
{
    Session session{KTDatabaseBundle(path)};
    session.run();
    QTextStream(stdout) << u"greatest: %1 MB\n"_s.arg(megabytesOf("VmHWM"), 0, 'f', 0);
    return 0;
}

int measureInProcess(qint64 records)
{
    const QTemporaryDir folder;
    const KTDatabaseBundle bundle(folder.filePath(u"b.cobbledb"_s));
    if (const Outcome<> made = makeLargeLibrary(bundle, records); !made) {
        QTextStream(stderr) << made.reason() << Qt::endl;
        return 1;
    }
    QTextStream(stdout) << u"\n%1 records\n"_s.arg(records)
                        << u"| | ms | longest pause, ms | MB | shown |\n|---|---|---|---|---|"_s
                        << Qt::endl;
    return QProcess::execute(QCoreApplication::applicationFilePath(),
                             {u"--in"_s, bundle.bundlePath()});
}
} // namespace

int main(int count, char **arguments)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, arguments);
    const QStringList words = QCoreApplication::arguments().mid(1);
    if (words.value(0) == u"--in"_s)
        return measure(words.value(1));
    const QStringList sizes =
        words.isEmpty() ? QStringList{u"1000"_s, u"10000"_s, u"100000"_s, u"1000000"_s} : words;
    for (const QString &size : sizes) {
        if (const int result = measureInProcess(size.toLongLong()); result != 0)
            return result;
    }
    return 0;
}
