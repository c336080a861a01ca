#include "KTStatusHUDController.h"

#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/AppKit/NSFont.h>
#include <KTUtility/Platform/AppKit/NSImage.h>
#include <KTUtility/Platform/AppKit/NSNib.h>
#include <KTUtility/Platform/AppKit/NSScreen.h>
#include <KTUtility/Platform/AppKit/NSViewAnimation.h>
#include <KTUtility/Platform/AppKit/NSWindow.h>
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>

#include <QAccessible>
#include <QGuiApplication>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr double DefaultSeconds = 1;
constexpr double FadeInSeconds = 0.15;
constexpr double FadeOutSeconds = 0.25;

constexpr int NormalFontSize = 24;
constexpr int NormalHeight = 104;
/// What the window of a normal text is wider than the text.
constexpr qreal NormalMargin = 32;

constexpr int LargeFontSize = 166;
/// What the screen is wider than a large text.
constexpr qreal LargeMargin = 96;
/// What the window of a large text is higher than the text.
constexpr int LargePadding = 16;

QColor panelColor()
{
    return QColor::fromRgbF(0, 0, 0, 0.6F);
}

/// The size at which a text that is so wide in the largest one fits.
int fittingFontSize(qreal available, int widthInLargest)
{
    const qreal size = std::max(LargeFontSize * available / widthInLargest, 0.0);
    return size < LargeFontSize + 1 ? int(size) : LargeFontSize;
}
} // namespace

KTStatusHUDController *KTStatusHUDController::defaultController()
{
    static auto *const controller = new KTStatusHUDController;
    return controller;
}

KTStatusHUDController::KTStatusHUDController() = default;

KTStatusHUDController::~KTStatusHUDController()
{
    delete _window;
}

QRectF KTStatusHUDController::mainScreenFrame() const
{
    return NSScreen::mainScreenFrame();
}

NSBundle KTStatusHUDController::interfaceBundle() const
{
    return NSBundle::frameworkBundle();
}

// --- Loading ------------------------------------------------------------------------------------

bool KTStatusHUDController::loadInterface()
{
    if (_window && _content && _text)
        return true;
    delete _window;
    const QString file = interfaceBundle().pathForResource(u"StatusHUD"_s, u"ui"_s);
    std::unique_ptr<QWidget> root = NSNib::instantiate(file, this);
    if (!root || root.get() != _window || !_content || !_text) {
        KTLog(kLog_invalid, 4, u"could not load StatusHUD nib");
        // Also a file that lacks an outlet has said the opposite.
        _isRunning = true;
        return false;
    }
    root.release();
    _content->setBackgroundColor(Qt::transparent);
    return true;
}

void KTStatusHUDController::awakeFromNib()
{
    setupFadeInAnimation();
    setupFadeOutAnimation();
    _isRunning = false;
    _isApplicationActive = QGuiApplication::applicationState() == Qt::ApplicationActive;
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            &KTStatusHUDController::applicationStateChanged, Qt::UniqueConnection);
}

// --- Showing ------------------------------------------------------------------------------------

void KTStatusHUDController::showStatusWindowWithString(const QString &string,
                                                       const QRectF &inParentRect,
                                                       bool inModalRunLoop)
{
    showStatusWindowWithString(string, inParentRect, inModalRunLoop, DefaultSeconds);
}

void KTStatusHUDController::showStatusWindowWithString(const QString &string,
                                                       const QRectF &inParentRect,
                                                       bool inModalRunLoop, double forSeconds)
{
    if (_isRunning || _fadeOutTimer)
        return;
    _isRunning = true;
    // Nothing is shown for nil, and yet it runs: that is deliberate.
    if (string.isNull() || !loadInterface())
        return;
    // A fade-out that nobody sees would take this display away at its end.
    _fadeOut->stopAnimation();
    setBlocking(inModalRunLoop);
    layOut(string);
    setParentRect(inParentRect);
    _content->setBackgroundColor(panelColor());
    NSWindow::setLevel(_window, NSStatusWindowLevel);
    fadeIn();
    announce(string);
    NSWindow::orderFront(_window);
    startFadeOutTimer(forSeconds,
                      inModalRunLoop ? NSRunLoopMode::ModalPanel : NSRunLoopMode::Default);
    _largeText = false;
}

void KTStatusHUDController::setBlocking(bool isBlocking)
{
    const NSAnimationBlockingMode mode = isBlocking ? NSAnimationBlocking : NSAnimationNonblocking;
    _fadeIn->setAnimationBlockingMode(mode);
    _fadeOut->setAnimationBlockingMode(mode);
}

