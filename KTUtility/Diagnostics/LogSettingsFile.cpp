#include "LogSettingsFile_p.h"

#include "KTLoggerKeys.h"
#include <KTUtility/Platform/Diagnostics/NSLog.h>
#include <KTUtility/Platform/Files/NSPropertyListSerialization.h>
#include <KTUtility/Platform/Files/PropertyListFile_p.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QFileInfo>

#include <algorithm>
#include <climits>

using namespace KTPrivate;

namespace {
/// A boolean setting: a number or a text; \a missing for anything else.
bool booleanSetting(const QVariantMap &settings, const QString &key, bool missing)
{
    const QVariant value = settings.value(key);
    const bool isBoolean = NSObject::isNumber(value) || value.typeId() == QMetaType::QString;
    return isBoolean ? NSObject::boolValue(value) : missing;
}

std::optional<QVariantMap> componentsIn(const QVariantMap &settings)
{
    const QVariant components = settings.value(KTLoggerComponentsKey);
    const bool areComponents = components.typeId() == QMetaType::QVariantMap;
    return areComponents ? std::optional(components.toMap()) : std::nullopt;
}
} // namespace

LogSettingsFile::Result LogSettingsFile::read(const QString &path, LogSettings *settings)
{
    const auto [result, dictionary] = readDictionary(path);
    if (result == DictionaryReading::Result::Unreadable)
        return Result::Unreadable;
    if (result == DictionaryReading::Result::NoFile)
        return Result::NoFile;
    *settings = {booleanSetting(dictionary, KTLoggerWriteToFileKey, true),
                 booleanSetting(dictionary, KTLoggerDisplayFileLineKey, false),
                 componentsIn(dictionary)};
    return Result::Settings;
}

QVariantMap LogSettingsFile::dictionaryFrom(const LogSettings &settings)
{
    // Deliberate: without components there is nothing to store under their key, which raises as
    // storing nil in a dictionary does.
    if (!settings.components)
        NSException::raise(NSInvalidArgumentException,
                           NSString::stringWithFormat(
                               u"*** -[NSMutableDictionary setObject:forKey:]: attempt to insert "
                               u"nil value (key: %@)",
                               KTLoggerComponentsKey));
    return {{KTLoggerWriteToFileKey, settings.writeToFile},
            {KTLoggerDisplayFileLineKey, settings.displayFileLine},
            {KTLoggerComponentsKey, *settings.components}};
}

bool LogSettingsFile::write(const LogSettings &settings, const QString &path)
{
    using Result = DictionaryReading::Result;
    const QVariantMap dictionary = dictionaryFrom(settings);
    if (path.isNull())
        return false;
    const Result stored = readDictionary(path).result;
    const bool isDamaged = stored == Result::NoDictionary && QFileInfo(path).isFile();
    if (stored == Result::Unreadable || (isDamaged && !moveDamagedFileAside(path)))
        return false;
    const bool isWritten = NSDictionary::writeToFile(dictionary, path, true);
    if (!isWritten)
        NSLog(u"*** the settings of the log cannot be written to %@", path);
    return isWritten;
}

bool LogSettingsFile::canHoldName(const QString &component)
{
    return component.isNull() ||
           !NSPropertyListSerialization::dataWithPropertyList(component, nullptr).isNull();
}

int LogSettingsFile::levelFrom(const QVariant &value)
{
    return int(std::clamp<qint64>(NSObject::integerValue(value), INT_MIN, INT_MAX));
}
