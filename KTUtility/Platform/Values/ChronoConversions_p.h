#pragma once

namespace KTPrivate {
/// Lets Qt's variants convert lengths of time (std::chrono::duration) to and from numbers of seconds:
/// the formatter of durations reads seconds, records may keep minutes. Happens when the library is
/// loaded.
/// \return false if there were such conversions already.
bool addChronoConversions();
} // namespace KTPrivate
