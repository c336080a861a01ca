#include "NSAlert.h"

#include "NSApplication.h"
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Values/WhileAlive_p.h>

#include <QCheckBox>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
QMessageBox::Icon iconFor(NSAlertStyle style)
{
    switch (style) {
    case NSInformationalAlertStyle:
        return QMessageBox::Information;
    case NSCriticalAlertStyle:
        return QMessageBox::Critical;
    default:
        return QMessageBox::Warning;
    }
}

/// A title in which "&" is a letter like others.
QString buttonText(const QString &title)
{
    return QString(title).replace(u'&', u"&&"_s);
}

void addButtons(QMessageBox &box, const QString &defaultButton, const QString &alternateButton,
                const QString &otherButton)
{
    const QString first = defaultButton.isEmpty() ? NSAlert::tr("OK") : defaultButton;
    QPushButton *const main = box.addButton(buttonText(first), QMessageBox::AcceptRole);
    QPushButton *escape = main;
    if (!alternateButton.isEmpty())
        escape = box.addButton(buttonText(alternateButton), QMessageBox::RejectRole);
    if (!otherButton.isEmpty())
        box.addButton(buttonText(otherButton), QMessageBox::DestructiveRole);
    box.setDefaultButton(main);
    box.setEscapeButton(escape);
}

/// More than that does not fit on a screen, and takes long to break into lines.
constexpr qsizetype LongestShown = 1500;
constexpr qsizetype LongestDetail = 20000;

/// The beginning of a text that is too long to be shown.
QString beginningOf(const QString &text, qsizetype length)
{
    if (text.size() <= length)
        return text;
    const bool isWithinPair = text.at(length).isLowSurrogate();
    return QString(QStringView(text).first(length - isWithinPair) + QChar(0x2026));
}

/// The box makes its second label when it has a text, and guesses what kind of text it is.
void setInformativeText(QMessageBox &box, const QString &text)
{
    box.setInformativeText(beginningOf(text, LongestShown));
    // The rest, behind a button.
    if (text.size() > LongestShown)
        box.setDetailedText(beginningOf(text, LongestDetail));
    if (auto *const label = box.findChild<QLabel *>(u"qt_msgbox_informativelabel"_s))
        label->setTextFormat(Qt::PlainText);
}
} // namespace

NSAlert::NSAlert(const QString &messageText, const QString &defaultButton,
                 const QString &alternateButton, const QString &otherButton,
                 const QString &informativeText)
    : _box(std::make_unique<QMessageBox>())
    , _messageText(messageText)
    , _informativeText(informativeText)
{
    _box->setTextFormat(Qt::PlainText);
    _box->setText(beginningOf(messageText, LongestShown));
    setInformativeText(*_box, informativeText);
    addButtons(*_box, defaultButton, alternateButton, otherButton);
    setAlertStyle(NSWarningAlertStyle);
}

NSAlert::~NSAlert() = default;

void NSAlert::setAlertStyle(NSAlertStyle style)
{
    _box->setIcon(iconFor(style));
}

bool NSAlert::showsSuppressionButton() const
{
    return _box->checkBox() != nullptr;
}

void NSAlert::setShowsSuppressionButton(bool shows)
{
    if (shows != showsSuppressionButton())
        _box->setCheckBox(shows ? new QCheckBox(tr("Do not show this message again")) : nullptr);
}

QCheckBox *NSAlert::suppressionButton() const
{
    return _box->checkBox();
}

QWidget *NSAlert::window() const
{
    return _box.get();
}

/// By the button, whose number means nothing: closing the box has that of the first one.
int NSAlert::returnCode() const
{
    const QAbstractButton *const clicked =
        _box->clickedButton() ? _box->clickedButton() : _box->escapeButton();
    switch (clicked ? _box->buttonRole(const_cast<QAbstractButton *>(clicked))
                    : QMessageBox::AcceptRole) {
    case QMessageBox::RejectRole:
        return NSAlertAlternateReturn;
    case QMessageBox::DestructiveRole:
        return NSAlertOtherReturn;
    default:
        return NSAlertDefaultReturn;
    }
}

void NSAlert::beginSheetModalForWindow(QWidget *window, DidEnd didEnd)
{
    _didEnd = std::move(didEnd);
    QObject::connect(_box.get(), &QDialog::finished, this, &NSAlert::end);
    if (!window) {
        _box->show();
        return;
    }
    QObject::connect(window->window(), &QObject::destroyed, this, [this] { delete this; });
    NSApplication::beginSheet(_box.get(), window);
}

void NSAlert::beginSheetModalForWindow(QWidget *window, QObject *context, DidEnd didEnd)
{
    beginSheetModalForWindow(window, whileAlive(context, std::move(didEnd)));
}

void NSAlert::end()
{
    const QPointer<NSAlert> self(this);
    NSApplication::endSheet(_box.get());
    // The function may destroy the alert, and itself with it.
    const DidEnd didEnd = std::exchange(_didEnd, {});
    if (didEnd)
        guarded(u"the end of an alert", [&] { didEnd(this, returnCode()); });
    if (self)
        deleteLater();
}
