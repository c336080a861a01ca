#include "Library/BundleCheck.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using testing_support::FileTree;
using testing_support::writeFile;

namespace {
const QByteArray NameMark("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7");

/// Something that a bundle from elsewhere may hold, and what is said of it; nil if nothing is.
struct CheckRow
{
    const char *name;
    std::function<void(const FileTree &tree, const KTDatabaseBundle &bundle)> make;
    QString reason;
};

void PrintTo(const CheckRow &row, std::ostream *stream)
{
    *stream << row.name;
}

/// Puts a link in the place of something, which goes elsewhere.
void moveBehindLink(const FileTree &tree, const QString &path)
{
    QFile::rename(path, tree.path(u"elsewhere"_s));
    QFile::link(tree.path(u"elsewhere"_s), path);
}

void makePipe(const QString &path)
{
    QFile::remove(path);
    ::mkfifo(QFile::encodeName(path).constData(), 0600);
}

/// The first bytes of a database, which say who may read it.
QByteArray databaseFor(char readers)
{
    QByteArray bytes("SQLite format 3\0\x10\0", 18);
    return bytes + '\1' + readers + QByteArray(4096 - 20, '\0');
}

const QString IsLink = u"a folder of the bundle is a link, which leads out of it"_s;
const QString HasLog = u"the database has a write-ahead log, which Cobble does not use"_s;
const QString NamesFile = u"the journal of the database names another file"_s;

QList<CheckRow> rows()
{
    using Tree = const FileTree &;
    using Bundle = const KTDatabaseBundle &;
    return {
        {"OwnBundle", [](Tree, Bundle) {}, {}},
        {"NothingAtAll", [](Tree, Bundle b) { b.removeDatabaseBundleOnDisk(); }, {}},
        {"NoDatabase", [](Tree, Bundle b) { QFile::remove(b.databaseFilePath()); }, {}},
        {"BundleIsLink", [](Tree tree, Bundle b) { moveBehindLink(tree, b.bundlePath()); }, {}},
        {"ContentsIsLink",
         [](Tree tree, Bundle b) { moveBehindLink(tree, b._contentsFolderPath()); }, IsLink},
        {"ResourcesIsLink",
         [](Tree tree, Bundle b) { moveBehindLink(tree, b._resourcesFolderPath()); }, IsLink},
        {"MediaIsLink", [](Tree tree, Bundle b) { moveBehindLink(tree, b.mediaFolderPath()); },
         IsLink},
        {"MediaIsLinkToNothing",
         [](Tree tree, Bundle b) {
             moveBehindLink(tree, b.mediaFolderPath());
             QDir().rmdir(tree.path(u"elsewhere"_s));
         },
         IsLink},
        {"DatabaseIsLink", [](Tree tree, Bundle b) { moveBehindLink(tree, b.databaseFilePath()); },
         u"the database is a link, or no file"_s},
        {"DatabaseIsPipe", [](Tree, Bundle b) { makePipe(b.databaseFilePath()); },
         u"the database is a link, or no file"_s},
        {"JournalIsLink",
         [](Tree tree, Bundle b) {
             QFile::link(tree.path(u"diary"_s), b.databaseFilePath() + u"-journal");
         },
         u"the journal of the database is a link, or no file"_s},
        {"JournalIsPipe", [](Tree, Bundle b) { makePipe(b.databaseFilePath() + u"-journal"); },
         u"the journal of the database is a link, or no file"_s},
        {"JournalIsEmpty",
         [](Tree, Bundle b) { writeFile(b.databaseFilePath() + u"-journal", ""); },
         {}},
        {"JournalIsItsBeginning",
         [](Tree, Bundle b) { writeFile(b.databaseFilePath() + u"-journal", NameMark); },
         {}},
        {"JournalOfOne",
         [](Tree, Bundle b) {
             writeFile(b.databaseFilePath() + u"-journal", NameMark + QByteArray(600, 'x'));
         },
         {}},
        {"JournalNamesAnother",
         [](Tree, Bundle b) {
             writeFile(b.databaseFilePath() + u"-journal", QByteArray(600, 'x') + NameMark);
         },
         NamesFile},
        {"HasLog", [](Tree, Bundle b) { writeFile(b.databaseFilePath() + u"-wal", "x"); },
         u"there is a 'Database-wal', which Cobble does not use"_s},
        {"HasLinkAsLog",
         [](Tree tree, Bundle b) {
             QFile::link(tree.path(u"none"_s), b.databaseFilePath() + u"-wal");
         },
         u"there is a 'Database-wal', which Cobble does not use"_s},
        {"HasSharedMemory", [](Tree, Bundle b) { writeFile(b.databaseFilePath() + u"-shm", ""); },
         u"there is a 'Database-shm', which Cobble does not use"_s},
        {"WantsLog", [](Tree, Bundle b) { writeFile(b.databaseFilePath(), databaseFor(2)); },
         HasLog},
        {"WantsNoLog", [](Tree, Bundle b) { writeFile(b.databaseFilePath(), databaseFor(1)); }, {}},
        {"NoDatabaseInIt",
         [](Tree, Bundle b) { writeFile(b.databaseFilePath(), QByteArray(4096, 2)); },
         {}},
    };
}

class BundleCheckTests : public testing::TestWithParam<CheckRow>
{
protected:
    BundleCheckTests()
    {
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
        writeFile(bundle.databaseFilePath(), databaseFor(1));
        tree.add(u"diary"_s, "dear diary");
        GetParam().make(tree, bundle);
    }

    FileTree tree;
    KTDatabaseBundle bundle{tree.path(u"b.cobbledb"_s)};
};
} // namespace

TEST_P(BundleCheckTests, TellsWhatLeadsOutOfTheBundle)
{
    const CheckRow &row = GetParam();
    EXPECT_EQ(BundleCheck::database(bundle, true).reason(), row.reason);
    EXPECT_EQ(BundleCheck::folders(bundle).reason(), row.reason == IsLink ? row.reason : QString());
    // A database that must not be opened is not.
    EXPECT_EQ(BundleCheck::database(bundle, false).reason(),
              row.reason == HasLog ? QString() : row.reason);
}

TEST_P(BundleCheckTests, TellsItOfAJournalAlone)
{
    const QString path = bundle.databaseFilePath() + u"-journal";
    const bool isAboutIt = GetParam().reason.startsWith(u"the journal");
    EXPECT_EQ(BundleCheck::journal(path).reason(), isAboutIt ? GetParam().reason : QString());
}

INSTANTIATE_TEST_SUITE_P(Rows, BundleCheckTests, testing::ValuesIn(rows()),
                         [](const testing::TestParamInfo<CheckRow> &row) {
                             return row.param.name;
                         });
