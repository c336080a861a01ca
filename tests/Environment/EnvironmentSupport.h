#pragma once

#include <KTUtility/NSLocale>

#include <QByteArray>
#include <QString>
#include <QTimeZone>

// What the tests of the environment share.

namespace environment_support {
/// The locale that the environment is expected to give, "ja_JP@calendar=japanese"; nil if nobody
/// has said which (KTUTILITY_TEST_LOCALE).
QString expectedLocale();

/// Calendars are no part of the environment's locale: an application chooses them, as the host does
/// for --locale. Chooses that of expectedLocale().
void chooseCalendar();

/// The zone of the environment, as Qt itself reads it.
QTimeZone zone();

/// "2008-03-04T17:30:00" in the zone.
QString wallTime(const QDateTime &date);
} // namespace environment_support
