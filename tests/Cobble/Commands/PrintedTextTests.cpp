// What comes from files, bundles, plug-ins and servers, as every command prints it.

#include "CommandSupport.h"

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <algorithm>

using namespace Qt::StringLiterals;

using testing_support::FileTree;
using testing_support::LoopbackServer;

namespace {
/// Ends a line, writes another one, clears the screen and turns the direction of writing.
const QString Hostile = u"a\n\rforged\x1b[2J\u009b2J\b\u2028forged\u202eb"_s;

bool steers(QChar unit)
{
    static const QString directional =
        u"\u2028\u2029\u200e\u200f\u061c\u202a\u202b\u202c\u202d\u202e"
        "\u2066\u2067\u2068\u2069"_s;
    return unit != u'\n' && (unit.category() == QChar::Other_Control || directional.contains(unit));
}

/// Whether a text is only lines that the command itself has begun.
bool isPlain(const QString &text)
{
    return std::none_of(text.begin(), text.end(), steers) && !text.contains(u"\nforged"_s) &&
           !text.startsWith(u"forged"_s);
}

class PrintedTextTests : public testing::Test
{
protected:
    PrintedTextTests() : bundle(tree.path(QString(u"b" + Hostile + u".cobbledb")))
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
    }

    CommandResult run(const QStringList &arguments) const
    {
        const CommandResult result = runInProcess(arguments);
        EXPECT_TRUE(isPlain(result.output))
            << QString(arguments.join(u' ') + result.output).toStdString();
        EXPECT_TRUE(isPlain(result.errors))
            << QString(arguments.join(u' ') + result.errors).toStdString();
        EXPECT_FALSE(result.output.isEmpty() && result.errors.isEmpty())
            << arguments.join(u' ').toStdString();
        return result;
    }
    CommandResult runOnBundle(const QStringList &arguments) const
    {
        return run(arguments + QStringList{u"--bundle"_s, bundle});
    }
    QString file(const QString &suffix) const { return tree.path(QString(Hostile + suffix)); }

    FileTree tree;
    QString bundle;
};
} // namespace

TEST_F(PrintedTextTests, OfFilesAndBundles)
{
    const QByteArray quoted = "\"" + Hostile.toUtf8() + "\"";
    tree.add(QString(Hostile + u".csv"), quoted + ",Photo,Age\n" + quoted + ",none.png,5\n" +
                                             quoted + "," + quoted + "," + quoted + "\n" +
                                             QByteArray("x,y,7\n").repeated(10));
    EXPECT_EQ(runOnBundle({u"import"_s, file(u".csv"_s), u"--media"_s, u"Photo"_s}).exitCode, 0);
    EXPECT_EQ(runOnBundle({u"import"_s, file(u".csv"_s), u"--dry-run"_s}).exitCode, 0);
    runOnBundle({u"import"_s, file(u".csv"_s), u"--media"_s, Hostile});
    runOnBundle({u"import"_s, file(u"none.csv"_s)});
    EXPECT_EQ(runOnBundle({u"show"_s}).exitCode, 0);
    EXPECT_EQ(runOnBundle({u"show"_s, Hostile}).exitCode, 0);
    EXPECT_EQ(runOnBundle({u"show"_s, Hostile, u"--json"_s}).exitCode, 0);
    EXPECT_EQ(runOnBundle({u"undo"_s, u"--list"_s}).exitCode, 0);
    EXPECT_EQ(runOnBundle({u"set"_s, Hostile, u"1"_s, QString(Hostile + u'=' + Hostile)}).exitCode,
              0);
    EXPECT_EQ(runOnBundle({u"set"_s, Hostile, u"1"_s, QString(u"Age=" + Hostile)}).exitCode, 3);
    EXPECT_EQ(runOnBundle({u"set"_s, Hostile, u"1"_s, QString(Hostile + u"2=1")}).exitCode, 4);
    EXPECT_EQ(runOnBundle({u"new"_s, Hostile}).exitCode, 5);
    EXPECT_EQ(runOnBundle({u"rename"_s, Hostile, u"A"_s, u"--field"_s, Hostile}).exitCode, 0);
    EXPECT_EQ(runOnBundle({u"undo"_s, u"--json"_s}).exitCode, 0);
    runOnBundle({u"show"_s, QString(Hostile + u"2")});
    EXPECT_EQ(runOnBundle({u"export"_s, Hostile, u"--to"_s, file(u".json"_s)}).exitCode, 0);
    runOnBundle({u"export"_s, Hostile, u"--to"_s, file(QString(u"." + Hostile))});
    run({u"show"_s, u"--bundle"_s, file(u"none"_s)});
}

