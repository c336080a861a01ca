#pragma once

#include <QImage>
#include <QSize>

#include <functional>

class QPainter;

// What the samples of the gallery share.

/// The size of each picture, in points.
inline constexpr QSize GallerySize(400, 240);

/// Pixels for each point: those of the sharpest screen.
qreal galleryScale();

/// A picture on a plain ground. The painter has y downwards.
QImage gallerySample(const std::function<void(QPainter &)> &draw);

/// A window with rows of a table, to have something to lie over.
void drawSampleTable(QPainter &painter);

/// A small picture whose directions can be distinguished.
QImage samplePhoto();
