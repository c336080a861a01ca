#pragma once

#include <KTUtility/NSDecimalNumber>

#include <QDateTime>
#include <QObject>
#include <QString>

#include <optional>

/// What somebody has paid, or will. Each key is read, set and observed by its name.
class Expense : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString title MEMBER title NOTIFY titleChanged)
    Q_PROPERTY(std::optional<NSDecimalNumber> amount MEMBER amount NOTIFY amountChanged)
    Q_PROPERTY(std::optional<QDateTime> date MEMBER date NOTIFY dateChanged)
    Q_PROPERTY(std::optional<qint64> seconds MEMBER seconds NOTIFY secondsChanged)
    Q_PROPERTY(QString phone MEMBER phone NOTIFY phoneChanged)
    Q_PROPERTY(bool isPaid MEMBER isPaid NOTIFY isPaidChanged)

public:
    using QObject::QObject;

    QString title;
    std::optional<NSDecimalNumber> amount;
    std::optional<QDateTime> date;
    std::optional<qint64> seconds; ///< that it took
    QString phone;                 ///< whom to ask about it
    bool isPaid = false;

Q_SIGNALS:
    void titleChanged();
    void amountChanged();
    void dateChanged();
    void secondsChanged();
    void phoneChanged();
    void isPaidChanged();
};
