#include <KTUtility/KTDatabaseBundle>
#include <KTUtility/KTLogCapture>
#include <KTUtility/NSFileManager>
#include <KTUtility/NSSearchPath>
#include <KTUtility/NSUserDefaults>

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QImage>
#include <QRandomGenerator>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;
using testing_support::LoopbackServer;

namespace {
/// A bundle on the disk, in a folder of its own.
class BundleOnDisk : public KTDatabaseBundle
{
public:
    BundleOnDisk() : KTDatabaseBundle(QString()), _tree()
    {
        static_cast<KTDatabaseBundle &>(*this) = KTDatabaseBundle(_tree.path(u"b.cobbledb"_s));
        EXPECT_TRUE(buildDatabaseBundleOnDisk());
    }

    const FileTree &tree() const { return _tree; }
    /// A file outside of the bundle.
    QString source(const QString &name, const QByteArray &contents = "picture") const
    {
        _tree.add(u"sources/"_s + name, contents);
        return _tree.path(u"sources/"_s + name);
    }
    QString media(const QString &name) const { return mediaFolderPath() + u'/' + name; }
    void addMedia(const QString &name) const { testing_support::writeFile(media(name), "x"); }
    void addNumbers(const QList<int> &numbers) const
    {
        for (const int number : numbers)
            addMedia(u"a.%1.jpg"_s.arg(number));
    }
    QStringList mediaNames() const
    {
        return QDir(mediaFolderPath())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    FileTree _tree;
};

NSURL urlOf(const QString &text)
{
    return *NSURL::URLWithString(text);
}
} // namespace

TEST(KTDatabaseBundle, RunsItsExample)
{
    testing_support::useFreshHome();
    const KTDatabaseBundle bundle = KTDatabaseBundle::defaultDatabaseBundle();
    NSFileManager::createDirectoryAtPath(
        NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, NSUserDomainMask, true).first(),
        true);
    EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
    const FileTree tree;
    tree.add(u"My photo.jpg"_s, "picture");
    const std::optional<NSURL> url =
        bundle.storeFileFromURL(*NSURL::fileURLWithPath(tree.path(u"My photo.jpg"_s)));
    ASSERT_TRUE(url.has_value());
    EXPECT_EQ(url->absoluteString(), u"cobblemedia://My%20photo.0.jpg"_s);
    EXPECT_EQ(bundle.filePathFromMediaUrl(*url),
              bundle.bundlePath() + u"/Contents/Resources/Media/My photo.0.jpg");
    EXPECT_EQ(contentsOf(bundle.filePathFromMediaUrl(*url)), "picture");
}

TEST(KTDatabaseBundle, TheUserMayChooseAnother)
{
    testing_support::useFreshHome();
    NSUserDefaults *const defaults = NSUserDefaults::standardUserDefaults();
    defaults->setObject(u"/elsewhere/my.db"_s, KTDefaultDatabaseBundlePath);
    EXPECT_EQ(KTDatabaseBundle::defaultDatabaseBundle().bundlePath(), u"/elsewhere/my.db"_s);
    defaults->removeObjectForKey(KTDefaultDatabaseBundlePath);
    EXPECT_TRUE(KTDatabaseBundle::defaultDatabaseBundle().bundlePath().endsWith(
        u"/Cobble/cobble.cobbledb"));
}

TEST(KTDatabaseBundle, WithoutHomeItLiesAmongTemporaryFiles)
{
    qunsetenv("HOME");
    const FileTree tree;
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", tree.root().toUtf8());
    EXPECT_EQ(KTDatabaseBundle::cobbleSupportFolder(), tree.path(u"Cobble"_s));
    EXPECT_TRUE(QDir(tree.path(u"Cobble"_s)).exists());
    temporary.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", temporary);
    testing_support::useFreshHome();
}

