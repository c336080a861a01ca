#include <KTUtility/NSColor_KTAdditions>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSColor_KTAdditions, TextsAreRedGreenBlueAndAlpha)
{
    EXPECT_EQ(KTAdditions::ktColorWithString(u"1 0.5 0 1"_s), QColor::fromRgbF(1, 0.5F, 0));
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor(Qt::red)), u"1 0 0 1"_s);
}
