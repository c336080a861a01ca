#include "NSException.h"

const QString NSInternalInconsistencyException = QStringLiteral("NSInternalInconsistencyException");
const QString NSInvalidArgumentException = QStringLiteral("NSInvalidArgumentException");
const QString NSRangeException = QStringLiteral("NSRangeException");
const QString NSUndefinedKeyException = QStringLiteral("NSUnknownKeyException");

NSException::NSException(const QString &name, const QString &reason)
    : _name(name), _reason(reason), _what((name + QStringLiteral(": ") + reason).toUtf8())
{
}

NSException::NSException(const NSException &other) noexcept = default;
NSException &NSException::operator=(const NSException &other) noexcept = default;
NSException::~NSException() = default;

const char *NSException::what() const noexcept
{
    return _what.constData();
}

void NSException::raise(const QString &name, const QString &reason)
{
    throw NSException(name, reason);
}
