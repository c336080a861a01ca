#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QStringView>

namespace KTPrivate {
/// The length of the longest tag or declaration in an XML text. Parsers compare each attribute of a
/// tag with each other one, so that a long tag takes the square of its length; this takes one look
/// at each character. Comments, instructions and character data are no tags, however long.
/// \return what is longest up to the first thing that no XML text has; parsers stop there, too.
KTUTILITY_EXPORT qsizetype longestXMLTag(QStringView text);
} // namespace KTPrivate
