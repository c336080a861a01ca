#include "KTReadResult.h"

#include <KTUtility/Platform/Files/NSBundle.h>

using namespace Qt::StringLiterals;

KTReadResult KTReadResult::rejected(const QString &reason)
{
    const auto anyReason = [] {
        return NSBundle::mainBundle().localizedStringForKey(u"The text cannot be read."_s);
    };
    return {QVariant(), reason.isEmpty() ? anyReason() : reason, false};
}
