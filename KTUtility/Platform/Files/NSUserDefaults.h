#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QMetaType>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <optional>

/// Settings by key, looked up in several domains one after the other: the command line
/// ("-key value", where the value does not begin with "-"), the application, the global domain, and
/// what was registered as defaults.
///
/// Persistent domains are property lists, "<domain>.plist" in the Preferences folder of the user's
/// Library. A set is written at once: under a lock, re-read first, so that another process that
/// changed other keys loses nothing. A damaged file counts as empty and is kept beside as
/// "<domain>.plist.damaged" before it is replaced. Where nothing can be written (no home folder,
/// disk full), values live as long as the object. For the main thread.
///
/// \code
/// NSUserDefaults *defaults = NSUserDefaults::standardUserDefaults();
/// defaults->registerDefaults({{u"rows"_s, 20}});
/// defaults->integerForKey(u"rows"_s);    // 20
/// defaults->setObject(50, u"rows"_s);    // written
/// defaults->removeObjectForKey(u"rows"_s);    // 20 again
/// \endcode
class KTUTILITY_EXPORT NSUserDefaults : public QObject
{
    Q_OBJECT

public:
    /// The settings of the application, with the process's own command line.
    static NSUserDefaults *standardUserDefaults();

    /// Settings of another domain, or with another command line.
    /// \throws NSException NSInvalidArgumentException if the domain cannot be a file name.
    explicit NSUserDefaults(const QString &applicationDomain, const QStringList &arguments = {});

    // --- Reading. What is missing is nil, 0 or false.

    /// The value in the first domain that has the key.
    QVariant objectForKey(const QString &key) const;
    /// A text, or the description of a number (true is "1").
    QString stringForKey(const QString &key) const;
    /// A number other than 0, or a text as NSString::boolValue() reads it.
    bool boolForKey(const QString &key) const;
    /// A number, or a text as NSString::integerValue() reads it.
    qint64 integerForKey(const QString &key) const;
    /// A number, or a text as NSString::doubleValue() reads it.
    double doubleForKey(const QString &key) const;
    /// An array of anything; empty for everything else.
    QVariantList arrayForKey(const QString &key) const;
    /// An array of texts only; else empty.
    QStringList stringArrayForKey(const QString &key) const;
    /// A dictionary; empty for everything else.
    QVariantMap dictionaryForKey(const QString &key) const;
    /// Data; null for everything else.
    QByteArray dataForKey(const QString &key) const;
    /// A value of any type that setObject() stores; nothing if there is none of that type. Integers
    /// are exact or nothing, reals the nearest of their type; truth values are read as by
    /// boolForKey().
    ///
    /// \code
    /// defaults->setObject(window->size(), u"size"_s);
    /// window->resize(defaults->objectOfType<QSize>(u"size"_s).value_or(QSize(640, 480)));
    /// \endcode
    template<typename T>
    std::optional<T> objectOfType(const QString &key) const
    {
        const QVariant value = objectOfType(QMetaType::fromType<T>(), key);
        return value.isValid() ? std::optional<T>(value.value<T>()) : std::nullopt;
    }
    /// The same for a type that is known at run time only; nil if there is none of that type.
    QVariant objectOfType(QMetaType type, const QString &key) const;
    /// All keys with the values that objectForKey() gives.
    QVariantMap dictionaryRepresentation() const;

    // --- Writing to the application's domain

    /// Sets a value and writes it; nil removes the key. Values of other types than those of property
    /// lists are stored as a text (QDate, QUrl, QColor …) or as data (QSize, QRect …), if the same
    /// value can be made of that again; ask for them by objectOfType().
    /// \return false if the value has no such form, or if it or the key holds characters that the
    /// file cannot hold. That is written to the console; nothing is set then.
    bool setObject(const QVariant &value, const QString &forKey);
    /// Sets a boolean as setObject() does.
    bool setBool(bool value, const QString &forKey) { return setObject(value, forKey); }
    /// Sets an integer as setObject() does.
    bool setInteger(qint64 value, const QString &forKey) { return setObject(value, forKey); }
    /// Sets a number as setObject() does.
    bool setDouble(double value, const QString &forKey) { return setObject(value, forKey); }
    /// Removes a value, which uncovers that of the next domain.
    void removeObjectForKey(const QString &key);
    /// Adds values for keys that no other domain has. They are never written.
    void registerDefaults(const QVariantMap &defaults);
    /// Takes over what other processes wrote and writes what could not be written before.
    /// \return false if something could not be written.
    bool synchronize();

