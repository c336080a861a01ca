#include "KTPlugInManager.h"

#include <KTUtility/Platform/Files/DefaultsFile_p.h>

#include <KTUtility/Platform/Files/NSUserDefaults.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

// What plug-ins and their manager keep in "<host identifier>.plugins".

namespace {
QString domainName()
{
    return NSHostIdentifier() + u".plugins"_s;
}

/// What is stored; nothing if it cannot be read, also at a second attempt. To write that back as
/// if it were empty would lose what is there, and to take it for empty would switch plug-ins off.
std::optional<QVariantMap> storedDomain()
{
    NSUserDefaults *const defaults = NSUserDefaults::standardUserDefaults();
    if (const auto known = defaults->persistentDomainForName(domainName()))
        return known;
    if (DefaultsFile::read(domainName()).result == DictionaryReading::Result::Unreadable)
        return std::nullopt;
    // Not what was just read: a domain that was removed may still have its file.
    return defaults->persistentDomainForName(domainName()).value_or(QVariantMap());
}

QVariantMap domain()
{
    return storedDomain().value_or(QVariantMap());
}

void setObject(const QVariant &object, const QString &key, QVariantMap &values)
{
    if (NSObject::isNil(object))
        values.remove(key);
    else
        values.insert(key, object);
}

/// A list that is stored; empty if something else is.
QVariantList listIn(const QVariantMap &values, const QString &key)
{
    const QVariant stored = values.value(key);
    const bool isList =
        stored.typeId() == QMetaType::QVariantList || stored.typeId() == QMetaType::QStringList;
    return isList ? stored.toList() : QVariantList();
}

bool storeDomain(const QVariantMap &values)
{
    NSUserDefaults *const defaults = NSUserDefaults::standardUserDefaults();
    try {
        defaults->setPersistentDomain(values, domainName());
    } catch (const NSException &) {
        // A value that no file can hold.
        return false;
    }
    return defaults->synchronize();
}
} // namespace

QVariant KTPlugInManager::pluginDefaultsObjectForKey(const QString &key) const
{
    return key.isNull() ? QVariant() : domain().value(key);
}

bool KTPlugInManager::pluginDefaultsSetObject(const QVariant &object, const QString &forKey)
{
    std::optional<QVariantMap> values = storedDomain();
    if (forKey.isNull() || !values)
        return false;
    setObject(object, forKey, *values);
    return storeDomain(*values);
}

bool KTPlugInManager::pluginDefaultsRegisterDefaults(const QVariantMap &defaults)
{
    const std::optional<QVariantMap> stored = storedDomain();
    if (!stored)
        return false;
    QVariantMap values = defaults;
    values.insert(*stored);
    return storeDomain(values);
}

/// The list of enabled plug-ins; empty if something else is stored.
QVariantList KTPlugInManager::enabledIdentifiers() const
{
    return listIn(domain(), _enabledKey);
}

bool KTPlugInManager::isPluginEnabled(const QString &identifier) const
{
    const QVariantList identifiers = enabledIdentifiers();
    return std::any_of(identifiers.begin(), identifiers.end(), [&](const QVariant &enabled) {
        return NSObject::isEqualTo(enabled, identifier);
    });
}

// Deliberate: enabling twice lists a plug-in twice; disabling removes both.
bool KTPlugInManager::setEnabledForPlugin(bool enabled, const QString &identifier)
{
    std::optional<QVariantMap> values = storedDomain();
    if (identifier.isNull() || _enabledKey.isNull() || !values)
        return false;
    QVariantList identifiers = listIn(*values, _enabledKey);
    if (enabled)
        identifiers.append(identifier);
    else
        identifiers.removeIf(
            [&](const QVariant &entry) { return NSObject::isEqualTo(entry, identifier); });
    setObject(identifiers, _enabledKey, *values);
    return storeDomain(*values);
}
