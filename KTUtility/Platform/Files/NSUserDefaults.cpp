#include "NSUserDefaults.h"

#include "DefaultsFile_p.h"
#include "NSBundle.h"
#include "NSPropertyListSerialization.h"
#include "StoredValue_p.h"
#include <KTUtility/Platform/Diagnostics/NSLog.h>
#include <KTUtility/Platform/Disk/FolderNames_p.h>
#include <KTUtility/Platform/Values/NSDecimalNumber.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>
#include <KTUtility/Platform/Values/NSStringValues.h>

#include <QCoreApplication>

#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

const QString NSArgumentDomain = u"NSArgumentDomain"_s;
const QString NSGlobalDomain = u"NSGlobalDomain"_s;
const QString NSRegistrationDomain = u"NSRegistrationDomain"_s;

namespace {
void checkDomainName(const QString &name)
{
    if (name.isEmpty() || name == u"." || name == u".." || name.contains(u'/') ||
        name.contains(QChar(u'\0')) || !name.isValidUtf16())
        NSException::raise(NSInvalidArgumentException,
                           NSString::stringWithFormat(u"\"%@\" cannot be a domain", name));
}

/// Why a value cannot be stored; nil if it can.
QString rejectionOf(const QVariant &value, const QString &key)
{
    QString error;
    if (!NSPropertyListSerialization::dataWithPropertyList(value, &error).isNull())
        return {};
    return NSString::stringWithFormat(
        u"Attempt to insert a value that is no property list for the key %@: %@", key, error);
}

void checkPropertyList(const QVariant &value, const QString &key)
{
    const QString rejection = rejectionOf(value, key);
    if (!rejection.isNull())
        NSException::raise(NSInvalidArgumentException, rejection);
}

/// "-key value" pairs; the program's name is not among the arguments.
QVariantMap parsedArguments(const QStringList &arguments)
{
    QVariantMap values;
    for (qsizetype index = 0; index + 1 < arguments.size(); ++index) {
        const QString &word = arguments.at(index);
        const bool isKey = word.size() > 1 && word.startsWith(u'-') && !word.startsWith(u"--");
        if (isKey && !arguments.at(index + 1).startsWith(u'-'))
            values.insert(word.mid(1), arguments.at(++index));
    }
    return values;
}

/// Gives \a values these keys as \a from has them.
void copyKeys(const QSet<QString> &keys, const QVariantMap &from, QVariantMap &values)
{
    for (const QString &key : keys) {
        if (from.contains(key))
            values.insert(key, from.value(key));
        else
            values.remove(key);
    }
}
} // namespace

void NSUserDefaults::UnsavedDomain::applyTo(QVariantMap &values) const
{
    if (isReplaced)
        values = replacement.value_or(QVariantMap());
    for (const DomainChange &change : changes)
        change(values);
}

void NSUserDefaults::UnsavedDomain::add(const DomainChange &change)
{
    if (!isReplaced) {
        changes += change;
        return;
    }
    QVariantMap values = replacement.value_or(QVariantMap());
    change(values);
    replacement = values;
}

NSUserDefaults *NSUserDefaults::standardUserDefaults()
{
    static auto *const defaults = [] {
        const bool hasApplication = QCoreApplication::instance();
        return new NSUserDefaults(NSHostIdentifier(), hasApplication
                                                          ? QCoreApplication::arguments().mid(1)
                                                          : QStringList());
    }();
    return defaults;
}

NSUserDefaults::NSUserDefaults(const QString &applicationDomain, const QStringList &arguments)
    : _domainName(applicationDomain), _arguments(parsedArguments(arguments))
{
    checkDomainName(applicationDomain);
    load();
}

// --- Reading ------------------------------------------------------------------------------------

QVariant NSUserDefaults::objectForKey(const QString &key) const
{
    for (const QVariantMap *domain : {&_arguments, &_application, &_global, &_registered}) {
        if (const auto entry = domain->constFind(key); entry != domain->constEnd())
            return *entry;
    }
    return {};
}

QString NSUserDefaults::stringForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    const bool isText = value.typeId() == QMetaType::QString || NSObject::isNumber(value);
    return isText ? NSObject::description(value) : QString();
}

bool NSUserDefaults::boolForKey(const QString &key) const
{
    return NSObject::boolValue(objectForKey(key));
}

qint64 NSUserDefaults::integerForKey(const QString &key) const
{
    return NSObject::integerValue(objectForKey(key));
}

