#include "Import/ImportTransaction.h"

#include "Journal/ChangeJournal.h"

#include "support/FileTree.h"
#include "support/NoThreads.h"
#include "support/TestSupport.h"

#include <QElapsedTimer>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

using testing_support::FileTree;
using testing_support::writeFile;

namespace {
Library libraryNamed(const QString &name)
{
    Library library;
    library.name = name;
    library.tableName = QString(u"kt_" + name);
    LibraryField field;
    field.columnName = u"kt_picture"_s;
    field.type = FieldType::Media;
    library.fields = {field};
    return library;
}

class ImportTransactionTests : public testing::Test
{
protected:
    ImportTransactionTests() : bundle(tree.path(u"b.cobbledb"_s))
    {
        testing_support::needApplication();
        tree.add(u"a.png"_s, "picture");
    }

    std::unique_ptr<ImportTransaction> begin()
    {
        auto import = ImportTransaction::begin(bundle);
        error = import.reason();
        return std::move(import).valueOr(nullptr);
    }

    /// Makes a library with one record that has a picture.
    /// \return the picture's URL.
    QString store(ImportTransaction &import, const QString &name)
    {
        const auto url = import.storeMedia(*NSURL::fileURLWithPath(tree.path(u"a.png"_s)));
        EXPECT_TRUE(import.create(libraryNamed(name)));
        EXPECT_TRUE(url && import.store().insert({url->absoluteString()}));
        return url ? url->absoluteString() : QString();
    }

    QStringList libraryNames()
    {
        QStringList names;
        const auto store = LibraryStore::open(bundle, LibraryStore::Mode::Existing);
        const auto libraries = store ? (*store)->libraries().valueOr({}) : QList<Library>();
        for (const Library &library : libraries)
            names += library.name;
        return names;
    }

