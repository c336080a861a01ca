#include "Importing/WorkThread.h"

#include "support/TestSupport.h"

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