TEST(KTDatabaseBundle, FoldersAreMadeOneLevelDeep)
{
    const FileTree tree;
    EXPECT_FALSE(KTDatabaseBundle::_ensureDirectoryExistsAtPath(tree.path(u"no/where"_s)));
    EXPECT_FALSE(KTDatabaseBundle(tree.path(u"no/b.cobbledb"_s)).buildDatabaseBundleOnDisk());
    EXPECT_TRUE(tree.contents().isEmpty());
    EXPECT_TRUE(KTDatabaseBundle::_ensureDirectoryExistsAtPath(tree.path(u"no"_s)));
    EXPECT_FALSE(KTDatabaseBundle::_ensureDirectoryExistsAtPath(QString()));
}

TEST(KTDatabaseBundle, ThePathMayBeAFile)
{
    const FileTree tree;
    tree.add(u"b.cobbledb"_s, "mine");
    const KTDatabaseBundle bundle(tree.path(u"b.cobbledb"_s));
    EXPECT_FALSE(bundle.doesExist());
    EXPECT_FALSE(bundle.buildDatabaseBundleOnDisk());
    EXPECT_TRUE(bundle.removeDatabaseBundleOnDisk());
    EXPECT_EQ(contentsOf(bundle.bundlePath()), "mine");
}

TEST(KTDatabaseBundle, IsMadeAndRemoved)
{
    const BundleOnDisk bundle;
    EXPECT_TRUE(bundle.doesExist());
    EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
    EXPECT_FALSE(QFile::exists(bundle.databaseFilePath()));
    EXPECT_TRUE(bundle.removeDatabaseBundleOnDisk());
    EXPECT_FALSE(bundle.doesExist());
    EXPECT_TRUE(bundle.removeDatabaseBundleOnDisk());
    EXPECT_TRUE(bundle.tree().contents().isEmpty());
}

TEST(KTDatabaseBundle, ManyProcessesMakeOneBundle)
{
    for (int round = 0; round < 20; ++round) {
        const FileTree tree;
        const KTDatabaseBundle bundle(tree.path(u"b.cobbledb"_s));
        const auto build = [&] { return bundle.buildDatabaseBundleOnDisk() ? 0 : 1; };
        const testing_support::OtherProcess other(build);
        EXPECT_EQ(build(), 0);
        EXPECT_EQ(other.exitCode(), 0);
    }
}

TEST(KTDatabaseBundle, CopiesGetTheNextNumber)
{
    const QList<std::pair<QList<int>, int>> cases = {
        {{}, 0},
        {{0, 1, 2, 3}, 4},
        {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, 10},
        {{0, 1, 2, 3, 5}, 4},
        // 5 is between two that the search sees, and stays unused.
        {{0, 1, 2, 3, 4, 6, 7, 8}, 9},
        {{1, 2, 3}, 0},
    };
    for (const auto &[numbers, next] : cases) {
        const BundleOnDisk bundle;
        bundle.addNumbers(numbers);
        EXPECT_EQ(bundle.nextInstanceNumberForFilePath(u"/some/where/a.jpg"_s), next);
        EXPECT_EQ(bundle.fileNameWithMediaInstanceNumber(u"a.jpg"_s), u"a.%1.jpg"_s.arg(next));
    }
}

TEST(KTDatabaseBundle, NumbersTwentyThousandCopiesWithGaps)
{
    const BundleOnDisk bundle;
    QList<int> numbers;
    for (int number = 0; number < 20000; ++number) {
        if (number != 7 && number != 12345)
            numbers += number;
    }
    bundle.addNumbers(numbers);
    EXPECT_EQ(bundle.nextInstanceNumberForFilePath(u"a.jpg"_s), 20000);
    const QString copy =
        bundle.copyFilePathToMediaFolderAndReturnMediaPath(bundle.source(u"a.jpg"_s));
    EXPECT_EQ(copy, bundle.media(u"a.20000.jpg"_s));
}

