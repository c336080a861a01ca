#pragma once

#include "KTStatusHUDView.h"
#include "KTStatusHUDWindow.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/AppKit/NSAnimation.h>
#include <KTUtility/Platform/AppKit/NSTextField.h>
#include <KTUtility/Platform/AppKit/NSTimer.h>
#include <KTUtility/Platform/AppKit/NSWindowController.h>
#include <KTUtility/Platform/Files/NSBundle.h>

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

class NSViewAnimation;

/// Reports something that is done and needs no answer: a dark panel with one line of text fades in
/// over a window, stays for a while, and fades out. A click on it, or changing to another program,
/// takes it away at once.
///
/// One display is shown at a time: what is asked for meanwhile is not shown. Use it for results
/// ("247 records"), never for what the user must have read; for that, there is KTDoNotShowAlert.
///
/// Screen readers announce the text. Where the desktop asks for less motion, the panel appears and
/// disappears at once. Texts are shown on one line, and never taken for HTML. For the main thread.
///
/// The window comes from the interface file "StatusHUD.ui" among the framework's resources, which
/// is loaded for the first display. It has three outlets: "window" (a KTStatusHUDWindow), "content"
/// (a KTStatusHUDView) and "text" (an NSTextField).
///
/// \code
/// KTStatusHUDController *hud = KTStatusHUDController::defaultController();
/// hud->showStatusWindowWithString(u"247 records"_s, NSWindow::frame(window), false);
///
/// hud->setLargeText(true);    // for the next display only
/// hud->showStatusWindowWithString(u"1,204"_s, NSWindow::frame(window), false, 3);
/// \endcode
class KTUTILITY_EXPORT KTStatusHUDController : public QObject, public NSAnimationDelegate
{
    Q_OBJECT
    Q_PROPERTY(KTStatusHUDWindow *window READ window WRITE setWindow)
    Q_PROPERTY(KTStatusHUDView *content READ content WRITE setContent)
    Q_PROPERTY(NSTextField *text READ text WRITE setText)

public:
    /// The controller of the process, made on first use and never destroyed.
    static KTStatusHUDController *defaultController();

    KTStatusHUDController();
    /// Takes its window away.
    ~KTStatusHUDController() override;

    /// Shows a text for a second; see below.
    void showStatusWindowWithString(const QString &string, const QRectF &inParentRect,
                                    bool inModalRunLoop);

    /// Shows a text. Nothing happens while another one is shown or fades out.
    ///
    /// If the interface file cannot be loaded, this is logged as "could not load StatusHUD nib"
    /// (component "invalid", level 4), and nothing is shown.
    /// \param string nil shows nothing, but the controller counts as running from then on, so that
    /// nothing more is shown until setRunning(false) or a dismissal. This is kept on purpose.
    /// \param inParentRect the panel is centred over it; in the system's coordinates (y upwards,
    /// see NSWindow::frame()). The main screen stands in for rectangles that are not finite.
    /// \param inModalRunLoop true while a modal session runs: the panel fades in before this
    /// returns, and the time also passes in the session. With false it fades out after the
    /// session.
    /// \param forSeconds how long it stays; below 0 and not a number is 0.
    void showStatusWindowWithString(const QString &string, const QRectF &inParentRect,
                                    bool inModalRunLoop, double forSeconds);

    /// Fades the display out before its time. Without one, the fading runs all the same, unseen.
    void dismissStatusWindow();

    /// Whether something is shown and has not begun to fade out.
    bool isDisplayingWindow();
    /// Says that something is shown, or not. It shows and hides nothing.
    void setRunning(bool isRunning) { _isRunning = isRunning; }

    /// Whether the next display is as large as the screen allows. Each display takes it back.
    bool largeText() const { return _largeText; }
    void setLargeText(bool largeText) { _largeText = largeText; }

    /// Dismisses the display.
    Q_INVOKABLE void userClickedHUDOnEvent(QMouseEvent *event);
    /// Dismisses the display.
    void applicationWillResignActive(const NSNotification &notification);
    /// The interface file is loaded: makes the animations, and listens to the application.
    Q_INVOKABLE void awakeFromNib();

    // --- Outlets; null before the first display

    /// The window of the display.
    KTStatusHUDWindow *window() const { return _window; }
    /// The panel that the window shows.
    KTStatusHUDView *content() const { return _content; }
    /// The field that shows the text.
    NSTextField *text() const { return _text; }

protected:
    /// The screen that texts have to fit on, in the system's coordinates.
    virtual QRectF mainScreenFrame() const;
    /// The bundle whose resources hold "StatusHUD.ui": the framework's.
    virtual NSBundle interfaceBundle() const;
    /// Informs screen readers of the text that is shown from now on.
    virtual void announce(const QString &string);

    // --- Private category

    /// Makes the animation by which the panel appears.
    void setupFadeInAnimation();
    /// Makes the animation by which the panel disappears.
    void setupFadeOutAnimation();
    /// Starts the animation by which the panel appears.
    void fadeIn();
    /// Starts the animation by which the panel disappears; from now on it counts as gone.
    void fadeOut();
    bool animationShouldStart(NSAnimation *animation) override;
    void animationDidEnd(NSAnimation *animation) override;
    /// Centres the window over a rectangle.
    void setParentRect(const QRectF &rect);

private:
    void setWindow(KTStatusHUDWindow *window) { _window = window; }
    void setContent(KTStatusHUDView *content) { _content = content; }
    void setText(NSTextField *text) { _text = text; }

    bool loadInterface();
    void applicationStateChanged(Qt::ApplicationState state);
    std::unique_ptr<NSViewAnimation> fadeOfContent(bool isFadeIn, double duration);
    void setBlocking(bool isBlocking);
    void layOut(const QString &string);
    int layOutLargeText(qreal screenWidth);
    int layOutNormalText();
    void startFadeOutTimer(double seconds, NSRunLoopMode mode);

    // The window holds the other two.
    QPointer<KTStatusHUDWindow> _window;
    QPointer<KTStatusHUDView> _content;
    QPointer<NSTextField> _text;
    std::unique_ptr<NSViewAnimation> _fadeIn;
    std::unique_ptr<NSViewAnimation> _fadeOut;
    std::unique_ptr<NSTimer> _fadeOutTimer;
    bool _isRunning = false;
    bool _largeText = false;
    bool _isApplicationActive = false;
};
