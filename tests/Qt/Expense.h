#pragma once

#include <KTUtility/NSError>
#include <KTUtility/NSException>
#include <KTUtility/NSObject>

#include <QDate>
#include <QObject>
#include <QVariant>

#include <optional>

/// A record of a program that uses models and editors.
class Expense : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    Q_PROPERTY(QVariant amount READ amount WRITE setAmount NOTIFY amountChanged)
    Q_PROPERTY(bool isPaid READ isPaid WRITE setPaid NOTIFY isPaidChanged)
    Q_PROPERTY(int count READ count WRITE setCount NOTIFY countChanged)
    Q_PROPERTY(QVariant due READ due WRITE setDue NOTIFY dueChanged)
    Q_PROPERTY(Expense *next READ next WRITE setNext NOTIFY nextChanged)

public:
    explicit Expense(const QString &title = {}, const QVariant &amount = {})
        : _title(title), _amount(amount)
    {
    }

    using QObject::receivers;

    QString title() const { return _title; }
    void setTitle(const QString &title)
    {
        ++sets;
        _title = title;
        Q_EMIT titleChanged();
    }
    QVariant amount() const { return _amount; }
    void setAmount(const QVariant &amount)
    {
        ++sets;
        _amount = amount;
        Q_EMIT amountChanged();
    }
    bool isPaid() const { return _isPaid; }
    void setPaid(bool paid)
    {
        _isPaid = paid;
        Q_EMIT isPaidChanged();
    }
    int count() const { return _count; }
    void setCount(int count)
    {
        _count = count;
        Q_EMIT countChanged();
    }
    QVariant due() const { return _due; }
    void setDue(const QVariant &due)
    {
        _due = due;
        Q_EMIT dueChanged();
    }
    Expense *next() const { return _next; }
    void setNext(Expense *next)
    {
        _next = next;
        Q_EMIT nextChanged();
    }
    std::optional<int> limit() const { return _limit; }
    void setLimit(const std::optional<int> &limit) { _limit = limit; }

    /// Nothing above a million, and no title "taken"; paid expenses stay so.
    Q_INVOKABLE bool validateValue(QVariant *value, const QString &key, NSError *error)
    {
        const bool isTooMuch = key == u"amount" && NSObject::isNumber(*value) &&
                               NSObject::integerValue(*value) > 1'000'000;
        const bool isTaken = key == u"title" && value->toString() == u"taken";
        const bool isUnpaid = key == u"isPaid" && isLocked && !value->toBool();
        const bool isLate = key == u"due" && isLocked;
        if (!isTooMuch && !isTaken && !isUnpaid && !isLate)
            return true;
        if (error)
            *error = NSError(QStringLiteral("Expenses"), 1, QStringLiteral("The book refuses."));
        return false;
    }

    bool isLocked = false;
    int sets = 0;
    QString note;

Q_SIGNALS:
    void titleChanged();
    void amountChanged();
    void isPaidChanged();
    void countChanged();
    void dueChanged();
    void nextChanged();

private:
    QString _title;
    QVariant _amount;
    bool _isPaid = false;
    int _count = 0;
    QVariant _due;
    Expense *_next = nullptr;
    std::optional<int> _limit;
};
