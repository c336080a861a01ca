// `cobble import` with the database that it writes.

#include "Cobble/Commands/CommandSupport.h"
#include "Import/ImportFile.h"
#include "Journal/ChangeJournal.h"
#include "Library/LibraryStore.h"
#include "Library/SQL.h"

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <KTUtility/NSObject>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;
using testing_support::LoopbackServer;

namespace {
/// Runs something in a process of its own.
/// \return 0 if it gives true, the signal that has ended the process, or something else.
int statusOfChild(const std::function<bool()> &action)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(action() ? 0 : 1);
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return status;
}

class LibraryImportTests : public testing::Test
{
protected:
    LibraryImportTests() : bundlePath(tree.path(u"b.cobbledb"_s)), bundle(bundlePath)
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
    }

    QStringList arguments(const QString &file, const QStringList &options = {}) const
    {
        return QStringList({u"import"_s, tree.path(file), u"--bundle"_s, bundlePath, u"--locale"_s,
                            u"en_US"_s}) +
               options;
    }
    CommandResult importFile(const QString &file, const QStringList &options = {}) const
    {
        return runInProcess(arguments(file, options));
    }
    CommandResult import(const QByteArray &contents, const QStringList &options = {}) const
    {
        tree.add(u"Things.csv"_s, contents);
        return importFile(u"Things.csv"_s, options);
    }

    /// The first field of the records of a library, joined with commas; nil if there is none.
    QString firstFieldsOf(const QString &library) const
    {
        const auto store =
            LibraryStore::open(bundle, LibraryStore::Mode::Existing).valueOr(nullptr);
        const Outcome<Library> found = store ? store->libraryNamed(library) : Failure{};
        if (!found)
            return {};
        QStringList values;
        for (RecordCursor records = store->records(*found); records.next();)
            values +=
                records.value(0).isValid() ? NSObject::description(records.value(0)) : QString();
        return values.join(u',');
    }

    QStringList mediaNames() const
    {
        return QDir(bundle.mediaFolderPath())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    FileTree tree;
    QString bundlePath;
    KTDatabaseBundle bundle;
};
} // namespace

TEST_F(LibraryImportTests, TellsWhatItStored)
{
    const CommandResult result = import("Name;Visits\nAnn;1\nBob;2\n");
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.output.endsWith(u"\nStored 2 records in the library 'Things' of "_s +
                                       bundlePath + u"\n"));
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"Ann,Bob"_s);
}

TEST_F(LibraryImportTests, ADryRunWritesNothing)
{
    EXPECT_EQ(import("Name\nAnn\n", {u"--dry-run"_s}).exitCode, 0);
    EXPECT_EQ(tree.contents().keys(), QStringList(u"Things.csv"_s));
}

TEST_F(LibraryImportTests, TheSecondLibraryOfANameIsNumbered)
{
    import("Name\nAnn\n");
    const CommandResult result = import("Name\nBob\n");
    EXPECT_TRUE(result.output.contains(u"in the library 'Things 1' of "));
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"Ann"_s);
    EXPECT_EQ(firstFieldsOf(u"Things 1"_s), u"Bob"_s);
}

TEST_F(LibraryImportTests, LibrariesWhoseTablesWouldClashLiveSideBySide)
{
    for (const QString &name : {u"a b"_s, u"A_b"_s, u"a:b"_s, u"\"; DROP TABLE cobble_field; --"_s})
        EXPECT_EQ(import("Name\nAnn\n", {u"--library"_s, name}).exitCode, 0);
    for (const QString &name : {u"a b"_s, u"A_b"_s, u"a:b"_s, u"\"; DROP TABLE cobble_field; --"_s})
        EXPECT_EQ(firstFieldsOf(name), u"Ann"_s) << name.toStdString();
}

