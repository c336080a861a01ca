#include "CommandSupport.h"
#include "Library/PlugIns.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
const QString Exporter = u"org.cobble.Cobble.TextExporter"_s;
const QString Importer = u"org.cobble.Cobble.VCardImporter"_s;

CommandResult plugIns(const QStringList &arguments = {})
{
    testing_support::needApplication();
    return runInProcess(QStringList({u"plugins"_s}) + arguments);
}

/// The line about a plug-in; nil if there is none.
QString lineOf(const QString &identifier)
{
    const QStringList lines = plugIns().output.split(u'\n');
    for (const QString &line : lines) {
        if (line.startsWith(identifier))
            return line.simplified();
    }
    return {};
}
} // namespace

TEST(PlugInsCommand, ThoseOfTheHostAreReady)
{
    testing_support::useFreshHome();
    EXPECT_TRUE(lineOf(Exporter).startsWith(Exporter + u" exporter yes ready /"));
    EXPECT_TRUE(lineOf(Importer).startsWith(Importer + u" importer yes ready /"));
    EXPECT_EQ(plugIns({u"list"_s}).output, plugIns().output);
}

TEST(PlugInsCommand, WhatIsDisabledStaysSo)
{
    const QString home = testing_support::useFreshHome();
    EXPECT_EQ(plugIns({u"disable"_s, Exporter}).exitCode, 0);
    EXPECT_TRUE(lineOf(Exporter).startsWith(Exporter + u" exporter no ready /"));
    EXPECT_EQ(PlugIns().exporterFor(u"csv"_s), nullptr);
    EXPECT_TRUE(QFile::exists(home + u"/.local/share/Cobble/Preferences/"
                                     u"org.cobble.Cobble.plugins.plist"));
    EXPECT_EQ(plugIns({u"enable"_s, Exporter}).exitCode, 0);
    EXPECT_EQ(plugIns({u"enable"_s, Exporter}).exitCode, 0);
    EXPECT_NE(PlugIns().exporterFor(u"csv"_s), nullptr);
}

TEST(PlugInsCommand, OnesThatAreGoneCanBeDisabled)
{
    testing_support::useFreshHome();
    PlugIns().managers().first().second->setEnabledForPlugin(true, u"org.gone"_s);
    EXPECT_EQ(plugIns({u"disable"_s, u"org.gone"_s}).exitCode, 0);
    EXPECT_FALSE(PlugIns().managers().first().second->isPluginEnabled(u"org.gone"_s));
    EXPECT_EQ(plugIns({u"disable"_s, u"org.gone"_s}).exitCode, 1);
}

TEST(PlugInsCommand, SaysWhichOnesDoNotExist)
{
    testing_support::useFreshHome();
    const CommandResult result = plugIns({u"enable"_s, u"org.none"_s, u""_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, u"cobble: org.none: there is no such plug-in\n"
                             "cobble: : there is no such plug-in\n"_s);
}

TEST(PlugInsCommand, BrokenOnesAreListedWithTheReason)
{
    const QString home = testing_support::useFreshHome();
    const QString folder = home + u"/.local/share/Cobble/PlugIns/Exporters/";
    testing_support::writeFile(folder + u"Empty.bundle/x", "");
    testing_support::writeFile(
        folder + u"Lost.bundle/Contents/Info.plist",
        "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>org.lost</string>"
        "<key>NSPrincipalClass</key><string>Lost</string></dict></plist>");
    EXPECT_TRUE(plugIns().output.contains(u"Empty.bundle"));
    EXPECT_TRUE(lineOf(u"-"_s).startsWith(u"- exporter no skipped /"));
    EXPECT_TRUE(lineOf(u"org.lost"_s).startsWith(u"org.lost exporter no ready"));
    const CommandResult result = plugIns({u"enable"_s, u"org.lost"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.startsWith(u"cobble: org.lost: ")) << result.errors.toStdString();
    EXPECT_TRUE(lineOf(Exporter).contains(u" yes ready "));
}

TEST(PlugInsCommand, RejectsWrongUsage)
{
    testing_support::useFreshHome();
    EXPECT_EQ(plugIns({u"enable"_s}).exitCode, 2);
    EXPECT_EQ(plugIns({u"list"_s, u"x"_s}).exitCode, 2);
    EXPECT_EQ(plugIns({u"other"_s, u"x"_s}).exitCode, 2);
    EXPECT_EQ(plugIns({u"--help"_s}).exitCode, 0);
}
