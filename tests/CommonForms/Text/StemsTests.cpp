// Cases of words.

#include <KTUtility/CommonForms/Text/Stems_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;

TEST(Stems, AreCommonToCasesOfOneWord)
{
    EXPECT_EQ(commonStem(u"\u0440\u0443\u0431\u043B\u044F\u0445",
                         u"\u0440\u0443\u0431\u043B\u0435\u0439"),
              4);
    EXPECT_EQ(commonStem(u"minuterna", u"minuter"), 7);
    EXPECT_EQ(commonStem(u"dolar", u"dolari"), 5);
    EXPECT_EQ(commonStem(u"euro", u"euro"), 4);
}

TEST(Stems, AreNotCommonToOtherWords)
{
    EXPECT_EQ(commonStem(u"peso", u"peseta"), 0);
    EXPECT_EQ(commonStem(u"lev", u"leva"), 0);
    EXPECT_EQ(commonStem(u"minute", u"minutenlang"), 0);
    EXPECT_EQ(commonStem(u"", u"hour"), 0);
    EXPECT_EQ(commonStem(u"hour", u""), 0);
}
