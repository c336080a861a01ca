#pragma once

#include <QImage>

// Samples of views and windows.

/// The status display over a table.
QImage drawStatusDisplay();
/// The same in large type.
QImage drawLargeStatusDisplay();
/// A form with the focus in its second field.
QImage drawFocusRingView();
/// A text in a scroll view, with the focus.
QImage drawFocusRingScrollView();
/// The slider at three values.
QImage drawSlider();