TEST(KTDatabaseBundle, CommentsAreAddedAndRemoved)
{
    const KTDatabaseBundle bundle(u"/nowhere"_s);
    EXPECT_EQ(bundle.filePathByAddingExtComment(u"a/b.jpg"_s, u"2"_s), u"a/b.2.jpg"_s);
    EXPECT_EQ(bundle.filePathByRemovingExtComment(u"photo.3.jpg"_s), u"photo.jpg"_s);
    EXPECT_EQ(bundle.filePathByRemovingExtComment(u"photo.jpg"_s), u"photo.jpg"_s);
    EXPECT_EQ(bundle.filePathByRemovingExtComment(u"my.photo.3.jpg"_s), u"my.jpg"_s);
}

TEST(KTDatabaseBundle, NamesOfAllKindsAreStored)
{
    const BundleOnDisk bundle;
    const QStringList names = {u"a b.jpg"_s,
                               u"a.b.c.jpg"_s,
                               u"noextension"_s,
                               u".jpg"_s,
                               u"100%.png"_s,
                               u"%2e%2E.png"_s,
                               u"名前.tiff"_s,
                               u"a?b#c.gif"_s,
                               u"..x"_s,
                               u"x.."_s,
                               u" "_s,
                               u"\n.txt"_s,
                               QString(250, u'y') + u".p"_s};
    for (const QString &name : names) {
        const auto source = NSURL::fileURLWithPath(bundle.source(name, name.toUtf8()));
        const auto url = bundle.storeFileFromURL(*source);
        ASSERT_TRUE(url.has_value()) << name.toStdString();
        EXPECT_EQ(contentsOf(bundle.filePathFromMediaUrl(*url)), name.toUtf8());
        EXPECT_EQ(bundle.mediaUrlFromFilePath(bundle.filePathFromMediaUrl(*url)), url);
    }
    EXPECT_EQ(bundle.mediaNames().size(), names.size());
}

TEST(KTDatabaseBundle, NamesThatWouldBecomeTooLongAreNil)
{
    const BundleOnDisk bundle;
    const QString source = bundle.source(QString(251, u'x') + u".jpg"_s);
    EXPECT_TRUE(bundle.copyFilePathToMediaFolderAndReturnMediaPath(source).isNull());
    EXPECT_TRUE(bundle.mediaNames().isEmpty());
}

TEST(KTDatabaseBundle, NamesCannotLeadOut)
{
    const BundleOnDisk bundle;
    testing_support::writeFile(bundle.databaseFilePath(), "data");
    for (const QString &name : {u""_s, u"."_s, u".."_s, u"../Database"_s, u"a/b"_s,
                                QString(u'a' + QString(QChar(u'\0')))}) {
        EXPECT_FALSE(bundle.isFileNameInMediaFolder(name)) << name.toStdString();
        EXPECT_FALSE(bundle.isFilenameInBundle(name));
        EXPECT_FALSE(bundle.deleteFileFromMediaFolder(name));
        EXPECT_FALSE(bundle.deleteFileFromBundle(name));
    }
    for (const char16_t *text : {u"cobblemedia://..", u"cobblemedia://.", u"cobblemedia://%2E%2E",
                                 u"cobblemedia://..%2FDatabase", u"cobblemedia://%2F",
                                 u"cobblemedia://a%00b", u"cobblemedia://%FF"}) {
        const NSURL url = urlOf(QString::fromUtf16(text));
        EXPECT_TRUE(bundle.filePathFromMediaUrl(url).isNull());
        EXPECT_TRUE(bundle.filepathFromBundleURL(url).isNull());
    }
    for (const QString &path :
         {bundle.tree().path(u".."_s), bundle.tree().path(u"."_s), u"/"_s, QString(), u""_s}) {
        EXPECT_TRUE(bundle.copyFilePathToMediaFolderAndReturnMediaPath(path).isNull());
        EXPECT_FALSE(bundle.mediaUrlFromFilePath(path).has_value());
        EXPECT_EQ(bundle.nextInstanceNumberForFilePath(path), 0);
    }
    EXPECT_EQ(contentsOf(bundle.databaseFilePath()), "data");
    EXPECT_TRUE(bundle.mediaNames().isEmpty());
}

