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
