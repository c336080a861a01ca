#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QVariantMap>

#include <optional>

namespace KTPrivate {
/// What a logger's settings file holds.
struct LogSettings
{
    bool writeToFile = true;
    bool displayFileLine = false;
    /// Component name to level; nothing if no component was ever set.
    std::optional<QVariantMap> components;

    friend bool operator==(const LogSettings &, const LogSettings &) = default;
};

/// The file that a logger's settings live in, and what they look like there.
namespace LogSettingsFile {
enum class Result {
    Settings,
    NoFile,
    Unreadable, ///< the system does not let it be read: nobody knows what it holds
};

/// Reads settings. A damaged file counts as an empty one, a value of the wrong type as missing.
/// \param settings becomes what the file holds; untouched without Result::Settings.
KTUTILITY_EXPORT Result read(const QString &path, LogSettings *settings);

/// The settings as they stand in the file.
/// \throws NSException NSInvalidArgumentException if there are no components.
KTUTILITY_EXPORT QVariantMap dictionaryFrom(const LogSettings &settings);

/// Writes settings. A damaged file is kept beside, as "<path>.damaged"; one that cannot be read is
/// not written over.
/// \throws NSException NSInvalidArgumentException if there are no components.
/// \return false if they could not be written.
KTUTILITY_EXPORT bool write(const LogSettings &settings, const QString &path);

/// Whether a text can be the name of a component in the file.
KTUTILITY_EXPORT bool canHoldName(const QString &component);

/// The level of a component as it stands in the settings: a number or a text; 0 for anything else.
KTUTILITY_EXPORT int levelFrom(const QVariant &value);
} // namespace LogSettingsFile
} // namespace KTPrivate
