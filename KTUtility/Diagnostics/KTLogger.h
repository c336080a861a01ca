#pragma once

#include "KTLogComponent.h"
#include "KTLogFormat.h"
#include "KTLoggerComponents.h"
#include "KTLoggerKeys.h"
#include "LogLevels.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QByteArray>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <atomic>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

class KTLogCapture;
class QAction;
class QMenu;

namespace KTPrivate {
class LogFile;
struct LogSettings;
class StoredLevels;
} // namespace KTPrivate

/// Logs a message if its component is on at its level; otherwise evaluates nothing but the first
/// two arguments. This is how every call site logs. It is an expression and declares no names, so
/// that nothing of it can hide one of the caller's.
///
/// \param component one of the kLog_ constants, one that KT_LOG_COMPONENT declares, or any name.
/// \param level 1 to 7; 7 is the most detail. 4 is for ordinary traces, 7 for dumps.
/// \param format an object-format string as for NSString::stringWithFormat(), and its arguments. A
/// literal with other arguments than it takes does not compile (see KTLogFormat).
///
/// \code
/// KTLog(kLog_ImportDialog, 4, u"%@: %d rows", path, rows.size());
/// \endcode
#define KTLog(component, level, format, ...)                                                       \
    (KTLogger::mayLog((component), (level))                                                        \
         ? KTLogger::site().write(KTLogger::sourceFile(__FILE__), __LINE__,                        \
                                  (format)__VA_OPT__(, ) __VA_ARGS__)                              \
         : void())

/// The process-wide logger: a level for each component, changed at run time from a menu.
///
/// A component's level is 0 (off) or 1 to 7; a message is written if its level is at most that of
/// its component. Output goes to "cobble.log" (or what the program has told KTApplication) in the
/// user's Logs folder, a write call a line and without buffering, or to the console. Settings live in a property list in the user's Preferences
/// folder; each change is saved at once.
///
/// The first logger that has the log file open empties it; while one of another process is there,
/// lines are added behind its own. What the arguments of a message hold cannot look like a line of
/// its own: line breaks and control characters are escapes there ("\n", "\u001b"). An argument
/// whose description raises says so in the message.
///
/// The environment variable KTLOG sets levels for one run, "Import=4,Undo=7"; they are not saved,
/// and stand until the level of that component is set. What is no rule in it is written to the
/// console.
///
/// Settings belong to the main thread. Log calls may come from any thread, also while levels
/// change: a line is one write. A line that the disk does not take is lost; where half of it was
/// taken, the next one starts anew.
///
/// \code
/// KTLogger *logger = KTLogger::sharedLogger();
/// logger->populateComponentLoggingMenu(helpMenu->addMenu(tr("Logging"))->menuAction());
/// logger->setLevelOfComponent(4, kLog_ImportDialog);
/// KTLog(kLog_ImportDialog, 4, u"read %@", path);
/// // Sun Nov 15 2026 16:28:00.123 [Import.cpp:42][Import Dialog] read /tmp/contacts.csv
/// \endcode
class KTUTILITY_EXPORT KTLogger : public QObject
{
    Q_OBJECT

public:
    /// The logger of the process, made on first use: that is when the settings are read and the
    /// log file is emptied.
    static KTLogger *sharedLogger()
    {
        KTLogger *logger = _sharedLogger.load(std::memory_order_acquire);
        return logger ? logger : createSharedLogger();
    }

    /// Whether loggers that are made from now on leave the lines of the last session in the log
    /// file and add theirs; false unless set. For programs that only show something, before the
    /// first use of the shared logger.
    static void setKeepsLogFile(bool keeps) { _keepsLogFile = keeps; }

    // --- Qt's messages

    /// Whether messages of Qt's categories (qCDebug() and others) are handed to the shared logger;
    /// false unless set. Each category is a component of its name, "default" for those without; qDebug
    /// is logged at level 4, qInfo at 3, qWarning at 2, and what is worse at 1. What is off in the
    /// logger goes to Qt's message handler that was there before, as fatal messages always do; when
    /// this is off, that handler is back. To be called after KTApplication::setIdentity().
    ///
    /// \code
    /// KTLogger::setForwardsQtCategories(true);
    /// KTLogger::sharedLogger()->setLevelOfComponent(4, u"expenses.import"_s);
    /// qCDebug(expensesImport) << "read" << path;    // in the log, and not on the console
    /// \endcode
    static void setForwardsQtCategories(bool forwards);
    /// Whether Qt's messages go to the log.
    static bool forwardsQtCategories();

