#pragma once

// Private to the library. UTC, in the form that each version of Qt takes without a warning.

#include <QTimeZone>
#include <QtGlobal>

namespace KTPrivate {
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
inline constexpr QTimeZone::Initialization UTC = QTimeZone::UTC;
#else
inline constexpr Qt::TimeSpec UTC = Qt::UTC;
#endif
} // namespace KTPrivate
