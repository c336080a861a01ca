#include "TypedDecimal_p.h"

#include <KTUtility/Platform/Files/NSBundle.h>

using namespace KTPrivate;

QString TypedDecimal::translatedReason() const
{
    QString text = NSBundle::mainBundle().localizedStringForKey(reason);
    for (const QString &argument : reasonArguments)
        text = text.arg(argument);
    return text;
}
