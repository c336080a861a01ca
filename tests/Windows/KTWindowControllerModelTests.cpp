// Random sequences of what may happen to a queue of dialogs, beside a model of it.

#include <KTUtility/KTAlertPanelDialogController>
#include <KTUtility/KTWindowController>
#include <KTUtility/KTWindowManager>

#include "support/Properties.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QDialog>

#include <array>
#include <deque>

using namespace testing_support;

namespace {
constexpr size_t Dialogs = 4;

/// How the dialogs of the test differ.
enum class Kind { Sheet, PlainWindow, EndsInConfiguration, Alert };
constexpr std::array<Kind, Dialogs> Kinds = {Kind::Sheet, Kind::PlainWindow,
                                             Kind::EndsInConfiguration, Kind::Alert};

class CountingDialog : public KTDialogController
{
public:
    explicit CountingDialog(Kind kind) : KTDialogController(new QDialog), _kind(kind)
    {
        setRunAsModal(kind != Kind::PlainWindow);
        setRunAsSheet(kind != Kind::PlainWindow);
    }

    void configDialog() override
    {
        KTDialogController::configDialog();
        if (_kind == Kind::EndsInConfiguration)
            endDialog();
    }
    void runDialog() override
    {
        ++runs;
        KTDialogController::runDialog();
    }

    int runs = 0;

private:
    Kind _kind;
};

/// The queue as its rules have it.
class Model
{
public:
    void add(size_t dialog) { queue.push_back(dialog); }
    void run()
    {
        continues = true;
        isClosed = isPutOff = false;
        runNext();
    }
    void open()
    {
        isClosed = false;
        _ends += isPutOff ? 1 : 0;
        isPutOff = false;
    }
    void end(size_t dialog)
    {
        if (isRunning.at(dialog))
            ++_ends;
        isRunning.at(dialog) = false;
    }
    void turn()
    {
        while (_ends > 0) {
            --_ends;
            if (isClosed)
                isPutOff = true;
            else if (continues)
                runNext();
        }
    }

    std::deque<size_t> queue;
    std::array<bool, Dialogs> isRunning = {};
    std::array<int, Dialogs> runs = {};
    bool continues = false;
    /// Whether the user has closed the host's window, and a dialog has ended since.
    bool isClosed = false;
    bool isPutOff = false;

private:
    void runNext()
    {
        if (queue.empty()) {
            continues = false;
            return;
        }
        const size_t dialog = queue.front();
        queue.pop_front();
        isRunning.at(dialog) = true;
        if (Kinds.at(dialog) == Kind::EndsInConfiguration)
            end(dialog);
        else
            ++runs.at(dialog);
    }

    int _ends = 0;
};

class Alert : public KTAlertPanelDialogController
{
public:
    void runDialog() override
    {
        ++runs;
        KTAlertPanelDialogController::runDialog();
    }

    int runs = 0;
};

/// The host with its dialogs, and the model, which get the same calls.
class Scene
{
public:
    Scene() { _host.showWindow(); }
    ~Scene();
    void takeAnyStep();
    void requireAgreement() const;

private:
    KTDialogController *dialog(size_t index);
    const KTDialogController *dialog(size_t index) const
    {
        return const_cast<Scene *>(this)->dialog(index);
    }
    void turn();
    void endSomehow(size_t index);

    Model _model;
    KTWindowController _host{new QWidget};
    CountingDialog _sheet{Kind::Sheet};
    CountingDialog _plain{Kind::PlainWindow};
    CountingDialog _hasty{Kind::EndsInConfiguration};
    Alert _alert;
};

Scene::~Scene()
{
    for (size_t index = 0; index < Dialogs; ++index)
        dialog(index)->endDialog();
    _host.close();
    turn();
    for (KTWindowController *const each :
         {static_cast<KTWindowController *>(&_host), static_cast<KTWindowController *>(&_plain)})
        KTWindowManager::sharedWindowManager()->windowControllerBecameVisible(each, false);
}

KTDialogController *Scene::dialog(size_t index)
{
    const std::array<KTDialogController *, Dialogs> all = {&_sheet, &_plain, &_hasty, &_alert};
    return all.at(index);
}

/// Dialogs that end at once take an event loop iteration each.
void Scene::turn()
{
    for (int round = 0; round < 40; ++round)
        QCoreApplication::processEvents();
}

void Scene::endSomehow(size_t index)
{
    QWidget *const window = dialog(index)->isWindowLoaded() ? dialog(index)->window() : nullptr;
    const bool isShown = window && window->isVisible();
    switch (isShown ? someNumber(0, 2) : 0) {
    case 1:
        window->close();
        break;
    case 2:
        window->hide();
        break;
    default:
        dialog(index)->endDialog();
    }
}

void Scene::takeAnyStep()
{
    const auto index = size_t(someNumber(0, int(Dialogs) - 1));
    switch (someNumber(0, 9)) {
    case 0:
    case 1:
    case 2:
        _host.addDialogControllerToQueue(dialog(index));
        return _model.add(index);
    case 3:
    case 4:
        _host.runDialogQueue();
        return _model.run();
    case 5:
    case 6:
        endSomehow(index);
        return _model.end(index);
    case 7:
        if (someNumber(0, 2) == 0) {
            // Nobody closes what nobody sees.
            if (!_host.window()->isVisible())
                return;
            _host.close();
            _model.isClosed = true;
        } else {
            _host.showWindow();
            _model.open();
        }
        return;
    default:
        turn();
        return _model.turn();
    }
}

void Scene::requireAgreement() const
{
    const QList<KTDialogController *> queue = _host.dialogQueue();
    RC_ASSERT(size_t(queue.size()) == _model.queue.size());
    for (size_t position = 0; position < _model.queue.size(); ++position)
        RC_ASSERT((queue.at(qsizetype(position)) == dialog(_model.queue[position])));
    RC_ASSERT(_host.continueRunningQueue() == _model.continues);
    for (size_t index = 0; index < Dialogs; ++index) {
        const KTDialogController *const each = dialog(index);
        RC_ASSERT(each->isRunningAsDialog() == _model.isRunning.at(index));
        RC_ASSERT((each->hostWindowController() == &_host) == _model.isRunning.at(index));
    }
    RC_ASSERT(_sheet.runs == _model.runs[0]);
    RC_ASSERT(_plain.runs == _model.runs[1]);
    RC_ASSERT(_hasty.runs == _model.runs[2]);
    RC_ASSERT(_alert.runs == _model.runs[3]);
}
} // namespace

TEST(KTWindowControllerModel, AnySequenceIsThatOfTheModel)
{
    needApplication();
    QApplication::setQuitOnLastWindowClosed(false);
    checkProperty("random steps of a queue of dialogs", 300, [] {
        Scene scene;
        for (int step = someNumber(1, 30); step > 0; --step) {
            scene.takeAnyStep();
            scene.requireAgreement();
        }
    });
}
