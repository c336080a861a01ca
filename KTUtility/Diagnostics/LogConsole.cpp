#include "LogConsole_p.h"

#include <KTUtility/Platform/Diagnostics/NSLog.h>
#include <KTUtility/Platform/Text/VisibleText_p.h>

using namespace KTPrivate;

void KTPrivate::writeToConsole(ConsoleLine form, QStringView component, std::string_view fileName,
                               int lineNumber, QStringView message)
{
    // What the message took from its arguments is visible text by now; line breaks of its format
    // stay.
    const QString name = visibleText(component);
    if (form == ConsoleLine::Plain) {
        NSLogText(NSString::stringWithFormat(u"[%@] %@", name, message));
        return;
    }
    const QString file =
        visibleText(QString::fromUtf8(fileName.data(), qsizetype(fileName.size())));
    NSLogText(NSString::stringWithFormat(u"[%@:%d][%@] %@", file, lineNumber, name, message));
}
