#pragma once

#include <KTUtility/KTUtilityExport.h>

class QFont;
class QMenu;

/// Where the items of a menu lie, before it is shown.
///
/// \code
/// QMenu menu;
/// menu.addAction(u"Cut"_s);
/// menu.addSeparator();
/// // In a font whose bounding rectangle is 20 high:
/// KTAdditions::heightAdjustmentForItemAtIndex(menu, 0, font);    // 15
/// KTAdditions::heightAdjustmentForItemAtIndex(menu, 1, font);    // 26
/// \endcode
namespace KTAdditions {
/// The height of the items of \a receiver from the first up to and including one, or of all if
/// there are not so many; 0 for a negative index. An item is as high as the bounding rectangle of
/// the font (NSFont::boundingRectForFont()), a separator 16, each less 5.
KTUTILITY_EXPORT float heightAdjustmentForItemAtIndex(const QMenu &receiver, int index,
                                                      const QFont &withFont);
} // namespace KTAdditions
