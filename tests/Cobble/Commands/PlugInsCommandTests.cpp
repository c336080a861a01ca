#include "CommandSupport.h"
#include "PlugIns/PlugIns.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <KTUtility/NSUserDefaults>

#include <QFile>

using namespace Qt::StringLiterals;

namespace {
const QString Exporter = u"org.cobble.Cobble.TextExporter"_s;
const QString Importer = u"org.cobble.Cobble.VCardImporter"_s;

CommandResult plugIns(const QStringList &arguments = {})
{
    testing_support::needApplication();
    return runInProcess(QStringList({u"plugins"_s}) + arguments);
}

const QString ExportersFolder = u"/.local/share/Cobble/PlugIns/Exporters/"_s;

/// Makes a plug-in without code, "org.NAME" unless it is called something else.
/// \return the path of its bundle.
QString addPlugIn(const QString &folder, const QString &name, const QString &identifier = {})
{
    const QString bundle = folder + name + u".bundle"_s;
    const QString text = u"<plist version=\"1.0\"><dict>"
                         "<key>CFBundleIdentifier</key><string>%1</string>"
                         "<key>NSPrincipalClass</key><string>%2</string></dict></plist>"_s;
    testing_support::writeFile(
        bundle + u"/Contents/Info.plist",
        text.arg(identifier.isNull() ? QString(u"org." + name) : identifier, name).toUtf8());
    return bundle;
}

void letOthersWrite(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.setPermissions(file.permissions() | QFile::WriteOther));
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

TEST(PlugInsCommand, OnesThatCannotBeLoadedAreListedWithTheReasonAndNotEnabled)
{
    const QString folder = testing_support::useFreshHome() + ExportersFolder;
    testing_support::writeFile(folder + u"Empty.bundle/x", "");
    const QString lost = addPlugIn(folder, u"Lost"_s);
    const QString open = addPlugIn(folder, u"Open"_s);
    testing_support::writeFile(open + u"/Contents/Linux/Open", "code");
    letOthersWrite(open + u"/Contents/Linux/Open");
    const QString noFile = u"there is no executable in "_s + lost;
    const QString writable = open + u"/Contents/Linux/Open is writable by others";
    EXPECT_EQ(lineOf(u"-"_s),
              QString(u"- exporter no skipped " + folder +
                      u"Empty.bundle Contents/Info.plist is missing, empty or damaged"));
    EXPECT_EQ(lineOf(u"org.Lost"_s),
              QString(u"org.Lost exporter no failed " + lost + u' ' + noFile));
    EXPECT_EQ(lineOf(u"org.Open"_s),
              QString(u"org.Open exporter no failed " + open + u' ' + writable));
    const CommandResult result = plugIns({u"enable"_s, u"org.Lost"_s, u"org.Open"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors,
              QString(u"cobble: org.Lost: " + noFile + u"\ncobble: org.Open: " + writable + u'\n'));
    EXPECT_TRUE(lineOf(u"org.Open"_s).startsWith(u"org.Open exporter no failed /"));
    EXPECT_TRUE(lineOf(Exporter).contains(u" yes ready "));
}

TEST(PlugInsCommand, OneThatWasReplacedDoesNotSayWhyTheOtherFails)
{
    const QString folder = testing_support::useFreshHome() + ExportersFolder;
    addPlugIn(folder, u"A"_s, u"org.same"_s);
    const QString last = addPlugIn(folder, u"B"_s, u"org.same"_s);
    EXPECT_EQ(plugIns({u"enable"_s, u"org.same"_s}).errors,
              QString(u"cobble: org.same: there is no executable in " + last + u'\n'));
}

TEST(PlugInsCommand, OnesThatAreEnabledAndCannotBeLoadedAreNotSaidToBe)
{
    const QString folder = testing_support::useFreshHome() + ExportersFolder;
    const QString lost = addPlugIn(folder, u"Lost"_s);
    for (const QString &identifier : {u"org.Lost"_s, u"org.gone"_s})
        PlugIns().managers().first().second->setEnabledForPlugin(true, identifier);
    const CommandResult result = plugIns({u"enable"_s, u"org.Lost"_s, u"org.gone"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, QString(u"cobble: org.Lost: there is no executable in " + lost +
                                     u"\ncobble: org.gone: there is no such plug-in\n"));
    EXPECT_EQ(PlugIns().failedExporters(),
              QString(u"cannot be loaded: org.Lost (there is no executable in " + lost + u')'));
}

TEST(PlugInsCommand, SettingsThatCannotBeWrittenAreTold)
{
    testing_support::useFreshHome();
    qunsetenv("HOME");
    for (const QString &change : {u"disable"_s, u"enable"_s, u"enable"_s}) {
        const CommandResult result = plugIns({change, Exporter});
        EXPECT_EQ(result.exitCode, 1) << change.toStdString();
        EXPECT_EQ(result.errors,
                  QString(u"cobble: " + Exporter + u": the settings cannot be written\n"));
    }
    // What waits to be written goes where nobody looks for it.
    testing_support::useFreshHome();
    EXPECT_TRUE(NSUserDefaults::standardUserDefaults()->synchronize());
}

TEST(PlugInsCommand, RejectsWrongUsage)
{
    testing_support::useFreshHome();
    EXPECT_EQ(plugIns({u"enable"_s}).exitCode, 2);
    EXPECT_EQ(plugIns({u"list"_s, u"x"_s}).exitCode, 2);
    EXPECT_EQ(plugIns({u"other"_s, u"x"_s}).exitCode, 2);
    EXPECT_EQ(plugIns({u"--help"_s}).exitCode, 0);
}
