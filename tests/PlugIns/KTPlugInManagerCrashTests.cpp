#include <KTUtility/KTPlugInManager>

#include "PlugInSupport.h"
#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <KTUtility/KTLogCapture>

#include <QDir>

#include <cstdlib>
#include <stdexcept>
#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace plugin_support;
using namespace testing_support;

// What a manager does about plug-ins that end the program.

namespace {
const QString crashText = u"a program ended while its code ran"_s;

/// A manager that passes over what has ended the program, with a good plug-in and one that ends it.
class CarefulManager : public RecordingManager
{
public:
    explicit CarefulManager(const QString &home)
    {
        setPassesOverCrashed(true);
        registerBundle(NSBundle(home + u"/Good.bundle"_s));
        registerBundle(NSBundle(home + u"/EndingExporter.bundle"_s));
        takeEvents();
    }

    KTPlugInStatus statusOf(const QString &identifier) const
    {
        for (const KTPlugInStatus &status : pluginStatus()) {
            if (status.identifier == identifier)
                return status;
        }
        return {};
    }
};

class KTPlugInManagerCrashTests : public testing::Test
{
protected:
    KTPlugInManagerCrashTests()
    {
        makeGoodBundle(home);
        makeOddBundle(home, u"EndingExporter"_s);
    }

    /// Whether a process that does something with a manager ends before it is done.
    bool ends(const std::function<void(CarefulManager &)> &action) const
    {
        const OtherProcess process([&] {
            const rlimit none{0, 0};
            ::setrlimit(RLIMIT_CORE, &none);
            CarefulManager manager(home);
            action(manager);
            return 0;
        });
        return process.exitCode() != 0;
    }
    bool endsInLoading() const
    {
        return ends([](CarefulManager &manager) { manager.loadAllPlugins(); });
    }

    const QString home = useFreshHome();
};
} // namespace

TEST_F(KTPlugInManagerCrashTests, WhatEndedTheProgramIsPassedOverWithItsName)
{
    {
        CarefulManager manager(home);
        manager.setEnabledForPlugin(true, oddIdentifier);
        manager.setEnabledForPlugin(true, goodIdentifier);
    }
    EXPECT_TRUE(endsInLoading());
    CarefulManager manager(home);
    KTLogCapture capture(kLog_invalid, 4);
    manager.loadAllPlugins();
    EXPECT_TRUE(manager.isPluginLoaded(goodIdentifier));
    EXPECT_FALSE(manager.isPluginLoaded(oddIdentifier));
    EXPECT_TRUE(manager.isPluginPassedOver(oddIdentifier));
    EXPECT_FALSE(manager.isPluginPassedOver(goodIdentifier));
    EXPECT_TRUE(manager.isPluginEnabled(oddIdentifier)) << "what is enabled is the user's";
    const QString path = home + u"/EndingExporter.bundle"_s;
    EXPECT_EQ(capture.messages(), QStringList(u"Plug-in " + path + u": " + crashText));
    EXPECT_EQ(manager.statusOf(oddIdentifier),
              (KTPlugInStatus{path, oddIdentifier, KTPlugInState::PassedOver, crashText}));
    EXPECT_EQ(manager.takeEvents().count(u"finishedLoadingPlugins"_s), 1);
    EXPECT_FALSE(endsInLoading());
}

TEST_F(KTPlugInManagerCrashTests, AtFirstNothingIsPassedOverAndNothingIsKept)
{
    EXPECT_FALSE(KTPlugInManager().passesOverCrashed());
    EXPECT_TRUE(ends([](CarefulManager &manager) {
        manager.setPassesOverCrashed(false);
        manager.loadPluginWithIdentifier(oddIdentifier);
    }));
    EXPECT_FALSE(CarefulManager(home).isPluginPassedOver(oddIdentifier));
    EXPECT_TRUE(
        ends([](CarefulManager &manager) { manager.loadPluginWithIdentifier(oddIdentifier); }));
    RecordingManager manager;
    manager.registerBundle(NSBundle(home + u"/EndingExporter.bundle"_s));
    EXPECT_FALSE(manager.isPluginPassedOver(oddIdentifier));
    EXPECT_EQ(manager.pluginStatus().value(0).state, KTPlugInState::Registered);
}

TEST_F(KTPlugInManagerCrashTests, WhoAsksForItByNameGivesItAnotherChance)
{
    const auto crash = [](CarefulManager &manager) {
        manager.loadPluginWithIdentifier(goodIdentifier);
        manager.callPlugin(goodIdentifier, [] { std::abort(); });
    };
    EXPECT_TRUE(ends(crash));
    CarefulManager manager(home);
    EXPECT_EQ(manager.statusOf(goodIdentifier).state, KTPlugInState::PassedOver);
    EXPECT_NE(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
    EXPECT_FALSE(manager.isPluginPassedOver(goodIdentifier));
    EXPECT_EQ(manager.statusOf(goodIdentifier).state, KTPlugInState::Loaded);
    EXPECT_TRUE(manager.statusOf(goodIdentifier).lastError.isNull());

    EXPECT_TRUE(ends(crash));
    CarefulManager next(home);
    EXPECT_TRUE(next.isPluginPassedOver(goodIdentifier));
    next.enablePluginWithIdentifier(goodIdentifier);
    EXPECT_TRUE(next.isPluginLoaded(goodIdentifier));
    EXPECT_FALSE(CarefulManager(home).isPluginPassedOver(goodIdentifier));
}

TEST_F(KTPlugInManagerCrashTests, AnotherVersionIsAnotherPlugIn)
{
    EXPECT_TRUE(ends(
        [](CarefulManager &manager) { manager.callPlugin(goodIdentifier, [] { std::abort(); }); }));
    ASSERT_TRUE(CarefulManager(home).isPluginPassedOver(goodIdentifier));
    makeGoodBundle(home, u"Good"_s, 2);
    EXPECT_FALSE(CarefulManager(home).isPluginPassedOver(goodIdentifier));
}

TEST_F(KTPlugInManagerCrashTests, ALivingProgramBlamesNobody)
{
    CarefulManager manager(home);
    manager.callPlugin(goodIdentifier, [&] {
        EXPECT_FALSE(manager.isPluginPassedOver(goodIdentifier));
        EXPECT_FALSE(ends([](CarefulManager &other) {
            if (other.isPluginPassedOver(goodIdentifier))
                std::abort();
        }));
    });
    EXPECT_THROW(manager.callPlugin(goodIdentifier, [] { throw std::runtime_error("x"); }),
                 std::runtime_error);
    EXPECT_FALSE(manager.isPluginPassedOver(goodIdentifier));
    int calls = 0;
    manager.callPlugin(u"org.example.none"_s, [&] { ++calls; });
    EXPECT_EQ(calls, 1);
}

TEST_F(KTPlugInManagerCrashTests, AnOrdinaryLifeLeavesNothing)
{
    {
        CarefulManager manager(home);
        manager.loadPluginWithIdentifier(goodIdentifier);
        manager.reloadPlugins();
        manager.unloadPluginWithIdentifier(goodIdentifier, true);
        manager.loadPluginWithIdentifier(goodIdentifier);
    }
    EXPECT_TRUE(QDir(home + u"/.local/share/Cobble/Preferences"_s)
                    .entryList(QDir::Files)
                    .filter(u"running"_s)
                    .isEmpty());
}
