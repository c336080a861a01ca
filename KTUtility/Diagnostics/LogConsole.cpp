#include "LogConsole_p.h"

#include <KTUtility/Platform/Diagnostics/NSLog.h>

void KTPrivate::writeToConsole(ConsoleLine form, QStringView component, std::string_view fileName,
                               int lineNumber, QStringView message)
{
    if (form == ConsoleLine::WithFileAndLine)
        NSLog(u"[%@:%d][%@] %@", fileName, lineNumber, component, message);
    else
        NSLog(u"[%@] %@", component, message);
}
