#pragma once

#include <KTUtility/KTUtilityExport.h>

/// What the desktop wants of all programs.
namespace NSWorkspace {
/// Whether nothing should move that need not: the style, which has it from the desktop's settings,
/// gives animations no time (QStyle::SH_Widget_Animation_Duration is 0). False without a
/// QApplication, and where neither style nor desktop has such a setting.
KTUTILITY_EXPORT bool accessibilityDisplayShouldReduceMotion();
} // namespace NSWorkspace
