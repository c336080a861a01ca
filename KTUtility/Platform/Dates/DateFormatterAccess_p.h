#pragma once

// Private to the library. For those that try many date formatters on one text.

#include "DateText_p.h"
#include "NSDateFormatter.h"

#include <optional>

namespace KTPrivate {
/// Formatters for those that try many of them on one text.
///
/// The text is looked at once, in an DateText; an attempt that cannot succeed then costs a few
/// nanoseconds, since it makes nothing: no variant, no error, no copy of the text.
///
/// \code
/// const DateText text(typed);
/// DateMatch match;
/// for (const NSDateFormatter *formatter : formatters) {
///     if (DateFormatterAccess::parse(*formatter, text, &match) && match.length == text.length())
///         return DateFormatterAccess::dateOf(*formatter, match.time);
/// }
/// \endcode
class KTUTILITY_EXPORT DateFormatterAccess
{
public:
    /// Reads a date from the start of \a text, as getObjectValue() with a range does.
    /// \param match receives the instant and the length; on failure only the length.
    static bool parse(const NSDateFormatter &formatter, const DateText &text, DateMatch *match);
    /// Sets a pattern that begins with that of a style: its "yy" takes four digits, too.
    static void setFormatOfStyle(NSDateFormatter &formatter, const QString &format);
    /// The date that \a formatter makes of an instant.
    static QDateTime dateOf(const NSDateFormatter &formatter, qint64 time);

    // --- The two ways of working, apart, for tests and measurements

    /// What reading without ICU says: true, false, or nothing if only ICU can decide.
    static std::optional<bool> parseWithoutICU(const NSDateFormatter &formatter,
                                               const DateText &text, DateMatch *match);
    static bool parseWithICU(const NSDateFormatter &formatter, const DateText &text,
                             DateMatch *match);
    /// Null if only ICU can decide.
    static QString stringWithoutICU(const NSDateFormatter &formatter, const QDateTime &date);
    static QString stringWithICU(const NSDateFormatter &formatter, const QDateTime &date);

    /// The clock that natural language asks what now is, in milliseconds since 1970; null is the
    /// system's.
    static void setClock(qint64 (*clock)());
};
} // namespace KTPrivate
