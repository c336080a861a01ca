#include "KTLogger.h"

#include "KTLogCapture.h"
#include "KTLogLine_p.h"
#include "LogComponents_p.h"
#include "LogConsole_p.h"
#include "LogFile_p.h"
#include "LogRules_p.h"
#include "LogSettingsFile_p.h"
#include "LoggerMenu_p.h"
#include "PackedLevels_p.h"
#include "QtMessages_p.h"
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Files/NSFileManager.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>
#include <KTUtility/Platform/Files/NSSearchPath.h>
#include <KTUtility/Platform/Files/ProgramIdentity_p.h>
#include <KTUtility/Platform/Text/UnitBuffer_p.h>
#include <KTUtility/Platform/Text/VisibleText_p.h>
#include <KTUtility/Platform/Values/NSException.h>

#include <QAction>
#include <QMenu>

#include <exception>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

std::atomic<KTLogger *> KTLogger::_sharedLogger = nullptr;

namespace {
/// The user's Library folder; nil if there is none.
QString libraryFolder()
{
    const QStringList folders =
        NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, NSUserDomainMask, true);
    return folders.isEmpty() ? QString() : folders.first();
}
} // namespace

KTLogger *KTLogger::createSharedLogger()
{
    // Never destroyed: objects that log while the process ends must still find it.
    static KTLogger *const logger = new KTLogger;
    _sharedLogger.store(logger, std::memory_order_release);
    return logger;
}

KTLogger::KTLogger()
{
    initializeAllComponentsArray();
    const QString logFileName = ProgramIdentity::logFileName();
    const QString logFile = NSString::stringByAppendingPathComponent(logFolder(), logFileName);
    _logFile = std::make_unique<LogFile>(logFile, _keepsLogFile ? LogFile::Start::Kept
                                                                : LogFile::Start::Emptied);
    _environmentLevels = LogRules::levelsOfEnvironment();
    _userFile = configFilePath();
    loadConfigFile(_userFile);
}

KTLogger::~KTLogger() = default;

// --- Configuration ------------------------------------------------------------------------------

QString KTLogger::configFilePath() const
{
    const QString library = libraryFolder();
    if (library.isNull())
        return {};
    return NSString::stringWithFormat(u"%@/Preferences/%@.ktlogger.plist", library,
                                      NSHostIdentifier());
}

QString KTLogger::logFolder() const
{
    const QString library = libraryFolder();
    const QString folder =
        NSString::stringWithFormat(u"%@/Logs", library.isNull() ? NSTemporaryDirectory() : library);
    if (!NSFileManager::fileExistsAtPath(folder))
        NSFileManager::createDirectoryAtPath(folder, true);
    return folder;
}

void KTLogger::initializeAllComponentsArray()
{
    _allComponentsArray = LogComponents::inMenu();
}

/// Takes over the components and what the test at call sites needs of them.
void KTLogger::setComponents(const std::optional<QVariantMap> &components)
{
    _components = components ? std::make_unique<const StoredLevels>(*components) : nullptr;
    updateLevels();
}

std::optional<QVariantMap> KTLogger::components() const
{
    return _components ? std::optional(_components->levels()) : std::nullopt;
}

void KTLogger::updateLevels()
{
    QVariantMap components = this->components().value_or(QVariantMap());
    components.insert(_environmentLevels);
    if (const KTLogCapture *const capture = _capture)
        capture->addLevels(&components);
    LogLevels::Levels levels;
    for (auto entry = components.begin(); entry != components.end(); ++entry) {
        if (const int level = LogSettingsFile::levelFrom(entry.value()))
            levels.emplace_back(entry.key(), level);
    }
    _levels.set(levels);
}

void KTLogger::loadConfigFile(const QString &path)
{
    using LogSettingsFile::Result;
    LogSettings read;
    const Result result = LogSettingsFile::read(path, &read);
    _isUserFileUnread = result == Result::Unreadable && path == _userFile;
    if (result != Result::NoFile) {
        _writeToFile = read.writeToFile;
        _displayFileLine = read.displayFileLine;
    }
    // Once: a component that stays on is on for other threads all the time.
    setComponents(read.components);
}

LogSettings KTLogger::settings() const
{
    return {_writeToFile, _displayFileLine, components()};
}

/// To be called before a change: to write the rest of the settings as they are would lose those of
/// the file.
void KTLogger::readMissedSettings()
{
    if (_isUserFileUnread)
        loadConfigFile(_userFile);
}

bool KTLogger::writeConfigFile()
{
    // To write over what was never read would lose it.
    const QString file = _isUserFileUnread ? QString() : _userFile;
    const bool isWritten = LogSettingsFile::write(settings(), file);
    loadConfigFile(_userFile);
    return isWritten;
}

bool KTLogger::setLevelOfComponent(int level, const QString &component)
{
    if (!LogSettingsFile::canHoldName(component))
        NSException::raise(
            NSInvalidArgumentException,
            NSString::stringWithFormat(u"\"%@\" cannot be a component", visibleText(component)));
    readMissedSettings();
    _environmentLevels.remove(component);
    QVariantMap components = this->components().value_or(QVariantMap());
    components.insert(component, level);
    setComponents(components);
    return writeConfigFile();
}

// --- Logging ------------------------------------------------------------------------------------

int KTLogger::levelOfComponent(const QString &component) const
{
    return _levels.levelOf(component);
}

