#include "PendingInput.h"

#include "Text/PrintableText.h"

#include <KTUtility/NSAlert>

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
/// So many letters of what was typed are named.
constexpr qsizetype MostLetters = 60;

QString shortened(const QString &text)
{
    const QString line = printableText(text);
    return line.size() <= MostLetters ? line : QString(line.left(MostLetters) + u'…');
}

bool leavesInput(int key)
{
    constexpr Qt::Key keys[] = {Qt::Key_Tab,     Qt::Key_Backtab, Qt::Key_Escape, Qt::Key_Shift,
                                Qt::Key_Control, Qt::Key_Alt,     Qt::Key_Meta,   Qt::Key_AltGr};
    return std::find(std::begin(keys), std::end(keys), key) == std::end(keys);
}

bool leavesRecord(const QEvent *event)
{
    if (event->type() == QEvent::KeyPress)
        return leavesInput(static_cast<const QKeyEvent *>(event)->key());
    return event->type() == QEvent::MouseButtonPress ||
           event->type() == QEvent::MouseButtonDblClick;
}

/// Sends an event once more, with the release that a press needs.
void repeat(QObject *object, QEvent *event)
{
    QCoreApplication::sendEvent(object, event);
    const auto *const press = dynamic_cast<const QMouseEvent *>(event);
    if (!press)
        return;
    QMouseEvent release(QEvent::MouseButtonRelease, press->position(), press->globalPosition(),
                        press->button(), Qt::NoButton, press->modifiers());
    QCoreApplication::sendEvent(object, &release);
}
} // namespace

PendingInput::PendingInput(QWidget *window, const QList<InputSource *> &sources)
    : _window(window), _sources(sources)
{
}

std::optional<RejectedInput> PendingInput::settle()
{
    for (InputSource *const source : std::as_const(_sources)) {
        if (auto rejected = source->settle())
            return rejected;
    }
    return {};
}

bool PendingInput::isSettled(const std::function<void()> &then)
{
    if (_isAsking)
        return false;
    const auto rejected = settle();
    if (rejected)
        ask(*rejected, then);
    return !rejected && !isSourceAsking([this, then] { leave(then); });
}

bool PendingInput::isSourceAsking(const std::function<void()> &then) const
{
    return std::any_of(_sources.begin(), _sources.end(),
                       [&then](InputSource *source) { return source->isAsking(then); });
}

bool PendingInput::leave(const std::function<void()> &go)
{
    const bool isSettledNow = isSettled(go);
    if (isSettledNow)
        go();
    return isSettledNow;
}

void PendingInput::ask(const RejectedInput &rejected, const std::function<void()> &go)
{
    _isAsking = true;
    const QString title = tr("“%1” cannot be stored as “%2”.")
                              .arg(shortened(rejected.text), shortened(rejected.field));
    auto *const alert = new NSAlert(title, tr("Keep Editing"), QString(), tr("Discard"),
                                    printableText(rejected.reason));
    alert->beginSheetModalForWindow(_window, this, [this, rejected, go](NSAlert *, int button) {
        _isAsking = false;
        if (button == NSAlertOtherReturn)
            discard(rejected, go);
        else if (rejected.input)
            rejected.input->setFocus(Qt::OtherFocusReason);
    });
}

void PendingInput::discard(const RejectedInput &rejected, const std::function<void()> &go)
{
    if (rejected.input)
        rejected.discard();
    leave(go);
}

void PendingInput::guard(QAbstractScrollArea *view)
{
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
}

bool PendingInput::eventFilter(QObject *object, QEvent *event)
{
    if (_isRepeating || !leavesRecord(event))
        return false;
    const std::shared_ptr<QEvent> again(event->clone());
    return !isSettled([this, to = QPointer<QObject>(object), again] {
        const QScopedValueRollback<bool> repeating(_isRepeating, true);
        if (to)
            repeat(to, again.get());
    });
}
