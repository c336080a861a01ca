#include "CommandSupport.h"

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <KTUtility/KTLockFile>

#include <QFile>

#include <array>
#include <csignal>
#include <fstream>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;
using testing_support::LoopbackServer;

namespace {
class MediaCommandTests : public testing::Test
{
protected:
    MediaCommandTests()
        : bundle(tree.path(u"b.cobbledb"_s)), folder(bundle + u"/Contents/Resources/Media/"_s)
    {
        testing_support::useFreshHome();
        tree.add(u"a b.png"_s, "picture");
    }

    CommandResult run(const QStringList &arguments)
    {
        return runInProcess(arguments + QStringList({u"--bundle"_s, bundle}));
    }
    CommandResult media(const QStringList &arguments)
    {
        return run(QStringList({u"media"_s}) + arguments);
    }

    FileTree tree;
    QString bundle;
    QString folder;
};
} // namespace

TEST_F(MediaCommandTests, AddsFilesAndDownloads)
{
    const LoopbackServer server;
    const CommandResult result =
        media({u"add"_s, tree.path(u"a b.png"_s), server.url(u"/pic.jpg"_s)});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_EQ(result.output, u"cobblemedia://a%20b.0.png\n"
                             "cobblemedia://pic.0.jpg\n"_s);
    EXPECT_EQ(contentsOf(folder + u"a b.0.png"), "picture");
    EXPECT_EQ(media({u"list"_s}).output,
              u"7  cobblemedia://a%20b.0.png\n3  cobblemedia://pic.0.jpg\n"_s);
}

TEST_F(MediaCommandTests, TheDefaultBundleIsMade)
{
    const QString home = testing_support::useFreshHome();
    const CommandResult result = runInProcess({u"media"_s, u"add"_s, tree.path(u"a b.png"_s)});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_EQ(contentsOf(home + u"/.local/share/Cobble/cobble.cobbledb/Contents/Resources/Media/"
                                u"a b.0.png"),
              "picture");
}

TEST_F(MediaCommandTests, ABundleMayBeNamedWithASlash)
{
    tree.add(u"Names.csv"_s, "Name\nAnn\n");
    const QString path = bundle;
    bundle += u'/';
    const CommandResult result = run({u"import"_s, tree.path(u"Names.csv"_s)});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.output.endsWith(u" of " + path + u'\n'));
    EXPECT_TRUE(QFile::exists(path + u"/Contents/Resources/Database"));
}

TEST_F(MediaCommandTests, ListsNamesThatBeginWithADot)
{
    tree.add(u".png"_s, "hidden");
    tree.add(u".cobble-12"_s, "mine");
    media({u"add"_s, tree.path(u".png"_s), tree.path(u".cobble-12"_s)});
    // What a copy that was interrupted leaves is no media.
    testing_support::writeFile(folder + u".cobble-1234", "half");
    EXPECT_EQ(media({u"list"_s}).output,
              u"4  cobblemedia://.cobble-12.0\n6  cobblemedia://.png.0\n"_s);
}

TEST_F(MediaCommandTests, WhatCannotBeAddedIsToldAndTheRestIsAdded)
{
    const CommandResult result =
        media({u"add"_s, u"/none.png"_s, tree.path(u"a b.png"_s), u"https://a/b.png"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, u"cobblemedia://a%20b.0.png\n"_s);
    EXPECT_EQ(result.errors, u"cobble: /none.png: there is no such file\n"
                             "cobble: https://a/b.png: it names no file\n"_s);
}

TEST_F(MediaCommandTests, WhatIsAddedAfterAnInterruptedImportStays)
{
    tree.add(u"Names.csv"_s, "Name,Photo\nAnn,a b.png\n");
    ASSERT_EQ(run({u"import"_s, tree.path(u"Names.csv"_s)}).exitCode, 0);
    // It has listed a name, a file that it has stored and one that a record has, and was killed.
    const QString list = bundle + u"/Contents/Resources/ImportedMedia";
    testing_support::writeFile(folder + u"left.0.png", "left");
    testing_support::writeFile(list, "cobblemedia://left.0.png\ncobblemedia://a%20b.0.png\n"
                                     "cobblemedia://big.0.mov\n");
    tree.add(u"big.mov"_s, "mine");
    tree.add(u"left.png"_s, "mine, too");
    EXPECT_EQ(media({u"add"_s, tree.path(u"big.mov"_s), tree.path(u"left.png"_s)}).output,
              u"cobblemedia://big.0.mov\ncobblemedia://left.0.png\n"_s);
    EXPECT_FALSE(QFile::exists(list));
    EXPECT_EQ(run({u"import"_s, tree.path(u"Names.csv"_s)}).exitCode, 0);
    EXPECT_EQ(contentsOf(folder + u"big.0.mov"), "mine");
    EXPECT_EQ(contentsOf(folder + u"left.0.png"), "mine, too");
    EXPECT_EQ(contentsOf(folder + u"a b.0.png"), "picture");
}

TEST_F(MediaCommandTests, NothingIsAddedIfAnInterruptedImportCannotBeSettled)
{
    const QString resources = bundle + u"/Contents/Resources/";
    testing_support::writeFile(resources + u"Database", QByteArray(4096, 'x'));
    testing_support::writeFile(resources + u"ImportedMedia", "cobblemedia://a%20b.0.png\n");
    const CommandResult result = media({u"add"_s, tree.path(u"a b.png"_s)});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, QString(u"cobble: " + bundle + u": file is not a database\n"));
    EXPECT_EQ(media({u"list"_s}).output, QString());
    // Without a list, the database is of no matter.
    ASSERT_TRUE(QFile::remove(resources + u"ImportedMedia"));
    EXPECT_EQ(media({u"add"_s, tree.path(u"a b.png"_s)}).exitCode, 0);
}

