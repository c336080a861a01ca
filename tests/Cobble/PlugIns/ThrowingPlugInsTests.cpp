#include "Cobble/Commands/CommandSupport.h"
#include "PlugIns/PlugIns.h"

#include "support/FileTree.h"
#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <sys/resource.h>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;
using testing_support::OtherProcess;
using testing_support::writeFile;

namespace {
/// A home with plug-ins that throw, all of them enabled.
class ThrowingPlugInsTests : public testing::Test
{
protected:
    ThrowingPlugInsTests()
    {
        testing_support::needApplication();
        plugIns = testing_support::useFreshHome() + u"/.local/share/Cobble/PlugIns/"_s;
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

    /// Runs a command in a process of its own, which it ends.
    static void end(const std::function<CommandResult()> &command)
    {
        const OtherProcess process([&] {
            const rlimit none{0, 0};
            ::setrlimit(RLIMIT_CORE, &none);
            command();
            return 0;
        });
        EXPECT_EQ(process.exitCode(), -1);
    }
    /// What the list says of a plug-in, from whether it is enabled on.
    static QString listed(const QString &identifier)
    {
        const QStringList lines = runInProcess({u"plugins"_s}).output.split(u'\n');
        const QString line = lines.filter(QString(identifier + u' ')).value(0).simplified();
        return line.section(u' ', 2);
    }

    FileTree tree;
    QString plugIns;
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
        {u"out.empty"_s, u"the exporter failed\n"_s},
        {u"out.forges"_s, u"no\\ncobble: all is well\\u001b[2J\n"_s},
        {u"out.refuses"_s, u"the exporter failed\n"_s},
        {u"out.beyond"_s, u"the exporter failed: it asked for a field that there is not: 9999\n"_s},
        {u"out.negative"_s, u"the exporter failed: it asked for a field that there is not: -1\n"_s},
        {u"out.before"_s,
         u"the exporter failed: it asked for a field where there is no record\n"_s},
        {u"out.after"_s, u"the exporter failed: it asked for a field where there is no record\n"_s},
        {u"new.quiet"_s, u"the exporter failed\n"_s},
    };
    for (const Row &row : rows) {
        if (row.name.startsWith(u"out."))
            tree.add(row.name, "old");
    }
    const QJsonObject before = tree.contents();
    for (const Row &row : rows) {
        const CommandResult result = exportTo(row.name);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.errors, QString(u"cobble: " + tree.path(row.name) + u": " + row.reason));
        // Nor is there a half-written one beside it.
        EXPECT_EQ(tree.contents(), before);
    }
}

TEST_F(ThrowingPlugInsTests, AnExporterMayCloseWhatItWasGiven)
{
    import(u"Names.csv"_s, "Name\nAnn\n");
    tree.add(u"out.shuts"_s, "old");
    EXPECT_EQ(exportTo(u"out.shuts"_s).exitCode, 0);
    EXPECT_EQ(contentsOf(tree.path(u"out.shuts"_s)), "half whole");
}

TEST_F(ThrowingPlugInsTests, OneThatCannotSayItsTypesHasNone)
{
    import(u"Names.csv"_s, "Name\nAnn\n");
    EXPECT_EQ(exportTo(u"out.csv"_s).exitCode, 0);
    EXPECT_EQ(PlugIns().exportedTypes(),
              QStringList({u"after"_s, u"before"_s, u"beyond"_s, u"csv"_s, u"empty"_s, u"fails"_s,
                           u"forges"_s, u"json"_s, u"negative"_s, u"quiet"_s, u"refuses"_s,
                           u"shuts"_s, u"throws"_s}));
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

TEST_F(ThrowingPlugInsTests, OneThatEndsTheProgramDoesSoOnce)
{
    install(plugIns + u"Exporters/Ending.bundle", u"EndingExporter"_s);
    import(u"Names.csv"_s, "Name\nAnn\n");
    tree.add(u"out.ends"_s, "old");
    EXPECT_TRUE(listed(u"EndingExporter"_s).startsWith(u"yes ready /"));
    end([&] { return exportTo(u"out.ends"_s); });

    EXPECT_EQ(contentsOf(tree.path(u"out.ends"_s)), "old");
    EXPECT_EQ(exportTo(u"out.csv"_s).exitCode, 0);
    const CommandResult result = exportTo(u"out.ends"_s);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.endsWith(u"; passed over, since a program ended while its code ran: "
                                       "EndingExporter; 'cobble plugins enable' tries it again\n"))
        << result.errors.toStdString();
    EXPECT_TRUE(listed(u"EndingExporter"_s).startsWith(u"yes passed over /"));

    // It is given another chance by name, and switched off without being run.
    EXPECT_EQ(runInProcess({u"plugins"_s, u"enable"_s, u"EndingExporter"_s}).exitCode, 0);
    EXPECT_TRUE(listed(u"EndingExporter"_s).startsWith(u"yes ready /"));
    end([&] { return exportTo(u"out.ends"_s); });
    EXPECT_EQ(runInProcess({u"plugins"_s, u"disable"_s, u"EndingExporter"_s}).exitCode, 0);
    EXPECT_TRUE(listed(u"EndingExporter"_s).startsWith(u"no passed over /"));
    EXPECT_FALSE(exportTo(u"out.ends"_s).errors.contains(u"passed over"));
}

