#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QObject>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

class QCheckBox;
class QMessageBox;

/// What ended an alert: the place of the button, whatever its title is.
enum NSAlertReturnCode {
    NSAlertDefaultReturn = 1,   ///< the default button
    NSAlertAlternateReturn = 0, ///< the alternate button, Escape, or the alert was closed
    NSAlertOtherReturn = -1,    ///< the third button
};

/// How grave an alert is, which shows in its icon.
enum NSAlertStyle {
    NSWarningAlertStyle = 0,       ///< something to think about
    NSInformationalAlertStyle = 1, ///< something to know
    NSCriticalAlertStyle = 2,      ///< something that may be lost
};

/// A question or message over a window, with up to three buttons and, if wanted, a check box by
/// which the user need not see it again. All texts are shown as they are, never as HTML.
///
/// Of texts that are too long for a screen the beginning is shown, the rest on demand.
///
/// Return presses the default button, Escape the alternate one, or the only one there is; closing
/// the alert is like Escape.
///
/// \code
/// auto *alert = new NSAlert(u"Delete the record?"_s, u"Delete"_s,
///                           u"Keep"_s, QString(),
///                           u"This cannot be undone."_s);
/// alert->setShowsSuppressionButton(true);
/// alert->beginSheetModalForWindow(window, this, [this](NSAlert *alert, int returnCode) { … });
/// \endcode
class KTUTILITY_EXPORT NSAlert : public QObject
{
    Q_OBJECT

public:
    /// \param defaultButton nil or empty is "OK".
    /// \param alternateButton,otherButton nil or empty for none.
    NSAlert(const QString &messageText, const QString &defaultButton,
            const QString &alternateButton, const QString &otherButton,
            const QString &informativeText);
    ~NSAlert() override;

    /// The question, in bold letters.
    const QString &messageText() const { return _messageText; }
    /// What explains the question; nil for nothing.
    const QString &informativeText() const { return _informativeText; }
    /// Shows the icon of a style; without a style there is none.
    void setAlertStyle(NSAlertStyle style);
    /// Whether there is a check box "Do not show this message again".
    bool showsSuppressionButton() const;
    void setShowsSuppressionButton(bool shows);
    /// The check box; null if there is none.
    QCheckBox *suppressionButton() const;
    /// The window of the alert.
    QWidget *window() const;

    /// What is called with the alert and the button that ended it.
    using DidEnd = std::function<void(NSAlert *alert, int returnCode)>;

    /// Shows the alert over a window, which it blocks, and returns at once. When it has ended, \a
    /// didEnd is called, and then the alert destroys itself. Without a window it is on its own.
    /// If the window is destroyed, the alert is destroyed with it, and nobody is called.
    /// What \a didEnd raises is written to the console and goes no further.
    void beginSheetModalForWindow(QWidget *window, DidEnd didEnd);
    /// The same for a function that is not called any more once \a context is destroyed.
    void beginSheetModalForWindow(QWidget *window, QObject *context, DidEnd didEnd);

private:
    void end();
    int returnCode() const;

    std::unique_ptr<QMessageBox> _box;
    QString _messageText;
    QString _informativeText;
    DidEnd _didEnd;
};
