// `cobble import` with the database that it writes.

#include "Cobble/Commands/CommandSupport.h"
#include "Library/LibraryStore.h"

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <KTUtility/NSObject>

#include <QProcess>
#include <QSemaphore>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using testing_support::contentsOf;
using testing_support::FileTree;
using testing_support::LoopbackServer;

namespace {
class ImportStoring : public testing::Test
{
protected:
    ImportStoring() : bundlePath(tree.path(QStringLiteral("b.cobbledb"))), bundle(bundlePath)
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
    }

    QStringList arguments(const QString &file, const QStringList &options = {}) const
    {
        return QStringList({QStringLiteral("import"), tree.path(file), QStringLiteral("--bundle"),
                            bundlePath, QStringLiteral("--locale"), QStringLiteral("en_US")}) +
               options;
    }
    CommandResult importFile(const QString &file, const QStringList &options = {}) const
    {
        return runInProcess(arguments(file, options));
    }
    CommandResult import(const QByteArray &contents, const QStringList &options = {}) const
    {
        tree.add(QStringLiteral("Things.csv"), contents);
        return importFile(QStringLiteral("Things.csv"), options);
    }

    /// The first field of the records of a library, joined with commas; nil if there is none.
    QString firstFieldsOf(const QString &library) const
    {
        QString error;
        const auto store = LibraryStore::open(bundle, LibraryStore::Mode::Existing, &error);
        const auto found = store ? store->libraryNamed(library) : std::nullopt;
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

TEST_F(ImportStoring, TellsWhatItStored)
{
    const CommandResult result = import("Name;Visits\nAnn;1\nBob;2\n");
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.output.endsWith(
        QStringLiteral("\nStored 2 records in the library 'Things' of ") + bundlePath + u"\n"));
    EXPECT_EQ(firstFieldsOf(QStringLiteral("Things")), QStringLiteral("Ann,Bob"));
}

TEST_F(ImportStoring, ADryRunWritesNothing)
{
    EXPECT_EQ(import("Name\nAnn\n", {QStringLiteral("--dry-run")}).exitCode, 0);
    EXPECT_EQ(tree.contents().keys(), QStringList(QStringLiteral("Things.csv")));
}

TEST_F(ImportStoring, TheSecondLibraryOfAName)
{
    import("Name\nAnn\n");
    const CommandResult result = import("Name\nBob\n");
    EXPECT_TRUE(result.output.contains(u"in the library 'Things 1' of "));
    EXPECT_EQ(firstFieldsOf(QStringLiteral("Things")), QStringLiteral("Ann"));
    EXPECT_EQ(firstFieldsOf(QStringLiteral("Things 1")), QStringLiteral("Bob"));
}

TEST_F(ImportStoring, LibrariesWhoseTablesWouldClash)
{
    for (const QString &name : {QStringLiteral("a b"), QStringLiteral("A_b"), QStringLiteral("a:b"),
                                QStringLiteral("\"; DROP TABLE cobble_field; --")})
        EXPECT_EQ(import("Name\nAnn\n", {QStringLiteral("--library"), name}).exitCode, 0);
    for (const QString &name : {QStringLiteral("a b"), QStringLiteral("A_b"), QStringLiteral("a:b"),
                                QStringLiteral("\"; DROP TABLE cobble_field; --")})
        EXPECT_EQ(firstFieldsOf(name), QStringLiteral("Ann")) << name.toStdString();
}

TEST_F(ImportStoring, ReplacingALibrary)
{
    import("Name\nAnn\n");
    const CommandResult result = import("Other\nBob\n", {QStringLiteral("--replace")});
    EXPECT_TRUE(result.output.contains(u"in the library 'Things' of "));
    EXPECT_EQ(firstFieldsOf(QStringLiteral("Things")), QStringLiteral("Bob"));
    EXPECT_TRUE(firstFieldsOf(QStringLiteral("Things 1")).isNull());
}

TEST_F(ImportStoring, MediaOfAReplacedLibraryGo)
{
    tree.add(QStringLiteral("a.png"), "picture");
    import("Picture\na.png\n", {QStringLiteral("--library"), QStringLiteral("Other")});
    import("Picture\na.png\ncobblemedia://a.0.png\n",
           {QStringLiteral("--media"), QStringLiteral("Picture")});
    EXPECT_EQ(mediaNames(), QStringList({QStringLiteral("a.0.png"), QStringLiteral("a.1.png")}));
    import("Name\nBob\n", {QStringLiteral("--replace")});
    // Another library has the first one, too.
    EXPECT_EQ(mediaNames(), QStringList(QStringLiteral("a.0.png")));
    EXPECT_EQ(firstFieldsOf(QStringLiteral("Other")), QStringLiteral("cobblemedia://a.0.png"));
}

TEST_F(ImportStoring, CopiesMediaOfAllKinds)
{
    const LoopbackServer server;
    tree.add(QStringLiteral("pics/a b.png"), "local");
    tree.add(QStringLiteral("c.png"), "url");
    const QByteArray web = server.url(QStringLiteral("/pic.jpg")).toUtf8();
    const QByteArray file = "file://" + tree.path(QStringLiteral("c.png")).toUtf8();
    const CommandResult result = import("Picture,Name\npics/a b.png,Ann\n" + file + ",Bob\n" + web +
                                        ",Cay\n,Dan\npics/a b.png,Eve\n");
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.output.contains(u"kt_picture   media  4     0         1\n"));
    EXPECT_EQ(firstFieldsOf(QStringLiteral("Things")),
              QStringLiteral("cobblemedia://a%20b.0.png,cobblemedia://c.0.png,"
                             "cobblemedia://pic.0.jpg,,cobblemedia://a%20b.1.png"));
    EXPECT_EQ(contentsOf(bundle.mediaFolderPath() + u"/pic.0.jpg"), "PIC");
    EXPECT_EQ(mediaNames().size(), 4);
}

