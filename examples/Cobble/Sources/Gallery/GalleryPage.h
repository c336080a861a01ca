#pragma once

#include <QImage>
#include <QList>
#include <QString>

/// A picture of what the framework draws.
struct GalleryPicture
{
    /// The name of its file, without extension.
    QString name;
    /// What it shows.
    QString title;
    QImage image;
};

// The gallery: each helper that draws, as its users see it. Sharp on the sharpest screen.

namespace Gallery {
/// Every picture. Needs a QApplication, and may show windows for a moment.
QList<GalleryPicture> pictures();
/// All of them on one page with their titles.
QImage pageOf(const QList<GalleryPicture> &pictures);
} // namespace Gallery
