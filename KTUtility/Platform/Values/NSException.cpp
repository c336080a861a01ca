#include "NSException.h"

using namespace Qt::StringLiterals;

const QString NSInternalInconsistencyException = u"NSInternalInconsistencyException"_s;
const QString NSInvalidArgumentException = u"NSInvalidArgumentException"_s;
const QString NSRangeException = u"NSRangeException"_s;
const QString NSUndefinedKeyException = u"NSUnknownKeyException"_s;

NSException::NSException(const QString &name, const QString &reason)
    : _name(name), _reason(reason), _what((name + u": "_s + reason).toUtf8())
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
