#include "Cobble/Commands/CommandSupport.h"
#include "Library/PlugIns.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using testing_support::contentsOf;
using testing_support::FileTree;
using testing_support::writeFile;

namespace {
/// A home with plug-ins that throw, all of them enabled.
class ThrowingPlugIns : public testing::Test
{
protected:
    ThrowingPlugIns()
    {
        testing_support::needApplication();
        const QString plugIns =
            testing_support::useFreshHome() + QStringLiteral("/.local/share/Cobble/PlugIns/");
        install(plugIns + u"Exporters/Throwing.bundle", QStringLiteral("ThrowingExporter"));
        install(plugIns + u"Exporters/Mute.bundle", QStringLiteral("SpeechlessExporter"));
        install(plugIns + u"Importers/Throwing.bundle", QStringLiteral("ThrowingImporter"));
    }

    /// Makes a plug-in whose identifier is the name of its class.
    static void install(const QString &bundle, const QString &className)
    {
        const QString text = QStringLiteral("<plist version=\"1.0\"><dict>"
                                            "<key>CFBundleExecutable</key><string>Code</string>"
                                            "<key>CFBundleIdentifier</key><string>%1</string>"
                                            "<key>NSPrincipalClass</key><string>%1</string>"
                                            "</dict></plist>");
        writeFile(bundle + u"/Contents/Info.plist", text.arg(className).toUtf8());
        writeFile(bundle + u"/Contents/Linux/Code",
                  contentsOf(QStringLiteral(COBBLE_THROWING_PLUGINS)));
        const CommandResult result =
            runInProcess({QStringLiteral("plugins"), QStringLiteral("enable"), className});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    }

    CommandResult import(const QString &name, const QByteArray &contents)
    {
        tree.add(name, contents);
        return runInProcess({QStringLiteral("import"), tree.path(name)});
    }
    CommandResult exportTo(const QString &name)
    {
        return runInProcess({QStringLiteral("export"), QStringLiteral("Names"),
                             QStringLiteral("--to"), tree.path(name)});
    }

    FileTree tree;
};
} // namespace

TEST_F(ThrowingPlugIns, ExportersFailAloneAndLeaveNoFile)
{
    import(QStringLiteral("Names.csv"), "Name\nAnn\n");
    const CommandResult fails = exportTo(QStringLiteral("out.fails"));
    EXPECT_EQ(fails.exitCode, 1);
    EXPECT_EQ(fails.errors, u"cobble: " + tree.path(QStringLiteral("out.fails")) +
                                u": the exporter failed: no paper\n");
    const CommandResult throws = exportTo(QStringLiteral("out.throws"));
    EXPECT_EQ(throws.exitCode, 1);
    EXPECT_TRUE(throws.errors.contains(u"the exporter failed: it threw something"));
    EXPECT_FALSE(QFile::exists(tree.path(QStringLiteral("out.fails"))));
    EXPECT_FALSE(QFile::exists(tree.path(QStringLiteral("out.throws"))));
}

TEST_F(ThrowingPlugIns, OneThatCannotSayItsTypesHasNone)
{
    import(QStringLiteral("Names.csv"), "Name\nAnn\n");
    EXPECT_EQ(exportTo(QStringLiteral("out.csv")).exitCode, 0);
    EXPECT_EQ(PlugIns().exportedTypes(),
              QStringList({QStringLiteral("csv"), QStringLiteral("fails"), QStringLiteral("json"),
                           QStringLiteral("throws")}));
}

TEST_F(ThrowingPlugIns, ImportersFailAlone)
{
    const CommandResult fails = import(QStringLiteral("a.fails"), "fails");
    EXPECT_EQ(fails.exitCode, 1);
    EXPECT_EQ(fails.errors, u"cobble: " + tree.path(QStringLiteral("a.fails")) +
                                u": the importer failed: no paper\n");
    EXPECT_TRUE(import(QStringLiteral("a.throws"), "throws")
                    .errors.contains(u"the importer failed: it threw something"));
    EXPECT_EQ(import(QStringLiteral("a.quiet"), "quiet").errors,
              u"cobble: " + tree.path(QStringLiteral("a.quiet")) + u": the importer failed\n");
}