    QStringList mediaNames() const
    {
        return QDir(bundle.mediaFolderPath())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    FileTree tree;
    KTDatabaseBundle bundle;
    QString error;
};
} // namespace

TEST_F(ImportTransactionTests, StoresWhatIsCommitted)
{
    const auto import = begin();
    ASSERT_TRUE(import);
    EXPECT_EQ(store(*import, u"one"_s), u"cobblemedia://a.0.png"_s);
    EXPECT_TRUE(import->commit());
    EXPECT_EQ(libraryNames(), QStringList(u"one"_s));
    EXPECT_EQ(mediaNames(), QStringList(u"a.0.png"_s));
    EXPECT_FALSE(QFile::exists(bundle._resourcesFolderPath() + u"/ImportedMedia"));
}

TEST_F(ImportTransactionTests, LeavesNothingOfANewBundle)
{
    {
        const auto import = begin();
        ASSERT_TRUE(import);
        store(*import, u"one"_s);
    }
    EXPECT_EQ(tree.contents().keys(), QStringList(u"a.png"_s));
}

TEST_F(ImportTransactionTests, LeavesABundleAsItWas)
{
    {
        const auto import = begin();
        store(*import, u"one"_s);
        ASSERT_TRUE(import->commit());
    }
    {
        const auto import = begin();
        ASSERT_TRUE(import->store().remove(libraryNamed(u"one"_s)));
        EXPECT_EQ(store(*import, u"two"_s), u"cobblemedia://a.1.png"_s);
        EXPECT_EQ(mediaNames().size(), 2);
    }
    EXPECT_EQ(libraryNames(), QStringList(u"one"_s));
    EXPECT_EQ(mediaNames(), QStringList(u"a.0.png"_s));
}

TEST_F(ImportTransactionTests, CleansUpAfterOneThatDied)
{
    {
        const auto import = begin();
        store(*import, u"one"_s);
        ASSERT_TRUE(import->commit());
    }
    // What a process leaves that is killed: its files, and their list. One that died after it had
    // committed leaves the names of files that are in use.
    writeFile(bundle.mediaFolderPath() + u"/b.0.png", "left");
    writeFile(bundle.mediaFolderPath() + u"/c.0.png", "the user's");
    writeFile(bundle._resourcesFolderPath() + u"/ImportedMedia",
              "cobblemedia://a.0.png\ncobblemedia://b.0.png\ncobblemedia://none\nhttp://x/y\n"
              "cobblemedia://..%2FDatabase\ncobblemedia://unfini");
    const auto import = begin();
    ASSERT_TRUE(import);
    EXPECT_EQ(mediaNames(), QStringList({u"a.0.png"_s, u"c.0.png"_s}));
    EXPECT_TRUE(import->commit());
    EXPECT_EQ(libraryNames(), QStringList(u"one"_s));
}

TEST_F(ImportTransactionTests, CopiesThatWereNeverFinishedGo)
{
    ASSERT_TRUE(bundle.buildDatabaseBundleOnDisk());
    writeFile(bundle.mediaFolderPath() + u"/.cobble-12ab", "half");
    writeFile(bundle.mediaFolderPath() + u"/.cobble-notes.0", "the user's");
    ASSERT_TRUE(begin());
    EXPECT_EQ(mediaNames(), QStringList(u".cobble-notes.0"_s));
}

TEST_F(ImportTransactionTests, WhatIsForgottenIsListedBeforeItGoes)
{
    {
        const auto import = begin();
        store(*import, u"one"_s);
        ASSERT_TRUE(import->store().insert({u"a text\ncobblemedia://c.0.png\n"_s}));
        ASSERT_TRUE(import->commit());
    }
    const auto reader = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ASSERT_TRUE(ChangeJournal(*reader).undo(1));
    const QString list = bundle._resourcesFolderPath() + u"/ImportedMedia";
    writeFile(bundle.mediaFolderPath() + u"/c.0.png", "the user's");
    QByteArray listed;
    {
        const auto import = begin();
        EXPECT_EQ(store(*import, u"two"_s), u"cobblemedia://a.1.png"_s);
        // Somebody reads, so that nothing can be committed.
        RecordCursor records = reader->records(libraryNamed(u"one"_s));
        ASSERT_TRUE(records.next());
        import->store().setPatience(10);
        EXPECT_FALSE(import->commit());
        listed = testing_support::contentsOf(list);
    }
    // What the process would have left that was killed then; a text is no name of a file.
    EXPECT_EQ(listed, "cobblemedia://a.1.png\ncobblemedia://a.0.png\n");
    // But it was not killed: the library that was undone comes back with its file.
    EXPECT_EQ(mediaNames(), QStringList({u"a.0.png"_s, u"c.0.png"_s}));
    EXPECT_FALSE(QFile::exists(list));
    ASSERT_TRUE(ChangeJournal(*reader).redo(1));
    EXPECT_EQ(libraryNames(), QStringList(u"one"_s));
}

TEST_F(ImportTransactionTests, ALargeFileIsCopiedWhileOthersAreCalled)
{
    QFile large(tree.path(u"large.mov"_s));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(qint64(8) << 20));
    const auto import = begin();
    int calls = 0;
    const auto count = [&calls] { ++calls; };
    EXPECT_TRUE(import->storeMedia(*NSURL::fileURLWithPath(tree.path(u"a.png"_s)), count));
    EXPECT_EQ(calls, 0);
    const auto stored =
        import->storeMedia(*NSURL::fileURLWithPath(tree.path(u"large.mov"_s)), count);
    ASSERT_TRUE(stored);
    EXPECT_GE(calls, 1);
    EXPECT_EQ(QFileInfo(bundle.filePathFromMediaUrl(*stored)).size(), qint64(8) << 20);
}

TEST_F(ImportTransactionTests, ALargeFileIsCopiedWhereNoThreadStarts)
{
    QFile large(tree.path(u"large.mov"_s));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(qint64(8) << 20));
    const auto import = begin();
    const testing_support::NoThreads none;
    const auto stored =
        import->storeMedia(*NSURL::fileURLWithPath(tree.path(u"large.mov"_s)), [] {});
    ASSERT_TRUE(stored);
    EXPECT_EQ(QFileInfo(bundle.filePathFromMediaUrl(*stored)).size(), qint64(8) << 20);
}