TEST_F(ImportStoring, MediaThatCannotBeStoredAreListed)
{
    const LoopbackServer silent([](int, const QByteArray &) {});
    tree.add(QStringLiteral("a.png"));
    // A number makes this name longer than names may be.
    const QByteArray longest = QByteArray(251, 'x') + ".png";
    tree.add(QString::fromLatin1(longest));
    const QByteArray web = silent.url(QStringLiteral("/pic.jpg")).toUtf8();
    const CommandResult result = import("Picture\na.png\nnone.png\n" + longest + '\n' + web +
                                            "\nhttps://example.org/a.png\n",
                                        {QStringLiteral("--media"), QStringLiteral("Picture")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.contains(u"kt_picture   media  1     4         0\n"));
    EXPECT_TRUE(result.output.contains(u"none.png"));
    EXPECT_TRUE(result.output.contains(u"there is no such file"));
    EXPECT_TRUE(result.output.contains(u"it cannot be copied"));
    EXPECT_TRUE(result.output.contains(u"it cannot be downloaded"));
    EXPECT_TRUE(result.output.contains(u"it names no file"));
    // Nothing that was typed is lost.
    EXPECT_EQ(firstFieldsOf(QStringLiteral("Things")), u"cobblemedia://a.0.png,none.png," +
                                                           QString::fromUtf8(longest + ',' + web) +
                                                           u",https://example.org/a.png");
}

TEST_F(ImportStoring, MediaColumnsMustExist)
{
    const CommandResult result =
        import("Picture\na.png\n", {QStringLiteral("--media"), QStringLiteral("Photo")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.endsWith(QStringLiteral("there is no column 'Photo'\n")));
}

TEST_F(ImportStoring, ADryRunCopiesNoMedia)
{
    tree.add(QStringLiteral("a.png"));
    const CommandResult result = import("Picture\na.png\n", {QStringLiteral("--dry-run")});
    EXPECT_TRUE(result.output.contains(u"kt_picture   media  1     0         0\n"));
    EXPECT_FALSE(bundle.doesExist());
}

TEST_F(ImportStoring, PathsThatCannotHoldABundle)
{
    tree.add(QStringLiteral("b.cobbledb"), "a file");
    const CommandResult result = import("Name\nAnn\n");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, u"cobble: " + bundlePath + u": the database bundle cannot be made\n");
    EXPECT_EQ(contentsOf(bundlePath), "a file");
}

TEST_F(ImportStoring, AFullDiskLeavesTheOldContent)
{
    tree.add(QStringLiteral("a.png"), "picture");
    import("Name\nAnn\n");
    QByteArray large = "Name,Picture\n";
    for (int row = 0; row < 20000; ++row)
        large += "Somebody with a rather long name " + QByteArray::number(row) +
                 (row < 20 ? ",a.png\n" : ",\n");
    tree.add(QStringLiteral("Things.csv"), large);
    const pid_t child = ::fork();
    if (child == 0) {
        // The limit on the size of files fails a write half-way, as a full disk does.
        const rlimit limit = {1 << 18, 1 << 18};
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const CommandResult result =
            importFile(QStringLiteral("Things.csv"), {QStringLiteral("--replace")});
        ::_exit(result.exitCode == 1 && !result.errors.isEmpty() ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(firstFieldsOf(QStringLiteral("Things")), QStringLiteral("Ann"));
    EXPECT_TRUE(mediaNames().isEmpty());
}

TEST_F(ImportStoring, KilledHalfWayItLeavesTheOldContent)
{
    QSemaphore arrived;
    const LoopbackServer slow([&arrived](int socket, const QByteArray &) {
        arrived.release();
        LoopbackServer::waitForClose(socket);
    });
    tree.add(QStringLiteral("a.png"), "picture");
    import("Name,Picture\nAnn,a.png\n");
    const QByteArray web = slow.url(QStringLiteral("/b.png")).toUtf8();
    tree.add(QStringLiteral("Things.csv"), "Name,Picture\nBob,a.png\nCay," + web + "\n");
    QProcess process;
    process.start(QStringLiteral(COBBLE_EXECUTABLE),
                  arguments(QStringLiteral("Things.csv"), {QStringLiteral("--replace")}));
    ASSERT_TRUE(arrived.tryAcquire(1, 30000));
    process.kill();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(firstFieldsOf(QStringLiteral("Things")), QStringLiteral("Ann"));
    EXPECT_TRUE(mediaNames().contains(QStringLiteral("a.1.png")));
    // The next import removes the file that nobody knows any more, and what it was made under.
    EXPECT_EQ(import("Name\nDan\n", {QStringLiteral("--library"), QStringLiteral("More")}).exitCode,
              0);
    EXPECT_FALSE(mediaNames().contains(QStringLiteral("a.1.png")));
    EXPECT_TRUE(mediaNames().contains(QStringLiteral("a.0.png")));
    EXPECT_EQ(firstFieldsOf(QStringLiteral("Things")), QStringLiteral("Ann"));
    EXPECT_EQ(firstFieldsOf(QStringLiteral("More")), QStringLiteral("Dan"));
}

TEST_F(ImportStoring, AsManyColumnsAsThereMayBe)
{
    QByteArray header, row;
    for (int column = 1; column <= 1999; ++column) {
        header += "f" + QByteArray::number(column) + (column < 1999 ? "," : "\n");
        row += QByteArray::number(column) + (column < 1999 ? "," : "\n");
    }
    EXPECT_EQ(import(header + row).exitCode, 0);
    EXPECT_EQ(firstFieldsOf(QStringLiteral("Things")), QStringLiteral("1"));
}

TEST_F(ImportStoring, TheSampleInTheDefaultBundle)
{
    const QString home = testing_support::useFreshHome();
    const CommandResult result =
        runInProcess({QStringLiteral("import"), QStringLiteral(COBBLE_SAMPLES "/contacts.csv")});
    EXPECT_EQ(result.exitCode, 0);
    const KTDatabaseBundle sample = KTDatabaseBundle::factoryDefaultDatabaseBundle();
    EXPECT_EQ(sample.bundlePath(), home + u"/.local/share/Cobble/cobble.cobbledb");
    QString error;
    const auto store = LibraryStore::open(sample, LibraryStore::Mode::Existing, &error);
    ASSERT_TRUE(store) << error.toStdString();
    EXPECT_EQ(store->recordCount(store->libraries().first()), 302);
}
