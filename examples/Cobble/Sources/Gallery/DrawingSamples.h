#pragma once

#include <QImage>

// Samples of what is drawn into pictures.

/// Each number of characters that a badge may have, and one more.
QImage drawBadges();
/// Radii from none to more than fits.
QImage drawRoundedRectangles();
/// Shades of single colours, and a change from one to another.
QImage drawGradients();
/// A picture as it is, flipped, turned, and with a badge.
QImage drawPictures();
