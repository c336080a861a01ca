#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

#include <exception>

/// The exception of the platform: a name that says what kind of contract was broken, and a reason
/// for a person to read.
///
/// Use it only for broken contracts (an index out of range, a key that does not exist, an
/// assertion that failed). What can go wrong in normal use is reported by results.
///
/// \code
/// try {
///     NSKeyValueCoding::valueForKey(field, u"nmae"_s);
/// } catch (const NSException &exception) {
///     exception.name();   // NSUndefinedKeyException
///     exception.reason(); // "[<Field 0x…> valueForUndefinedKey:]: this class is not …"
/// }
/// \endcode
class KTUTILITY_EXPORT NSException : public std::exception
{
public:
    /// An exception that was not raised yet.
    /// \param name one of the names below, or the caller's own.
    /// \param reason the text for a person.
    NSException(const QString &name, const QString &reason);
    /// A copy, which has the same name and reason.
    NSException(const NSException &other) noexcept;
    /// Takes over name and reason.
    NSException &operator=(const NSException &other) noexcept;
    ~NSException() override;

    /// The name by which handlers tell exceptions apart.
    const QString &name() const noexcept { return _name; }
    /// The text for a person.
    const QString &reason() const noexcept { return _reason; }

    /// "name: reason" in UTF-8, for handlers that know std::exception only.
    const char *what() const noexcept override;

    /// Throws a new exception with this name and reason.
    [[noreturn]] static void raise(const QString &name, const QString &reason);

private:
    QString _name;
    QString _reason;
    QByteArray _what;
};

// The names are those of the platform; NSUndefinedKeyException is spelt as it is there.

/// "NSInternalInconsistencyException": an assertion failed.
KTUTILITY_EXPORT extern const QString NSInternalInconsistencyException;
/// "NSInvalidArgumentException": an argument that the callee can do nothing with.
KTUTILITY_EXPORT extern const QString NSInvalidArgumentException;
/// "NSRangeException": an index or a range outside of what it is applied to.
KTUTILITY_EXPORT extern const QString NSRangeException;
/// "NSUnknownKeyException": an object was asked for a key that it does not have.
KTUTILITY_EXPORT extern const QString NSUndefinedKeyException;
