#include "Importing/WorkThread.h"

#include "support/NoThreads.h"
#include "support/TestSupport.h"

#include <QCoreApplication>
#include <QTimer>

#include <atomic>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;

TEST(WorkThread, WorksElsewhereWhileEventsAreHandled)
{
    testing_support::needApplication();
    const std::thread::id here = std::this_thread::get_id();
    std::thread::id there;
    std::atomic<bool> isHandled = false;
    int looks = 0;
    QTimer::singleShot(0, [&] { isHandled = true; });
    WorkThread::run(
        [&] {
            there = std::this_thread::get_id();
            // Ends only because the other thread goes on.
            while (!isHandled)
                std::this_thread::yield();
        },
        [&] { ++looks; }, 1);
    EXPECT_TRUE(isHandled);
    EXPECT_NE(there, here);
    EXPECT_GE(looks, 1);
}

TEST(WorkThread, WhatTheWorkThrowsIsThrown)
{
    testing_support::needApplication();
    EXPECT_THROW(WorkThread::run([] { throw std::runtime_error("thrown"); }, [] {}, 1),
                 std::runtime_error);
}

TEST(WorkThread, EndsWhereALookHandlesWhatTheWorkLeaves)
{
    testing_support::needApplication();
    std::atomic<bool> isDone = false;
    bool isFirst = true;
    WorkThread::run([&] { isDone = true; },
                    [&] {
                        // As a window does that shows how far it is, when the work ends at once.
                        while (isFirst && !isDone)
                            std::this_thread::yield();
                        for (int turn = 0; isFirst && turn < 10'000; ++turn) {
                            std::this_thread::yield();
                            QCoreApplication::processEvents();
                        }
                        isFirst = false;
                    },
                    1'000'000);
    EXPECT_TRUE(isDone);
    EXPECT_FALSE(isFirst);
}

TEST(WorkThread, WorksHereWhereNoThreadStarts)
{
    testing_support::needApplication();
    const testing_support::NoThreads none;
    std::thread::id there;
    int looks = 0;
    WorkThread::run([&] { there = std::this_thread::get_id(); }, [&] { ++looks; }, 1);
    EXPECT_EQ(there, std::this_thread::get_id());
    EXPECT_EQ(looks, 1);
    EXPECT_THROW(WorkThread::run([] { throw std::runtime_error("thrown"); }, [] {}, 1),
                 std::runtime_error);
}

TEST(WorkThread, WhatThrowsWhileItWorksWaitsForIt)
{
    testing_support::needApplication();
    std::atomic<bool> isDone = false;
    EXPECT_THROW(WorkThread::run(
                     [&] {
                         for (int turn = 0; turn < 10'000; ++turn)
                             std::this_thread::yield();
                         isDone = true;
                     },
                     [] { throw std::runtime_error("thrown"); }, 1),
                 std::runtime_error);
    EXPECT_TRUE(isDone);
}