    // --- Domains by name

    /// What a persistent domain holds; nothing if it does not exist.
    std::optional<QVariantMap> persistentDomainForName(const QString &name) const;
    /// Replaces all of a persistent domain and writes it. What cannot be written is kept in memory
    /// and written by a later synchronize().
    /// \throws NSException NSInvalidArgumentException if the name cannot be a file name or a value
    /// is no property list.
    void setPersistentDomain(const QVariantMap &domain, const QString &forName);
    /// Changes a persistent domain where its file is, under the lock and after reading it again, so
    /// that nothing is lost that another process has changed since. Use it where a new value depends
    /// on the old one. What cannot be written is kept in memory, and is changed and written by a
    /// later synchronize().
    ///
    /// \code
    /// defaults->changePersistentDomain(
    ///     [](QVariantMap &values) {
    ///         values.insert(u"starts"_s, values.value(u"starts"_s).toInt() + 1);
    ///     },
    ///     u"org.example.counter"_s);
    /// \endcode
    /// \param change changes what it is handed; it is called more than once.
    /// \return false if the domain is not written.
    /// \throws NSException as setPersistentDomain() does; nothing is changed then.
    bool changePersistentDomain(const std::function<void(QVariantMap &)> &change,
                                const QString &forName);
    /// Removes a persistent domain and its file.
    void removePersistentDomainForName(const QString &name);
    /// The domains that have a file.
    QStringList persistentDomainNames() const;

    /// What a volatile domain holds; nothing if it does not exist.
    std::optional<QVariantMap> volatileDomainForName(const QString &name) const;
    /// Makes a domain that lives in memory and takes no part in the search.
    /// \throws NSException NSInvalidArgumentException if there is one of that name.
    void setVolatileDomain(const QVariantMap &domain, const QString &forName);
    /// Forgets a domain that lives in memory.
    void removeVolatileDomainForName(const QString &name);
    /// The domains that live in memory.
    QStringList volatileDomainNames() const;

Q_SIGNALS:
    /// A value was set or removed, once for each.
    void didChange();

private:
    using DomainChange = std::function<void(QVariantMap &)>;

    // What a file still waits for: to be replaced, without a map to be removed; else to be changed.
    struct UnsavedDomain
    {
        bool isReplaced = false;
        std::optional<QVariantMap> replacement;
        QList<DomainChange> changes;

        void applyTo(QVariantMap &values) const;
        void add(const DomainChange &change);
    };

    void setValue(const QVariant &value, const QString &key);
    void merge(QVariantMap &stored);
    void load();
    bool saveDomains();
    bool save();
    void replaceDomain(const std::optional<QVariantMap> &domain, const QString &name);
    void keepUnsavedKeysAsChange();

    QString _domainName;
    QVariantMap _arguments;
    QVariantMap _application;
    QVariantMap _global;
    QVariantMap _registered;
    QMap<QString, QVariantMap> _volatileDomains;
    // Keys of the application's domain that the file does not have yet as they are here.
    QSet<QString> _unsavedKeys;
    // Whole domains that could not be written, changed or removed.
    QMap<QString, UnsavedDomain> _unsavedDomains;
};

/// "NSArgumentDomain", the volatile domain of the command line.
KTUTILITY_EXPORT extern const QString NSArgumentDomain;
/// "NSGlobalDomain", the persistent domain of all applications.
KTUTILITY_EXPORT extern const QString NSGlobalDomain;
/// "NSRegistrationDomain", the volatile domain of registered defaults.
KTUTILITY_EXPORT extern const QString NSRegistrationDomain;