    /// The category of Qt that messages go to, in place of file and console; empty for none, which is
    /// so unless set. Levels up to 4 are informations there, others are for debugging; whether they
    /// show is decided by Qt's rules for the category. Captures come first.
    ///
    /// Both ways may be on: what comes from Qt is written to the log.
    static void setQtCategory(const QByteArray &category);
    /// The category of Qt that messages go to; empty for none.
    static QByteArray qtCategory();

    /// A logger of its own; for tests. It reads the settings and empties the log file,
    /// unless another logger writes into it or setKeepsLogFile() has kept it.
    KTLogger();
    /// Leaves the file to others.
    ~KTLogger() override;

    // --- Logging

    /// Whether a message would be written: the component has a level other than 0 and \a logLevel
    /// is at most that. This takes the same few instructions however many other components are on.
    bool shouldLogComponent(const QString &component, int logLevel) const
    {
        return _levels.isOn(component, logLevel);
    }

    /// Writes one message, if shouldLogComponent() allows it.
    /// \param file the path of the source file; its last component is shown.
    /// \param lineNumber the line in it.
    /// \param format an object-format string for \a arguments; "<null>" is written for nil.
    template<typename... Arguments>
    void logComponent(const QString &component, int logLevel, const char *file, int lineNumber,
                      QStringView format, const Arguments &...arguments)
    {
        if (shouldLogComponent(component, logLevel))
            writeMessage(component, logLevel, fileNameOf(file ? file : ""), lineNumber, format,
                         arguments...);
    }

    /// Writes one message, which shouldLogComponent() has been asked for: what KTLog() calls. Never
    /// inlined, so that a call site that is off is a comparison and no more.
    /// \param fileName what is shown of the path of the source file.
    template<typename... Arguments>
    [[gnu::noinline]] void writeMessage(const QString &component, int logLevel,
                                        std::string_view fileName, int lineNumber,
                                        QStringView format, const Arguments &...arguments)
    {
        if constexpr (sizeof...(Arguments) == 0) {
            logArguments(component, logLevel, fileName, lineNumber, format, {});
        } else {
            const NSFormatArgument collected[] = {NSFormatArgument(arguments)...};
            logArguments(component, logLevel, fileName, lineNumber, format, collected);
        }
    }

    /// The last component of a source path.
    static constexpr std::string_view fileNameOf(std::string_view path)
    {
        while (path.size() > 1 && path.ends_with('/'))
            path.remove_suffix(1);
        const size_t slash = path.rfind('/');
        const bool isWhole = slash == std::string_view::npos || path.size() == 1;
        return isWhole ? path : path.substr(slash + 1);
    }

    // --- What KTLog() is made of

    /// A call site that may log, between its question and its message.
    class Site
    {
    public:
        /// Writes the message of the site.
        template<typename... Arguments>
        void write(std::string_view fileName, int lineNumber,
                   KTLogFormat<sizeof...(Arguments)> format, const Arguments &...arguments) const
        {
            _logger->writeMessage(*_component, _level, fileName, lineNumber, format.text(),
                                  arguments...);
        }

    private:
        friend class KTLogger;
        KTLogger *_logger = nullptr;
        const QString *_component = nullptr;
        int _level = 0;
    };

    /// Whether the shared logger takes a message; if so, site() is the one that asked.
    static bool mayLog(const QString &component, int logLevel)
    {
        KTLogger *const logger = sharedLogger();
        return logger->shouldLogComponent(component, logLevel) &&
               logger->enterSite(component, logLevel);
    }
    /// The call site that mayLog() was true for just now, in this thread. It refers to the component
    /// that was given then.
    static Site site();
    /// The last component of the path of a source file, found by the compiler.
    static consteval std::string_view sourceFile(std::string_view path) { return fileNameOf(path); }

    // --- Configuration

