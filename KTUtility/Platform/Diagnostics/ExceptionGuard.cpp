#include "ExceptionGuard_p.h"

#include "NSLog.h"
#include <KTUtility/Platform/Values/NSException.h>

#include <exception>

using namespace Qt::StringLiterals;

namespace {
const QString UnknownException = u"unknown exception"_s;

QString textOr(const QString &text, const QString &other)
{
    return text.isEmpty() ? other : text;
}

/// What handlers say of an exception: its name, too, if it has one.
QString textOfException()
{
    try {
        throw;
    } catch (const std::exception &failure) {
        return textOr(QString::fromUtf8(failure.what()), UnknownException);
    } catch (...) {
        return UnknownException;
    }
}
} // namespace

QString KTPrivate::reasonOfException()
{
    try {
        throw;
    } catch (const NSException &exception) {
        return textOr(exception.reason(), textOr(exception.name(), UnknownException));
    } catch (...) {
        return textOfException();
    }
}

void KTPrivate::logException(QStringView where, QStringView name)
{
    const QString text = textOfException();
    if (name.isEmpty())
        NSLog(u"*** exception in %@: %@", where, text);
    else
        NSLog(u"*** exception in %@ %@: %@", where, name, text);
}
