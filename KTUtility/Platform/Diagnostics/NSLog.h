#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <span>

/// Writes one line to standard error: "YYYY-MM-DD HH:MM:SS.mmm name[pid:thread] text", local time,
/// the thread's kernel identifier in hexadecimal, UTF-8. One write call a line, so that lines of
/// several threads do not mix. A line that cannot be written is dropped.
KTUTILITY_EXPORT void NSLogText(QStringView text);

/// Formats and writes as NSLog() does.
KTUTILITY_EXPORT void NSLogArguments(QStringView format,
                                     std::span<const NSFormatArgument> arguments);

/// Formats as NSString::stringWithFormat() does and writes the text as NSLogText() does. What stands
/// in the arguments cannot look like a line of its own: line breaks and control characters in them
/// are escapes ("\n", "\u001b"); those of the format stay.
///
/// \code
/// NSLog(u"%@ read in %d ms", path, elapsed);
/// // 2026-11-15 16:28:00.123 cobble[4711:1267] /tmp/contacts.csv read in 12 ms
/// \endcode
template<typename... Arguments>
void NSLog(QStringView format, const Arguments &...arguments)
{
    if constexpr (sizeof...(Arguments) == 0) {
        NSLogArguments(format, {});
    } else {
        const NSFormatArgument collected[] = {NSFormatArgument(arguments)...};
        NSLogArguments(format, collected);
    }
}
