#include "Journal/StepStack.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
class StepStackTests : public testing::Test
{
protected:
    StepStackTests()
        : stack([this](qint64 step, StepPlayer::Direction direction) {
            played += (direction == StepPlayer::Direction::Undo ? u"-"_s : u"+"_s) +
                      QString::number(step);
            return outcome;
        })
    {
        stack.add(7, {StepKinds::Paste, {}});
        stack.add(8, {StepKinds::Replace, {}});
    }

    Outcome<> outcome;
    QStringList played;
    StepStack stack;
};
} // namespace

TEST_F(StepStackTests, PlaysSteps)
{
    EXPECT_EQ(stack.undoText(), u"Replace"_s);
    EXPECT_FALSE(stack.canRedo());
    EXPECT_TRUE(stack.undo());
    EXPECT_EQ(stack.undoText(), u"Paste"_s);
    EXPECT_EQ(stack.redoText(), u"Replace"_s);
    EXPECT_TRUE(stack.undo());
    EXPECT_FALSE(stack.canUndo());
    EXPECT_TRUE(stack.undo());
    EXPECT_TRUE(stack.redo());
    EXPECT_EQ(played, QStringList({u"-8"_s, u"-7"_s, u"+7"_s}));
    stack.add(9, {StepKinds::Paste, {}});
    EXPECT_FALSE(stack.canRedo());
}

TEST_F(StepStackTests, WhatNeverCanBePlayedGoes)
{
    const Failure never = {.reason = u"no"_s, .isFinal = true};
    outcome = never;
    EXPECT_EQ(stack.undo().reason(), u"no"_s);
    EXPECT_EQ(stack.undoText(), u"Paste"_s);
    EXPECT_FALSE(stack.canRedo());
    outcome = {};
    EXPECT_TRUE(stack.undo());
    outcome = never;
    EXPECT_EQ(stack.redo().reason(), u"no"_s);
    EXPECT_FALSE(stack.canRedo());
    EXPECT_FALSE(stack.canUndo());
    EXPECT_EQ(played, QStringList({u"-8"_s, u"-7"_s, u"+7"_s}));
}

TEST_F(StepStackTests, WhatOnlyFailsStays)
{
    outcome = Failure{u"the disk is full"_s};
    EXPECT_EQ(stack.undo().reason(), u"the disk is full"_s);
    EXPECT_EQ(stack.undoText(), u"Replace"_s);
    outcome = {};
    EXPECT_TRUE(stack.undo());
    outcome = Failure{u"the disk is full"_s};
    EXPECT_FALSE(stack.redo());
    EXPECT_EQ(stack.redoText(), u"Replace"_s);
    outcome = {};
    EXPECT_TRUE(stack.redo());
    EXPECT_EQ(stack.undoText(), u"Replace"_s);
}

TEST_F(StepStackTests, WhatIsNotReadyStays)
{
    stack.setReadiness([] { return Outcome<>(Failure{u"wait"_s}); });
    EXPECT_EQ(stack.undo().reason(), u"wait"_s);
    EXPECT_EQ(stack.undoText(), u"Replace"_s);
    EXPECT_TRUE(played.isEmpty());
    stack.setReadiness({});
    EXPECT_TRUE(stack.undo());
}