TEST_F(LibraryImportTests, ReplacesALibraryIfAsked)
{
    import("Name\nAnn\n");
    const CommandResult result = import("Other\nBob\n", {u"--replace"_s});
    EXPECT_TRUE(result.output.contains(u"in the library 'Things' of "));
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"Bob"_s);
    EXPECT_TRUE(firstFieldsOf(u"Things 1"_s).isNull());
}

TEST_F(LibraryImportTests, AReplacedLibraryComesBackWithItsMedia)
{
    tree.add(u"a.png"_s, "picture");
    import("Picture\na.png\n", {u"--library"_s, u"Other"_s});
    import("Picture\na.png\ncobblemedia://a.0.png\n", {u"--media"_s, u"Picture"_s});
    import("Name\nBob\n", {u"--replace"_s});
    EXPECT_EQ(mediaNames(), QStringList({u"a.0.png"_s, u"a.1.png"_s}));
    const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ChangeJournal journal(*store);
    const auto step = **journal.last();
    EXPECT_EQ(step.title.kind, StepKinds::Import);
    EXPECT_EQ(step.title.parameters.value(StepParameters::Library), QVariant(u"Things"_s));
    ASSERT_TRUE(journal.undo(step.number));
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"cobblemedia://a.1.png,cobblemedia://a.0.png"_s);
    EXPECT_EQ(contentsOf(bundle.mediaFolderPath() + u"/a.1.png"), "picture");
    ASSERT_TRUE(journal.redo(step.number));
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"Bob"_s);
}

TEST_F(LibraryImportTests, AnImportThatWasUndoneGoesWithTheNextStep)
{
    tree.add(u"a.png"_s, "picture");
    import("Picture\na.png\n", {u"--library"_s, u"Other"_s});
    import("Picture\na.png\ncobblemedia://a.0.png\n", {u"--media"_s, u"Picture"_s});
    {
        const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
        ASSERT_TRUE(ChangeJournal(*store).undo(2));
    }
    EXPECT_TRUE(firstFieldsOf(u"Things"_s).isNull());
    EXPECT_EQ(mediaNames(), QStringList({u"a.0.png"_s, u"a.1.png"_s}));
    import("Name\nBob\n");
    // Another library has the first one, too.
    EXPECT_EQ(mediaNames(), QStringList(u"a.0.png"_s));
    EXPECT_EQ(firstFieldsOf(u"Other"_s), u"cobblemedia://a.0.png"_s);
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"Bob"_s);
}

TEST_F(LibraryImportTests, AStepHoldsNoRecords)
{
    QByteArray rows = "Name\n";
    for (int row = 0; row < 5000; ++row)
        rows += "Somebody\n";
    import(rows);
    const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    EXPECT_LT(*SQL::number(store->database(), u"SELECT sum(size) FROM cobble_step"_s), 1000);
}

TEST_F(LibraryImportTests, CopiesMediaOfAllKinds)
{
    const LoopbackServer server;
    tree.add(u"pics/a b.png"_s, "local");
    tree.add(u"c.png"_s, "url");
    const QByteArray web = server.url(u"/pic.jpg"_s).toUtf8();
    const QByteArray file = "file://" + tree.path(u"c.png"_s).toUtf8();
    const CommandResult result = import("Picture,Name\npics/a b.png,Ann\n" + file + ",Bob\n" + web +
                                            ",Cay\n,Dan\npics/a b.png,Eve\n",
                                        {u"--media"_s, u"Picture"_s});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.output.contains(u"kt_picture   media  4     0         1\n"));
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"cobblemedia://a%20b.0.png,cobblemedia://c.0.png,"
                                          "cobblemedia://pic.0.jpg,,cobblemedia://a%20b.1.png"_s);
    EXPECT_EQ(contentsOf(bundle.mediaFolderPath() + u"/pic.0.jpg"), "PIC");
    EXPECT_EQ(mediaNames().size(), 4);
}