TEST_F(ImportTransactionTests, ANameThatWasCutOffIsNoName)
{
    ASSERT_TRUE(bundle.buildDatabaseBundleOnDisk());
    // The disk was full in the middle of "notes.12".
    writeFile(bundle.mediaFolderPath() + u"/notes.1", "the user's");
    writeFile(bundle.mediaFolderPath() + u"/notes.", "the user's");
    writeFile(bundle._resourcesFolderPath() + u"/ImportedMedia", "cobblemedia://notes.1");
    ASSERT_TRUE(begin());
    EXPECT_EQ(mediaNames(), QStringList({u"notes."_s, u"notes.1"_s}));
}

TEST_F(ImportTransactionTests, AListDeletesNothingThroughALink)
{
    ASSERT_TRUE(bundle.buildDatabaseBundleOnDisk());
    ASSERT_TRUE(QDir().rmdir(bundle.mediaFolderPath()));
    tree.add(u"documents/letter"_s);
    ASSERT_TRUE(QFile::link(tree.path(u"documents"_s), bundle.mediaFolderPath()));
    writeFile(bundle._resourcesFolderPath() + u"/ImportedMedia", "cobblemedia://letter\n");
    EXPECT_EQ(begin(), nullptr);
    EXPECT_EQ(error, u"a folder of the bundle is a link, which leads out of it"_s);
    EXPECT_TRUE(QFile::exists(tree.path(u"documents/letter"_s)));
}

TEST_F(ImportTransactionTests, ALinkInPlaceOfTheListIsNotFollowed)
{
    ASSERT_TRUE(bundle.buildDatabaseBundleOnDisk());
    const QString list = bundle._resourcesFolderPath() + u"/ImportedMedia";
    ASSERT_TRUE(QFile::link(tree.path(u"a.png"_s), list));
    const auto import = begin();
    ASSERT_TRUE(import) << error.toStdString();
    store(*import, u"one"_s);
    EXPECT_TRUE(import->commit());
    EXPECT_EQ(testing_support::contentsOf(tree.path(u"a.png"_s)), "picture");
}

TEST_F(ImportTransactionTests, APipeInPlaceOfTheListIsNotWaitedFor)
{
    ASSERT_TRUE(bundle.buildDatabaseBundleOnDisk());
    const QString list = bundle._resourcesFolderPath() + u"/ImportedMedia";
    ASSERT_EQ(::mkfifo(QFile::encodeName(list).constData(), 0600), 0);
    EXPECT_TRUE(begin());
    EXPECT_FALSE(QFile::exists(list));
}

TEST_F(ImportTransactionTests, WhatOthersPutIntoANewBundleStays)
{
    {
        const auto import = begin();
        ASSERT_TRUE(import);
        store(*import, u"one"_s);
        writeFile(bundle.mediaFolderPath() + u"/b.0.png", "the user's");
    }
    EXPECT_EQ(mediaNames(), QStringList(u"b.0.png"_s));
    EXPECT_FALSE(QFile::exists(bundle.databaseFilePath()));
}

