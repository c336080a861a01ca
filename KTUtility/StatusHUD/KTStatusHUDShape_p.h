#pragma once

/// How far the corners of the panel are rounded, in pixels: of what is seen, and of what the window
/// system is asked to show.
inline constexpr float KTStatusHUDCornerRadius = 8;
