#include "NSMenu_KTAdditions.h"

#include <KTUtility/Platform/AppKit/NSFont.h>

#include <QMenu>

#include <algorithm>

namespace {
constexpr float SeparatorHeight = 16;
constexpr float Overlap = 5;
} // namespace

float KTAdditions::heightAdjustmentForItemAtIndex(const QMenu &receiver, int index,
                                                  const QFont &withFont)
{
    const QList<QAction *> items = receiver.actions();
    const auto textHeight = float(NSFont::boundingRectForFont(withFont).height());
    const qsizetype count = std::min<qsizetype>(qsizetype(index) + 1, items.size());
    float height = 0;
    for (qsizetype item = 0; item < count; ++item)
        height += (items.at(item)->isSeparator() ? SeparatorHeight : textHeight) - Overlap;
    return height;
}
