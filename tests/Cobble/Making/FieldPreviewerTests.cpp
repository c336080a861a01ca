#include "Making/FieldPreviewer.h"

#include "Cobble/Journal/StoreSupport.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
class FieldPreviewerTests : public testing_support::StoreTest
{
protected:
    FieldPreviewerTests()
        : plan(people), previewer(bundle), changes(&previewer, &FieldPreviewer::changed)
    {
    }
    bool isFound()
    {
        return QTest::qWaitFor([this] { return previewer.preview().has_value(); });
    }

    FieldPlan plan;
    FieldPreviewer previewer;
    QSignalSpy changes;
};
} // namespace

TEST_F(FieldPreviewerTests, NothingToLookAtIsKnownAtOnce)
{
    plan.rename(0, u"Who"_s);
    previewer.look(plan);
    EXPECT_TRUE(previewer.preview());
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(FieldPreviewerTests, LooksInAThread)
{
    plan.remove(1);
    previewer.look(plan);
    EXPECT_FALSE(previewer.preview());
    ASSERT_TRUE(isFound());
    EXPECT_EQ(previewer.preview()->removed.value(1), 2);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(previewer.reason(), QString());
}

TEST_F(FieldPreviewerTests, LooksOnceForTheSameValues)
{
    plan.remove(1);
    previewer.look(plan);
    ASSERT_TRUE(isFound());
    plan.rename(0, u"Who"_s);
    previewer.look(plan);
    EXPECT_TRUE(previewer.preview());
    EXPECT_EQ(changes.size(), 1);
    make([this](StepRecorder &step) { return step.remove(people, 1); });
    previewer.lookAgain(plan);
    EXPECT_FALSE(previewer.preview());
    ASSERT_TRUE(isFound());
    EXPECT_EQ(previewer.preview()->removed.value(1), 1);
}

TEST_F(FieldPreviewerTests, TheLastPlanCounts)
{
    plan.remove(1);
    previewer.look(plan);
    plan.remove(1);
    previewer.look(plan);
    ASSERT_TRUE(isFound());
    EXPECT_EQ(previewer.preview()->removed.size(), 2);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(FieldPreviewerTests, SaysWhyThereIsNone)
{
    runSQL(u"DROP TABLE "_s + people.tableName);
    plan.remove(1);
    previewer.look(plan);
    ASSERT_TRUE(QTest::qWaitFor([this] { return changes.size() == 1; }));
    EXPECT_FALSE(previewer.preview());
    EXPECT_FALSE(previewer.reason().isEmpty());
}
