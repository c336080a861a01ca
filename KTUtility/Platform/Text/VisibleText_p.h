#pragma once

// Private to the library. For lines of logs, in which what a text holds must not look like a line of
// its own.

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringView>

namespace KTPrivate {
/// Whether a text holds line breaks, control characters or such that change the direction of
/// writing.
KTUTILITY_EXPORT bool holdsControls(QStringView text);

/// A text in which these are escapes: "\n", "\r", "\t", "\u001b". Everything else stays, also a
/// backslash.
KTUTILITY_EXPORT QString visibleText(QStringView text);
} // namespace KTPrivate
