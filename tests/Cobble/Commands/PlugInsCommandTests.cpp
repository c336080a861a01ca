#include "CommandSupport.h"
#include "Library/PlugIns.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

namespace {
const QString Exporter = QStringLiteral("org.cobble.Cobble.TextExporter");
const QString Importer = QStringLiteral("org.cobble.Cobble.VCardImporter");

CommandResult plugIns(const QStringList &arguments = {})
{
    testing_support::needApplication();
    return runInProcess(QStringList({QStringLiteral("plugins")}) + arguments);
}

/// The line that tells of a plug-in; nil if there is none.
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

TEST(PlugInsCommand, ThoseOfTheHostAreLoaded)
{
    testing_support::useFreshHome();
    EXPECT_TRUE(lineOf(Exporter).startsWith(Exporter + u" exporter yes loaded /"));
    EXPECT_TRUE(lineOf(Importer).startsWith(Importer + u" importer yes loaded /"));
    EXPECT_EQ(plugIns({QStringLiteral("list")}).output, plugIns().output);
}

TEST(PlugInsCommand, WhatIsDisabledStaysSo)
{
    const QString home = testing_support::useFreshHome();
    EXPECT_EQ(plugIns({QStringLiteral("disable"), Exporter}).exitCode, 0);
    EXPECT_TRUE(lineOf(Exporter).startsWith(Exporter + u" exporter no not loaded /"));
    EXPECT_EQ(PlugIns().exporterFor(QStringLiteral("csv")), nullptr);
    EXPECT_TRUE(QFile::exists(home + u"/.local/share/Cobble/Preferences/"
                                     u"org.cobble.Cobble.plugins.plist"));
    EXPECT_EQ(plugIns({QStringLiteral("enable"), Exporter}).exitCode, 0);
    EXPECT_EQ(plugIns({QStringLiteral("enable"), Exporter}).exitCode, 0);
    EXPECT_NE(PlugIns().exporterFor(QStringLiteral("csv")), nullptr);
}

TEST(PlugInsCommand, OnesThatAreGoneCanBeDisabled)
{
    testing_support::useFreshHome();
    PlugIns().managers().first().second->setEnabledForPlugin(true, QStringLiteral("org.gone"));
    EXPECT_EQ(plugIns({QStringLiteral("disable"), QStringLiteral("org.gone")}).exitCode, 0);
    EXPECT_FALSE(PlugIns().managers().first().second->isPluginEnabled(QStringLiteral("org.gone")));
    EXPECT_EQ(plugIns({QStringLiteral("disable"), QStringLiteral("org.gone")}).exitCode, 1);
}

TEST(PlugInsCommand, OnesThatDoNotExist)
{
    testing_support::useFreshHome();
    const CommandResult result =
        plugIns({QStringLiteral("enable"), QStringLiteral("org.none"), QStringLiteral("")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, QStringLiteral("cobble: org.none: there is no such plug-in\n"
                                            "cobble: : there is no such plug-in\n"));
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
    EXPECT_TRUE(lineOf(QStringLiteral("-")).startsWith(u"- exporter no skipped /"));
    EXPECT_TRUE(lineOf(QStringLiteral("org.lost")).startsWith(u"org.lost exporter no not loaded"));
    const CommandResult result = plugIns({QStringLiteral("enable"), QStringLiteral("org.lost")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.startsWith(u"cobble: org.lost: ")) << result.errors.toStdString();
    EXPECT_TRUE(lineOf(Exporter).contains(u" yes loaded "));
}

TEST(PlugInsCommand, WrongUsage)
{
    testing_support::useFreshHome();
    EXPECT_EQ(plugIns({QStringLiteral("enable")}).exitCode, 2);
    EXPECT_EQ(plugIns({QStringLiteral("list"), QStringLiteral("x")}).exitCode, 2);
    EXPECT_EQ(plugIns({QStringLiteral("other"), QStringLiteral("x")}).exitCode, 2);
    EXPECT_EQ(plugIns({QStringLiteral("--help")}).exitCode, 0);
}
