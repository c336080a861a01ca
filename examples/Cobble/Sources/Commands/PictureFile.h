#pragma once

#include "Text/Outcome.h"

#include <QImage>

/// Writes a picture to a file (PNG), which appears when it is whole.
///
/// \code
/// writePicture(image, u"/no/such/folder/a.png"_s).reason();    // "No such file or directory"
/// \endcode
Outcome<> writePicture(const QImage &image, const QString &path);
