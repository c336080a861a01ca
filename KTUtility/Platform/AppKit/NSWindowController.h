#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

/// What a delegate is notified of about a window.
struct NSNotification
{
    /// The window that it is about.
    QWidget *window = nullptr;
};

/// Owns a window, which is made when it is first asked for, and is its delegate: it is notified
/// when the window becomes the one that gets the keyboard, and when it closes.
///
/// The window is given, or read from an interface file of Qt Designer, or made by a subclass in
/// loadWindow(). Parts of it are found by their object names. For the main thread.
///
/// \code
/// class EditorController : public NSWindowController
/// {
/// public:
///     EditorController() : NSWindowController(u"/path/Editor.ui"_s) {}
///
/// protected:
///     void windowDidLoad() override { outlet<QLineEdit>(u"name"_s)->setFocus(); }
/// };
/// EditorController editor;
/// editor.showWindow();
/// \endcode
class KTUTILITY_EXPORT NSWindowController : public QObject
{
    Q_OBJECT

public:
    /// A controller of a window, which it owns from now on; null for one that makes its own.
    explicit NSWindowController(QWidget *window = nullptr);
    /// A controller of the window that an interface file describes.
    explicit NSWindowController(const QString &interfaceFile);
    ~NSWindowController() override;

    /// The window; made now if it was not yet. Null if it cannot be made.
    QWidget *window();
    /// Whether there is a window already; asking does not make one.
    bool isWindowLoaded() const { return !_window.isNull(); }
    /// Replaces the window; the old one is destroyed.
    void setWindow(QWidget *window);
    /// Shows the window before the others, and gives it the keyboard.
    void showWindow();
    /// Closes the window as its close button does: the window may stay open.
    void close();

    /// A part of the window by its object name; null if there is none of that class.
    template<typename T>
    T *outlet(const QString &name)
    {
        QWidget *const inWindow = window();
        return inWindow ? inWindow->findChild<T *>(name) : nullptr;
    }

    /// The controller that is notified of a window's events; null if there is none.
    static NSWindowController *delegateOf(const QWidget *window);

    // --- What the window reports. What these raise is written to the console and goes no further.

    /// The window gets the keyboard now.
    virtual void windowDidBecomeKey(const NSNotification &notification);
    /// The window has agreed to close; it may have left the screen already.
    virtual void windowWillClose(const NSNotification &notification);

protected:
    /// Makes the window and hands it to setWindow(); here, from the interface file.
    virtual void loadWindow();
    /// The window was made by loadWindow().
    virtual void windowDidLoad();

    /// Whether the window is deciding whether to close.
    bool isClosing() const { return _isClosing; }
    /// Notes when the window gets the keyboard, and when it closes.
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void watchHandle();
    void letDecide(QObject *object, QEvent *event);

    QString _interfaceFile;
    QPointer<QWidget> _window;
    bool _isClosing = false;
};
