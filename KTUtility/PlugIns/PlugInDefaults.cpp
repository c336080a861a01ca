#include "PlugInDefaults_p.h"

#include <KTUtility/Platform/Files/DefaultsFile_p.h>
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Files/NSUserDefaults.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

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

void setValue(const QVariant &object, const QString &key, QVariantMap &values)
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

/// Changes what is stored, where it is stored, since other processes change it, too.
bool changeDomain(const std::function<void(QVariantMap &)> &change)
{
    if (!storedDomain())
        return false;
    try {
        return NSUserDefaults::standardUserDefaults()->changePersistentDomain(change, domainName());
    } catch (const NSException &) {
        // A value that no file can hold.
        return false;
    }
}

void changeList(bool isIn, const QString &identifier, const QString &key, QVariantMap &values)
{
    QVariantList identifiers = listIn(values, key);
    if (isIn)
        identifiers.append(identifier);
    else
        identifiers.removeIf(
            [&](const QVariant &entry) { return NSObject::isEqualTo(entry, identifier); });
    values.insert(key, identifiers);
}
} // namespace

QVariant PlugInDefaults::objectForKey(const QString &key)
{
    return key.isNull() ? QVariant() : domain().value(key);
}

bool PlugInDefaults::setObject(const QVariant &object, const QString &forKey)
{
    return !forKey.isNull() &&
           changeDomain([=](QVariantMap &values) { setValue(object, forKey, values); });
}

bool PlugInDefaults::registerDefaults(const QVariantMap &defaults)
{
    const std::optional<QVariantMap> stored = storedDomain();
    if (!stored)
        return false;
    const auto isStored = [&](const QString &key) { return stored->contains(key); };
    const QStringList keys = defaults.keys();
    // A host does this at each start, and nearly always there is nothing to add.
    if (std::all_of(keys.begin(), keys.end(), isStored))
        return NSUserDefaults::standardUserDefaults()->synchronize();
    return changeDomain([=](QVariantMap &values) {
        QVariantMap all = defaults;
        all.insert(values);
        values = all;
    });
}

bool PlugInDefaults::isInList(const QString &identifier, const QString &key)
{
    const QVariantList identifiers = listIn(domain(), key);
    return std::any_of(identifiers.begin(), identifiers.end(), [&](const QVariant &listed) {
        return NSObject::isEqualTo(listed, identifier);
    });
}

bool PlugInDefaults::setInList(bool isIn, const QString &identifier, const QString &key)
{
    return !identifier.isNull() && !key.isNull() &&
           changeDomain([=](QVariantMap &values) { changeList(isIn, identifier, key, values); });
}
