#include "CommandSupport.h"

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <csignal>
#include <sys/resource.h>

using testing_support::contentsOf;
using testing_support::FileTree;
using testing_support::LoopbackServer;

namespace {
class MediaCommand : public testing::Test
{
protected:
    MediaCommand()
        : bundle(tree.path(QStringLiteral("b.cobbledb")))
        , folder(bundle + QStringLiteral("/Contents/Resources/Media/"))
    {
        testing_support::useFreshHome();
        tree.add(QStringLiteral("a b.png"), "picture");
    }

    CommandResult run(const QStringList &arguments)
    {
        return runInProcess(arguments + QStringList({QStringLiteral("--bundle"), bundle}));
    }
    CommandResult media(const QStringList &arguments)
    {
        return run(QStringList({QStringLiteral("media")}) + arguments);
    }

    FileTree tree;
    QString bundle;
    QString folder;
};
} // namespace

TEST_F(MediaCommand, AddsFilesAndDownloads)
{
    const LoopbackServer server;
    const CommandResult result = media({QStringLiteral("add"), tree.path(QStringLiteral("a b.png")),
                                        server.url(QStringLiteral("/pic.jpg"))});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_EQ(result.output, QStringLiteral("cobblemedia://a%20b.0.png\n"
                                            "cobblemedia://pic.0.jpg\n"));
    EXPECT_EQ(contentsOf(folder + u"a b.0.png"), "picture");
    EXPECT_EQ(media({QStringLiteral("list")}).output,
              QStringLiteral("7  cobblemedia://a%20b.0.png\n3  cobblemedia://pic.0.jpg\n"));
}

TEST_F(MediaCommand, TheDefaultBundleIsMade)
{
    const QString home = testing_support::useFreshHome();
    const CommandResult result = runInProcess(
        {QStringLiteral("media"), QStringLiteral("add"), tree.path(QStringLiteral("a b.png"))});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_EQ(contentsOf(home + u"/.local/share/Cobble/cobble.cobbledb/Contents/Resources/Media/"
                                u"a b.0.png"),
              "picture");
}

TEST_F(MediaCommand, ABundleMayBeNamedWithASlash)
{
    tree.add(QStringLiteral("Names.csv"), "Name\nAnn\n");
    const QString path = bundle;
    bundle += u'/';
    const CommandResult result =
        run({QStringLiteral("import"), tree.path(QStringLiteral("Names.csv"))});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.output.endsWith(u" of " + path + u'\n'));
    EXPECT_TRUE(QFile::exists(path + u"/Contents/Resources/Database"));
}

TEST_F(MediaCommand, ListsNamesThatBeginWithADot)
{
    tree.add(QStringLiteral(".png"), "hidden");
    tree.add(QStringLiteral(".cobble-12"), "mine");
    media({QStringLiteral("add"), tree.path(QStringLiteral(".png")),
           tree.path(QStringLiteral(".cobble-12"))});
    // What a copy that was interrupted leaves is no media.
    testing_support::writeFile(folder + u".cobble-1234", "half");
    EXPECT_EQ(media({QStringLiteral("list")}).output,
              QStringLiteral("4  cobblemedia://.cobble-12.0\n6  cobblemedia://.png.0\n"));
}

