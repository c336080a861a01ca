#include "KTPlugInManager.h"

#include <KTUtility/Platform/Foundation/NSException.h>
#include <KTUtility/Platform/Foundation/NSObject.h>
#include <KTUtility/Platform/Foundation/NSUserDefaults.h>

#include <algorithm>

// What plug-ins and their manager keep in "<host identifier>.plugins".

namespace {
QString domainName()
{
    return NSHostIdentifier() + QStringLiteral(".plugins");
}

QVariantMap domain()
{
    return NSUserDefaults::standardUserDefaults()
        ->persistentDomainForName(domainName())
        .value_or(QVariantMap());
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
    if (forKey.isNull())
        return false;
    QVariantMap values = domain();
    if (NSObject::isNil(object))
        values.remove(forKey);
    else
        values.insert(forKey, object);
    return storeDomain(values);
}

bool KTPlugInManager::pluginDefaultsRegisterDefaults(const QVariantMap &defaults)
{
    QVariantMap values = defaults;
    values.insert(domain());
    return storeDomain(values);
}

/// The list of enabled plug-ins; empty if something else is stored.
QVariantList KTPlugInManager::enabledIdentifiers() const
{
    const QVariant stored = pluginDefaultsObjectForKey(_enabledKey);
    const bool isList =
        stored.typeId() == QMetaType::QVariantList || stored.typeId() == QMetaType::QStringList;
    return isList ? stored.toList() : QVariantList();
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
    if (identifier.isNull())
        return false;
    QVariantList identifiers = enabledIdentifiers();
    if (enabled)
        identifiers.append(identifier);
    else
        identifiers.removeIf(
            [&](const QVariant &entry) { return NSObject::isEqualTo(entry, identifier); });
    return pluginDefaultsSetObject(identifiers, _enabledKey);
}