TEST_F(ThrowingPlugInsTests, WhatAnImporterThatEndsTheProgramWouldReadIsNoSeparatedText)
{
    install(plugIns + u"Importers/Ending.bundle", u"EndingImporter"_s);
    end([&] { return import(u"a.ends"_s, "Name\nAnn\n"); });
    const CommandResult result = import(u"a.ends"_s, "Name\nAnn\n");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains(u": EndingImporter; ")) << result.errors.toStdString();
    EXPECT_EQ(import(u"a.csv"_s, "Name\nAnn\n").exitCode, 0);
}

TEST_F(ThrowingPlugInsTests, OnesThatOthersMayChangeSinceTheyWereEnabledAreNamed)
{
    import(u"Names.csv"_s, "Name\nAnn\n");
    const QString code = plugIns + u"Exporters/Throwing.bundle/Contents/Linux/Code";
    ASSERT_TRUE(QFile::setPermissions(code, QFile::permissions(code) | QFile::WriteOther));
    const QString reason = code + u" is writable by others"_s;
    EXPECT_TRUE(listed(u"ThrowingExporter"_s).startsWith(u"yes failed /"));
    EXPECT_TRUE(listed(u"ThrowingExporter"_s).endsWith(reason));
    const CommandResult enabled = runInProcess({u"plugins"_s, u"enable"_s, u"ThrowingExporter"_s});
    EXPECT_EQ(enabled.exitCode, 1);
    EXPECT_EQ(enabled.errors, QString(u"cobble: ThrowingExporter: " + reason + u'\n'));
    EXPECT_EQ(
        exportTo(u"out.throws"_s).errors,
        QString(u"cobble: " + tree.path(u"out.throws"_s) +
                u": there is no exporter for 'throws'; there are csv, json; cannot be loaded: "
                "ThrowingExporter (" +
                reason + u")\n"));
}

TEST_F(ThrowingPlugInsTests, FilesOfImportersThatCannotBeLoadedAreNotTakenForText)
{
    const QString code = plugIns + u"Importers/Throwing.bundle/Contents/Linux/Code";
    ASSERT_TRUE(QFile::setPermissions(code, QFile::permissions(code) | QFile::WriteOther));
    const CommandResult result = import(u"a.quiet"_s, "Name\nAnn\n");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains(code + u" is writable by others"))
        << qPrintable(result.errors);
    EXPECT_EQ(import(u"a.csv"_s, "Name\nAnn\n").exitCode, 0);
}

TEST_F(ThrowingPlugInsTests, WithoutExportersNoneAreListed)
{
    import(u"Names.csv"_s, "Name\nAnn\n");
    runInProcess({u"plugins"_s, u"disable"_s, u"ThrowingExporter"_s, u"SpeechlessExporter"_s,
                  u"org.cobble.Cobble.TextExporter"_s});
    EXPECT_TRUE(exportTo(u"out.csv"_s).errors.endsWith(u": there is no exporter for 'csv'\n"));
}

TEST_F(ThrowingPlugInsTests, ListingAndDisablingLoadNoCode)
{
    // Code that cannot even be opened would have said so.
    // Another file: the old one is in use.
    const QString code = plugIns + u"Exporters/Throwing.bundle/Contents/Linux/Code";
    ASSERT_TRUE(QFile::remove(code));
    writeFile(code, "no code");
    EXPECT_TRUE(listed(u"ThrowingExporter"_s).startsWith(u"yes ready /"));
    EXPECT_TRUE(runInProcess({u"plugins"_s, u"disable"_s, u"ThrowingExporter"_s}).errors.isEmpty());
    EXPECT_TRUE(listed(u"ThrowingExporter"_s).startsWith(u"no ready /"));
}