TEST_F(MediaCommandTests, APageThatSaysNoIsNotAdded)
{
    const LoopbackServer server;
    const QString url = server.url(u"/none.jpg"_s);
    const CommandResult result = media({u"add"_s, url});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, QString());
    EXPECT_EQ(result.errors, QString(u"cobble: " + url + u": its server says 404\n"));
    EXPECT_EQ(media({u"list"_s}).output, QString());
}

TEST_F(MediaCommandTests, ADeadServerIsAskedOnceWhileNothingIsLocked)
{
    bool isFree = false;
    const LoopbackServer dead(
        [&](int, const QByteArray &) { isFree = !QFile::exists(bundle + u".lock"_s); });
    const QStringList urls{dead.url(u"/1.jpg"_s), dead.url(u"/2.jpg"_s), dead.url(u"/3.jpg"_s)};
    const CommandResult result = media(QStringList({u"add"_s, tree.path(u"a b.png"_s)}) + urls);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, u"cobblemedia://a%20b.0.png\n"_s);
    QString errors;
    for (const QString &url : urls)
        errors += u"cobble: %1: its server does not answer\n"_s.arg(url);
    EXPECT_EQ(result.errors, errors);
    EXPECT_EQ(dead.requests().size(), 1);
    EXPECT_TRUE(isFree);
}

TEST_F(MediaCommandTests, SaysWhatAnImportWouldSay)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(tree.path(u"pipe"_s)).constData(), 0600), 0);
    const std::pair<QString, QString> rows[] = {
        {tree.path(u"pipe"_s), u"it is no file"_s},
        {u"cobblemedia://none.0.png"_s, u"there is no such file"_s},
    };
    for (const auto &[text, reason] : rows) {
        const CommandResult result = media({u"add"_s, text});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.errors, QString(u"cobble: " + text + u": " + reason + u'\n'));
    }
}

