#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QVariant>

// What plug-ins and their managers keep in the settings domain "<host identifier>.plugins".
namespace KTPrivate::PlugInDefaults {
/// The value of a key; nil if there is none.
KTUTILITY_EXPORT QVariant objectForKey(const QString &key);
/// Sets the value of a key, nil removes it, and writes the domain.
/// \return false if the key is nil, or the domain cannot be read or written.
KTUTILITY_EXPORT bool setObject(const QVariant &object, const QString &forKey);
/// Adds the keys that the domain lacks and writes it.
/// \return as for setObject().
KTUTILITY_EXPORT bool registerDefaults(const QVariantMap &defaults);

/// Whether the list under a key holds an identifier.
KTUTILITY_EXPORT bool isInList(const QString &identifier, const QString &key);
/// Appends an identifier to the list under a key, even if it is there, or removes it wherever it
/// is there.
/// \return false if either is nil, and as for setObject().
KTUTILITY_EXPORT bool setInList(bool isIn, const QString &identifier, const QString &key);
} // namespace KTPrivate::PlugInDefaults
