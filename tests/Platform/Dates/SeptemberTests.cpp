#include <KTUtility/Platform/Dates/September_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace testing_support;

TEST(September, WritesTheMonthInFull)
{
    EXPECT_EQ(September(u"Sep 5").text(), u"September 5");
    EXPECT_EQ(September(u"5 sept").text(), u"5 September");
    EXPECT_EQ(September(u"SEPT. 5").text(), u"September. 5");
    EXPECT_EQ(September(u"sep,sept").text(), u"September,September");
    EXPECT_EQ(September(u"5sep08").text(), u"5September08");
}

TEST(September, LeavesOtherWordsAlone)
{
    for (const char16_t *const text : {u"", u"September 5", u"septic", u"Mar 5", u"se p", u"5"}) {
        const September september{QStringView(text)};
        EXPECT_EQ(september.text(), QStringView(text));
        EXPECT_EQ(september.lengthInSource(september.text().size()), QStringView(text).size());
    }
}

TEST(September, KnowsPlacesInTheSource)
{
    const September september(u"5 Sep at Sept end");
    EXPECT_EQ(september.text(), u"5 September at September end");
    EXPECT_EQ(september.lengthInSource(0), 0);
    EXPECT_EQ(september.lengthInSource(2), 2);
    EXPECT_EQ(september.lengthInSource(11), 5);
    EXPECT_EQ(september.lengthInSource(15), 9);
    EXPECT_EQ(september.lengthInSource(24), 13);
    EXPECT_EQ(september.lengthInSource(28), 17);
}

TEST(September, SurvivesHostileTexts)
{
    for (const QString &text : hostileTexts()) {
        const September september{QStringView(text)};
        EXPECT_EQ(september.lengthInSource(september.text().size()), text.size());
    }
}
