#include "Library/BundleOption.h"

#include "support/TestSupport.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {
/// A parser that has read the arguments.
std::unique_ptr<QCommandLineParser> parserFor(const QStringList &arguments)
{
    auto parser = std::make_unique<QCommandLineParser>();
    BundleOption::add(parser.get());
    EXPECT_TRUE(parser->parse(QStringList(u"cobble"_s) + arguments));
    return parser;
}
} // namespace

TEST(BundleOption, NeedsAPathIfItIsGiven)
{
    EXPECT_EQ(BundleOption::check(*parserFor({u"--bundle"_s, u""_s})).reason(),
              u"--bundle needs a path"_s);
    EXPECT_TRUE(BundleOption::check(*parserFor({u"--bundle"_s, u"b"_s})));
    EXPECT_TRUE(BundleOption::check(*parserFor({})));
}

TEST(BundleOption, PathsBeginWhereTheProcessIs)
{
    const KTDatabaseBundle bundle = BundleOption::bundleIn(*parserFor({u"--bundle=b.cobbledb"_s}));
    EXPECT_EQ(bundle.bundlePath(), QDir::current().absoluteFilePath(u"b.cobbledb"_s));
}

TEST(BundleOption, ASlashThatAShellPutsBehindIsNotPartOfTheName)
{
    const KTDatabaseBundle bundle = BundleOption::bundleIn(*parserFor({u"--bundle=/a/b/"_s}));
    EXPECT_EQ(bundle.bundlePath(), u"/a/b"_s);
}

TEST(BundleOption, OnlyTheApplicationsOwnFolderIsMade)
{
    const QString home = testing_support::useFreshHome();
    const KTDatabaseBundle elsewhere(QString(home + u"/none/b.cobbledb"));
    BundleOption::needFolderOf(elsewhere);
    EXPECT_FALSE(QDir(home + u"/none").exists());
    BundleOption::needFolderOf(KTDatabaseBundle::factoryDefaultDatabaseBundle());
    EXPECT_TRUE(QDir(home + u"/.local/share/Cobble").exists());
}
