#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QColor>
#include <QString>

/// Colors as texts: red, green, blue and alpha as decimal numbers from 0 to 1 with "." in every
/// locale, with a space between.
///
/// \code
/// KTAdditions::ktColorWithString(u"1 0.5 0 1"_s);    // orange
/// KTAdditions::ktStringRepresentation(QColor(Qt::red));           // "1 0 0 1"
/// \endcode
namespace KTAdditions {
/// The color of a text. Components that are missing are 0, a missing alpha is 1; numbers below 0
/// are 0, above 1 are 1, and what is no number is 0.
KTUTILITY_EXPORT QColor ktColorWithString(const QString &string);

/// The text of a color, as short as keeps its components. Colors of other models are converted to
/// red, green and blue first; an invalid color is transparent black, "0 0 0 0".
KTUTILITY_EXPORT QString ktStringRepresentation(const QColor &receiver);
} // namespace KTAdditions
