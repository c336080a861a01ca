#include <KTUtility/NSBundle>

#include "support/TestSupport.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>

using namespace testing_support;

namespace {
QByteArray informationWith(const QByteArray &entries)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" + entries +
           "</dict></plist>";
}

/// A bundle in a new home folder with these bytes as Contents/Info.plist.
NSBundle bundleWithInformation(const QByteArray &bytes)
{
    const QString path = useFreshHome() + QStringLiteral("/Made Up.app");
    writeFile(path + QStringLiteral("/Contents/Info.plist"), bytes);
    return NSBundle(path);
}
} // namespace

TEST(NSBundle, InformationIsRead)
{
    const NSBundle bundle = bundleWithInformation(
        informationWith("<key>CFBundleIdentifier</key><string>org.x.y</string>"
                        "<key>Number</key><integer>7</integer>"));
    EXPECT_TRUE(bundle.bundlePath().endsWith(QStringLiteral("/Made Up.app")));
    EXPECT_EQ(bundle.bundleIdentifier(), QStringLiteral("org.x.y"));
    EXPECT_EQ(bundle.infoDictionary().size(), 2);
    EXPECT_EQ(bundle.infoDictionary().value(QStringLiteral("Number")), QVariant(7LL));
}

TEST(NSBundle, AFolderWithoutInformationIsABundle)
{
    const QString home = useFreshHome();
    for (const QString &path : {home, QString(home + QStringLiteral("/none")), QString()}) {
        const NSBundle bundle(path);
        EXPECT_EQ(bundle.bundlePath(), path);
        EXPECT_TRUE(bundle.infoDictionary().isEmpty());
        EXPECT_TRUE(bundle.bundleIdentifier().isNull());
    }
}

TEST(NSBundle, DamagedInformationIsNone)
{
    for (const QByteArray &bytes :
         {QByteArray(), QByteArray("no property list"), QByteArray("bplist00"),
          QByteArray("<plist><array/></plist>"), QByteArray("<plist><dict><key>a</key>")}) {
        const NSBundle bundle = bundleWithInformation(bytes);
        EXPECT_TRUE(bundle.infoDictionary().isEmpty());
        EXPECT_TRUE(bundle.bundleIdentifier().isNull());
    }
}

TEST(NSBundle, OnlyTextsAreIdentifiers)
{
    for (const QByteArray &value : {QByteArray("<integer>5</integer>"), QByteArray("<string/>"),
                                    QByteArray("<array><string>a</string></array>")}) {
        const NSBundle bundle =
            bundleWithInformation(informationWith("<key>CFBundleIdentifier</key>" + value));
        EXPECT_TRUE(bundle.bundleIdentifier().isNull());
        EXPECT_EQ(bundle.infoDictionary().size(), 1);
    }
}

TEST(NSBundle, AnExecutableInAnApplicationFolderBelongsToIt)
{
    const auto bundleOf = [](const char16_t *path) {
        return NSBundle::bundlePathForExecutable(QString::fromUtf16(path));
    };
    EXPECT_EQ(bundleOf(u"/o/Cobble.app/Contents/Linux/cobble"), QStringLiteral("/o/Cobble.app"));
    EXPECT_EQ(bundleOf(u"/usr/bin/cobble"), QStringLiteral("/usr/bin"));
    EXPECT_EQ(bundleOf(u"/o/Cobble/Contents/Linux/cobble"),
              QStringLiteral("/o/Cobble/Contents/Linux"));
    EXPECT_EQ(bundleOf(u"/o/Cobble.app/Contents/MacOS/c"),
              QStringLiteral("/o/Cobble.app/Contents/MacOS"));
    EXPECT_EQ(bundleOf(u"/o/Cobble.app/Linux/c"), QStringLiteral("/o/Cobble.app/Linux"));
    EXPECT_EQ(bundleOf(u"/c"), QStringLiteral("/"));
    EXPECT_TRUE(bundleOf(u"").isEmpty());
}

TEST(NSBundle, TheMainBundleOfTheTestsIsTheirFolder)
{
    const QString executable = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget();
    EXPECT_EQ(NSBundle::mainBundle().bundlePath(), QFileInfo(executable).path());
    EXPECT_EQ(&NSBundle::mainBundle(), &NSBundle::mainBundle());
    EXPECT_TRUE(NSBundle::mainBundle().bundleIdentifier().isNull());
}

TEST(NSBundle, TheHostIsNamedAfterItsDesktopFileIfThatCanNameAFile)
{
    needApplication();
    const QString before = QGuiApplication::desktopFileName();
    QGuiApplication::setDesktopFileName(QStringLiteral("org.example.Other"));
    EXPECT_EQ(NSHostIdentifier(), QStringLiteral("org.example.Other"));
    for (const QString &name : {QStringLiteral(""), QStringLiteral("../x"), QStringLiteral(".."),
                                QString(u'a' + QString(QChar(0)))}) {
        QGuiApplication::setDesktopFileName(name);
        EXPECT_EQ(NSHostIdentifier(), QStringLiteral("org.cobble.Cobble"));
    }
    QGuiApplication::setDesktopFileName(before);
}

TEST(NSBundle, TheFrameworkFindsItsResources)
{
    const NSBundle &framework = NSBundle::frameworkBundle();
    EXPECT_EQ(framework.bundlePath(), QStringLiteral(KTUTILITY_FRAMEWORK_FOLDER));
    const QString path =
        framework.pathForResource(QStringLiteral("PhoneNumberFormats"), QStringLiteral("plist"));
    EXPECT_EQ(path, framework.bundlePath() + u"/Resources/PhoneNumberFormats.plist");
    EXPECT_TRUE(
        framework.pathForResource(QStringLiteral("nothing"), QStringLiteral("plist")).isNull());
    EXPECT_EQ(framework.pathForResource(QStringLiteral("PhoneNumberFormats.plist"), QString()),
              path);
}

TEST(NSBundle, TextsWithoutTranslationAreTheirKeys)
{
    const NSBundle &bundle = NSBundle::mainBundle();
    const QString key = QStringLiteral("no such text");
    EXPECT_EQ(bundle.localizedStringForKey(key), key);
    EXPECT_EQ(bundle.localizedStringForKey(key, QStringLiteral("")), key);
    EXPECT_EQ(bundle.localizedStringForKey(key, QStringLiteral("a text")), u"a text");
    EXPECT_EQ(bundle.localizedStringForKey(QStringLiteral("w"), {}, QStringLiteral("Durations")),
              u"w");
}
