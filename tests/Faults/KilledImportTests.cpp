// Imports that are killed wherever they would change something on the disk.

#include "FaultInjector.h"
#include "FaultScenario.h"
#include "Library/LibraryStore.h"

#include "support/TestSupport.h"

#include <KTUtility/KTLogger>
#include <KTUtility/NSPathUtilities>

#include <QDir>

#include <algorithm>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
/// Far more changes than any of them makes.
constexpr int MostChanges = 1000;

class KilledImportTests : public testing::TestWithParam<const char *>
{
protected:
    KilledImportTests()
    {
        testing_support::needApplication();
        // It makes its file in the home that is there when it is first asked for.
        KTLogger::sharedLogger();
        const QList<FaultRow> rows = hostScenarios();
        row = *std::find_if(rows.begin(), rows.end(), [](const FaultRow &each) {
            return std::string(each.name) == GetParam();
        });
    }

    void begin()
    {
        scenario.reset();
        if (home.isNull())
            home = testing_support::useFreshHome();
        QDir(home).removeRecursively();
        QDir().mkpath(home);
        scenario = row.make(home);
    }

    /// Imports in another process, which is killed at its \a number th change.
    /// \return whether it has that many.
    bool killAt(int number)
    {
        const pid_t child = ::fork();
        if (child == 0) {
            FaultInjector::during(home, Fault::Killed, number, [this] { scenario->act(); });
            ::_exit(0);
        }
        int status = -1;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(status == 0 || status == SIGKILL) << status;
        return status == SIGKILL;
    }

    KTDatabaseBundle bundle() const { return KTDatabaseBundle(home + u"/things.cobbledb"_s); }

    /// The first fields of the library; none if there is no such library.
    QStringList names() const
    {
        const auto store = LibraryStore::open(bundle(), LibraryStore::Mode::Existing);
        const auto library = store ? (*store)->libraryNamed(u"People"_s) : Failure{};
        QStringList names;
        if (!library)
            return names;
        for (RecordCursor records = (*store)->records(*library); records.next();)
            names += records.value(0).toString();
        return names;
    }

    /// The files that records refer to.
    QStringList usedFiles() const
    {
        const auto store = LibraryStore::open(bundle(), LibraryStore::Mode::Existing);
        const QSet<QString> used = store ? (*store)->usedMedia().valueOr({}) : QSet<QString>();
        QStringList files;
        for (const QString &url : used) {
            if (!url.isEmpty())
                files += NSString::lastPathComponent(url);
        }
        files.sort();
        return files;
    }
    QStringList files() const
    {
        return QDir(bundle().mediaFolderPath())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    /// The old records or the new ones, each with its picture.
    void expectOldOrNew(const QStringList &before, const QStringList &after) const
    {
        const QStringList now = names();
        EXPECT_TRUE(now == before || now == after) << now.join(u',').toStdString();
        const QStringList present = files();
        for (const QString &file : usedFiles())
            EXPECT_TRUE(present.contains(file)) << file.toStdString();
    }

    /// The next import leaves nothing that nobody refers to.
    void expectCleanAfterNext() const
    {
        const FaultScenario::Answer answer = scenario->act();
        EXPECT_TRUE(answer.isDone) << answer.reason.toStdString();
        EXPECT_EQ(files(), usedFiles());
        const FileState now = stateOf(home);
        for (const QString &rest :
             {u"things.cobbledb/Contents/Resources/ImportedMedia"_s, u"things.cobbledb.lock"_s})
            EXPECT_FALSE(now.contains(rest)) << rest.toStdString();
    }

    FaultRow row;
    QString home;
    std::unique_ptr<FaultScenario> scenario;
};
} // namespace

TEST_P(KilledImportTests, TheOldRecordsOrTheNewAndNothingIsLeftOver)
{
    begin();
    const QStringList before = names();
    ASSERT_TRUE(scenario->act().isDone);
    const QStringList after = names();
    int number = 0;
    for (bool isKilled = true; isKilled && number < MostChanges;) {
        SCOPED_TRACE(++number);
        begin();
        isKilled = killAt(number);
        expectOldOrNew(before, after);
        expectCleanAfterNext();
    }
    EXPECT_GT(number, 20);
    EXPECT_LT(number, MostChanges);
}

INSTANTIATE_TEST_SUITE_P(Imports, KilledImportTests,
                         testing::Values("ImportIntoNewBundle", "ImportIntoBundle",
                                         "ImportThatReplaces", "ImportAfterKilledOne"),
                         [](const auto &row) { return std::string(row.param); });
