#include "NSUserDefaults.h"

#include "NSBundle.h"
#include "NSDefaultsFile_p.h"
#include "NSException.h"
#include "NSObject.h"
#include "NSPropertyListSerialization.h"
#include "NSStringFormat.h"
#include "NSStringValues.h"

#include <QCoreApplication>
#include <QDir>

const QString NSArgumentDomain = QStringLiteral("NSArgumentDomain");
const QString NSGlobalDomain = QStringLiteral("NSGlobalDomain");
const QString NSRegistrationDomain = QStringLiteral("NSRegistrationDomain");

namespace
{
void checkDomainName(const QString &name)
{
    if (name.isEmpty() || name == u"." || name == u".." || name.contains(u'/')
        || name.contains(QChar(u'\0')))
        NSException::raise(NSInvalidArgumentException,
                           NSString::stringWithFormat(u"\"%@\" cannot be a domain", name));
}

void checkPropertyList(const QVariant &value, const QString &key)
{
    QString error;
    if (NSPropertyListSerialization::dataWithPropertyList(value, &error).isNull())
        NSException::raise(NSInvalidArgumentException,
                           NSString::stringWithFormat(
                               u"Attempt to insert a value that is no property list for the key "
                               u"%@: %@",
                               key, error));
}

/// "-key value" pairs; the program's name is not among the arguments.
QVariantMap parsedArguments(const QStringList &arguments)
{
    QVariantMap values;
    for (qsizetype index = 0; index + 1 < arguments.size(); ++index) {
        const QString &word = arguments.at(index);
        if (word.size() > 1 && word.startsWith(u'-') && !word.startsWith(u"--"))
            values.insert(word.mid(1), arguments.at(++index));
    }
    return values;
}
} // namespace

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
    : _domainName(applicationDomain)
    , _arguments(parsedArguments(arguments))
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
    return value.typeId() == QMetaType::QString ? NSString::doubleValue(value.toString())
        : NSObject::isNumber(value)             ? value.toDouble()
                                                : 0;
}

QVariantList NSUserDefaults::arrayForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    const bool isArray = value.typeId() == QMetaType::QVariantList
        || value.typeId() == QMetaType::QStringList;
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

QVariantMap NSUserDefaults::dictionaryRepresentation() const
{
    QVariantMap all = _registered;
    all.insert(_global);
    all.insert(_application);
    all.insert(_arguments);
    return all;
}

// --- Writing ------------------------------------------------------------------------------------

void NSUserDefaults::setObject(const QVariant &value, const QString &forKey)
{
    if (!NSObject::isNil(value))
        checkPropertyList(value, forKey);
    setValue(NSObject::isNil(value) ? QVariant() : value, forKey);
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
    for (const QString &key : std::as_const(_unsavedKeys)) {
        if (_application.contains(key))
            stored.insert(key, _application.value(key));
        else
            stored.remove(key);
    }
    _application = stored;
}

void NSUserDefaults::load()
{
    QVariantMap stored = NSDefaultsFile::read(_domainName).value_or(QVariantMap());
    merge(stored);
    _global = NSDefaultsFile::read(NSGlobalDomain).value_or(QVariantMap());
}

/// Writes the unsaved keys into what the file holds now, and takes over the rest of it.
bool NSUserDefaults::save()
{
    const bool isSaved =
        NSDefaultsFile::update(_domainName, [this](QVariantMap &stored) { merge(stored); });
    if (isSaved)
        _unsavedKeys.clear();
    return isSaved;
}

bool NSUserDefaults::synchronize()
{
    if (!_unsavedKeys.isEmpty())
        return save();
    load();
    return !NSDefaultsFile::folder().isNull();
}

// --- Domains ------------------------------------------------------------------------------------

std::optional<QVariantMap> NSUserDefaults::persistentDomainForName(const QString &name) const
{
    checkDomainName(name);
    return name == _domainName && !_application.isEmpty() ? _application
                                                          : NSDefaultsFile::read(name);
}

/// Keeps what is in memory the same as a domain that was replaced.
void NSUserDefaults::adoptDomain(const QVariantMap &domain, const QString &name)
{
    if (name == NSGlobalDomain)
        _global = domain;
    if (name != _domainName)
        return;
    _application = domain;
    _unsavedKeys.clear();
}

void NSUserDefaults::setPersistentDomain(const QVariantMap &domain, const QString &forName)
{
    checkDomainName(forName);
    checkPropertyList(domain, forName);
    NSDefaultsFile::update(forName, [&](QVariantMap &stored) { stored = domain; });
    adoptDomain(domain, forName);
    Q_EMIT didChange();
}

void NSUserDefaults::removePersistentDomainForName(const QString &name)
{
    checkDomainName(name);
    NSDefaultsFile::remove(name);
    adoptDomain({}, name);
    Q_EMIT didChange();
}

QStringList NSUserDefaults::persistentDomainNames() const
{
    QStringList names;
    const QString folder = NSDefaultsFile::folder();
    if (folder.isNull())
        return names;
    for (const QString &file :
         QDir(folder).entryList({QStringLiteral("*.plist")}, QDir::Files, QDir::Name))
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
