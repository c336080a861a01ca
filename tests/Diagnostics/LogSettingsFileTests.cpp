#include <KTUtility/Diagnostics/LogSettingsFile_p.h>
#include <KTUtility/KTLoggerKeys>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSException>
#include <KTUtility/NSPropertyListSerialization>

#include "support/TestSupport.h"

#include <QDir>

#include <climits>
#include <sys/resource.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using LogSettingsFile::Result;
using testing_support::writeFile;

namespace {
class LogSettingsFileTests : public testing::Test
{
protected:
    /// What is read of a file that holds a dictionary.
    LogSettings settingsOf(const QVariantMap &dictionary) const
    {
        EXPECT_TRUE(NSDictionary::writeToFile(dictionary, path, true));
        LogSettings settings{false, true, QVariantMap{{u"old"_s, 1}}};
        EXPECT_EQ(LogSettingsFile::read(path, &settings), Result::Settings);
        return settings;
    }

    QString path = testing_support::useFreshHome() + u"/settings.plist"_s;
};
} // namespace

TEST_F(LogSettingsFileTests, WhatIsWrittenIsRead)
{
    const LogSettings written{false, true, QVariantMap{{u"Undo"_s, 4}, {u"Tests"_s, 0}}};
    EXPECT_EQ(settingsOf(LogSettingsFile::dictionaryFrom(written)), written);
}

TEST_F(LogSettingsFileTests, TheKeysAreThoseOfTheFile)
{
    const QVariantMap components{{u"Undo"_s, 4}};
    const QVariantMap expected{
        {u"writeToFile"_s, true}, {u"displayFileLine"_s, false}, {u"components"_s, components}};
    EXPECT_EQ(LogSettingsFile::dictionaryFrom({true, false, components}), expected);
}

TEST_F(LogSettingsFileTests, WhatIsMissingIsAsAtFirst)
{
    EXPECT_EQ(settingsOf({}), LogSettings());
}

TEST_F(LogSettingsFileTests, SwitchesMayBeNumbersAndTexts)
{
    EXPECT_FALSE(settingsOf({{KTLoggerWriteToFileKey, 0}}).writeToFile);
    EXPECT_FALSE(settingsOf({{KTLoggerWriteToFileKey, u"no"_s}}).writeToFile);
    EXPECT_TRUE(settingsOf({{KTLoggerDisplayFileLineKey, u"YES"_s}}).displayFileLine);
    EXPECT_TRUE(settingsOf({{KTLoggerDisplayFileLineKey, 0.5}}).displayFileLine);
}

TEST_F(LogSettingsFileTests, ValuesOfOtherTypesAreMissing)
{
    EXPECT_EQ(settingsOf({{KTLoggerWriteToFileKey, QVariantList{false}},
                          {KTLoggerDisplayFileLineKey, QByteArray("1")},
                          {KTLoggerComponentsKey, u"all"_s}}),
              LogSettings());
}

TEST_F(LogSettingsFileTests, ADamagedFileIsAnEmptyOne)
{
    for (const char *damaged : {"", "no property list", "<plist version=\"1.0\"><dict><key>"}) {
        writeFile(path, damaged);
        LogSettings settings{false, true, QVariantMap{{u"old"_s, 1}}};
        EXPECT_EQ(LogSettingsFile::read(path, &settings), Result::Settings) << damaged;
        EXPECT_EQ(settings, LogSettings()) << damaged;
    }
}

TEST_F(LogSettingsFileTests, WithoutAFileNothingIsTouched)
{
    const LogSettings before{false, true, QVariantMap{{u"old"_s, 1}}};
    LogSettings settings = before;
    EXPECT_EQ(LogSettingsFile::read(path, &settings), Result::NoFile);
    EXPECT_EQ(settings, before);
}

TEST_F(LogSettingsFileTests, WhatTheSystemDoesNotLetBeReadIsUnreadable)
{
    writeFile(path, "whatever");
    const LogSettings before{false, true, {}};
    LogSettings settings = before;
    // No descriptor is left, which stops an administrator, too.
    rlimit descriptors{};
    ::getrlimit(RLIMIT_NOFILE, &descriptors);
    const rlimit none{0, descriptors.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &none);
    EXPECT_EQ(LogSettingsFile::read(path, &settings), Result::Unreadable);
    ::setrlimit(RLIMIT_NOFILE, &descriptors);
    EXPECT_EQ(settings, before);
}

TEST_F(LogSettingsFileTests, WithoutComponentsThereIsNothingToStore)
{
    try {
        LogSettingsFile::dictionaryFrom({});
        FAIL() << "raises";
    } catch (const NSException &exception) {
        EXPECT_EQ(exception.name(), NSInvalidArgumentException);
        EXPECT_EQ(exception.reason(), u"*** -[NSMutableDictionary setObject:forKey:]: attempt to "
                                      u"insert nil value (key: components)"_s);
    }
}

TEST_F(LogSettingsFileTests, LevelsMayBeNumbersAndTexts)
{
    EXPECT_EQ(LogSettingsFile::levelFrom(4), 4);
    EXPECT_EQ(LogSettingsFile::levelFrom(u"7"_s), 7);
    EXPECT_EQ(LogSettingsFile::levelFrom(3.9), 3);
    EXPECT_EQ(LogSettingsFile::levelFrom(true), 1);
    EXPECT_EQ(LogSettingsFile::levelFrom(-1), -1);
    EXPECT_EQ(LogSettingsFile::levelFrom(LLONG_MAX), INT_MAX);
    EXPECT_EQ(LogSettingsFile::levelFrom(LLONG_MIN), INT_MIN);
    EXPECT_EQ(LogSettingsFile::levelFrom(QVariantList{4}), 0);
    EXPECT_EQ(LogSettingsFile::levelFrom({}), 0);
}

TEST_F(LogSettingsFileTests, ADamagedFileIsKeptBeside)
{
    const LogSettings settings{true, false, QVariantMap{{u"Undo"_s, 4}}};
    for (const char *suffix : {".damaged", ".damaged.2"}) {
        writeFile(path, "<plist version=\"1.0\"><dict><key>");
        EXPECT_TRUE(LogSettingsFile::write(settings, path));
        EXPECT_EQ(testing_support::contentsOf(path + QLatin1String(suffix)),
                  "<plist version=\"1.0\"><dict><key>");
        EXPECT_EQ(settingsOf(LogSettingsFile::dictionaryFrom(settings)), settings);
    }
}

TEST_F(LogSettingsFileTests, AFolderInItsPlaceStays)
{
    ASSERT_TRUE(QDir().mkpath(path));
    const QString console = testing_support::standardErrorOf([&] {
        EXPECT_FALSE(LogSettingsFile::write({true, false, QVariantMap()}, path));
    });
    EXPECT_TRUE(
        console.endsWith(u"*** the settings of the log cannot be written to " + path + u'\n'))
        << console.toStdString();
    EXPECT_TRUE(QFileInfo(path).isDir());
    EXPECT_FALSE(LogSettingsFile::write({true, false, QVariantMap()}, QString()));
}

TEST_F(LogSettingsFileTests, NamesAreWhatPropertyListsHold)
{
    for (const QString &name : {u"Undo"_s, u"Drag & Drop"_s, u"é 😀"_s, u""_s})
        EXPECT_TRUE(LogSettingsFile::canHoldName(name)) << name.toStdString();
    for (const QString &name : {QString(QChar(0)), QString(QChar(0xD83D)), u"a\u0001"_s})
        EXPECT_FALSE(LogSettingsFile::canHoldName(name));
}
