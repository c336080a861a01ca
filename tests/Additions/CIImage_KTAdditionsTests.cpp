// Pictures turned over, turned round, and badged.

#include <KTUtility/CIImage_KTAdditions>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

using namespace testing_support;

TEST(CIImage_KTAdditions, ToNSImageKeepsThePicture)
{
    const QImage picture = quarters(8, 6);
    EXPECT_EQ(KTAdditions::toNSImage(CIImage(picture)), picture);
    EXPECT_EQ(KTAdditions::toNSImage(CIImage(picture, {100, -7})), picture);
    EXPECT_TRUE(KTAdditions::toNSImage(CIImage()).isNull());
}

TEST(CIImage_KTAdditions, TheRectangleGivesTheSizeOnly)
{
    const CIImage image(quarters(8, 6));
    const QImage smaller = KTAdditions::toNSImageFromRect(image, {50, 60, 4, 3});
    EXPECT_EQ(smaller, solid(4, 3, Qt::red).convertToFormat(smaller.format()));
    const QImage larger = KTAdditions::toNSImageFromRect(image, {0, 0, 10, 12});
    EXPECT_EQ(larger.size(), QSize(10, 12));
    EXPECT_COLOR(pixelFromBottom(larger, 0, 0), Qt::red, 0);
    EXPECT_COLOR(pixelFromBottom(larger, 7, 5), Qt::white, 0);
    EXPECT_COLOR(pixelFromBottom(larger, 9, 11), Qt::transparent, 0);
}

TEST(CIImage_KTAdditions, ImpossibleSizesGiveNoPicture)
{
    const CIImage image(quarters(8, 6));
    for (const QRectF &rect :
         {QRectF(), QRectF(0, 0, -1, 5), QRectF(0, 0, NotANumber, 5), QRectF(0, 0, 20000, 20000)})
        EXPECT_TRUE(KTAdditions::toNSImageFromRect(image, rect).isNull());
}