TEST_F(ImportTransactionTests, MediaThatCannotBeListedAreNotStored)
{
    const auto import = begin();
    ASSERT_TRUE(import);
    const NSURL picture = *NSURL::fileURLWithPath(tree.path(u"a.png"_s));
    struct rlimit before = {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    // Room for the picture, not for its name.
    const struct rlimit small = {rlim_t(10), before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const std::optional<NSURL> none = import->storeMedia(picture);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(none.has_value());
    EXPECT_TRUE(mediaNames().isEmpty());
    EXPECT_EQ(testing_support::contentsOf(bundle._resourcesFolderPath() + u"/ImportedMedia"), "");
    EXPECT_TRUE(import->storeMedia(picture).has_value());
    EXPECT_EQ(testing_support::contentsOf(bundle._resourcesFolderPath() + u"/ImportedMedia"),
              "cobblemedia://a.0.png\n");
}

TEST_F(ImportTransactionTests, OnlyWhatWasStoredIsListed)
{
    QFile large(tree.path(u"large.mov"_s));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(qint64(8) << 20));
    tree.add(u"ä b.png"_s);
    const QString list = bundle._resourcesFolderPath() + u"/ImportedMedia";
    const auto import = begin();
    EXPECT_FALSE(import->storeMedia(*NSURL::fileURLWithPath(tree.path(u"none.png"_s))));
    EXPECT_EQ(testing_support::contentsOf(list), "");
    EXPECT_TRUE(import->storeMedia(*NSURL::fileURLWithPath(tree.path(u"ä b.png"_s))));
    EXPECT_EQ(testing_support::contentsOf(list), "cobblemedia://%C3%A4%20b.0.png\n");
    // Somebody may take the name under which it was listed.
    bool isTaken = false;
    const auto stored = import->storeMedia(*NSURL::fileURLWithPath(tree.path(u"large.mov"_s)), [&] {
        const QString taken = bundle.mediaFolderPath() + u"/large.0.mov";
        if (!isTaken && !QFile::exists(taken))
            writeFile(taken, "the user's");
        isTaken = true;
    });
    ASSERT_TRUE(stored);
    EXPECT_EQ(testing_support::contentsOf(list),
              "cobblemedia://%C3%A4%20b.0.png\n" + stored->absoluteString().toLatin1() + "\n");
}

TEST_F(ImportTransactionTests, FilesOfTheBundleAreNotCopiedAgain)
{
    const auto import = begin();
    writeFile(bundle.mediaFolderPath() + u"/b.0.png", "there");
    const NSURL there = *NSURL::URLWithString(u"cobblemedia://b.0.png"_s);
    EXPECT_EQ(import->storeMedia(there), there);
    EXPECT_FALSE(import->storeMedia(*NSURL::URLWithString(u"cobblemedia://c.0.png"_s)));
    EXPECT_FALSE(import->storeMedia(*NSURL::URLWithString(u"https://a/b"_s)));
    EXPECT_EQ(mediaNames(), QStringList(u"b.0.png"_s));
}

TEST_F(ImportTransactionTests, ASlashBehindTheBundleIsNotPartOfItsName)
{
    const KTDatabaseBundle same = bundle;
    bundle = KTDatabaseBundle(bundle.bundlePath() + u'/');
    const auto import = begin();
    ASSERT_TRUE(import) << error.toStdString();
    EXPECT_EQ(ImportTransaction::begin(same, 10).reason(),
              u"another program is changing the bundle"_s);
}

TEST_F(ImportTransactionTests, PathsThatAreNoBundleAreRejected)
{
    bundle = KTDatabaseBundle(tree.path(u"a.png"_s));
    EXPECT_EQ(begin(), nullptr);
    EXPECT_EQ(error, u"the database bundle cannot be made"_s);
    bundle = KTDatabaseBundle(tree.path(u"none/b.cobbledb"_s));
    EXPECT_EQ(begin(), nullptr);
    EXPECT_EQ(error, u"there is no folder for the database bundle"_s);
    EXPECT_EQ(tree.contents().keys(), QStringList(u"a.png"_s));
}

TEST_F(ImportTransactionTests, DamagedDatabasesStay)
{
    ASSERT_TRUE(bundle.buildDatabaseBundleOnDisk());
    writeFile(bundle.databaseFilePath(), QByteArray(5000, 'x'));
    EXPECT_EQ(begin(), nullptr);
    EXPECT_EQ(error, u"file is not a database"_s);
    EXPECT_EQ(testing_support::contentsOf(bundle.databaseFilePath()).size(), 5000);
}

TEST_F(ImportTransactionTests, OneRunsAtATime)
{
    const auto first = begin();
    ASSERT_TRUE(first);
    EXPECT_EQ(ImportTransaction::begin(bundle, 10).reason(),
              u"another program is changing the bundle"_s);
    store(*first, u"one"_s);
    EXPECT_TRUE(first->commit());
    EXPECT_EQ(libraryNames(), QStringList(u"one"_s));
}

TEST_F(ImportTransactionTests, TheApplicationsFolderIsMade)
{
    const QString home = testing_support::useFreshHome();
    bundle = KTDatabaseBundle::factoryDefaultDatabaseBundle();
    const auto import = begin();
    ASSERT_TRUE(import) << error.toStdString();
    EXPECT_TRUE(import->commit());
    EXPECT_TRUE(QFile::exists(home + u"/.local/share/Cobble/cobble.cobbledb/Contents/Resources/"
                                     u"Database"));
}