TEST_F(LibraryImportTests, MediaThatCannotBeStoredAreListed)
{
    const LoopbackServer silent([](int, const QByteArray &) {});
    tree.add(u"a.png"_s);
    // A number makes this name longer than names may be.
    const QByteArray longest = QByteArray(251, 'x') + ".png";
    tree.add(QString::fromLatin1(longest));
    const QByteArray web = silent.url(u"/pic.jpg"_s).toUtf8();
    const CommandResult result = import("Picture\na.png\nnone.png\n" + longest + '\n' + web +
                                            "\nhttps://example.org/a.png\n",
                                        {u"--media"_s, u"Picture"_s});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.contains(u"kt_picture   media  1     4         0\n"));
    EXPECT_TRUE(result.output.contains(u"none.png"));
    EXPECT_TRUE(result.output.contains(u"there is no such file"));
    EXPECT_TRUE(result.output.contains(u"its name is too long"));
    EXPECT_TRUE(result.output.contains(u"its server does not answer"));
    EXPECT_TRUE(result.output.contains(u"it names no file"));
    // Nothing that was typed is lost.
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"cobblemedia://a.0.png,none.png," +
                                              QString::fromUtf8(longest + ',' + web) +
                                              u",https://example.org/a.png");
}

TEST_F(LibraryImportTests, MediaColumnsMustExist)
{
    const CommandResult result = import("Picture\na.png\n", {u"--media"_s, u"Photo"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.endsWith(u"there is no column 'Photo'\n"_s));
}

TEST_F(LibraryImportTests, ADryRunCopiesNoMedia)
{
    tree.add(u"a.png"_s);
    const CommandResult result = import("Picture\na.png\n", {u"--dry-run"_s});
    EXPECT_TRUE(result.output.contains(u"kt_picture   media  1     0         0\n"));
    EXPECT_FALSE(bundle.doesExist());
}

TEST_F(LibraryImportTests, PathsThatCannotHoldABundle)
{
    tree.add(u"b.cobbledb"_s, "a file");
    const CommandResult result = import("Name\nAnn\n");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, u"cobble: " + bundlePath + u": the database bundle cannot be made\n");
    EXPECT_EQ(contentsOf(bundlePath), "a file");
}

TEST_F(LibraryImportTests, AFullDiskLeavesTheOldContent)
{
    tree.add(u"a.png"_s, "picture");
    import("Name\nAnn\n");
    QByteArray large = "Name,Picture\n";
    for (int row = 0; row < 20000; ++row)
        large += "Somebody with a rather long name " + QByteArray::number(row) +
                 (row < 20 ? ",a.png\n" : ",\n");
    tree.add(u"Things.csv"_s, large);
    EXPECT_EQ(statusOfChild([this] {
                  // The limit on the size of files fails a write half-way, as a full disk does.
                  const rlimit limit = {1 << 18, 1 << 18};
                  ::signal(SIGXFSZ, SIG_IGN);
                  ::setrlimit(RLIMIT_FSIZE, &limit);
                  const CommandResult result = importFile(u"Things.csv"_s, {u"--replace"_s});
                  return result.exitCode == 1 && !result.errors.isEmpty();
              }),
              0);
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"Ann"_s);
    EXPECT_TRUE(mediaNames().isEmpty());
}

TEST_F(LibraryImportTests, KilledHalfWayItLeavesTheOldContent)
{
    tree.add(u"a.png"_s, "picture");
    import("Name,Picture\nAnn,a.png\n");
    tree.add(u"Things.csv"_s, "Name,Picture\nBob,a.png\nCay,a.png\n");
    EXPECT_EQ(statusOfChild([this] {
                  ImportRequest request;
                  request.path = tree.path(u"Things.csv"_s);
                  request.libraryName = u"Things"_s;
                  request.replaces = true;
                  request.bundle = bundle;
                  auto file = ImportFile::read(request);
                  file->settings.progress = [](qint64 row, qint64) {
                      return row < 2 || ::raise(SIGKILL) != 0;
                  };
                  (void)file->store(request);
                  return false;
              }),
              SIGKILL);
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"Ann"_s);
    EXPECT_TRUE(mediaNames().contains(u"a.1.png"_s));
    // The next import removes the file that nobody knows any more.
    EXPECT_EQ(import("Name\nDan\n", {u"--library"_s, u"More"_s}).exitCode, 0);
    EXPECT_EQ(mediaNames(), QStringList(u"a.0.png"_s));
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"Ann"_s);
    EXPECT_EQ(firstFieldsOf(u"More"_s), u"Dan"_s);
}