TEST(KTDatabaseBundle, TheLastComponentOfAMediaURLIsTheName)
{
    const KTDatabaseBundle bundle(u"/b"_s);
    const QString media = u"/b/Contents/Resources/Media/"_s;
    EXPECT_EQ(bundle.filePathFromMediaUrl(urlOf(u"cobblemedia://dir/a.png"_s)), media + u"a.png");
    EXPECT_EQ(bundle.filePathFromMediaUrl(urlOf(u"cobblemedia://a.png/"_s)), media + u"a.png");
    EXPECT_EQ(bundle.filePathFromMediaUrl(urlOf(u"cobblemedia://a?b#c"_s)), media + u"a?b#c");
    // Without a name it is the scheme's end.
    EXPECT_EQ(bundle.filePathFromMediaUrl(urlOf(u"cobblemedia://"_s)), media + u"cobblemedia:");
}

TEST(KTDatabaseBundle, DownloadsWithoutANameAreRejected)
{
    const BundleOnDisk bundle;
    const LoopbackServer server;
    for (const char16_t *path : {u"", u"/", u"/..", u"/a/..", u"/a%2F..", u"/%2e%2e"}) {
        const NSURL url = urlOf(server.url(QString::fromUtf16(path)));
        EXPECT_TRUE(bundle.downloadHttpFileToBundleAndReturnPath(url).isNull());
    }
    EXPECT_TRUE(server.requests().isEmpty());
    EXPECT_TRUE(bundle.mediaNames().isEmpty());
}

TEST(KTDatabaseBundle, IsSelfContainedWithoutLinks)
{
    const BundleOnDisk bundle;
    EXPECT_TRUE(bundle.isSelfContained());
    const QString elsewhere = bundle.tree().path(u"elsewhere"_s);
    for (const QString &folder :
         {bundle.mediaFolderPath(), bundle._resourcesFolderPath(), bundle._contentsFolderPath()}) {
        ASSERT_TRUE(QFile::rename(folder, elsewhere));
        EXPECT_TRUE(bundle.isSelfContained());
        ASSERT_TRUE(QFile::link(elsewhere, folder));
        EXPECT_FALSE(bundle.isSelfContained()) << folder.toStdString();
        ASSERT_TRUE(QFile::remove(folder) && QFile::rename(elsewhere, folder));
    }
    // Where the user keeps it is the user's choice.
    ASSERT_TRUE(QFile::rename(bundle.bundlePath(), elsewhere));
    ASSERT_TRUE(QFile::link(elsewhere, bundle.bundlePath()));
    EXPECT_TRUE(bundle.isSelfContained());
    EXPECT_TRUE(KTDatabaseBundle(bundle.tree().path(u"none"_s)).isSelfContained());
    EXPECT_TRUE(KTDatabaseBundle(QString()).isSelfContained());
}

TEST(KTDatabaseBundle, OnlyHTTPInLowerCaseIsDownloaded)
{
    const BundleOnDisk bundle;
    const LoopbackServer server;
    const QString url = server.url(u"/pic.jpg"_s);
    const KTLogCapture capture(kLog_MediaFilenames);
    for (const QString &scheme : {u"https"_s, u"HTTP"_s, u"Http"_s, u"ftp"_s}) {
        const NSURL other = urlOf(scheme + url.mid(4));
        EXPECT_TRUE(bundle.downloadHttpFileToBundleAndReturnPath(other).isNull());
        EXPECT_FALSE(bundle.storeFileFromURL(other).has_value());
    }
    EXPECT_FALSE(bundle.storeFileFromURL(urlOf(u"pic.jpg"_s)).has_value());
    EXPECT_FALSE(bundle.storeFileFromURL(urlOf(u"mailto:ada"_s)).has_value());
    EXPECT_TRUE(server.requests().isEmpty());
    EXPECT_TRUE(capture.entries().isEmpty());
}

