#include "TransferSheet.h"

#include "Appearance/ListNames.h"
#include "Appearance/Sentence.h"
#include "Text/Safely.h"

#include <KTUtility/KTWindowController>
#include <KTUtility/NSApplication>

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QWindow>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// How wide a sheet is at most while it lets the window below be used.
constexpr int CompactWidth = 420;

/// What is seen of a sheet then.
bool staysWhenCompact(const QWidget *part)
{
    const QStringList names{u"fileLabel"_s, u"fileEdit"_s, u"progressBar"_s, u"cancelButton"_s};
    return names.contains(part->objectName());
}

bool isEscape(const QEvent *event)
{
    return event->type() == QEvent::KeyPress &&
           static_cast<const QKeyEvent *>(event)->key() == Qt::Key_Escape;
}
} // namespace

TransferSheet::TransferSheet(const QString &interfaceFile, OpenBundle *bundle)
    : KTDialogController(interfaceFile), _bundle(bundle)
{
}

void TransferSheet::windowDidLoad()
{
    KTDialogController::windowDidLoad();
    const auto connectButton = [this](const QString &name, void (TransferSheet::*slot)()) {
        QObject::connect(outlet<QPushButton>(name), &QPushButton::clicked, this, slot);
    };
    connectButton(u"goButton"_s, &TransferSheet::go);
    connectButton(u"cancelButton"_s, &TransferSheet::cancel);
    connectButton(u"chooseButton"_s, &TransferSheet::choose);
    ListNames::give(window());
}

void TransferSheet::configDialog()
{
    KTDialogController::configDialog();
    showProblem(QString());
    setWorking(false);
    outlet<QLineEdit>(u"fileEdit"_s)->setFocus();
}

QString TransferSheet::file()
{
    return outlet<QLineEdit>(u"fileEdit"_s)->text();
}

void TransferSheet::setFile(const QString &path)
{
    outlet<QLineEdit>(u"fileEdit"_s)->setText(path);
}

QString TransferSheet::problem()
{
    return outlet<QLabel>(u"problemLabel"_s)->text();
}

void TransferSheet::showProblem(const QString &problem)
{
    auto *const label = outlet<QLabel>(u"problemLabel"_s);
    const QString sentence = Sentence::of(problem);
    label->setText(sentence);
    label->setVisible(!sentence.isEmpty());
    outlet<QLineEdit>(u"fileEdit"_s)->setAccessibleDescription(sentence);
}

/// What could not be used before the work cannot be used after it, either.
void TransferSheet::setInputsEnabled(bool isEnabled)
{
    for (const QPointer<QWidget> &part : std::exchange(_disabled, {})) {
        if (part)
            part->setEnabled(true);
    }
    if (isEnabled)
        return;
    for (QWidget *const part : window()->findChildren<QWidget *>()) {
        const bool isInput = qobject_cast<QLineEdit *>(part) || qobject_cast<QComboBox *>(part) ||
                             qobject_cast<QAbstractButton *>(part);
        if (!isInput || !part->isEnabled() || part->objectName() == u"cancelButton")
            continue;
        part->setEnabled(false);
        _disabled += part;
    }
}

void TransferSheet::setWorking(bool isWorking)
{
    _isWorking = isWorking;
    _isCancelled = false;
    if (isWorking)
        _lastFocus = window()->focusWidget();
    auto *const bar = outlet<QProgressBar>(u"progressBar"_s);
    bar->setVisible(isWorking);
    bar->setRange(0, 0);
    setInputsEnabled(!isWorking);
    if (!isWorking)
        setCompact(false);
    // A widget that cannot be used for a while loses the keyboard.
    if (!isWorking && _lastFocus)
        _lastFocus->setFocus();
}

/// Does the work, in which code of plug-ins may fail.
Outcome<> TransferSheet::workSafely()
{
    return safely([this] { return work(); });
}

/// Does the work while the sheet shows it and other windows wait.
Outcome<> TransferSheet::workAlone()
{
    setWorking(true);
    _bundle->setBusy(true);
    // The first look is at once.
    _lastLook.invalidate();
    _sinceBegin.start();
    Outcome<> done = workSafely();
    _bundle->setBusy(false);
    const bool isReleased = !_hidden.isEmpty();
    setWorking(false);
    if (isReleased && !done)
        blockHostAgain();
    return done;
}

// --- The window below

void TransferSheet::setCompact(bool isCompact)
{
    for (const QPointer<QWidget> &part : std::exchange(_hidden, {})) {
        if (part)
            part->show();
    }
    if (!isCompact) {
        if (_fullSize.isValid())
            window()->resize(std::exchange(_fullSize, {}));
        return;
    }
    _fullSize = window()->size();
    for (QWidget *const part :
         window()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (part->isHidden() || staysWhenCompact(part))
            continue;
        part->hide();
        _hidden += part;
    }
    // As long as the layout has not looked again, the window cannot be smaller than it was.
    window()->layout()->activate();
    window()->resize(qMin(window()->width(), CompactWidth), window()->minimumSizeHint().height());
}

void TransferSheet::releaseHostIfLong()
{
    if (hostWindowController() && NSApplication::isSheet(window()) &&
        _sinceBegin.elapsed() > _releaseDelay)
        releaseHost();
}

void TransferSheet::releaseHost()
{
    const QScopedValueRollback moving(_isMoving, true);
    window()->hide();
    NSApplication::endSheet(window());
    setCompact(true);
    // It stays above the window, but does not block it.
    window()->windowHandle()->setTransientParent(hostWindowController()->window()->windowHandle());
    window()->show();
    // Not to the button that cancels: the user may still hold Return.
    window()->setFocus();
}

/// What went wrong has to be answered before the window below is used.
void TransferSheet::blockHostAgain()
{
    const QScopedValueRollback moving(_isMoving, true);
    if (KTWindowController *const host = hostWindowController())
        NSApplication::beginSheet(window(), host->window());
}

void TransferSheet::go()
{
    if (_isWorking)
        return;
    if (_bundle->isBusy()) {
        showProblem(tr("Another window is importing or exporting. Please wait until "
                       "it is done."));
        return;
    }
    showProblem(QString());
    if (const Outcome<> done = workAlone(); !done)
        showProblem(done.reason());
    else
        endDialog();
}

void TransferSheet::cancel()
{
    if (_isWorking)
        _isCancelled = true;
    else
        endDialog();
}

bool TransferSheet::goOn(qint64 done, qint64 total)
{
    if (_lastLook.isValid() && _lastLook.elapsed() < _lookInterval)
        return !_isCancelled;
    auto *const bar = outlet<QProgressBar>(u"progressBar"_s);
    bar->setRange(0, 1000);
    bar->setValue(total > 0 ? int(done * 1000 / total) : 0);
    QCoreApplication::processEvents();
    _lastLook.start();
    return !_isCancelled;
}

bool TransferSheet::eventFilter(QObject *object, QEvent *event)
{
    if (_isMoving && event->type() == QEvent::Hide)
        return false;
    const bool ends = isEscape(event) || event->type() == QEvent::Close;
    if (_isWorking && isWindowLoaded() && object == window() && ends) {
        _isCancelled = true;
        event->ignore();
        return true;
    }
    return KTDialogController::eventFilter(object, event);
}
