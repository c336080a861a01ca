#include "DataSupport.h"

using namespace Qt::StringLiterals;

using testing_support::DataCommandTest;

namespace {
class UndoCommandTests : public DataCommandTest
{
};
} // namespace

TEST_F(UndoCommandTests, TakesTheLastStepBackAndDoesItAgain)
{
    done({u"set"_s, u"People"_s, u"1"_s, u"Age=5"_s});
    EXPECT_EQ(done({u"undo"_s}), u"Undid step 4 (edit: People, Age, 1)\n"_s);
    EXPECT_EQ(valuesOf(u"Age"_s).first().toInt(), 31);
    EXPECT_EQ(done({u"redo"_s}), u"Redid step 4 (edit: People, Age, 1)\n"_s);
    EXPECT_EQ(valuesOf(u"Age"_s).first().toInt(), 5);
}

TEST_F(UndoCommandTests, GoesBackToTheBeginning)
{
    for (int step = 3; step >= 1; --step)
        EXPECT_EQ(doneAsJSON({u"undo"_s}).value(u"step"_s).toInt(), step);
    EXPECT_EQ(failed({u"undo"_s}), u"4 there is nothing to undo"_s);
    EXPECT_EQ(doneAsJSON({u"show"_s}).value(u"libraries"_s).toArray(), QJsonArray());
    for (int step = 1; step <= 3; ++step)
        EXPECT_EQ(doneAsJSON({u"redo"_s}).value(u"step"_s).toInt(), step);
    EXPECT_EQ(failed({u"redo"_s}), u"4 there is nothing to redo"_s);
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray({u"Ann"_s, u"Bob"_s}));
}

TEST_F(UndoCommandTests, TakesAStepBackThatIsNotTheLast)
{
    done({u"set"_s, u"People"_s, u"1"_s, u"Age=5"_s});
    done({u"set"_s, u"People"_s, u"2"_s, u"Age=6"_s});
    done({u"undo"_s, u"4"_s});
    EXPECT_EQ(valuesOf(u"Age"_s), QJsonArray({31, 6}));
    EXPECT_EQ(failed({u"undo"_s, u"4"_s}), u"5 it was undone already"_s);
    EXPECT_EQ(failed({u"redo"_s, u"5"_s}), u"5 it was not undone"_s);
}

TEST_F(UndoCommandTests, RefusesWhatWasChangedSince)
{
    done({u"set"_s, u"People"_s, u"1"_s, u"Age=5"_s});
    done({u"set"_s, u"People"_s, u"1"_s, u"Age=6"_s});
    EXPECT_EQ(failed({u"undo"_s, u"4"_s}),
              u"5 step 4: it was changed since, so that it cannot be undone"_s);
}

TEST_F(UndoCommandTests, ListsTheSteps)
{
    done({u"undo"_s});
    const QStringList lines = done({u"undo"_s, u"--list"_s}).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 4);
    EXPECT_TRUE(lines.first().startsWith(u"Step  Time "_s));
    EXPECT_TRUE(lines.at(1).startsWith(u"1  "_s));
    EXPECT_TRUE(lines.at(1).contains(u"  done    newLibrary  People"_s));
    EXPECT_TRUE(lines.at(3).contains(u"  undone  insert      People, 1"_s));
    const QJsonArray steps = doneAsJSON({u"undo"_s, u"--list"_s}).value(u"steps"_s).toArray();
    ASSERT_EQ(steps.size(), 3);
    EXPECT_EQ(steps[2][u"done"], QJsonValue(false));
    EXPECT_EQ(steps[2][u"count"].toInt(), 1);
    EXPECT_EQ(steps[0][u"library"].toString(), u"People"_s);
}

TEST_F(UndoCommandTests, TakesAnImportBack)
{
    tree.add(u"a.csv"_s, "Name\nAnn\n");
    done({u"import"_s, tree.path(u"a.csv"_s)});
    EXPECT_EQ(doneAsJSON({u"undo"_s}).value(u"kind"_s).toString(), u"import"_s);
    EXPECT_EQ(doneAsJSON({u"show"_s}).value(u"libraries"_s).toArray().size(), 1);
}

TEST_F(UndoCommandTests, FailsWithACodeThatSaysWhy)
{
    EXPECT_EQ(failed({u"undo"_s, u"99"_s}), u"4 no step 99"_s);
    EXPECT_EQ(failed({u"undo"_s, u"x"_s}), u"2 cobble: 'x' is no number of a step"_s);
    EXPECT_EQ(failed({u"redo"_s, u"1"_s, u"2"_s}), u"2 cobble: '2' is no number of a step"_s);
    bundle = tree.path(u"none.cobbledb"_s);
    EXPECT_EQ(run({u"undo"_s, u"--list"_s}).exitCode, 4);
}
