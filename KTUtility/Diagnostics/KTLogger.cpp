#include "KTLogger.h"

#include "KTLogCapture.h"
#include "KTLogLine_p.h"
#include <KTUtility/Platform/AppKit/NSMenuItem.h>
#include <KTUtility/Platform/Diagnostics/NSLog.h>
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Files/NSFileManager.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>
#include <KTUtility/Platform/Files/NSPropertyListSerialization.h>
#include <KTUtility/Platform/Files/NSSearchPath.h>
#include <KTUtility/Platform/Files/PropertyListFile_p.h>
#include <KTUtility/Platform/Values/NSException.h>

#include <QFile>

#include <algorithm>
#include <climits>
#include <fcntl.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

const QString KTLoggerWriteToFileKey = u"writeToFile"_s;
const QString KTLoggerDisplayFileLineKey = u"displayFileLine"_s;
const QString KTLoggerComponentsKey = u"components"_s;

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

/// A boolean setting: a number or a text; \a missing for anything else.
bool booleanSetting(const QVariantMap &settings, const QString &key, bool missing)
{
    const QVariant value = settings.value(key);
    const bool isBoolean = NSObject::isNumber(value) || value.typeId() == QMetaType::QString;
    return isBoolean ? NSObject::boolValue(value) : missing;
}

/// A level as it stands in the settings: a number or a text; 0 for anything else.
int levelSetting(const QVariant &value)
{
    return int(std::clamp<qint64>(NSObject::integerValue(value), INT_MIN, INT_MAX));
}

int openLogFile(const QString &path)
{
    return ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC,
                  0644);
}

/// Whether a thread is at its end and has dropped what it kept. Needs no destructor, and so can be
/// asked until the very end.
thread_local bool isSpareGone = false;

/// What a thread keeps for its next line. Objects that are destroyed after it may log, too.
struct SpareState
{
    ~SpareState() { isSpareGone = true; }

    std::unique_ptr<KTLogLine::State> state;
};

std::unique_ptr<KTLogLine::State> &spareState()
{
    thread_local SpareState spare;
    return spare.state;
}

std::unique_ptr<KTLogLine::State> takeState()
{
    std::unique_ptr<KTLogLine::State> state;
    if (!isSpareGone)
        state = std::move(spareState());
    return state ? std::move(state) : std::make_unique<KTLogLine::State>();
}

void keepState(std::unique_ptr<KTLogLine::State> state)
{
    if (!isSpareGone)
        spareState() = std::move(state);
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
    _fileHandle = std::make_unique<NSFileHandle>(openLogFile(logFile));
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
    _allComponentsArray = {
        kLog_AppleScript,
        kLog_validateMenuItem,
        kLog_BlockSelection,
        kLog_CalcEngine,
        kLog_DragDrop,
        kLog_DataMap,
        kLog_EventsEngine,
        kLog_ExportXML,
        kLog_ExportCobble,
        kLog_FieldPanel,
        kLog_FieldGroup,
        kLog_FieldMedia,
        kLog_FieldText,
        kLog_FormCell,
        kLog_FormContentSelector,
        kLog_FormScrollView,
        kLog_FormViewController,
        kLog_FormattersCurrency,
        kLog_FormattersDateTimes,
        kLog_FormattersNumbers,
        kLog_FormattersPhoneNumbers,
        kLog_ImportDialog,
        kLog_ImportXML,
        kLog_KeyboardNavigation,
        kLog_Lifecycle,
        kLog_MainWindow,
        kLog_MediaFilenames,
        kLog_MediaIKView,
        kLog_MediaQTView,
        kLog_MediaView,
        kLog_Printing,
        kLog_RollOverButtons,
        kLog_SchemaManager,
        kLog_SourceList,
        kLog_SourceItem,
        kLog_TableViewController,
        kLog_Tests,
        kLog_Undo,
        kLog_Upgrade,
    };
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
        const int level = levelSetting(entry.value());
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
    using Result = DictionaryReading::Result;
    const auto [result, settings] = readDictionary(path);
    _isUserFileUnread = result == Result::Unreadable && path == _userFile;
    if (result == Result::Unreadable)
        return;
    if (result == Result::NoFile) {
        setComponents(std::nullopt);
        return;
    }
    _writeToFile = booleanSetting(settings, KTLoggerWriteToFileKey, true);
    _displayFileLine = booleanSetting(settings, KTLoggerDisplayFileLineKey, false);
    const QVariant components = settings.value(KTLoggerComponentsKey);
    // Once: a component that stays on is on for other threads all the time.
    const bool areComponents = components.typeId() == QMetaType::QVariantMap;
    setComponents(areComponents ? std::optional(components.toMap()) : std::nullopt);
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
    // Deliberate: without components there is nothing to store under their key, which raises as
    // storing nil in a dictionary does.
    if (!_components)
        NSException::raise(NSInvalidArgumentException,
                           NSString::stringWithFormat(
                               u"*** -[NSMutableDictionary setObject:forKey:]: attempt to insert "
                               u"nil value (key: %@)",
                               KTLoggerComponentsKey));
    const QVariantMap settings = {{KTLoggerWriteToFileKey, _writeToFile.load()},
                                  {KTLoggerDisplayFileLineKey, _displayFileLine.load()},
                                  {KTLoggerComponentsKey, *_components}};
    if (!_userFile.isNull() && !_isUserFileUnread)
        NSDictionary::writeToFile(settings, _userFile, true);
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
    std::unique_ptr<KTLogLine::State> state = takeState();
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
        writeLineToFile(KTLogLine::line(*state, component, fileName, lineNumber, message));
    else
        writeLineToConsole(component, fileName, lineNumber, message);
    keepState(std::move(state));
}

void KTLogger::writeLineToFile(QByteArrayView line)
{
    const bool isAtStart = !_isLineTorn.load(std::memory_order_relaxed) || endTornLine();
    if (!isAtStart || !_fileHandle->writeData(line))
        _isLineTorn.store(true, std::memory_order_relaxed);
}

/// Sees to it that the next line starts at the beginning of one. \return false if it cannot.
bool KTLogger::endTornLine()
{
    const int file = _fileHandle->fileDescriptor();
    const off_t end = ::lseek(file, 0, SEEK_END);
    char last = '\n';
    // A log that leads to a terminal or a pipe cannot tell how its last line ended.
    const bool isKnown = end <= 0 || ::pread(file, &last, 1, end - 1) == 1;
    const bool isAtStart = isKnown && (last == '\n' || _fileHandle->writeData("\n"));
    _isLineTorn.store(!isAtStart, std::memory_order_relaxed);
    return isAtStart;
}

void KTLogger::writeLineToConsole(const QString &component, std::string_view fileName,
                                  int lineNumber, QStringView message)
{
    if (_displayFileLine)
        NSLog(u"[%@:%d][%@] %@", fileName, lineNumber, component, message);
    else
        NSLog(u"[%@] %@", component, message);
}
