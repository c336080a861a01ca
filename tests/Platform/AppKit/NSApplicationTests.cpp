#include <KTUtility/NSApplication>

#include "support/TestSupport.h"

#include <QCoreApplication>
#include <QDialog>

#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

using testing_support::turn;

TEST(NSApplication, ModalSessionsNestAndEndWithTheirWindow)
{
    testing_support::needApplication();
    QWidget outer, inner;
    QStringList log;
    NSApplication::performOnNextTurn(&outer, [&] { log += u"before"_s; });
    QMetaObject::invokeMethod(
        &outer,
        [&] {
            NSApplication::performOnNextTurn(&outer, [&] { log += u"waited"_s; });
            QMetaObject::invokeMethod(
                &inner, [&] { NSApplication::stopModal(7); }, Qt::QueuedConnection);
            log += QString::number(NSApplication::runModalForWindow(&inner));
            EXPECT_EQ(NSApplication::modalWindow(), &outer);
            outer.hide();
        },
        Qt::QueuedConnection);
    log += QString::number(NSApplication::runModalForWindow(&outer));
    EXPECT_EQ(log, QStringList({u"7"_s, u"0"_s}));
    turn();
    EXPECT_EQ(log.last(), u"waited"_s);
    EXPECT_EQ(log.size(), 4);
    NSApplication::stopModal(1);
}

TEST(NSApplication, AnExceptionEndsTheModalSession)
{
    testing_support::needApplication();
    QDialog dialog;
    QMetaObject::invokeMethod(
        &dialog, [] { throw std::runtime_error("mistake"); }, Qt::QueuedConnection);
    testing_support::standardErrorOf(
        [&dialog] { EXPECT_THROW(NSApplication::runModalForWindow(&dialog), std::runtime_error); });
    EXPECT_EQ(NSApplication::modalWindow(), nullptr);
    EXPECT_EQ(dialog.windowModality(), Qt::NonModal);
    bool isPerformed = false;
    NSApplication::performOnNextTurn(&dialog, [&isPerformed] { isPerformed = true; });
    turn();
    EXPECT_TRUE(isPerformed);
}

TEST(NSApplication, WhatWaitsGoesWithItsReceiver)
{
    testing_support::needApplication();
    int calls = 0;
    auto receiver = std::make_unique<QObject>();
    NSApplication::performOnNextTurn(receiver.get(), [&] { ++calls; });
    receiver.reset();
    turn();
    EXPECT_EQ(calls, 0);
    QObject lasting;
    NSApplication::performOnNextTurn(&lasting, [&] { ++calls; });
    EXPECT_EQ(calls, 0);
    turn();
    EXPECT_EQ(calls, 1);
}

TEST(NSApplication, ADeferredCallThatRaisesDoesNotStopTheOthers)
{
    testing_support::needApplication();
    QObject receiver;
    QStringList log;
    NSApplication::performOnNextTurn(&receiver, [] { throw std::runtime_error("no more"); });
    NSApplication::performOnNextTurn(&receiver, [&] { log += u"next"_s; });
    const QString console = testing_support::standardErrorOf([] { turn(); });
    EXPECT_TRUE(console.endsWith(u"*** exception in a deferred call: no more\n"))
        << console.toStdString();
    EXPECT_EQ(log, QStringList{u"next"_s});
}
