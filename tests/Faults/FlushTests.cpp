// What is on the disk when an operation is done, so that it survives a power failure.

#include "FaultInjector.h"

#include "support/TestSupport.h"

#include <KTUtility/KTDatabaseBundle>

#include <QImage>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
/// An operation, and how often files and folders have to be flushed for it.
struct FlushRow
{
    const char *name;
    std::function<bool(const QString &home)> act;
    int flushes;
    /// Done before, unobserved.
    std::function<void(const QString &home)> prepare = [](const QString &) {};
};

void PrintTo(const FlushRow &row, std::ostream *stream)
{
    *stream << row.name;
}

KTDatabaseBundle bundleIn(const QString &home)
{
    return KTDatabaseBundle(QString(home + u"/b.cobbledb"));
}

void buildBundle(const QString &home)
{
    EXPECT_TRUE(bundleIn(home).buildDatabaseBundleOnDisk());
    testing_support::writeFile(home + u"/photo.jpg", "picture");
    testing_support::writeFile(home + u"/folder/photo.jpg", "picture");
}

bool copyIn(const QString &home, const QString &name)
{
    const QString source = home + u'/' + name;
    return !bundleIn(home).copyFilePathToMediaFolderAndReturnMediaPath(source).isNull();
}

QList<FlushRow> rows()
{
    return {
        // The folder that each one lies in.
        {"NewBundle",
         [](const QString &home) { return bundleIn(home).buildDatabaseBundleOnDisk(); }, 4},
        {"BundleThatIsThere",
         [](const QString &home) { return bundleIn(home).buildDatabaseBundleOnDisk(); }, 0,
         buildBundle},
        // The file, and the folder with its name.
        {"MediaFile", [](const QString &home) { return copyIn(home, u"photo.jpg"_s); }, 2,
         buildBundle},
        // The file system with all files, and the folder with the name.
        {"MediaFolder", [](const QString &home) { return copyIn(home, u"folder"_s); }, 2,
         buildBundle},
        {"Picture",
         [](const QString &home) {
             const QImage picture(2, 2, QImage::Format_RGB32);
             return !bundleIn(home).saveTIFFImageToMediaFolderAndReturnMediaPath(picture).isNull();
         },
         2, buildBundle},
        {"PreUpgradeCopy",
         [](const QString &home) {
             return !bundleIn(home).moveDatabaseToPreUpgradePath().isNull();
         },
         1, buildBundle},
    };
}

class FlushTests : public testing::TestWithParam<FlushRow>
{
};
} // namespace

TEST_P(FlushTests, BringsFilesAndTheirNamesToTheDisk)
{
    constexpr int Never = 1'000'000;
    const QString home = testing_support::useFreshHome();
    GetParam().prepare(home);
    bool isDone = false;
    const auto outcome = FaultInjector::during(home, Fault::InputOutput, Never,
                                               [&] { isDone = GetParam().act(home); });
    EXPECT_TRUE(isDone);
    EXPECT_EQ(outcome.seen[size_t(FileCall::Flush)], GetParam().flushes);
}

INSTANTIATE_TEST_SUITE_P(Rows, FlushTests, testing::ValuesIn(rows()),
                         [](const testing::TestParamInfo<FlushRow> &row) {
                             return row.param.name;
                         });
