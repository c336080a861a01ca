#pragma once

#include <QColor>
#include <QImage>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

// What tests of drawing share.
namespace testing_support {
inline constexpr qreal NotANumber = std::numeric_limits<qreal>::quiet_NaN();
inline constexpr qreal Infinite = std::numeric_limits<qreal>::infinity();

inline bool areClose(const QColor &left, const QColor &right, int tolerance)
{
    return std::abs(left.red() - right.red()) <= tolerance &&
           std::abs(left.green() - right.green()) <= tolerance &&
           std::abs(left.blue() - right.blue()) <= tolerance &&
           std::abs(left.alpha() - right.alpha()) <= tolerance;
}

inline QImage solid(int width, int height, const QColor &color)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

/// The pixel at a place counted from the bottom left.
inline QColor pixelFromBottom(const QImage &image, int x, int y)
{
    return image.pixelColor(x, image.height() - 1 - y);
}

/// A picture whose four quarters differ: red and green below, blue and white above.
inline QImage quarters(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool isLeft = x < width / 2;
            const bool isBelow = y >= height / 2;
            image.setPixelColor(
                x, y, isBelow ? (isLeft ? Qt::red : Qt::green) : (isLeft ? Qt::blue : Qt::white));
        }
    }
    return image;
}

/// Whether two pictures differ by rounding only.
inline bool areAlike(const QImage &left, const QImage &right, int tolerance = 1)
{
    bool alike = left.size() == right.size();
    for (int y = 0; alike && y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x)
            alike = alike && areClose(left.pixelColor(x, y), right.pixelColor(x, y), tolerance);
    return alike;
}

/// How many pixels are not wholly transparent.
inline int inkOf(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y).alpha() > 0 ? 1 : 0;
    return count;
}
} // namespace testing_support

#define EXPECT_COLOR(actual, expected, tolerance)                                                  \
    EXPECT_TRUE(testing_support::areClose(actual, expected, tolerance))                            \
        << QColor(actual).name(QColor::HexArgb).toStdString() << " is not "                        \
        << QColor(expected).name(QColor::HexArgb).toStdString()