TEST_F(LibraryImportTests, AStrangersFileBringsNothingAlong)
{
    const LoopbackServer server;
    const QString home = testing_support::useFreshHome();
    testing_support::writeFile(home + u"/.ssh/id_rsa", "key");
    tree.add(u"private/key"_s);
    tree.add(u".netrc"_s);
    ASSERT_TRUE(QFile::link(tree.path(u"private/key"_s), tree.path(u"photo.png"_s)));
    for (const QString &text :
         {u"~/.ssh/id_rsa"_s, QString(home + u"/.ssh/id_rsa"), u"/etc/passwd"_s,
          server.url(u"/pic.jpg"_s), u"file:///usr/share"_s, u"file:///etc/passwd"_s,
          u"private/key"_s, u".netrc"_s, u"photo.png"_s, u"private"_s}) {
        const CommandResult result =
            import("Photo,Name\n" + text.toUtf8() + ",Ada\n", {u"--replace"_s});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
        EXPECT_TRUE(result.output.contains(u"kt_photo     text"_s)) << result.output.toStdString();
        EXPECT_EQ(firstFieldsOf(u"Things"_s), text);
    }
    EXPECT_TRUE(mediaNames().isEmpty());
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(LibraryImportTests, NorDoesOneValueAmongOthers)
{
    tree.add(u"a.png"_s);
    const CommandResult result =
        import("Photo\n" + QByteArray("a.png\n").repeated(9) + "/etc/passwd\n");
    EXPECT_TRUE(result.output.contains(u"kt_photo     media  9     1         0\n"));
    EXPECT_TRUE(result.output.contains(u"it is not beside the file"_s));
    EXPECT_EQ(mediaNames().size(), 9);
    EXPECT_FALSE(mediaNames().contains(u"passwd.0"_s));
}

TEST_F(LibraryImportTests, NorDoesACard)
{
    const LoopbackServer server;
    tree.add(u"private/key"_s);
    for (const QString &url : {QString(u"file://" + tree.path(u"private/key"_s)),
                               tree.path(u"private/key"_s), server.url(u"/pic.jpg"_s)}) {
        tree.add(u"card.vcf"_s,
                 "BEGIN:VCARD\nVERSION:4.0\nPHOTO:" + url.toUtf8() + "\nFN:Ann\nEND:VCARD\n");
        EXPECT_EQ(importFile(u"card.vcf"_s, {u"--replace"_s}).exitCode, 0);
        EXPECT_EQ(firstFieldsOf(u"card"_s), url);
    }
    EXPECT_TRUE(mediaNames().isEmpty());
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(LibraryImportTests, FoldersAndHugeFilesAreNeverTaken)
{
    tree.add(u"folder/a.png"_s);
    QFile huge(tree.path(u"huge.mov"_s));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(MediaSources::LargestFile + 1));
    const CommandResult result =
        import("Photo\nfolder\nfile:///usr/share\nhuge.mov\n", {u"--media"_s, u"Photo"_s});
    EXPECT_TRUE(result.output.contains(u"kt_photo     media  0     3         0\n"));
    EXPECT_EQ(result.output.count(u"it is a folder"_s), 2);
    EXPECT_EQ(result.output.count(u"it is larger than 256 MB"_s), 1);
    EXPECT_TRUE(mediaNames().isEmpty());
}

TEST_F(LibraryImportTests, ADryRunSaysWhatWouldNotBeTaken)
{
    const CommandResult result =
        import("Photo\nnone.png\n/usr/share\n", {u"--media"_s, u"Photo"_s, u"--dry-run"_s});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.contains(u"kt_photo     media  0     2         0\n"));
    EXPECT_FALSE(bundle.doesExist());
}

