#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

/// Writes one line to standard error: "YYYY-MM-DD HH:MM:SS.mmm name[pid:thread] text", local time,
/// the thread's kernel identifier in hexadecimal, UTF-8. One write call a line, so that lines of
/// several threads do not mix. A line that cannot be written is dropped.
KTUTILITY_EXPORT void NSLogText(QStringView text);

/// Formats as NSString::stringWithFormat() does and writes the text as NSLogText() does.
///
/// \code
/// NSLog(u"%@ read in %d ms", path, elapsed);
/// // 2026-11-15 16:28:00.123 cobble[4711:1267] /tmp/contacts.csv read in 12 ms
/// \endcode
template<typename... Arguments>
void NSLog(QStringView format, const Arguments &...arguments)
{
    NSLogText(NSString::stringWithFormat(format, arguments...));
}
