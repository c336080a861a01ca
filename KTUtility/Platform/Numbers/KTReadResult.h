#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QVariant>

#include <utility>

/// A value that was read from a text, or the reason why there is none. There is always one or the
/// other: a value may be nil only where a formatter reads nil from a text, and a reason is never
/// empty.
///
/// It has the form of the standard's `std::expected`.
///
/// \code
/// const KTNumberFormatter formatter;
/// if (const KTReadResult amount = formatter.read(u"12.5"_s))
///     record.setAmount(amount.valueAs<NSDecimalNumber>());
/// else
///     statusBar()->showMessage(amount.error());
/// \endcode
class [[nodiscard]] KTReadResult
{
public:
    /// A value that was read.
    static KTReadResult read(const QVariant &value) { return {value, QString(), true}; }
    /// The reason why there is none, for people, in a sentence; "The text cannot be read.",
    /// translated in the context "Localizable", if \a reason is empty.
    KTUTILITY_EXPORT static KTReadResult rejected(const QString &reason);

    /// Whether there is a value.
    bool hasValue() const { return _isRead; }
    /// The same.
    explicit operator bool() const { return _isRead; }
    /// The value; nil if there is none.
    const QVariant &value() const { return _value; }
    /// The same.
    const QVariant &operator*() const { return _value; }
    /// The value as another type, as variants convert it.
    template<typename Value>
    Value valueAs() const
    {
        return _value.value<Value>();
    }
    /// The value, or another one if there is none.
    QVariant valueOr(const QVariant &other) const { return _isRead ? _value : other; }
    /// Why there is no value; nil if there is one.
    const QString &error() const { return _error; }

private:
    KTReadResult(QVariant value, QString error, bool isRead)
        : _value(std::move(value)), _error(std::move(error)), _isRead(isRead)
    {
    }

    QVariant _value;
    QString _error;
    bool _isRead;
};
