#include <KTUtility/NSSelectionMarker>

#include "support/ObservedModel.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSSelectionMarker, AreValuesOfTheirOwn)
{
    EXPECT_EQ(NSNoSelectionMarker(), NSNoSelectionMarker());
    EXPECT_NE(NSNoSelectionMarker(), NSMultipleValuesMarker());
    EXPECT_TRUE(NSIsControllerMarker(NSNotApplicableMarker()));
    for (const QVariant &value : {QVariant(), QVariant(0), QVariant(u"x"_s)})
        EXPECT_FALSE(NSIsControllerMarker(value));
    EXPECT_FALSE(NSNoSelectionMarker().canConvert<int>());
    EXPECT_FALSE(NSNoSelectionMarker().canConvert<QString>());
}