double NSUserDefaults::doubleForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    if (value.metaType() == QMetaType::fromType<NSDecimalNumber>())
        return value.value<NSDecimalNumber>().doubleValue();
    return value.typeId() == QMetaType::QString ? NSString::doubleValue(value.toString())
           : NSObject::isNumber(value)          ? value.toDouble()
                                                : 0;
}

QVariantList NSUserDefaults::arrayForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    const bool isArray =
        value.typeId() == QMetaType::QVariantList || value.typeId() == QMetaType::QStringList;
    return isArray ? value.toList() : QVariantList();
}

QStringList NSUserDefaults::stringArrayForKey(const QString &key) const
{
    QStringList texts;
    for (const QVariant &element : arrayForKey(key)) {
        if (element.typeId() != QMetaType::QString)
            return {};
        texts += element.toString();
    }
    return texts;
}

QVariantMap NSUserDefaults::dictionaryForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    return value.typeId() == QMetaType::QVariantMap ? value.toMap() : QVariantMap();
}

QByteArray NSUserDefaults::dataForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray() : QByteArray();
}

QVariant NSUserDefaults::objectOfType(QMetaType type, const QString &key) const
{
    return StoredValue::valueOf(objectForKey(key), type).value_or(QVariant());
}

QVariantMap NSUserDefaults::dictionaryRepresentation() const
{
    QVariantMap all = _registered;
    all.insert(_global);
    all.insert(_application);
    all.insert(_arguments);
    return all;
}

// --- Writing ------------------------------------------------------------------------------------

bool NSUserDefaults::setObject(const QVariant &value, const QString &forKey)
{
    if (NSObject::isNil(value)) {
        removeObjectForKey(forKey);
        return true;
    }
    QVariant stored = value;
    QString rejection = rejectionOf(QVariantMap{{forKey, value}}, forKey);
    if (const auto other = rejection.isNull() ? std::nullopt : StoredValue::formOf(value)) {
        stored = *other;
        rejection = rejectionOf(QVariantMap{{forKey, stored}}, forKey);
    }
    if (!rejection.isNull()) {
        NSLog(u"*** %@", rejection);
        return false;
    }
    setValue(stored, forKey);
    return true;
}

void NSUserDefaults::removeObjectForKey(const QString &key)
{
    setValue(QVariant(), key);
}

void NSUserDefaults::setValue(const QVariant &value, const QString &key)
{
    if (value.isValid())
        _application.insert(key, value);
    else
        _application.remove(key);
    _unsavedKeys.insert(key);
    save();
    Q_EMIT didChange();
}

void NSUserDefaults::registerDefaults(const QVariantMap &defaults)
{
    _registered.insert(defaults);
}

/// Puts the unsaved keys into \a stored and takes over the result.
void NSUserDefaults::merge(QVariantMap &stored)
{
    copyKeys(_unsavedKeys, _application, stored);
    _application = stored;
}

void NSUserDefaults::load()
{
    // What cannot be read now is what it was.
    const auto domainNamed = [this](const QString &name, const QVariantMap &before) {
        const UnsavedDomain unsaved = _unsavedDomains.value(name);
        DictionaryReading reading;
        if (!unsaved.isReplaced)
            reading = DefaultsFile::read(name);
        if (reading.result == DictionaryReading::Result::Unreadable)
            return before;
        unsaved.applyTo(reading.dictionary);
        return reading.dictionary;
    };
    QVariantMap stored = domainNamed(_domainName, _application);
    merge(stored);
    _global = domainNamed(NSGlobalDomain, _global);
}

/// Writes the unsaved keys into what the file holds now, and takes over the rest of it.
bool NSUserDefaults::save()
{
    if (_unsavedDomains.contains(_domainName) && !saveDomains())
        return false;
    const bool isSaved =
        DefaultsFile::update(_domainName, [this](QVariantMap &stored) { merge(stored); });
    if (isSaved)
        _unsavedKeys.clear();
    return isSaved;
}

bool NSUserDefaults::synchronize()
{
    const bool domainsAreSaved = saveDomains();
    const bool keysAreSaved =
        _unsavedKeys.isEmpty() || (!_unsavedDomains.contains(_domainName) && save());
    load();
    return domainsAreSaved && keysAreSaved && !DefaultsFile::folder().isNull();
}

