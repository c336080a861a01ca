#include "NSError.h"

#include "NSStringFormat.h"

const QString NSCocoaErrorDomain = QStringLiteral("NSCocoaErrorDomain");

QString NSError::description() const
{
    if (isNil())
        return {};
    return NSString::stringWithFormat(u"Error Domain=%@ Code=%d \"%@\"", _domain, _code,
                                      _localizedDescription);
}