TEST_F(LibraryImportTests, ADryRunSaysWhatAReplacementWouldDo)
{
    struct Row
    {
        QByteArray contents;
        QString error; ///< nil if it would be stored
        QString column;
    };
    const Row rows[] = {
        {"Photo\na.png\n", {}, u"kt_photo     media  1     0         0\n"_s},
        {"Photo\ncobblemedia://a.0.png\nlost.png\n",
         {},
         u"kt_photo     media  1     1         0\n"_s},
        {"Photo\na.png\nmissing.jpg\n", u"row 2: 'missing.jpg': there is no such file\n"_s, {}},
        {"Photo\ncobblemedia://none\n",
         u"row 1: 'cobblemedia://none': there is no such file\n"_s,
         {}},
        {"Name\nAnn\n", {}, u"kt_name      text  1"_s},
    };
    tree.add(u"a.png"_s);
    import("Photo\na.png\nlost.png\n", {u"--media"_s, u"Photo"_s});
    const QStringList media = mediaNames();
    for (const Row &row : rows) {
        const CommandResult dry = import(row.contents, {u"--replace"_s, u"--dry-run"_s});
        EXPECT_EQ(dry.exitCode, row.error.isNull() ? 0 : 1) << row.contents.toStdString();
        EXPECT_TRUE(dry.output.contains(row.column)) << dry.output.toStdString();
        EXPECT_EQ(dry.errors,
                  row.error.isNull() ? QString() : u"cobble: " + bundlePath + u": " + row.error);
        EXPECT_EQ(mediaNames(), media);
        EXPECT_EQ(firstFieldsOf(u"Things"_s), u"cobblemedia://a.0.png,lost.png"_s);
    }
    // The import does the same.
    for (const Row &row : {rows[2], rows[3]})
        EXPECT_TRUE(import(row.contents, {u"--replace"_s}).errors.endsWith(row.error));
    EXPECT_TRUE(import(rows[1].contents, {u"--replace"_s}).output.contains(rows[1].column));
}

TEST_F(LibraryImportTests, OldPicturesStayIfTheServerOfTheNewOnesIsGone)
{
    QByteArray csv;
    {
        const LoopbackServer server;
        csv = "Photo,Name\n" + server.url(u"/pic.jpg"_s).toUtf8() + ",Ann\n";
        EXPECT_EQ(import(csv, {u"--media"_s, u"Photo"_s}).exitCode, 0);
    }
    const QJsonObject before = tree.contents();
    const CommandResult result = import(csv, {u"--media"_s, u"Photo"_s, u"--replace"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains(u"row 1: 'http://"_s)) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.endsWith(u"its server does not answer\n"_s));
    EXPECT_EQ(tree.contents(), before);
    EXPECT_EQ(contentsOf(bundle.mediaFolderPath() + u"/pic.0.jpg"), "PIC");
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"cobblemedia://pic.0.jpg"_s);
}

