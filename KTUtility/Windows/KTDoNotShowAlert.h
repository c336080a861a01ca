#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/AppKit/NSAlert.h>
#include <KTUtility/Platform/Keys/NSSelector.h>

#include <QList>
#include <QString>

#include <functional>

/// A critical alert that the user can silence: it has a check box, and once that was ticked, the
/// alert is skipped and the caller notified at once that its default button was pressed.
///
/// What is silenced is kept in the user defaults, by suppression key. For the main thread.
///
/// Of an alert whose default button does something that cannot be undone, only that button should
/// silence it: else who ticks the box and keeps the record has the next one deleted unasked.
///
/// \code
/// const KTDoNotShowAlert::Alert alert{
///     .title = tr("Delete the record?"),
///     .defaultButton = tr("Delete"),
///     .alternateButton = tr("Keep"),
///     .window = window,
///     .msg = tr("This cannot be undone."),
///     .suppressionKey = u"deleteRecord"_s,
///     .silencedBy = KTDoNotShowAlert::SilencedBy::DefaultButton,
/// };
/// KTDoNotShowAlert::ask(alert, this, [this](NSAlertReturnCode code) {
///     if (code == NSAlertDefaultReturn)
///         deleteRecord();
/// });
/// \endcode
class KTUTILITY_EXPORT KTDoNotShowAlert
{
public:
    /// Which buttons silence an alert whose box is ticked.
    enum class SilencedBy {
        AnyButton,     ///< also closing the alert
        DefaultButton, ///< no other; ticked with these, the box is forgotten
    };

    /// What an alert is made of.
    struct Alert
    {
        /// The question, in bold letters.
        QString title = {};
        /// The button that Return presses; nil or empty is "OK".
        QString defaultButton = {};
        /// The button that Escape presses; nil or empty for none.
        QString alternateButton = {};
        /// A third button; nil or empty for none.
        QString otherButton = {};
        /// The window that the alert is a sheet of; null for none.
        QWidget *window = nullptr;
        /// Is notified of the end by didEndSelector; may be null.
        QObject *modalDelegate = nullptr;
        /// An invokable method of the delegate: the alert (NSAlert *, null if it was skipped), the
        /// return code (int), and contextInfo (void *).
        NSSelector didEndSelector = {};
        /// Handed on to the delegate as it is.
        void *contextInfo = nullptr;
        /// An object-format string without arguments: "%%" is a percent sign.
        QString msg = {};
        /// The name under which it is remembered that the user wants no such alert any more.
        QString suppressionKey = {};
        /// Which buttons silence it.
        SilencedBy silencedBy = SilencedBy::AnyButton;
    };

    KTDoNotShowAlert() = delete;

    /// What is told which button has ended an alert.
    using DidEnd = std::function<void(NSAlertReturnCode returnCode)>;

    /// Shows an alert, or if its key is suppressed, tells before it returns that its default button
    /// was pressed. What \a didEnd raises passes to the caller in the latter case; else it is
    /// written to the console and goes no further.
    /// \param alert its delegate, selector and context information are not looked at.
    /// \param context the object that \a didEnd belongs to: nothing is called any more once it is
    /// destroyed, or if it is null.
    static void ask(const Alert &alert, QObject *context, DidEnd didEnd);

    /// Shows an alert, or if its key is suppressed, notifies the delegate before it returns. If the
    /// delegate lacks the method, that is written to the console when the alert is shown.
    /// \throws NSException NSInternalInconsistencyException "methodSig is nil" (through the
    /// assertion handler) if it is suppressed and the delegate lacks the method.
    static void beginCriticalAlertSheet(const Alert &alert);

    /// Forgets all that is suppressed.
    static void clearDoNotShowList();
    /// Whether an alert is suppressed.
    static bool boolForSuppressionKey(const QString &key);
    static void setBoolForSuppressionKey(const QString &key, bool suppress);

    /// An alert that the user has silenced.
    struct Suppressed
    {
        /// The name under which it is suppressed.
        QString key;
        /// The title that it had then; nil if it was suppressed without being shown.
        QString title;

        friend bool operator==(const Suppressed &, const Suppressed &) = default;
    };
    /// The alerts that are suppressed, by key. To show one again, set its key to false.
    static QList<Suppressed> suppressedAlerts();

private:
    struct Context;
    static void show(const Alert &alert, const NSAlert::DidEnd &didEnd);
    static void alertDidEnd(NSAlert *alert, int returnCode, const Context &context);
    static void rememberSilence(const NSAlert &alert, int returnCode, const QString &key,
                                SilencedBy silencedBy);
};