namespace {
/// The call site of this thread that was told last that it may log.
KTLogger::Site &currentSite()
{
    thread_local KTLogger::Site site;
    return site;
}

void appendMessage(UnitBuffer &text, QStringView format,
                   std::span<const NSFormatArgument> arguments)
{
    if (format.isNull()) {
        text.append(QLatin1String("<null>"));
        return;
    }
    // To log must not change what happens: a description may raise.
    try {
        NSString::appendFormatArguments(text, format, arguments, ArgumentText::Visible);
    } catch (const std::exception &failure) {
        text.append(u"<description raised ");
        text.append(visibleText(QString::fromUtf8(failure.what())));
        text.append(u'>');
    }
}
} // namespace

bool KTLogger::enterSite(const QString &component, int logLevel)
{
    Site &site = currentSite();
    site._logger = this;
    site._component = &component;
    site._level = logLevel;
    return true;
}

KTLogger::Site KTLogger::site()
{
    return currentSite();
}

void KTLogger::logArguments(const QString &component, int logLevel, std::string_view fileName,
                            int lineNumber, QStringView format,
                            std::span<const NSFormatArgument> arguments)
{
    // The state is taken while it is in use: describing an argument may log, too.
    std::unique_ptr<KTLogLine::State> state = KTLogLine::takeState();
    state->message.clear();
    appendMessage(state->message, format, arguments);
    const QStringView message = state->message.view();
    if (KTLogCapture *const capture = _capture)
        capture->add(component, logLevel, fileName, lineNumber, message);
    else if (const bool isQts =
                 QtMessages::take(component, logLevel, fileName, lineNumber, message);
             !isQts && _writeToFile)
        // Deliberate: lines in the file always carry file and line, whatever _displayFileLine says.
        _logFile->writeLine(KTLogLine::line(*state, component, fileName, lineNumber, message));
    else if (!isQts)
        writeToConsole(_displayFileLine ? ConsoleLine::WithFileAndLine : ConsoleLine::Plain,
                       component, fileName, lineNumber, message);
    KTLogLine::keepState(std::move(state));
}

// --- Qt's messages ------------------------------------------------------------------------------

void KTLogger::setForwardsQtCategories(bool forwards)
{
    QtMessages::setHandedToLogger(forwards);
}

bool KTLogger::forwardsQtCategories()
{
    return QtMessages::areHandedToLogger();
}

void KTLogger::setQtCategory(const QByteArray &category)
{
    QtMessages::setCategory(category);
}

QByteArray KTLogger::qtCategory()
{
    return QtMessages::category();
}

// --- Menu ---------------------------------------------------------------------------------------

void KTLogger::populateComponentLoggingMenu(QAction *item)
{
    initializeAllComponentsArray();
    if (QMenu *const menu = item ? item->menu() : nullptr)
        LoggerMenu::populate(*menu, _allComponentsArray, this);
}

std::unique_ptr<QMenu> KTLogger::createLogLevelSubmenuWithBase(int base)
{
    return LoggerMenu::createLevels(base, this);
}

const QString &KTLogger::componentAt(int position) const
{
    if (position < 0 || position >= _allComponentsArray.size())
        NSException::raise(NSRangeException,
                           NSString::stringWithFormat(u"index (%d) beyond bounds (%d)", position,
                                                      _allComponentsArray.size()));
    return _allComponentsArray.at(position);
}

bool KTLogger::validateMenuItem(QAction *item)
{
    switch (LoggerMenu::entryOf(item)) {
    case LoggerMenu::Entry::Console:
        LoggerMenu::setChecked(item, !_writeToFile);
        break;
    case LoggerMenu::Entry::File:
        LoggerMenu::setChecked(item, _writeToFile);
        break;
    case LoggerMenu::Entry::FileLine:
        LoggerMenu::setChecked(item, _displayFileLine);
        break;
    case LoggerMenu::Entry::Level: {
        const auto [position, level] = LoggerMenu::choiceOf(item);
        LoggerMenu::setChecked(item, levelOfComponent(componentAt(position)) == level);
        break;
    }
    case LoggerMenu::Entry::Other:
        break;
    }
    return true;
}

void KTLogger::setOutputToConsole(QAction *)
{
    readMissedSettings();
    _writeToFile = false;
    writeConfigFile();
}

void KTLogger::setOutputToFile(QAction *)
{
    readMissedSettings();
    _writeToFile = true;
    writeConfigFile();
}

void KTLogger::setDisplayFileLine(QAction *)
{
    readMissedSettings();
    _displayFileLine = !_displayFileLine;
    writeConfigFile();
}

void KTLogger::clearAllLoggingState(QAction *)
{
    readMissedSettings();
    initializeAllComponentsArray();
    for (const QString &component : std::as_const(_allComponentsArray))
        _environmentLevels.remove(component);
    updateLevels();
    if (_components) {
        QVariantMap components = _components->levels();
        for (const QString &component : std::as_const(_allComponentsArray))
            components.insert(component, 0);
        setComponents(components);
    }
    writeConfigFile();
}

void KTLogger::setComponentLogLevel(QAction *sender)
{
    // Deliberate: a tag may stand for level 8 or 9, which no item of the menu has.
    const auto [position, level] = LoggerMenu::choiceOf(sender);
    setLevelOfComponent(level, componentAt(position));
}