    /// The path of the settings file: "Preferences/<host identifier>.ktlogger.plist" in the user's
    /// Library folder; nil if there is no Library folder.
    QString configFilePath() const;
    /// The folder of the log file: "Logs" in the user's Library folder, or in the temporary folder
    /// if there is no Library folder. It is made if nothing exists there.
    QString logFolder() const;
    /// Fills allComponentsArray() with what is declared now, behind the components that are there.
    void initializeAllComponentsArray();
    /// Reads settings. What is there replaces what was set; a file that is damaged or cannot be read
    /// counts as an empty one: components are off, and messages go to the log file. Without a file,
    /// components are off and the rest stays. If the file of the user cannot be read, it is read
    /// again before the next change.
    void loadConfigFile(const QString &path);
    /// Writes the settings and reads them back. A file that cannot be read is not written over; a
    /// damaged one is kept beside, as "<path>.damaged".
    /// \return false if they could not be written.
    /// \throws NSException NSInvalidArgumentException if no component was ever given a level:
    /// there are no components to write then. Set a level first.
    bool writeConfigFile();

    /// The names that have a menu entry, in menu order.
    const QStringList &allComponentsArray() const { return _allComponentsArray; }
    /// The level of a component, 0 unless set, captured, or in KTLOG.
    int levelOfComponent(const QString &component) const;
    /// Sets the level of any component, also one without a menu entry, and saves.
    /// \return false if it could not be saved; it is lost then, as the settings are read back.
    /// \throws NSException NSInvalidArgumentException for a name that the settings cannot hold (with
    /// control characters or lone surrogates).
    bool setLevelOfComponent(int level, const QString &component);
    /// The levels as loaded and set; nothing if none ever was.
    std::optional<QVariantMap> components() const;
    /// Whether messages go to the log file; if not, they go to the console.
    bool writeToFile() const { return _writeToFile; }
    /// Whether console lines carry file and line. Lines in the log file always do.
    bool displayFileLine() const { return _displayFileLine; }
    /// The settings file; nil if there is no Library folder.
    const QString &userFile() const { return _userFile; }

    // --- Menu

    /// Appends the logging menu to the submenu of \a item, which the host supplies.
    void populateComponentLoggingMenu(QAction *item);
    /// A menu of the eight levels for the component whose position is base / 10.
    std::unique_ptr<QMenu> createLogLevelSubmenuWithBase(int base);
    /// Sets the check mark of an item of the logging menu. Every item stays enabled.
    Q_INVOKABLE bool validateMenuItem(QAction *item);

    // The actions of the menu. Each saves, and so needs that a level was set; see
    // writeConfigFile().

    /// Sends messages to the console from now on.
    Q_INVOKABLE void setOutputToConsole(QAction *sender);
    /// Sends messages to the log file from now on.
    Q_INVOKABLE void setOutputToFile(QAction *sender);
    /// Switches file and line on console lines on or off.
    Q_INVOKABLE void setDisplayFileLine(QAction *sender);
    /// Switches off every component that has a menu entry.
    Q_INVOKABLE void clearAllLoggingState(QAction *sender);
    /// Sets the component at position tag / 10 to the level tag modulo 10, by the sender's tag.
    /// \throws NSException NSRangeException if there is no such position, as for tags below 0.
    Q_INVOKABLE void setComponentLogLevel(QAction *sender);

private:
    friend class KTLogCapture;

    static KTLogger *createSharedLogger();
    bool enterSite(const QString &component, int logLevel);
    void logArguments(const QString &component, int logLevel, std::string_view fileName,
                      int lineNumber, QStringView format,
                      std::span<const NSFormatArgument> arguments);
    void setComponents(const std::optional<QVariantMap> &components);
    void updateLevels();
    KTPrivate::LogSettings settings() const;
    void readMissedSettings();
    const QString &componentAt(int position) const;

    static std::atomic<KTLogger *> _sharedLogger;
    static inline std::atomic<bool> _keepsLogFile = false;

    std::unique_ptr<const KTPrivate::StoredLevels> _components; // null: no level was ever set
    // What KTLOG says, of components that nobody has set since.
    QVariantMap _environmentLevels;
    std::unique_ptr<KTPrivate::LogFile> _logFile;
    std::atomic<bool> _writeToFile = true;
    std::atomic<bool> _displayFileLine = false;
    QString _userFile;
    // Whether the system did not let it be read, so that nobody knows what it holds.
    bool _isUserFileUnread = false;
    QStringList _allComponentsArray;

    // Taken from _components, and what captures add, for the test at each call site.
    KTPrivate::LogLevels _levels;
    std::atomic<KTLogCapture *> _capture = nullptr;
};