TEST(KTDatabaseBundle, FailedDownloadsAreLogged)
{
    const BundleOnDisk bundle;
    const LoopbackServer silent([](int, const QByteArray &) {});
    const NSURL url = urlOf(silent.url(u"/a.jpg"_s));
    const KTLogCapture capture(kLog_MediaFilenames, 4);
    EXPECT_FALSE(bundle.storeFileFromURL(url).has_value());
    ASSERT_EQ(capture.entries().size(), 1);
    EXPECT_EQ(capture.entries().first().lineNumber, 203);
    EXPECT_EQ(capture.entries().first().file, u"KTDatabaseBundle"_s);
    EXPECT_EQ(capture.entries().first().message,
              u"Download of file " + url.absoluteString() + u" failed.");
    EXPECT_TRUE(bundle.mediaNames().isEmpty());
}

TEST(KTDatabaseBundle, DownloadsThatCannotBeWrittenAreLogged)
{
    const BundleOnDisk bundle;
    const LoopbackServer server;
    bundle.removeDatabaseBundleOnDisk();
    const KTLogCapture capture(kLog_MediaFilenames, 4);
    const NSURL url = urlOf(server.url(u"/pic.jpg"_s));
    EXPECT_TRUE(bundle.downloadHttpFileToBundleAndReturnPath(url).isNull());
    ASSERT_EQ(capture.entries().size(), 2);
    EXPECT_EQ(capture.entries()[0].lineNumber, 210);
    EXPECT_EQ(capture.entries()[0].message, u"Writing file to " + bundle.media(u"pic.0.jpg"_s));
    EXPECT_EQ(capture.entries()[1].lineNumber, 215);
    EXPECT_EQ(capture.entries()[1].message,
              u"Writing file to " + bundle.media(u"pic.0.jpg"_s) + u" failed.");
}

TEST(KTDatabaseBundle, WithoutAMediaFolderNothingIsStored)
{
    const BundleOnDisk bundle;
    const QString source = bundle.source(u"a.jpg"_s);
    bundle.removeDatabaseBundleOnDisk();
    testing_support::needApplication();
    EXPECT_TRUE(bundle.copyFilePathToMediaFolderAndReturnMediaPath(source).isNull());
    EXPECT_TRUE(
        bundle.saveTIFFImageToMediaFolderAndReturnMediaPath(QImage(1, 1, QImage::Format_RGB32))
            .isNull());
    EXPECT_FALSE(bundle.deleteFileFromMediaFolder(u"a.0.jpg"_s));
    EXPECT_FALSE(bundle.doesExist());
}

TEST(KTDatabaseBundle, ABundleAtNilIsNotTheCurrentFolder)
{
    const FileTree tree({{u"cwd"_s, true}});
    tree.add(u"Contents/Resources/Media/a.0.png"_s);
    tree.add(u"b.png"_s);
    const QJsonObject before = tree.contents();
    const KTDatabaseBundle bundle{QString()};
    EXPECT_TRUE(bundle._contentsFolderPath().isNull());
    EXPECT_TRUE(bundle.databaseFilePath().isNull());
    EXPECT_TRUE(bundle.mediaFolderPath().isNull());
    EXPECT_FALSE(bundle.buildDatabaseBundleOnDisk());
    EXPECT_FALSE(bundle.isFileNameInMediaFolder(u"a.0.png"_s));
    EXPECT_FALSE(bundle.deleteFileFromMediaFolder(u"a.0.png"_s));
    const QString source = tree.path(u"b.png"_s);
    EXPECT_TRUE(bundle.copyFilePathToMediaFolderAndReturnMediaPath(source).isNull());
    EXPECT_EQ(tree.contents(), before);
}

TEST(KTDatabaseBundle, EmptyPicturesAreNil)
{
    const BundleOnDisk bundle;
    testing_support::needApplication();
    EXPECT_TRUE(bundle.saveTIFFImageToMediaFolderAndReturnMediaPath(QImage()).isNull());
    EXPECT_TRUE(bundle.mediaNames().isEmpty());
}