TEST_F(LibraryImportTests, OldPicturesStayIfTheNewOnesAreMissing)
{
    tree.add(u"a.png"_s);
    tree.add(u"b.png"_s);
    import("Photo\na.png\nb.png\nlost.png\n", {u"--media"_s, u"Photo"_s});
    ASSERT_TRUE(QFile::remove(tree.path(u"b.png"_s)));
    const CommandResult result =
        importFile(u"Things.csv"_s, {u"--media"_s, u"Photo"_s, u"--replace"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.endsWith(u"row 2: 'b.png': there is no such file\n"_s))
        << result.errors.toStdString();
    EXPECT_EQ(mediaNames(), QStringList({u"a.0.png"_s, u"b.0.png"_s}));
    // A file that the old library did not have either is no loss.
    tree.add(u"b.png"_s);
    EXPECT_EQ(importFile(u"Things.csv"_s, {u"--media"_s, u"Photo"_s, u"--replace"_s}).exitCode, 0);
    EXPECT_EQ(firstFieldsOf(u"Things"_s),
              u"cobblemedia://a.1.png,cobblemedia://b.1.png,lost.png"_s);
}

TEST_F(LibraryImportTests, ColumnsOfMediaStaySuchInAReplacedLibrary)
{
    tree.add(u"a.png"_s);
    tree.add(u"pics/b.png"_s);
    import("Photo,Scan\na.png,pics/b.png\n", {u"--media"_s, u"Scan"_s});
    const QStringList before = mediaNames();
    EXPECT_EQ(before, QStringList({u"a.0.png"_s, u"b.0.png"_s}));
    // Somebody has forgotten the option, or the files have gone, so that no text looks like media.
    const CommandResult forgotten = importFile(u"Things.csv"_s, {u"--replace"_s});
    EXPECT_EQ(forgotten.exitCode, 1);
    EXPECT_TRUE(forgotten.errors.contains(u"row 1: 'pics/b.png': it is not beside the file"_s))
        << forgotten.errors.toStdString();
    EXPECT_EQ(mediaNames(), before);
    ASSERT_TRUE(QFile::remove(tree.path(u"a.png"_s)));
    EXPECT_EQ(importFile(u"Things.csv"_s, {u"--replace"_s, u"--media"_s, u"Scan"_s}).exitCode, 1);
    EXPECT_EQ(mediaNames(), before);
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"cobblemedia://a.0.png"_s);
}

TEST_F(LibraryImportTests, ALibraryWithoutFilesHasNoneToLose)
{
    import("Photo\nnone.png\n", {u"--media"_s, u"Photo"_s});
    EXPECT_EQ(import("Photo\nother.png\n", {u"--media"_s, u"Photo"_s, u"--replace"_s}).exitCode, 0);
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"other.png"_s);
}

TEST_F(LibraryImportTests, WhatTheBundleHasMayBeOfAnyKind)
{
    ASSERT_TRUE(bundle.buildDatabaseBundleOnDisk());
    ASSERT_TRUE(QDir().mkdir(bundle.mediaFolderPath() + u"/folder.0"));
    QFile huge(bundle.mediaFolderPath() + u"/huge.0.mov");
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(MediaSources::LargestFile + 1));
    const CommandResult result =
        import("Photo\ncobblemedia://folder.0\ncobblemedia://huge.0.mov\ncobblemedia://none\n");
    EXPECT_TRUE(result.output.contains(u"kt_photo     media  2     1         0\n"))
        << result.output.toStdString();
    EXPECT_TRUE(result.output.contains(u"there is no such file"_s));
}

TEST_F(LibraryImportTests, AFullDiskBetweenPicturesLeavesTheOldOnes)
{
    tree.add(u"small.png"_s, "picture");
    tree.add(u"large.png"_s, QByteArray(400'000, 'x'));
    import("Photo\nsmall.png\nlarge.png\n");
    const QJsonObject before = tree.contents();
    for (const QStringList &options : {QStringList{u"--replace"_s}, QStringList()}) {
        EXPECT_EQ(statusOfChild([&] {
                      const rlimit limit = {300'000, 300'000};
                      ::signal(SIGXFSZ, SIG_IGN);
                      ::setrlimit(RLIMIT_FSIZE, &limit);
                      const CommandResult result = importFile(u"Things.csv"_s, options);
                      return result.exitCode == 1 &&
                             result.errors.endsWith(u"row 2: 'large.png': it cannot be copied\n"_s);
                  }),
                  0);
        EXPECT_EQ(tree.contents(), before);
    }
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"cobblemedia://small.0.png,cobblemedia://large.0.png"_s);
}

TEST_F(LibraryImportTests, ADeadServerIsAskedOnceWhileNothingIsLocked)
{
    bool isFree = false;
    const LoopbackServer dead(
        [&](int, const QByteArray &) { isFree = tree.contents().size() == 1; });
    QByteArray csv = "Photo\n";
    for (const QString &name : {u"/1.jpg"_s, u"/2.jpg"_s, u"/3.jpg"_s})
        csv += dead.url(name).toUtf8() + '\n';
    const CommandResult result = import(csv, {u"--media"_s, u"Photo"_s});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.output.contains(u"kt_photo     media  0     3         0\n"));
    EXPECT_EQ(dead.requests().size(), 1);
    EXPECT_TRUE(isFree);
}

