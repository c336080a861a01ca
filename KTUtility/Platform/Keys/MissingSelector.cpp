#include "MissingSelector_p.h"

#include "Invoker.h"
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Diagnostics/NSLog.h>

#include <QSet>

using namespace KTPrivate;

namespace {
/// Why a selector cannot be sent; nil if it can.
QString reasonNotToSend(const QObject *receiver, const NSSelector &selector, int arguments)
{
    try {
        if (Invoker::respondsTo(KeyValueTarget::of(receiver), selector, arguments))
            return {};
    } catch (...) {
        return reasonOfException();
    }
    return NSString::stringWithFormat(u"-[%s %@]: there is no such method",
                                      receiver->metaObject()->className(), selector.text());
}
} // namespace

void KTPrivate::reportMissingSelector(const QObject *receiver, const NSSelector &selector,
                                      int arguments, QStringView use)
{
    if (!receiver || selector.isNull())
        return;
    const QString reason = reasonNotToSend(receiver, selector, arguments);
    static QSet<QString> told;
    if (reason.isNull() || told.contains(reason))
        return;
    told.insert(reason);
    NSLog(u"*** %@: %@", use, reason);
}
