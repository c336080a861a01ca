#include <KTUtility/PlugIns/PlugInNote_p.h>

#include "PlugInSupport.h"
#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <QDir>

#include <csignal>
#include <cstdlib>
#include <functional>
#include <optional>
#include <sys/resource.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace plugin_support;
using namespace testing_support;

namespace {
class PlugInNoteTests : public testing::Test
{
protected:
    /// Another process that ends, one way or another, in something.
    static void runElsewhere(const std::function<void()> &action)
    {
        const OtherProcess process([&] {
            const rlimit none{0, 0};
            ::setrlimit(RLIMIT_CORE, &none);
            action();
            return 0;
        });
        process.exitCode();
    }

    QStringList notes() const
    {
        return QDir(home + u"/.local/share/Cobble/Preferences"_s)
            .entryList({u"*.plugins.running-*"_s}, QDir::Files);
    }

    const QString home = useFreshHome();
    const NSBundle good{makeGoodBundle(home)};
    const NSBundle other{makeOddBundle(home, u"QuietExporter"_s)};
};

struct sigaction handlerOf(int signal)
{
    struct sigaction action = {};
    ::sigaction(signal, nullptr, &action);
    return action;
}
} // namespace

TEST_F(PlugInNoteTests, ANoteIsThereForAsLongAsItLives)
{
    {
        const PlugInNote note(&good);
        EXPECT_EQ(notes().size(), 1);
        EXPECT_FALSE(PlugInNote::isLeftFor(good));
        const OtherProcess reader([&] { return PlugInNote::isLeftFor(good) ? 1 : 0; });
        EXPECT_EQ(reader.exitCode(), 0) << "its process lives";
    }
    EXPECT_TRUE(notes().isEmpty());
    EXPECT_FALSE(PlugInNote::isLeftFor(good));
}

TEST_F(PlugInNoteTests, WithoutABundleThereIsNone)
{
    const PlugInNote note(nullptr);
    EXPECT_TRUE(notes().isEmpty());
}

TEST_F(PlugInNoteTests, WhoIsToldToEndBlamesNobody)
{
    struct Row
    {
        const char *name;
        std::function<void()> end;
        bool isLeft;
    };
    const Row rows[] = {
        {"return", [] {}, false},
        {"abort", [] { std::abort(); }, true},
        {"exit", [] { ::_exit(0); }, true},
        {"SIGSEGV", [] { ::raise(SIGSEGV); }, true},
        {"SIGKILL", [] { ::raise(SIGKILL); }, true},
        {"SIGHUP", [] { ::raise(SIGHUP); }, false},
        {"SIGINT", [] { ::raise(SIGINT); }, false},
        {"SIGQUIT", [] { ::raise(SIGQUIT); }, false},
        {"SIGTERM", [] { ::raise(SIGTERM); }, false},
    };
    for (const Row &row : rows) {
        runElsewhere([&] {
            const PlugInNote note(&good);
            row.end();
        });
        EXPECT_EQ(PlugInNote::isLeftFor(good), row.isLeft) << row.name;
        EXPECT_EQ(notes().size(), row.isLeft ? 1 : 0) << row.name;
        EXPECT_FALSE(PlugInNote::isLeftFor(other)) << row.name;
        PlugInNote::removeLeftFor(other);
        EXPECT_EQ(PlugInNote::isLeftFor(good), row.isLeft) << row.name;
        PlugInNote::removeLeftFor(good);
        EXPECT_TRUE(notes().isEmpty()) << row.name;
    }
}

TEST_F(PlugInNoteTests, TheOneThatWasCalledLastIsBlamed)
{
    runElsewhere([&] {
        const PlugInNote outer(&good);
        const PlugInNote inner(&other);
        std::abort();
    });
    EXPECT_FALSE(PlugInNote::isLeftFor(good));
    EXPECT_TRUE(PlugInNote::isLeftFor(other));
    runElsewhere([&] {
        const PlugInNote outer(&good);
        {
            const PlugInNote inner(&other);
        }
        std::abort();
    });
    EXPECT_TRUE(PlugInNote::isLeftFor(good));
}

TEST_F(PlugInNoteTests, ANoteIsAboutTheCodeThatRan)
{
    runElsewhere([&] {
        const PlugInNote note(&good);
        std::abort();
    });
    ASSERT_TRUE(PlugInNote::isLeftFor(NSBundle(good.bundlePath())));
    makeGoodBundle(home, u"Good"_s, 2);
    EXPECT_FALSE(PlugInNote::isLeftFor(NSBundle(good.bundlePath())));
    EXPECT_TRUE(notes().isEmpty());
}

TEST_F(PlugInNoteTests, ThoseOfPlugInsThatAreGoneAreRemovedOnceTheirProcessIs)
{
    const QString bundle = good.bundlePath();
    {
        const PlugInNote note(&good);
        ASSERT_TRUE(QDir(bundle).removeRecursively());
        EXPECT_FALSE(PlugInNote::isLeftFor(other));
        EXPECT_EQ(notes().size(), 1);
    }
    makeGoodBundle(home);
    runElsewhere([&] {
        const NSBundle again(bundle);
        const PlugInNote note(&again);
        std::abort();
    });
    EXPECT_FALSE(PlugInNote::isLeftFor(other));
    EXPECT_EQ(notes().size(), 1) << "it is about code that is there";
    ASSERT_TRUE(QDir(bundle).removeRecursively());
    EXPECT_FALSE(PlugInNote::isLeftFor(other));
    EXPECT_TRUE(notes().isEmpty());
}

TEST_F(PlugInNoteTests, WhatNamesNothingStays)
{
    // A process may be about to write it.
    const QString folder = home + u"/.local/share/Cobble/Preferences/"_s;
    writeFile(folder + NSHostIdentifier() + u".plugins.running-abcdef"_s, "");
    EXPECT_FALSE(PlugInNote::isLeftFor(good));
    EXPECT_EQ(notes().size(), 1);
}

TEST_F(PlugInNoteTests, HandlersOfTheHostStay)
{
    std::signal(SIGTERM, SIG_IGN);
    const auto before = handlerOf(SIGINT);
    {
        const PlugInNote note(&good);
        EXPECT_EQ(handlerOf(SIGTERM).sa_handler, SIG_IGN);
        EXPECT_NE(handlerOf(SIGINT).sa_handler, before.sa_handler);
        const PlugInNote inner(&other);
    }
    EXPECT_EQ(handlerOf(SIGINT).sa_handler, before.sa_handler);
    EXPECT_EQ(handlerOf(SIGTERM).sa_handler, SIG_IGN);
    std::signal(SIGTERM, SIG_DFL);
}

TEST_F(PlugInNoteTests, WhatCannotBeWrittenIsLeftOut)
{
    const QString preferences = home + u"/.local/share/Cobble/Preferences"_s;
    writeFile(preferences, "in the way");
    {
        const PlugInNote note(&good);
        EXPECT_FALSE(PlugInNote::isLeftFor(good));
    }
    EXPECT_EQ(contentsOf(preferences), "in the way");
    qunsetenv("HOME");
    const PlugInNote note(&good);
    EXPECT_FALSE(PlugInNote::isLeftFor(good));
    PlugInNote::removeLeftFor(good);
}