TEST(KTDatabaseBundle, PicturesAreTIFFFiles)
{
    const BundleOnDisk bundle;
    testing_support::needApplication();
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(QColor(10, 20, 30, 128));
    for (const QString &name : {u"iSight Picture.0.tiff"_s, u"iSight Picture.1.tiff"_s}) {
        const QString path = bundle.saveTIFFImageToMediaFolderAndReturnMediaPath(image);
        EXPECT_EQ(path, bundle.media(name));
        EXPECT_EQ(QImage(path).size(), QSize(3, 2));
        EXPECT_EQ(QImage(path).pixelColor(2, 1).alpha(), 128);
    }
}

TEST(KTDatabaseBundle, CopiesKeepTheirModeAndFoldersTheirContents)
{
    const BundleOnDisk bundle;
    const QString source = bundle.source(u"run.sh"_s, "#!/bin/sh");
    QFile::setPermissions(source, QFile::ReadOwner | QFile::ExeOwner);
    const QString copy = bundle.copyFilePathToMediaFolderAndReturnMediaPath(source);
    EXPECT_EQ(QFile::permissions(copy), QFile::permissions(source));
    bundle.source(u"notes.rtfd/deep/text"_s, "text");
    const QString folder = bundle.copyFilePathToMediaFolderAndReturnMediaPath(
        bundle.tree().path(u"sources/notes.rtfd"_s));
    EXPECT_EQ(folder, bundle.media(u"notes.0.rtfd"_s));
    EXPECT_EQ(contentsOf(folder + u"/deep/text"_s), "text");
    EXPECT_TRUE(bundle.deleteFileFromMediaFolder(u"notes.0.rtfd"_s));
    EXPECT_FALSE(QFile::exists(folder));
}

TEST(KTDatabaseBundle, CopiesThatCannotBeReadGetTheirOddPermissions)
{
    const BundleOnDisk bundle;
    const QString source = bundle.source(u"secret.txt"_s);
    QFile::setPermissions(source, QFile::WriteOwner);
    const bool isAdministrator = ::geteuid() == 0;
    const testing_support::OtherProcess other([&] {
        // The rights are the administrator's, the user is another one.
        if (isAdministrator && ::setresuid(65534, 0, 0) != 0)
            return 1;
        return bundle.copyFilePathToMediaFolderAndReturnMediaPath(source).isNull() ? 2 : 0;
    });
    // Nobody else can copy it in the first place.
    EXPECT_EQ(other.exitCode(), isAdministrator ? 0 : 2);
    struct stat copied = {};
    const QByteArray copy = QFile::encodeName(bundle.media(u"secret.0.txt"_s));
    EXPECT_EQ(::stat(copy.constData(), &copied) == 0, isAdministrator);
    EXPECT_EQ(copied.st_mode & 07777, isAdministrator ? 01407U : 0U);
}

TEST(KTDatabaseBundle, MediaURLsAreOfFilesThatExist)
{
    const BundleOnDisk bundle;
    EXPECT_FALSE(bundle.mediaUrlFromFilePath(u"a b.0.png"_s).has_value());
    bundle.addMedia(u"a b.0.png"_s);
    const auto url = bundle.mediaUrlFromFilePath(u"Media/a b.0.png"_s);
    ASSERT_TRUE(url.has_value());
    EXPECT_EQ(url->absoluteString(), u"cobblemedia://a%20b.0.png"_s);
    EXPECT_EQ(bundle.filePathFromMediaUrl(*url), bundle.media(u"a b.0.png"_s));
    EXPECT_TRUE(bundle.isMediaURL(*url));
    EXPECT_FALSE(bundle.isMediaURL(urlOf(u"Cobblemedia://a"_s)));
    EXPECT_TRUE(bundle.filePathFromMediaUrl(urlOf(u"http://a/b"_s)).isNull());
}

