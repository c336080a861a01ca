#include "PlugInSupport.h"
#include "support/TestSupport.h"

#include <KTUtility/NSClass>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace plugin_support;
using namespace testing_support;

// What unloading means: classes leave reach and instances are destroyed, but code stays. Under the
// sanitizers, a use of code or data that was released would end these tests.

namespace {
constexpr int Rounds = 100;

QString fileType(const KTPlugInManager &manager)
{
    const auto *const exporter = manager.pluginWithIdentifier<TestExporter>(goodIdentifier);
    return exporter ? exporter->fileType() : QString();
}

// The number of open files of plug-ins: what other tests left behind may be closed at any time.
qsizetype openPlugIns()
{
    const QFileInfoList open =
        QDir(u"/proc/self/fd"_s).entryInfoList(QDir::AllEntries | QDir::System);
    return std::ranges::count_if(
        open, [](const QFileInfo &file) { return file.symLinkTarget().contains(u".bundle/"); });
}
} // namespace

TEST(KTPlugInManagerRounds, LoadingAndUnloadingAHundredTimes)
{
    RecordingManager manager;
    manager.registerBundle(NSBundle(makeGoodBundle(useFreshHome())));
    qsizetype filesAfterTheFirst = 0;
    for (int round = 1; round <= Rounds; ++round) {
        const QPointer<QObject> plugin = manager.loadPluginWithIdentifier(goodIdentifier);
        ASSERT_FALSE(plugin.isNull());
        // One module: its count goes on.
        EXPECT_EQ(fileType(manager), u"1/" + QString::number(round));
        manager.unloadPluginWithIdentifier(goodIdentifier, false);
        ASSERT_TRUE(plugin.isNull());
        if (round == 1)
            filesAfterTheFirst = openPlugIns();
    }
    EXPECT_EQ(openPlugIns(), filesAfterTheFirst);
}

TEST(KTPlugInManagerRounds, ReplacingALoadedPlugInAHundredTimes)
{
    const QString home = useFreshHome();
    RecordingManager manager;
    manager.registerBundle(NSBundle(makeGoodBundle(home)));
    ASSERT_NE(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
    const qsizetype filesBefore = openPlugIns();
    for (int round = 1; round <= Rounds; ++round) {
        const QString version = QString::number(round % 2 + 1);
        const QPointer<QObject> before = manager.pluginWithIdentifier(goodIdentifier);
        manager.registerBundle(NSBundle(makeGoodBundle(home, u"Good"_s, round % 2 + 1)));
        EXPECT_TRUE(before.isNull());
        // A new module: it counts from one.
        ASSERT_EQ(fileType(manager), version + u"/1");
    }
    // The code of each version stays, and with it its file.
    EXPECT_EQ(openPlugIns(), filesBefore + Rounds);
}

TEST(KTPlugInManagerRounds, RegisteringAllAgainAHundredTimes)
{
    const QString home = useFreshHome();
    const QString folder = home + u"/.local/share/Cobble/PlugIns/TestExporters";
    makeGoodBundle(folder);
    makeOddBundle(folder, u"ThrowingExporter"_s);
    RecordingManager manager;
    manager.setEnabledForPlugin(true, goodIdentifier);
    manager.setEnabledForPlugin(true, oddIdentifier);
    for (int round = 1; round <= Rounds; ++round) {
        manager.registerPlugins();
        manager.loadAllPlugins();
        manager.reloadPlugins();
        ASSERT_EQ(manager.allLoadedPlugins().size(), 1);
    }
    EXPECT_EQ(manager.pluginStatus().size(), 2);
}

TEST(KTPlugInManagerRounds, WhatAPlugInLeftBehindLivesOn)
{
    const QString home = useFreshHome();
    RecordingManager manager;
    manager.registerBundle(NSBundle(makeGoodBundle(home)));
    manager.loadPluginWithIdentifier(goodIdentifier);
    NSBundle bundle(home + u"/Good.bundle");
    const NSClass *const principalClass = bundle.principalClass();
    ASSERT_NE(principalClass, nullptr);
    // An object, its class name and an event for it outlive plug-in, bundle and file.
    QObject *const left = principalClass->newInstance().release();
    const QVariant value = QVariant::fromValue(left);
    left->deleteLater();
    bundle.unload();
    manager.unregisterBundleWithIdentifier(goodIdentifier);
    ASSERT_TRUE(QDir(home + u"/Good.bundle").removeRecursively());

    EXPECT_STREQ(value.value<QObject *>()->metaObject()->className(), "GoodExporter");
    EXPECT_TRUE(qobject_cast<TestExporter *>(left)->fileType().startsWith(u"1/"));
    const QPointer<QObject> watched = left;
    needApplication();
    QCoreApplication::sendPostedEvents(left, QEvent::DeferredDelete);
    EXPECT_TRUE(watched.isNull());
}
