#pragma once

// Private to the library. For formatters of dates, which show what applications keep dates in.

#include "NSDateFormatter.h"

#include <QDateTime>
#include <QVariant>

namespace KTPrivate {
/// What a formatter shows for a value: a QDateTime itself, a QDate as the beginning of that day in
/// the formatter's zone, and a QTime if the formatter shows nothing but times.
/// \return an invalid one for anything else.
QDateTime shownInstant(const QVariant &value, const NSDateFormatter &formatter);
} // namespace KTPrivate