TEST_F(PrintedTextTests, OfReplacedLibraries)
{
    tree.add(u"a.png"_s);
    tree.add(u"a.csv"_s, "Photo\na.png\n\"" + Hostile.toUtf8() + "\"\n");
    const QStringList arguments = {u"import"_s,   tree.path(u"a.csv"_s), u"--media"_s,
                                   u"Photo"_s,    u"--library"_s,        Hostile,
                                   u"--replace"_s};
    EXPECT_EQ(runOnBundle(arguments).exitCode, 0);
    tree.add(u"a.csv"_s, "Photo\n\"2" + Hostile.toUtf8() + "\"\n");
    EXPECT_EQ(runOnBundle(arguments).exitCode, 1);
}

TEST_F(PrintedTextTests, OfMedia)
{
    tree.add(QString(Hostile + u".png"));
    const LoopbackServer server;
    EXPECT_EQ(runOnBundle({u"media"_s, u"add"_s, file(u".png"_s)}).exitCode, 0);
    runOnBundle({u"media"_s, u"add"_s, file(u"none.png"_s)});
    runOnBundle({u"media"_s, u"add"_s, server.url(u"/none%0Aforged%1b[2J.png"_s)});
    const QString listed = runOnBundle({u"media"_s, u"list"_s}).output;
    runOnBundle({u"media"_s, u"path"_s, listed.trimmed().section(u' ', -1)});
    runOnBundle({u"media"_s, u"path"_s, Hostile});
    runOnBundle({u"media"_s, u"delete"_s, Hostile});
    runOnBundle({u"upgrade-copy"_s});
}

TEST_F(PrintedTextTests, OfPlugIns)
{
    const QString folder =
        qEnvironmentVariable("HOME") + u"/.local/share/Cobble/PlugIns/Exporters/";
    QString identifier = Hostile;
    for (QChar &unit : identifier)
        unit = unit == u'\n' || !steers(unit) ? unit : QChar(0x202e); // as far as XML holds it
    testing_support::writeFile(
        folder + Hostile + u".bundle/Contents/Info.plist",
        u"<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>%1</string>"
        "<key>CFBundleExecutable</key><string>%1</string>"
        "<key>NSPrincipalClass</key><string>%1</string></dict></plist>"_s.arg(identifier)
            .toUtf8());
    EXPECT_TRUE(run({u"plugins"_s}).output.contains(u"\\u202e"_s));
    run({u"plugins"_s, u"enable"_s, identifier});
    run({u"plugins"_s, u"disable"_s, Hostile});
}

TEST_F(PrintedTextTests, OfArguments)
{
    for (const QStringList &arguments : {QStringList{Hostile},
                                         {u"--"_s + Hostile},
                                         {u"import"_s, u"--"_s + Hostile},
                                         {u"names"_s, Hostile},
                                         {u"parse"_s, u"number"_s, Hostile},
                                         {u"parse"_s, Hostile, u"1"_s},
                                         {u"format"_s, u"number"_s, Hostile},
                                         {u"format"_s, u"phone"_s, Hostile},
                                         {u"log"_s, Hostile, u"4"_s},
                                         {u"show"_s, u"--locale"_s, Hostile},
                                         {u"show"_s, u"--limit"_s, Hostile},
                                         {u"window"_s, Hostile},
                                         {u"gallery"_s, Hostile},
                                         {u"media"_s, Hostile}})
        run(arguments);
}
