#include "KTLogger.h"

#include "KTLogCapture.h"
#include "KTLogLine_p.h"
#include "LogConsole_p.h"
#include "LogFile_p.h"
#include "LogSettingsFile_p.h"
#include "LoggerMenu_p.h"
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Files/NSFileManager.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>
#include <KTUtility/Platform/Files/NSPropertyListSerialization.h>
#include <KTUtility/Platform/Files/NSSearchPath.h>
#include <KTUtility/Platform/Values/NSException.h>

#include <QAction>
#include <QMenu>

#include <algorithm>
#include <climits>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

std::atomic<KTLogger *> KTLogger::_sharedLogger = nullptr;

namespace {
/// No level at all: below every level that can be asked for.
constexpr int NothingIsOn = INT_MIN;

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

KTLogger::KTLogger() : _highestLevel(NothingIsOn)
{
    setComponents(std::nullopt);
    initializeAllComponentsArray();
    const QString logFile = NSString::stringWithFormat(u"%@/cobble.log", logFolder());
    _logFile = std::make_unique<LogFile>(logFile);
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
#define KT_NAME_OF_COMPONENT(constant, name) kLog_##constant,
    _allComponentsArray = {KT_LOGGER_COMPONENTS(KT_NAME_OF_COMPONENT)};
#undef KT_NAME_OF_COMPONENT
}

/// Takes over the components and what the test at call sites needs of them.
void KTLogger::setComponents(const std::optional<QVariantMap> &components)
{
    _components = components;
    Levels levels;
    int highest = NothingIsOn;
    const QVariantMap entries = components.value_or(QVariantMap());
    const auto shared = [this](const QString &name) {
        // The constants of call sites share storage with the array, which makes equality quick.
        const qsizetype index = _allComponentsArray.indexOf(name);
        return index < 0 ? name : _allComponentsArray.at(index);
    };
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        const int level = LogSettingsFile::levelFrom(entry.value());
        if (level == 0)
            continue;
        levels.emplace_back(shared(entry.key()), level);
        highest = std::max(highest, level);
    }
    setActiveLevels(std::move(levels));
    _highestLevel.store(highest, std::memory_order_relaxed);
}

void KTLogger::setActiveLevels(Levels levels)
{
    auto known = std::find_if(_knownLevels.begin(), _knownLevels.end(),
                              [&levels](const auto &list) { return *list == levels; });
    if (known == _knownLevels.end())
        known = _knownLevels.insert(known, std::make_unique<const Levels>(std::move(levels)));
    _activeLevels.store(known->get(), std::memory_order_release);
}

void KTLogger::loadConfigFile(const QString &path)
{
    using LogSettingsFile::Result;
    LogSettings read;
    const Result result = LogSettingsFile::read(path, &read);
    _isUserFileUnread = result == Result::Unreadable && path == _userFile;
    if (result == Result::Unreadable)
        return;
    if (result == Result::Settings) {
        _writeToFile = read.writeToFile;
        _displayFileLine = read.displayFileLine;
    }
    // Once: a component that stays on is on for other threads all the time.
    setComponents(read.components);
}

LogSettings KTLogger::settings() const
{
    return {_writeToFile, _displayFileLine, _components};
}

/// To be called before a change: to write the rest of the settings as they are would lose those of
/// the file.
void KTLogger::readMissedSettings()
{
    if (_isUserFileUnread)
        loadConfigFile(_userFile);
}

void KTLogger::writeConfigFile()
{
    const QVariantMap written = LogSettingsFile::dictionaryFrom(settings());
    if (!_userFile.isNull() && !_isUserFileUnread)
        NSDictionary::writeToFile(written, _userFile, true);
    loadConfigFile(_userFile);
}

void KTLogger::setLevelOfComponent(int level, const QString &component)
{
    readMissedSettings();
    QVariantMap components = _components.value_or(QVariantMap());
    components.insert(component, level);
    setComponents(components);
    writeConfigFile();
}

// --- Logging ------------------------------------------------------------------------------------

int KTLogger::levelOfComponent(const QString &component) const
{
    for (const auto &[name, level] : *_activeLevels.load(std::memory_order_acquire)) {
        const bool isSameStorage =
            name.constData() == component.constData() && name.size() == component.size();
        if (isSameStorage || name == component)
            return level;
    }
    return 0;
}

bool KTLogger::isLevelReached(const QString &component, int logLevel) const
{
    const int level = levelOfComponent(component);
    return level != 0 && logLevel <= level;
}

void KTLogger::logArguments(const QString &component, int logLevel, std::string_view fileName,
                            int lineNumber, QStringView format,
                            std::span<const NSFormatArgument> arguments)
{
    // The state is taken while it is in use: describing an argument may log, too.
    std::unique_ptr<KTLogLine::State> state = KTLogLine::takeState();
    state->message.clear();
    if (format.isNull())
        state->message.append(QLatin1String("<null>"));
    else
        NSString::appendFormatArguments(state->message, format, arguments);
    const QStringView message = state->message.view();
    if (KTLogCapture *const capture = _capture)
        capture->add(component, logLevel, fileName, lineNumber, message);
    else if (_writeToFile)
        // Deliberate: lines in the file always carry file and line, whatever _displayFileLine says.
        _logFile->writeLine(KTLogLine::line(*state, component, fileName, lineNumber, message));
    else
        writeToConsole(_displayFileLine ? ConsoleLine::WithFileAndLine : ConsoleLine::Plain,
                       component, fileName, lineNumber, message);
    KTLogLine::keepState(std::move(state));
}

// --- Menu ---------------------------------------------------------------------------------------

void KTLogger::populateComponentLoggingMenu(QAction *item)
{
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
    if (_components) {
        QVariantMap components = *_components;
        for (const QString &component : std::as_const(_allComponentsArray))
            components.insert(component, 0);
        setComponents(components);
    }
    writeConfigFile();
}

void KTLogger::setComponentLogLevel(QAction *sender)
{
    const auto [position, level] = LoggerMenu::choiceOf(sender);
    setLevelOfComponent(level, componentAt(position));
}
