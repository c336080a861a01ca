#pragma once

namespace KTPrivate {
/// Lets Qt's variants convert decimals to and from texts and all arithmetic types; happens when the
/// library is loaded.
/// \return false if there were such conversions already.
bool addDecimalConversions();
} // namespace KTPrivate
