#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringList>

#include <optional>

/// Whose program it is that uses the framework.
///
/// One call, before anything else, names all that is kept for the program: its settings, its log,
/// its plug-ins, the components in its log menu. A program that does not call it is "Cobble", or
/// what its main bundle and QGuiApplication::setDesktopFileName() say (see NSHostIdentifier()).
///
/// All lies in one folder of the user's data, which moves to Qt's folder for tests while
/// QStandardPaths::setTestModeEnabled() is on:
///
/// | what | where |
/// |---|---|
/// | settings | `folder/Preferences/identifier.plist` |
/// | levels of the log | `folder/Preferences/identifier.ktlogger.plist` |
/// | the log | `folder/Logs/logFile` |
/// | plug-ins of the user | `folder/PlugIns/…` |
///
/// \code
/// int main(int argc, char *argv[])
/// {
///     KTApplication::setIdentity({.identifier = u"org.example.expenses"_s,
///                                 .folder = u"Expenses"_s,
///                                 .logFile = u"expenses.log"_s,
///                                 .plugInFolders = {u"/usr/lib/expenses/PlugIns"_s}});
///     QApplication application(argc, argv);
///     …
/// }
/// \endcode
class KTUTILITY_EXPORT KTApplication
{
public:
    KTApplication() = delete;

    /// What the log menu lists.
    enum class LogMenu {
        OwnComponents,           ///< the components of the program
        BuiltInAndOwnComponents, ///< those of KT_LOGGER_COMPONENTS, and behind them its own
    };

    /// What a program says of itself.
    struct Identity
    {
        /// Its reverse-DNS name, after which its settings are named.
        QString identifier = {};
        /// The name of its folder in the user's data; the last part of the identifier if empty.
        QString folder = {};
        /// The name of its log file; that of the folder in lower case with ".log" if empty.
        QString logFile = {};
        /// Where plug-ins are that are installed with it, as absolute paths: each holds a folder
        /// for each kind (KTPlugInManager::searchFolder()). Those of the user's come first, so that
        /// the program's win.
        QStringList plugInFolders = {};
        /// The components of the program in the log menu, in this order; all that KT_LOG_COMPONENT
        /// has declared if empty.
        QStringList logComponents = {};
        /// Whether the log menu lists the built-in components, too.
        LogMenu logMenu = LogMenu::OwnComponents;

        friend bool operator==(const Identity &, const Identity &) = default;
    };

    /// Says whose program it is, for the rest of the process. To be called once, before settings,
    /// log, paths or plug-ins are used, and before other threads begin; calling it again with the
    /// same changes nothing.
    /// \throws NSException NSInvalidArgumentException, with the reason, if the identifier is empty,
    /// if identifier, folder or log file cannot be the name of a file ("a/b"), if a folder of
    /// plug-ins is no absolute path or a component cannot be stored, if it is too late as something
    /// has been named already, or if the program is another one already. Nothing is changed then.
    static void setIdentity(const Identity &identity);

    /// Why setIdentity() would reject an identity, whenever it is called; nil if it would not.
    static QString reasonToReject(const Identity &identity);

    /// What the program has said of itself, with what was left empty filled in; nothing if it has
    /// said nothing.
    static std::optional<Identity> identity();
};
