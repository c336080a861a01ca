#pragma once

#include <QObject>
#include <QPointer>

/// A record in a chain.
class Link : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int number READ number WRITE setNumber NOTIFY numberChanged)
    Q_PROPERTY(QString name MEMBER name NOTIFY nameChanged)
    Q_PROPERTY(Link *next READ next NOTIFY nextChanged)

public:
    int number() const { return _number; }
    void setNumber(int number)
    {
        _number = number;
        Q_EMIT numberChanged();
    }
    Link *next() const { return _next; }
    void setNext(Link *next) { _next = next; }

    QString name;

Q_SIGNALS:
    void numberChanged();
    void nameChanged();
    void nextChanged();

private:
    int _number = 0;
    QPointer<Link> _next;
};
