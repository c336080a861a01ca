#include "Cobble/Commands/CommandSupport.h"
#include "Library/PlugIns.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;
using testing_support::writeFile;

namespace {
/// A home with plug-ins that throw, all of them enabled.
class ThrowingPlugInsTests : public testing::Test
{
protected:
    ThrowingPlugInsTests()
    {
        testing_support::needApplication();
        const QString plugIns =
            testing_support::useFreshHome() + u"/.local/share/Cobble/PlugIns/"_s;
        install(plugIns + u"Exporters/Throwing.bundle", u"ThrowingExporter"_s);
        install(plugIns + u"Exporters/Mute.bundle", u"SpeechlessExporter"_s);
        install(plugIns + u"Importers/Throwing.bundle", u"ThrowingImporter"_s);
    }

    /// Makes a plug-in whose identifier is the name of its class.
    static void install(const QString &bundle, const QString &className)
    {
        const QString text = u"<plist version=\"1.0\"><dict>"
                             "<key>CFBundleExecutable</key><string>Code</string>"
                             "<key>CFBundleIdentifier</key><string>%1</string>"
                             "<key>NSPrincipalClass</key><string>%1</string>"
                             "</dict></plist>"_s;
        writeFile(bundle + u"/Contents/Info.plist", text.arg(className).toUtf8());
        writeFile(bundle + u"/Contents/Linux/Code",
                  contentsOf(QStringLiteral(COBBLE_THROWING_PLUGINS)));
        const CommandResult result = runInProcess({u"plugins"_s, u"enable"_s, className});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    }

    CommandResult import(const QString &name, const QByteArray &contents)
    {
        tree.add(name, contents);
        return runInProcess({u"import"_s, tree.path(name)});
    }
    CommandResult exportTo(const QString &name)
    {
        return runInProcess({u"export"_s, u"Names"_s, u"--to"_s, tree.path(name)});
    }

    FileTree tree;
};
} // namespace

TEST_F(ThrowingPlugInsTests, ExportersFailAloneAndLeaveNoFile)
{
    import(u"Names.csv"_s, "Name\nAnn\n");
    const CommandResult fails = exportTo(u"out.fails"_s);
    EXPECT_EQ(fails.exitCode, 1);
    EXPECT_EQ(fails.errors,
              u"cobble: " + tree.path(u"out.fails"_s) + u": the exporter failed: no paper\n");
    const CommandResult throws = exportTo(u"out.throws"_s);
    EXPECT_EQ(throws.exitCode, 1);
    EXPECT_TRUE(throws.errors.contains(u"the exporter failed: it threw something"));
    EXPECT_FALSE(QFile::exists(tree.path(u"out.fails"_s)));
    EXPECT_FALSE(QFile::exists(tree.path(u"out.throws"_s)));
}

TEST_F(ThrowingPlugInsTests, ExportersThatFailLeaveTheOldFile)
{
    import(u"Names.csv"_s, "Name\nAnn\n");
    struct Row
    {
        QString name;
        QString reason;
    };
    const Row rows[] = {
        {u"out.quiet"_s, u"the exporter failed\n"_s},
        {u"out.fails"_s, u"the exporter failed: no paper\n"_s},
        {u"new.quiet"_s, u"the exporter failed\n"_s},
    };
    tree.add(u"out.quiet"_s, "old");
    tree.add(u"out.fails"_s, "old");
    const QJsonObject before = tree.contents();
    for (const Row &row : rows) {
        const CommandResult result = exportTo(row.name);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.errors, QString(u"cobble: " + tree.path(row.name) + u": " + row.reason));
        // Nor is there a half-written one beside it.
        EXPECT_EQ(tree.contents(), before);
    }
}

TEST_F(ThrowingPlugInsTests, OneThatCannotSayItsTypesHasNone)
{
    import(u"Names.csv"_s, "Name\nAnn\n");
    EXPECT_EQ(exportTo(u"out.csv"_s).exitCode, 0);
    EXPECT_EQ(PlugIns().exportedTypes(),
              QStringList({u"csv"_s, u"fails"_s, u"json"_s, u"quiet"_s, u"throws"_s}));
}

TEST_F(ThrowingPlugInsTests, ImportersFailAlone)
{
    const CommandResult fails = import(u"a.fails"_s, "fails");
    EXPECT_EQ(fails.exitCode, 1);
    EXPECT_EQ(fails.errors,
              u"cobble: " + tree.path(u"a.fails"_s) + u": the importer failed: no paper\n");
    EXPECT_TRUE(import(u"a.throws"_s, "throws")
                    .errors.contains(u"the importer failed: it threw something"));
    EXPECT_EQ(import(u"a.quiet"_s, "quiet").errors,
              u"cobble: " + tree.path(u"a.quiet"_s) + u": the importer failed\n");
}
