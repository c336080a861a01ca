#include <KTUtility/Platform/Dates/NSSeptember_p.h>

#include "support/TestSupport.h"

using namespace testing_support;

TEST(NSSeptember, WritesTheMonthInFull)
{
    EXPECT_EQ(NSSeptember(u"Sep 5").text(), u"September 5");
    EXPECT_EQ(NSSeptember(u"5 sept").text(), u"5 September");
    EXPECT_EQ(NSSeptember(u"SEPT. 5").text(), u"September. 5");
    EXPECT_EQ(NSSeptember(u"sep,sept").text(), u"September,September");
    EXPECT_EQ(NSSeptember(u"5sep08").text(), u"5September08");
}

TEST(NSSeptember, LeavesOtherWordsAlone)
{
    for (const char16_t *const text : {u"", u"September 5", u"septic", u"Mar 5", u"se p", u"5"}) {
        const NSSeptember september{QStringView(text)};
        EXPECT_EQ(september.text(), QStringView(text));
        EXPECT_EQ(september.lengthInSource(september.text().size()), QStringView(text).size());
    }
}

TEST(NSSeptember, KnowsPlacesInTheSource)
{
    const NSSeptember september(u"5 Sep at Sept end");
    EXPECT_EQ(september.text(), u"5 September at September end");
    EXPECT_EQ(september.lengthInSource(0), 0);
    EXPECT_EQ(september.lengthInSource(2), 2);
    EXPECT_EQ(september.lengthInSource(11), 5);
    EXPECT_EQ(september.lengthInSource(15), 9);
    EXPECT_EQ(september.lengthInSource(24), 13);
    EXPECT_EQ(september.lengthInSource(28), 17);
}

TEST(NSSeptember, SurvivesHostileTexts)
{
    for (const QString &text : hostileTexts()) {
        const NSSeptember september{QStringView(text)};
        EXPECT_EQ(september.lengthInSource(september.text().size()), text.size());
    }
}