TEST(KTDatabaseBundle, AFullDiskLeavesNothingBehind)
{
    const BundleOnDisk bundle;
    const QByteArray large(1 << 20, 'x');
    const QString source = bundle.source(u"large.bin"_s, large);
    const LoopbackServer server(
        [&large](int socket, const QByteArray &) { LoopbackServer::sendBody(socket, large); });
    const NSURL url = urlOf(server.url(u"/large.bin"_s));
    // The limit on the size of files fails a write half-way, as a full disk does.
    // Not in a child process: the server's thread may hold a lock while one is made.
    rlimit before = {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {1 << 16, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    const bool isCopied = !bundle.copyFilePathToMediaFolderAndReturnMediaPath(source).isNull();
    const bool isLoaded = !bundle.downloadHttpFileToBundleAndReturnPath(url).isNull();
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, handler);
    EXPECT_FALSE(isCopied);
    EXPECT_FALSE(isLoaded);
    EXPECT_TRUE(bundle.mediaNames().isEmpty());
    EXPECT_EQ(server.requests().size(), 1);
}

TEST(KTDatabaseBundle, ManyProcessesNeverTakeOneName)
{
    constexpr int Copies = 100;
    const BundleOnDisk bundle;
    const QString source = bundle.source(u"a.jpg"_s);
    const auto store = [&] {
        int failed = 0;
        for (int count = 0; count < Copies; ++count)
            failed += bundle.copyFilePathToMediaFolderAndReturnMediaPath(source).isNull() ? 1 : 0;
        return failed;
    };
    const testing_support::OtherProcess other(store);
    EXPECT_EQ(store(), 0);
    EXPECT_EQ(other.exitCode(), 0);
    EXPECT_EQ(bundle.mediaNames().size(), 2 * Copies);
}

TEST(KTDatabaseBundle, IsMovedAndCopiedBeforeAnUpgrade)
{
    const BundleOnDisk bundle;
    testing_support::writeFile(bundle.databaseFilePath(), "data");
    bundle.addMedia(u"a.0.jpg"_s);
    const QString first = bundle.moveDatabaseToPreUpgradePath();
    EXPECT_EQ(first, bundle.tree().path(u"b_PreUpgrade.cobbledb"_s));
    EXPECT_FALSE(bundle.doesExist());
    const KTDatabaseBundle backup(bundle.tree().path(u"b1Backup.cobbledb"_s));
    for (const KTDatabaseBundle &copy : {KTDatabaseBundle(first), backup}) {
        EXPECT_EQ(contentsOf(copy.databaseFilePath()), "data");
        EXPECT_TRUE(copy.isFileNameInMediaFolder(u"a.0.jpg"_s));
    }
    EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
    EXPECT_EQ(bundle.moveDatabaseToPreUpgradePath(),
              bundle.tree().path(u"b_PreUpgrade 2.cobbledb"_s));
}

TEST(KTDatabaseBundle, NothingToUpgradeIsNoError)
{
    const FileTree tree;
    const KTDatabaseBundle bundle(tree.path(u"b.cobbledb"_s));
    EXPECT_EQ(bundle.moveDatabaseToPreUpgradePath(), tree.path(u"b_PreUpgrade.cobbledb"_s));
    EXPECT_TRUE(tree.contents().isEmpty());
}

TEST(KTDatabaseBundle, HostileTextsGetAnAnswer)
{
    const BundleOnDisk bundle;
    bundle.addMedia(u"kept"_s);
    for (const QString &text : testing_support::hostileTexts()) {
        EXPECT_FALSE(bundle.isFileNameInMediaFolder(text));
        EXPECT_FALSE(bundle.deleteFileFromMediaFolder(text));
        EXPECT_TRUE(bundle.copyFilePathToMediaFolderAndReturnMediaPath(text).isNull());
        EXPECT_FALSE(bundle.mediaUrlFromFilePath(text).has_value());
        EXPECT_FALSE(KTDatabaseBundle(text).doesExist());
        EXPECT_LE(bundle.filePathByRemovingExtComment(text).size(), text.size());
    }
    EXPECT_EQ(bundle.mediaNames(), QStringList(u"kept"_s));
}
