#pragma once

#include "Appearance/WindowLanguage.h"
#include "Forms/TextFieldKeys.h"
#include "Open/OpenBundle.h"

#include <KTUtility/KTStatusHUDController>

#include <QAction>

#include <memory>
#include <vector>

class HelpWindow;
class KTLogger;
class MainWindowController;

/// The application with its windows, which show one bundle.
///
/// \code
/// DesktopApplication application(bundle, KTLogger::sharedLogger());
/// application.newWindow();
/// QApplication::exec();    // until the last window is closed
/// \endcode
class DesktopApplication : public QObject
{
    Q_OBJECT

public:
    DesktopApplication(const KTDatabaseBundle &bundle, KTLogger *logger);
    ~DesktopApplication() override;

    OpenBundle *bundle() { return &_bundle; }
    KTLogger *logger() const { return _logger; }
    /// Where windows report what is done.
    KTStatusHUDController *hud() { return &_hud; }
    /// Shows a text over a window for a while.
    /// \param isLarge as large as the screen allows.
    void showStatus(const QString &text, QWidget *over, bool isLarge = false);
    QList<MainWindowController *> windows() const;

    /// Whether windows are as the user has left the last ones, which they are unless told otherwise.
    bool remembers() const { return _remembers; }
    void setRemembers(bool remembers) { _remembers = remembers; }
    /// The name of the library that a window begins with; nil if there is none.
    QString libraryToShow() const { return _libraryToShow; }

    /// Opens one more window, with the library that the current one shows.
    Q_INVOKABLE void newWindow(QAction *sender = nullptr);
    /// Lists the silenced alerts over the current window.
    Q_INVOKABLE void showSilencedAlerts(QAction *sender = nullptr);
    /// Opens the help.
    Q_INVOKABLE void showHelp(QAction *sender = nullptr);
    /// Lists the keys of the menu that was used.
    Q_INVOKABLE void showShortcuts(QAction *sender = nullptr);
    /// Closes all windows; the last one that closes ends the program.
    Q_INVOKABLE void terminate(QAction *sender = nullptr);
    /// Asks the dialog that has the keyboard, if one has. Nothing ends while an import is stored.
    Q_INVOKABLE bool validateMenuItem(QAction *item);

Q_SIGNALS:
    void lastWindowClosed();

private:
    void remove(MainWindowController *controller);
    void remember(MainWindowController *controller) const;
    QString rememberedLibrary() const;
    HelpWindow *help();

    // Before all that has texts.
    WindowLanguage _language;
    OpenBundle _bundle;
    KTLogger *_logger;
    KTStatusHUDController _hud;
    TextFieldKeys _textFieldKeys;
    std::vector<std::unique_ptr<MainWindowController>> _windows;
    std::unique_ptr<HelpWindow> _help;
    QString _libraryToShow;
    bool _remembers = true;
};
