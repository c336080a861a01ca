#pragma once

#include <KTUtility/NSKeyValueCodingObject>

#include <QObject>
#include <QPointer>
#include <QVariant>

/// A record that notifies of its changes.
class ObservedRecord : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int number READ number WRITE setNumber NOTIFY numberChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QString greeting READ greeting NOTIFY nameChanged)
    Q_PROPERTY(ObservedRecord *next READ next WRITE setNext NOTIFY nextChanged)
    Q_PROPERTY(QVariantMap map READ map WRITE setMap NOTIFY mapChanged)
    Q_PROPERTY(QVariantList list READ list WRITE setList NOTIFY listChanged)
    Q_PROPERTY(int silent READ silent WRITE setSilent)
    Q_PROPERTY(QVariant any READ any WRITE setAny NOTIFY anyChanged)

public:
    explicit ObservedRecord(const QString &name = QStringLiteral("record"), int number = 0)
        : _number(number), _name(name)
    {
    }

    using QObject::receivers;

    int number() const { return _number; }
    /// Notifies also if nothing changes.
    void setNumber(int number)
    {
        _number = number;
        Q_EMIT numberChanged();
    }
    QString name() const { return _name; }
    void setName(const QString &name)
    {
        _name = name;
        Q_EMIT nameChanged();
    }
    QString greeting() const { return u"Hello " + _name; }
    ObservedRecord *next() const { return _next; }
    void setNext(ObservedRecord *next)
    {
        _next = next;
        Q_EMIT nextChanged();
    }
    QVariantMap map() const { return _map; }
    void setMap(const QVariantMap &map)
    {
        _map = map;
        Q_EMIT mapChanged();
    }
    QVariantList list() const { return _list; }
    void setList(const QVariantList &list)
    {
        _list = list;
        Q_EMIT listChanged();
    }
    int silent() const { return _silent; }
    void setSilent(int silent) { _silent = silent; }
    QVariant any() const { return _any; }
    void setAny(const QVariant &any)
    {
        _any = any;
        Q_EMIT anyChanged();
    }

Q_SIGNALS:
    void numberChanged();
    void nameChanged();
    void nextChanged();
    void mapChanged();
    void listChanged();
    void anyChanged();

private:
    int _number = 0;
    QString _name;
    QPointer<ObservedRecord> _next;
    QVariantMap _map;
    QVariantList _list;
    int _silent = 0;
    QVariant _any;
};

/// An object that answers keys by itself, and remembers which are observed.
class ObservedStandIn : public QObject, public NSKeyValueCodingObject
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueCodingObject)
    Q_PROPERTY(int plain MEMBER plain)

public:
    std::optional<QVariant> valueForKey(const QString &key) const override
    {
        return values.contains(key) ? std::optional(values.value(key)) : std::nullopt;
    }
    bool setValueForKey(const QVariant &value, const QString &key) override
    {
        if (!values.contains(key))
            return false;
        values.insert(key, value);
        return true;
    }
    void firstObserverCame(const QString &key) override { observedKeys += key; }
    void lastObserverWent(const QString &key) override { observedKeys.removeAll(key); }

    QVariantMap values;
    QStringList observedKeys;
    int plain = 7;
};
