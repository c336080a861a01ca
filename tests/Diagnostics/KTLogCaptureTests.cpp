#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLogger>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(KTLogCapture, RestoresWhatWasThere)
{
    KTLogger *logger = KTLogger::sharedLogger();
    const auto before = logger->components();
    {
        KTLogCapture outer(kLog_Undo, 2);
        {
            KTLogCapture inner(kLog_Printing, 7);
            KTLog(kLog_Printing, 7, u"inner");
            KTLog(kLog_Undo, 2, u"also inner");
            EXPECT_EQ(inner.messages().size(), 2);
            inner.clear();
            EXPECT_TRUE(inner.entries().isEmpty());
        }
        KTLog(kLog_Printing, 7, u"nobody");
        KTLog(kLog_Undo, 2, u"outer");
        EXPECT_EQ(outer.messages(), QStringList{u"outer"_s});
        outer.setLevelOfComponent(3, kLog_Printing);
        KTLog(kLog_Printing, 3, u"more");
        EXPECT_EQ(outer.messages().size(), 2);
    }
    EXPECT_EQ(logger->components(), before);
    EXPECT_FALSE(logger->shouldLogComponent(kLog_Undo, 1));
}

TEST(KTLogCapture, SettingsThatChangeMeanwhileAreSavedWithoutIt)
{
    testing_support::useFreshHome();
    KTLogger logger;
    {
        KTLogCapture capture(kLog_Tests, 7, &logger);
        logger.setLevelOfComponent(5, kLog_Printing);
        EXPECT_TRUE(logger.shouldLogComponent(kLog_Tests, 7));
        EXPECT_TRUE(logger.shouldLogComponent(kLog_Printing, 5));
    }
    EXPECT_EQ(logger.levelOfComponent(kLog_Tests), 0);
    EXPECT_EQ(logger.levelOfComponent(kLog_Printing), 5);
    const QVariantMap expected{{kLog_Printing, 5}};
    EXPECT_EQ(logger.components(), std::optional(expected));
    EXPECT_EQ(KTLogger().components().value_or(QVariantMap()).keys(), expected.keys());
}