void KTStatusHUDController::layOut(const QString &string)
{
    const qreal screenWidth = mainScreenFrame().width();
    _text->setStringValue(string);
    _text->setLineBreakMode(Qt::ElideMiddle);
    const int height = _largeText ? layOutLargeText(screenWidth) : layOutNormalText();
    const qreal width = std::min(_text->stringWidth() + NormalMargin, screenWidth);
    NSWindow::setFrame(_window, {NSWindow::frame(_window).topLeft(), QSizeF(width, height)});
    _content->setGeometry(_window->rect());
    _text->sizeToFit();
    _text->setGeometry(_text->x(), (height - _text->height()) / 2, _window->width(),
                       _text->height());
}

/// Sets the font of a large text;
/// \return the height of the window.
int KTStatusHUDController::layOutLargeText(qreal screenWidth)
{
    _text->setFont(NSFont::systemFontOfSize(LargeFontSize));
    _text->sizeToFit();
    const int size = fittingFontSize(screenWidth - LargeMargin, _text->width());
    _text->setFont(NSFont::systemFontOfSize(size));
    _text->sizeToFit();
    return _text->height() + LargePadding;
}

/// Sets the font of a normal text;
/// \return the height of the window.
int KTStatusHUDController::layOutNormalText()
{
    _text->setFont(NSFont::systemFontOfSize(NormalFontSize));
    return NormalHeight;
}

void KTStatusHUDController::setParentRect(const QRectF &rect)
{
    if (!_window)
        return;
    const QRectF over = NSImage::isFinite(rect) ? rect : mainScreenFrame();
    const QSizeF size = _window->size();
    NSWindow::setFrame(_window, {QPointF(over.x() + over.width() * 0.5 - size.width() * 0.5,
                                         over.y() + over.height() * 0.5 - size.height() * 0.5),
                                 size});
}

void KTStatusHUDController::startFadeOutTimer(double seconds, NSRunLoopMode mode)
{
    if (_fadeOutTimer)
        _fadeOutTimer->invalidate();
    _fadeOutTimer = std::make_unique<NSTimer>(seconds, mode, [this] { fadeOut(); });
}

/// The window is a notification, whose name has to stand when it is shown. The alert is for systems
/// whose screen readers are notified of alerts; Qt passes none on to those of Linux.
void KTStatusHUDController::announce(const QString &string)
{
    _window->setAccessibleName(string);
    _text->setAccessibleName(string);
    QAccessibleEvent alert(_text, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

// --- Dismissing ---------------------------------------------------------------------------------

void KTStatusHUDController::dismissStatusWindow()
{
    if (_fadeOutTimer && _fadeOutTimer->isValid())
        _fadeOutTimer->fire();
    else
        fadeOut();
}

// Deliberate: what runs without a display, as after nil, counts as one.
bool KTStatusHUDController::isDisplayingWindow()
{
    if (_isRunning)
        return true;
    return _fadeOutTimer && _fadeOutTimer->isValid();
}

void KTStatusHUDController::userClickedHUDOnEvent(QMouseEvent * /*event*/)
{
    dismissStatusWindow();
}

void KTStatusHUDController::applicationWillResignActive(const NSNotification & /*notification*/)
{
    dismissStatusWindow();
}

void KTStatusHUDController::applicationStateChanged(Qt::ApplicationState state)
{
    const bool wasActive = std::exchange(_isApplicationActive, state == Qt::ApplicationActive);
    if (wasActive && !_isApplicationActive)
        guarded(u"applicationWillResignActive()", [this] { applicationWillResignActive({}); });
}

// --- Fading -------------------------------------------------------------------------------------

std::unique_ptr<NSViewAnimation> KTStatusHUDController::fadeOfContent(bool isFadeIn,
                                                                      double duration)
{
    auto fade = std::make_unique<NSViewAnimation>(
        _content, isFadeIn ? NSViewAnimationEffect::FadeIn : NSViewAnimationEffect::FadeOut,
        duration, NSAnimationEaseIn);
    fade->setDelegate(this);
    return fade;
}

void KTStatusHUDController::setupFadeInAnimation()
{
    _fadeIn = fadeOfContent(true, FadeInSeconds);
}

void KTStatusHUDController::setupFadeOutAnimation()
{
    _fadeOut = fadeOfContent(false, FadeOutSeconds);
}

void KTStatusHUDController::fadeIn()
{
    if (_fadeIn)
        _fadeIn->startAnimation();
}

void KTStatusHUDController::fadeOut()
{
    // Nobody is to wait for what cannot be seen.
    if (_window && !_window->isVisible())
        setBlocking(false);
    if (_fadeOut)
        _fadeOut->startAnimation();
    _isRunning = false;
}

bool KTStatusHUDController::animationShouldStart(NSAnimation *animation)
{
    return animation != _fadeIn.get() || !_fadeIn->isAnimating();
}

void KTStatusHUDController::animationDidEnd(NSAnimation *animation)
{
    if (animation != _fadeOut.get())
        return;
    if (_window)
        NSWindow::orderOut(_window);
    _fadeOutTimer.reset();
}
