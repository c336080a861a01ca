#include "NSAssertionHandler.h"

#include "NSLog.h"
#include <KTUtility/Platform/Values/NSException.h>

#include <QObject>

using namespace Qt::StringLiterals;

namespace {
thread_local NSAssertionHandler *replacement = nullptr;
}

NSAssertionSubject::NSAssertionSubject(const QObject *object)
    : _className(object ? QString::fromLatin1(object->metaObject()->className()) : u"(null)"_s)
{
}

NSAssertionHandler::~NSAssertionHandler() = default;

NSAssertionHandler *NSAssertionHandler::currentHandler()
{
    static NSAssertionHandler standard;
    return replacement ? replacement : &standard;
}

void NSAssertionHandler::setCurrentHandler(NSAssertionHandler *handler)
{
    replacement = handler;
}

void NSAssertionHandler::handleFailureInMethod(const QString &method,
                                               const NSAssertionSubject &object,
                                               const QString &file, int lineNumber,
                                               const QString &description,
                                               std::span<const NSFormatArgument> arguments)
{
    NSLog(u"*** Assertion failure in %@[%@ %@], %@:%d", object.isClass() ? u"+" : u"-",
          object.className(), method, file, lineNumber);
    NSException::raise(NSInternalInconsistencyException,
                       NSString::stringWithFormatArguments(description, arguments));
}
