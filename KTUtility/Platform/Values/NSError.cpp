#include "NSError.h"

#include "NSStringFormat.h"

using namespace Qt::StringLiterals;

const QString NSCocoaErrorDomain = u"NSCocoaErrorDomain"_s;

QString NSError::description() const
{
    if (isNil())
        return {};
    return NSString::stringWithFormat(u"Error Domain=%@ Code=%d \"%@\"", _domain, _code,
                                      _localizedDescription);
}
