// Pictures of the ground floor, and the coordinates they are drawn in.

#include <KTUtility/CIImage>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

using namespace testing_support;

TEST(CIImage, CoversItsPixels)
{
    EXPECT_TRUE(CIImage().isNull());
    EXPECT_TRUE(CIImage().extent().isEmpty());
    EXPECT_EQ(CIImage(quarters(6, 4), {-3, 2}).extent(), QRectF(-3, 2, 6, 4));
}