/// Writes or removes the domains that wait for it.
bool NSUserDefaults::saveDomains()
{
    _unsavedDomains.removeIf([](const auto &entry) {
        const UnsavedDomain &domain = entry.value();
        if (domain.isReplaced && !domain.replacement)
            return DefaultsFile::remove(entry.key());
        return DefaultsFile::update(entry.key(),
                                    [&](QVariantMap &stored) { domain.applyTo(stored); });
    });
    return _unsavedDomains.isEmpty();
}

// --- Domains ------------------------------------------------------------------------------------

std::optional<QVariantMap> NSUserDefaults::persistentDomainForName(const QString &name) const
{
    checkDomainName(name);
    if (name == _domainName && !_application.isEmpty())
        return _application;
    const UnsavedDomain unsaved = _unsavedDomains.value(name);
    if (unsaved.isReplaced)
        return unsaved.replacement;
    DictionaryReading reading = DefaultsFile::read(name);
    const bool isStored = reading.result == DictionaryReading::Result::Dictionary;
    if (!isStored && unsaved.changes.isEmpty())
        return std::nullopt;
    unsaved.applyTo(reading.dictionary);
    return reading.dictionary;
}

/// Replaces a domain in memory and in its file; no map removes it.
void NSUserDefaults::replaceDomain(const std::optional<QVariantMap> &domain, const QString &name)
{
    // For load(), which keeps what it cannot read.
    if (name == _domainName) {
        _unsavedKeys.clear();
        _application = domain.value_or(QVariantMap());
    } else if (name == NSGlobalDomain) {
        _global = domain.value_or(QVariantMap());
    }
    _unsavedDomains.insert(name, {true, domain, {}});
    saveDomains();
    load();
    Q_EMIT didChange();
}

void NSUserDefaults::setPersistentDomain(const QVariantMap &domain, const QString &forName)
{
    checkDomainName(forName);
    checkPropertyList(domain, forName);
    replaceDomain(domain, forName);
}

/// Puts the keys that wait to be written before what is about to change the whole domain.
void NSUserDefaults::keepUnsavedKeysAsChange()
{
    if (_unsavedKeys.isEmpty())
        return;
    const auto keys = std::exchange(_unsavedKeys, {});
    _unsavedDomains[_domainName].add(
        [keys, from = _application](QVariantMap &stored) { copyKeys(keys, from, stored); });
}

bool NSUserDefaults::changePersistentDomain(const DomainChange &change, const QString &forName)
{
    checkDomainName(forName);
    QVariantMap changed = persistentDomainForName(forName).value_or(QVariantMap());
    change(changed);
    checkPropertyList(changed, forName);
    // For load(), which keeps what it cannot read.
    if (forName == _domainName) {
        keepUnsavedKeysAsChange();
        _application = changed;
    } else if (forName == NSGlobalDomain) {
        _global = changed;
    }
    _unsavedDomains[forName].add(change);
    saveDomains();
    const bool isSaved = !_unsavedDomains.contains(forName);
    load();
    Q_EMIT didChange();
    return isSaved;
}

void NSUserDefaults::removePersistentDomainForName(const QString &name)
{
    checkDomainName(name);
    replaceDomain(std::nullopt, name);
}

QStringList NSUserDefaults::persistentDomainNames() const
{
    QStringList names;
    const QString folder = DefaultsFile::folder();
    if (folder.isNull())
        return names;
    for (const QString &file : filesNamed(folder, QString(), u".plist"_s))
        names += file.chopped(6);
    return names;
}

std::optional<QVariantMap> NSUserDefaults::volatileDomainForName(const QString &name) const
{
    if (name == NSArgumentDomain)
        return _arguments;
    if (name == NSRegistrationDomain)
        return _registered;
    const auto domain = _volatileDomains.constFind(name);
    return domain == _volatileDomains.constEnd() ? std::nullopt : std::optional(*domain);
}

void NSUserDefaults::setVolatileDomain(const QVariantMap &domain, const QString &forName)
{
    if (volatileDomainForName(forName))
        NSException::raise(NSInvalidArgumentException,
                           NSString::stringWithFormat(u"volatile domain %@ exists", forName));
    _volatileDomains.insert(forName, domain);
}

void NSUserDefaults::removeVolatileDomainForName(const QString &name)
{
    _volatileDomains.remove(name);
}

QStringList NSUserDefaults::volatileDomainNames() const
{
    return QStringList{NSArgumentDomain, NSRegistrationDomain} + _volatileDomains.keys();
}
