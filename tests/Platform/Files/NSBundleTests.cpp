#include <KTUtility/NSBundle>

#include "support/TestSupport.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>

using namespace Qt::StringLiterals;
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
    const QString path = useFreshHome() + u"/Made Up.app"_s;
    writeFile(path + u"/Contents/Info.plist"_s, bytes);
    return NSBundle(path);
}
} // namespace

TEST(NSBundle, InformationIsRead)
{
    const NSBundle bundle = bundleWithInformation(
        informationWith("<key>CFBundleIdentifier</key><string>org.x.y</string>"
                        "<key>Number</key><integer>7</integer>"));
    EXPECT_TRUE(bundle.bundlePath().endsWith(u"/Made Up.app"_s));
    EXPECT_EQ(bundle.bundleIdentifier(), u"org.x.y"_s);
    EXPECT_EQ(bundle.infoDictionary().size(), 2);
    EXPECT_EQ(bundle.infoDictionary().value(u"Number"_s), QVariant(7LL));
}

TEST(NSBundle, AFolderWithoutInformationIsABundle)
{
    const QString home = useFreshHome();
    for (const QString &path : {home, QString(home + u"/none"_s), QString()}) {
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
    EXPECT_EQ(bundleOf(u"/o/Cobble.app/Contents/Linux/cobble"), u"/o/Cobble.app"_s);
    EXPECT_EQ(bundleOf(u"/usr/bin/cobble"), u"/usr/bin"_s);
    EXPECT_EQ(bundleOf(u"/o/Cobble/Contents/Linux/cobble"), u"/o/Cobble/Contents/Linux"_s);
    EXPECT_EQ(bundleOf(u"/o/Cobble.app/Contents/MacOS/c"), u"/o/Cobble.app/Contents/MacOS"_s);
    EXPECT_EQ(bundleOf(u"/o/Cobble.app/Linux/c"), u"/o/Cobble.app/Linux"_s);
    EXPECT_EQ(bundleOf(u"/c"), u"/"_s);
    EXPECT_TRUE(bundleOf(u"").isEmpty());
}

TEST(NSBundle, TheMainBundleOfTheTestsIsTheirFolder)
{
    const QString executable = QFileInfo(u"/proc/self/exe"_s).symLinkTarget();
    EXPECT_EQ(NSBundle::mainBundle().bundlePath(), QFileInfo(executable).path());
    EXPECT_EQ(&NSBundle::mainBundle(), &NSBundle::mainBundle());
    EXPECT_TRUE(NSBundle::mainBundle().bundleIdentifier().isNull());
}

TEST(NSBundle, TheHostIsNamedAfterItsDesktopFileIfThatCanNameAFile)
{
    needApplication();
    const QString before = QGuiApplication::desktopFileName();
    QGuiApplication::setDesktopFileName(u"org.example.Other"_s);
    EXPECT_EQ(NSHostIdentifier(), u"org.example.Other"_s);
    for (const QString &name : {u""_s, u"../x"_s, u".."_s, QString(u'a' + QString(QChar(0)))}) {
        QGuiApplication::setDesktopFileName(name);
        EXPECT_EQ(NSHostIdentifier(), u"org.cobble.Cobble"_s);
    }
    QGuiApplication::setDesktopFileName(before);
}

TEST(NSBundle, TheFrameworkFindsItsResources)
{
    const NSBundle &framework = NSBundle::frameworkBundle();
    EXPECT_EQ(framework.bundlePath(), QStringLiteral(KTUTILITY_FRAMEWORK_FOLDER));
    const QString path = framework.pathForResource(u"PhoneNumberFormats"_s, u"plist"_s);
    EXPECT_EQ(path, framework.bundlePath() + u"/Resources/PhoneNumberFormats.plist");
    EXPECT_TRUE(framework.pathForResource(u"nothing"_s, u"plist"_s).isNull());
    EXPECT_EQ(framework.pathForResource(u"PhoneNumberFormats.plist"_s, QString()), path);
}

TEST(NSBundle, FrameworkHoldsItsLibraryOrLiesBesideIt)
{
    struct Row
    {
        QString library;
        QString framework;
    };
    const Row rows[] = {
        {u"/opt/Cobble.app/Contents/Frameworks/KTUtility.framework/libKTUtility.so.0"_s,
         u"/opt/Cobble.app/Contents/Frameworks/KTUtility.framework"_s},
        {u"/usr/lib/x86_64-linux-gnu/libKTUtility.so.0.1.0"_s,
         u"/usr/lib/x86_64-linux-gnu/KTUtility.framework"_s},
        {u"/home/ann/frameworks/lib/libKTUtility.so"_s,
         u"/home/ann/frameworks/lib/KTUtility.framework"_s},
        {u"/libKTUtility.so"_s, u"/KTUtility.framework"_s},
    };
    for (const Row &row : rows)
        EXPECT_EQ(NSBundle::frameworkPathForLibrary(row.library), row.framework);
}

TEST(NSBundle, TextsWithoutTranslationAreTheirKeys)
{
    const NSBundle &bundle = NSBundle::mainBundle();
    const QString key = u"no such text"_s;
    EXPECT_EQ(bundle.localizedStringForKey(key), key);
    EXPECT_EQ(bundle.localizedStringForKey(key, u""_s), key);
    EXPECT_EQ(bundle.localizedStringForKey(key, u"a text"_s), u"a text");
    EXPECT_EQ(bundle.localizedStringForKey(u"w"_s, {}, u"Durations"_s), u"w");
}
