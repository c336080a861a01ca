#pragma once

#include <QObject>
#include <QString>

/// A row of a long table.
class Purchase : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    Q_PROPERTY(double amount READ amount WRITE setAmount NOTIFY amountChanged)

public:
    Purchase(const QString &title, double amount) : _title(title), _amount(amount) {}

    QString title() const { return _title; }
    void setTitle(const QString &title)
    {
        _title = title;
        Q_EMIT titleChanged();
    }
    double amount() const { return _amount; }
    void setAmount(double amount)
    {
        _amount = amount;
        Q_EMIT amountChanged();
    }

Q_SIGNALS:
    void titleChanged();
    void amountChanged();

private:
    QString _title;
    double _amount;
};