TEST_F(MediaCommand, WhatCannotBeAddedIsToldAndTheRestIsAdded)
{
    const CommandResult result =
        media({QStringLiteral("add"), QStringLiteral("/none.png"),
               tree.path(QStringLiteral("a b.png")), QStringLiteral("https://a/b.png")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, QStringLiteral("cobblemedia://a%20b.0.png\n"));
    EXPECT_EQ(result.errors, QStringLiteral("cobble: /none.png: it cannot be stored\n"
                                            "cobble: https://a/b.png: it cannot be stored\n"));
}

TEST_F(MediaCommand, Paths)
{
    EXPECT_EQ(media({QStringLiteral("path"), QStringLiteral("cobblemedia://a%20b.0.png")}).output,
              folder + u"a b.0.png\n");
    const CommandResult result =
        media({QStringLiteral("path"), QStringLiteral("cobblemedia://..%2FDatabase")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors,
              QStringLiteral("cobble: cobblemedia://..%2FDatabase: that is no media URL\n"));
}

TEST_F(MediaCommand, Deletes)
{
    const QString file = tree.path(QStringLiteral("a b.png"));
    media({QStringLiteral("add"), file, file});
    EXPECT_EQ(media({QStringLiteral("delete"), QStringLiteral("cobblemedia://a%20b.0.png"),
                     QStringLiteral("a b.1.png")})
                  .exitCode,
              0);
    EXPECT_EQ(media({QStringLiteral("list")}).output, QString());
    for (const QString &name :
         {QStringLiteral("a b.0.png"), QStringLiteral(".."), QStringLiteral("../Media"),
          QStringLiteral("cobblemedia://..%2FMedia"), QStringLiteral("cobblemedia://..")}) {
        const CommandResult result = media({QStringLiteral("delete"), name});
        EXPECT_EQ(result.exitCode, 1) << name.toStdString();
        EXPECT_EQ(result.errors, u"cobble: " + name + u": there is no such media file\n");
    }
    EXPECT_TRUE(QDir(folder).exists());
}

TEST_F(MediaCommand, WithoutABundle)
{
    const CommandResult result = media({QStringLiteral("list")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, u"cobble: " + bundle + u": there is no media folder\n");
}

TEST_F(MediaCommand, WrongUsage)
{
    for (const QStringList &arguments :
         {QStringList(), QStringList{QStringLiteral("lost")}, QStringList{QStringLiteral("add")},
          QStringList{QStringLiteral("list"), QStringLiteral("x")}})
        EXPECT_EQ(media(arguments).exitCode, 2) << arguments.join(u' ').toStdString();
    EXPECT_EQ(run({QStringLiteral("upgrade-copy"), QStringLiteral("x")}).exitCode, 2);
    EXPECT_EQ(media({QStringLiteral("--help")}).exitCode, 0);
}

TEST_F(MediaCommand, UpgradeCopy)
{
    EXPECT_EQ(run({QStringLiteral("upgrade-copy")}).errors,
              u"cobble: " + bundle + u": there is no database bundle\n");
    media({QStringLiteral("add"), tree.path(QStringLiteral("a b.png"))});
    const CommandResult result = run({QStringLiteral("upgrade-copy")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, tree.path(QStringLiteral("b_PreUpgrade.cobbledb\n")));
    EXPECT_FALSE(QFile::exists(bundle));
    for (const char16_t *copy : {u"b_PreUpgrade.cobbledb", u"b1Backup.cobbledb"})
        EXPECT_EQ(contentsOf(
                      tree.path(QString::fromUtf16(copy) + u"/Contents/Resources/Media/a b.0.png")),
                  "picture");
}

TEST_F(MediaCommand, ABundleThatCannotBeCopiedStaysInItsPlace)
{
    media({QStringLiteral("add"), tree.path(QStringLiteral("a b.png"))});
    struct rlimit before = {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small = {rlim_t(3), before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const CommandResult result = run({QStringLiteral("upgrade-copy")});
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, u"cobble: " + tree.path(QStringLiteral("b_PreUpgrade.cobbledb")) +
                                 u": the copy could not be made\n");
    EXPECT_EQ(contentsOf(folder + u"a b.0.png"), "picture");
    EXPECT_FALSE(QFile::exists(tree.path(QStringLiteral("b1Backup.cobbledb"))));
}

TEST_F(MediaCommand, WhatCannotBeDeletedIsNotCalledMissing)
{
    // Nobody, not even root, removes a file of "/proc".
    media({QStringLiteral("add"), tree.path(QStringLiteral("a b.png"))});
    QDir(folder).removeRecursively();
    ASSERT_TRUE(QFile::link(QStringLiteral("/proc"), folder.chopped(1)));
    EXPECT_EQ(media({QStringLiteral("delete"), QStringLiteral("version")}).errors,
              QStringLiteral("cobble: version: it cannot be deleted\n"));
}