TEST_F(LibraryImportTests, APageThatSaysNoIsNoPicture)
{
    const LoopbackServer server;
    const QByteArray url = server.url(u"/none.jpg"_s).toUtf8();
    const CommandResult result = import("Photo\n" + url + '\n', {u"--media"_s, u"Photo"_s});
    EXPECT_TRUE(result.output.contains(u"its server says 404"_s));
    EXPECT_TRUE(mediaNames().isEmpty());
    EXPECT_EQ(firstFieldsOf(u"Things"_s), QString::fromUtf8(url));
}

TEST_F(LibraryImportTests, AFileOfAnotherLibraryStaysHoweverAStrangersFileNamesIt)
{
    tree.add(u"a.png"_s, "picture");
    import("Picture\na.png\n", {u"--library"_s, u"Mine"_s});
    import("Picture\ncobblemedia://x/%61.0.png\n");
    import("Name\nBob\n", {u"--replace"_s});
    EXPECT_EQ(mediaNames(), QStringList(u"a.0.png"_s));
}

TEST_F(LibraryImportTests, AFileThatATextNamesStays)
{
    tree.add(u"photo.jpg"_s);
    tree.add(u"b.jpg"_s);
    import("Photo\nphoto.jpg\nb.jpg\n");
    const QStringList before = mediaNames();
    EXPECT_EQ(before, QStringList({u"b.0.jpg"_s, u"photo.0.jpg"_s}));
    // Two of three are too few for a column of media, and it has another name than the old one.
    const CommandResult result = import(
        "Picture\ncobblemedia://photo.0.jpg\ncobblemedia://b.0.jpg\nnone\n", {u"--replace"_s});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.output.contains(u"kt_picture   text  3"_s)) << result.output.toStdString();
    EXPECT_EQ(mediaNames(), before);
}

TEST_F(LibraryImportTests, AsManyColumnsAsThereMayBe)
{
    QByteArray header, row;
    for (int column = 1; column <= 1999; ++column) {
        header += "f" + QByteArray::number(column) + (column < 1999 ? "," : "\n");
        row += QByteArray::number(column) + (column < 1999 ? "," : "\n");
    }
    EXPECT_EQ(import(header + row).exitCode, 0);
    EXPECT_EQ(firstFieldsOf(u"Things"_s), u"1"_s);
}

TEST_F(LibraryImportTests, TheSampleInTheDefaultBundle)
{
    const QString home = testing_support::useFreshHome();
    const CommandResult result =
        runInProcess({u"import"_s, QStringLiteral(COBBLE_SAMPLES "/contacts.csv")});
    EXPECT_EQ(result.exitCode, 0);
    const KTDatabaseBundle sample = KTDatabaseBundle::factoryDefaultDatabaseBundle();
    EXPECT_EQ(sample.bundlePath(), home + u"/.local/share/Cobble/cobble.cobbledb");
    const auto store = LibraryStore::open(sample, LibraryStore::Mode::Existing);
    ASSERT_TRUE(store) << store.reason().toStdString();
    EXPECT_EQ(*(*store)->recordCount((*store)->libraries()->first()), 302);
}