TEST_F(MediaCommandTests, ShowsPaths)
{
    EXPECT_EQ(media({u"path"_s, u"cobblemedia://a%20b.0.png"_s}).output, folder + u"a b.0.png\n");
    const CommandResult result = media({u"path"_s, u"cobblemedia://..%2FDatabase"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, u"cobble: cobblemedia://..%2FDatabase: that is no media URL\n"_s);
}

TEST_F(MediaCommandTests, DeletesFiles)
{
    const QString file = tree.path(u"a b.png"_s);
    media({u"add"_s, file, file});
    EXPECT_EQ(media({u"delete"_s, u"cobblemedia://a%20b.0.png"_s, u"a b.1.png"_s}).exitCode, 0);
    EXPECT_EQ(media({u"list"_s}).output, QString());
    for (const QString &name : {u"a b.0.png"_s, u".."_s, u"../Media"_s,
                                u"cobblemedia://..%2FMedia"_s, u"cobblemedia://.."_s}) {
        const CommandResult result = media({u"delete"_s, name});
        EXPECT_EQ(result.exitCode, 1) << name.toStdString();
        EXPECT_EQ(result.errors, u"cobble: " + name + u": there is no such media file\n");
    }
    EXPECT_TRUE(QDir(folder).exists());
}

TEST_F(MediaCommandTests, WithoutABundleThereIsNothing)
{
    const CommandResult result = media({u"list"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, u"cobble: " + bundle + u": there is no media folder\n");
}

TEST_F(MediaCommandTests, RejectsWrongUsage)
{
    for (const QStringList &arguments : {QStringList(), QStringList{u"lost"_s},
                                         QStringList{u"add"_s}, QStringList{u"list"_s, u"x"_s}})
        EXPECT_EQ(media(arguments).exitCode, 2) << arguments.join(u' ').toStdString();
    EXPECT_EQ(run({u"upgrade-copy"_s, u"x"_s}).exitCode, 2);
    EXPECT_EQ(media({u"--help"_s}).exitCode, 0);
}

TEST_F(MediaCommandTests, CopiesABundleBeforeAnUpgrade)
{
    EXPECT_EQ(run({u"upgrade-copy"_s}).errors,
              u"cobble: " + bundle + u": there is no database bundle\n");
    media({u"add"_s, tree.path(u"a b.png"_s)});
    const CommandResult result = run({u"upgrade-copy"_s});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, tree.path(u"b_PreUpgrade.cobbledb\n"_s));
    EXPECT_FALSE(QFile::exists(bundle));
    for (const char16_t *copy : {u"b_PreUpgrade.cobbledb", u"b1Backup.cobbledb"})
        EXPECT_EQ(contentsOf(
                      tree.path(QString::fromUtf16(copy) + u"/Contents/Resources/Media/a b.0.png")),
                  "picture");
}

TEST_F(MediaCommandTests, ABundleThatCannotBeCopiedStaysInItsPlace)
{
    media({u"add"_s, tree.path(u"a b.png"_s)});
    struct rlimit before = {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small = {rlim_t(3), before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const CommandResult result = run({u"upgrade-copy"_s});
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, u"cobble: " + tree.path(u"b_PreUpgrade.cobbledb"_s) +
                                 u": the copy could not be made\n");
    EXPECT_EQ(contentsOf(folder + u"a b.0.png"), "picture");
    EXPECT_FALSE(QFile::exists(tree.path(u"b1Backup.cobbledb"_s)));
}

TEST_F(MediaCommandTests, WhatCannotBeDeletedIsNotCalledMissing)
{
    testing_support::needApplication(); // which opens files itself
    // Without descriptors, nobody, not even root, removes a folder that holds something.
    testing_support::writeFile(folder + u"album/a.png", "picture");
    struct rlimit before = {};
    ::getrlimit(RLIMIT_NOFILE, &before);
    const int next = ::dup(0);
    ::close(next);
    const struct rlimit none = {rlim_t(next), before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &none);
    const CommandResult result = media({u"delete"_s, u"album"_s});
    ::setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(result.errors, u"cobble: album: it cannot be deleted\n"_s);
    EXPECT_EQ(contentsOf(folder + u"album/a.png"), "picture");
}

TEST_F(MediaCommandTests, SaysWhichNameIsTooLong)
{
    const QString longName(254, u'x');
    tree.add(longName, "picture");
    const QString path = tree.path(longName);
    EXPECT_EQ(media({u"add"_s, path}).errors, u"cobble: " + path + u": its name is too long\n");
}

TEST_F(MediaCommandTests, DoesNotMakeABundleAnewThatIsMovedMeanwhile)
{
    media({u"add"_s, tree.path(u"a b.png"_s)});
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    // It has the lock, and moves the bundle when somebody asks for the lock, too.
    const testing_support::OtherProcess moving([&] {
        KTLockFile lock(bundle + u".lock");
        const bool isLocked = lock.lock(0) == KTLockFile::Result::Locked;
        const int watcher = ::inotify_init1(IN_CLOEXEC);
        ::inotify_add_watch(watcher, QFile::encodeName(lock.path()).constData(), IN_OPEN);
        std::array<char, 1024> event{};
        const bool isAsked = isLocked && ::write(ready[1], "x", 1) == 1 &&
                             ::read(watcher, event.data(), event.size()) > 0;
        return isAsked && QFile::rename(bundle, bundle + u".moved") ? 0 : 1;
    });
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    const CommandResult result = media({u"add"_s, tree.path(u"a b.png"_s)});
    EXPECT_EQ(moving.exitCode(), 0);
    ::close(ready[0]);
    ::close(ready[1]);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, u"cobble: " + bundle + u": the bundle has been moved away\n");
    EXPECT_FALSE(QFile::exists(bundle));
}

TEST_F(MediaCommandTests, NamesThatAreNoTextAreToldOf)
{
    ASSERT_EQ(media({u"add"_s, tree.path(u"a b.png"_s)}).exitCode, 0);
    EXPECT_TRUE(media({u"list"_s}).errors.isEmpty());
    QByteArrayList names;
    for (const auto &[name, count] :
         {std::pair("caf\xE9.jpg", "1 file"), std::pair("caf\xE8.jpg", "2 files")}) {
        names += QFile::encodeName(folder) + name;
        std::ofstream(names.last().toStdString()) << "x";
        const CommandResult result = media({u"list"_s});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.output, u"7  cobblemedia://a%20b.0.png\n"_s);
        EXPECT_EQ(result.errors, u"cobble: " + folder.chopped(1) + u": " +
                                     QString::fromLatin1(count) +
                                     u" cannot be listed: the name is not UTF-8\n");
    }
    for (const QByteArray &name : std::as_const(names))
        EXPECT_EQ(::unlink(name.constData()), 0); // QTemporaryDir cannot.
    // What the program is handed for such a name.
    const CommandResult added = media({u"add"_s, tree.path(u"caf\uFFFD.jpg"_s)});
    EXPECT_EQ(added.exitCode, 1);
    EXPECT_TRUE(added.errors.endsWith(u": it cannot be stored: the name is not UTF-8\n"));
    tree.add(u"b\uFFFD.png"_s, "picture");
    EXPECT_EQ(media({u"add"_s, tree.path(u"b\uFFFD.png"_s)}).exitCode, 0);
}
