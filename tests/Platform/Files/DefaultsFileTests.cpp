#include <KTUtility/NSUserDefaults>

#include <KTUtility/NSPropertyListSerialization>

#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLockFile>

#include <functional>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace testing_support;

// What user defaults do with their files: other writers, damage, and places that cannot be written.

namespace {
const QString Domain = u"org.example.Tests"_s;
const QString Key = u"key"_s;
const QString OtherKey = u"other"_s;

QString preferencesIn(const QString &home)
{
    return home + u"/.local/share/Cobble/Preferences"_s;
}

QString fileIn(const QString &home)
{
    return preferencesIn(home) + u'/' + Domain + u".plist"_s;
}
} // namespace

TEST(DefaultsFile, ASetIsWrittenAtOnce)
{
    const QString home = useFreshHome();
    NSUserDefaults defaults(Domain);
    EXPECT_FALSE(QFileInfo::exists(preferencesIn(home))) << "reading makes no folders";
    defaults.setInteger(1, Key);
    const QVariantMap expected = {{Key, 1LL}};
    EXPECT_EQ(NSDictionary::dictionaryWithContentsOfFile(fileIn(home)), expected);
    EXPECT_EQ(QDir(preferencesIn(home)).entryList(QDir::Files), QStringList{Domain + u".plist"_s});
}

TEST(DefaultsFile, TwoInstancesLoseNothing)
{
    useFreshHome();
    NSUserDefaults one(Domain);
    NSUserDefaults two(Domain);
    one.setInteger(1, Key);
    two.setInteger(2, OtherKey);
    EXPECT_EQ(two.integerForKey(Key), 1) << "a write takes over what others wrote";
    EXPECT_FALSE(one.objectForKey(OtherKey).isValid());
    EXPECT_TRUE(one.synchronize());
    EXPECT_EQ(one.integerForKey(OtherKey), 2);
    one.removeObjectForKey(Key);
    two.setInteger(3, OtherKey);
    EXPECT_FALSE(two.objectForKey(Key).isValid()) << "a removal is not undone by another writer";
    const QVariantMap expected = {{OtherKey, 3LL}};
    EXPECT_EQ(NSUserDefaults(Domain).dictionaryRepresentation(), expected);
}

TEST(DefaultsFile, TwoProcessesLoseNothing)
{
    useFreshHome();
    constexpr int Count = 40;
    const auto writeKeys = [](const QString &prefix) {
        NSUserDefaults defaults(Domain);
        for (int index = 0; index < Count; ++index)
            defaults.setInteger(index, prefix + QString::number(index));
        // A busy machine may have let one wait for the lock too long.
        for (int attempt = 0; attempt < 5 && !defaults.synchronize(); ++attempt)
            continue;
    };
    const OtherProcess child([&] {
        writeKeys(u"child"_s);
        return 0;
    });
    writeKeys(u"parent"_s);
    ASSERT_EQ(child.exitCode(), 0);
    EXPECT_EQ(NSUserDefaults(Domain).dictionaryRepresentation().size(), 2 * Count);
}

TEST(DefaultsFile, TheGlobalDomainIsTakenOver)
{
    useFreshHome();
    NSUserDefaults one(Domain);
    NSUserDefaults two(Domain);
    one.setPersistentDomain({{Key, 1}}, NSGlobalDomain);
    EXPECT_FALSE(two.objectForKey(Key).isValid());
    EXPECT_TRUE(two.synchronize());
    EXPECT_EQ(two.integerForKey(Key), 1);
}

TEST(DefaultsFile, DamagedFilesCountAsEmptyAndAreKept)
{
    const QByteArray valid =
        NSPropertyListSerialization::dataWithPropertyList(QVariantMap{{OtherKey, 1}});
    for (const QByteArray &bytes :
         {QByteArray("damaged"), QByteArray(), valid.chopped(20),
          QByteArray("<plist><array/></plist>"), QByteArray("bplist00x")}) {
        const QString home = useFreshHome();
        writeFile(fileIn(home), bytes);
        NSUserDefaults defaults(Domain);
        EXPECT_TRUE(defaults.dictionaryRepresentation().isEmpty());
        EXPECT_TRUE(defaults.synchronize());
        EXPECT_EQ(contentsOf(fileIn(home)), bytes) << "reading changes nothing";
        defaults.setInteger(1, Key);
        EXPECT_EQ(contentsOf(fileIn(home) + u".damaged"_s), bytes);
        EXPECT_EQ(NSUserDefaults(Domain).integerForKey(Key), 1);
    }
}

TEST(DefaultsFile, AnEarlierDamagedFileIsNotLost)
{
    const QString home = useFreshHome();
    for (const QByteArray &bytes : {QByteArray("first"), QByteArray("second")}) {
        writeFile(fileIn(home), bytes);
        NSUserDefaults(Domain).setInteger(1, Key);
    }
    EXPECT_EQ(contentsOf(fileIn(home) + u".damaged"_s), QByteArray("first"));
    EXPECT_EQ(contentsOf(fileIn(home) + u".damaged.2"_s), QByteArray("second"));
}

TEST(DefaultsFile, AFolderInPlaceOfTheFileIsKept)
{
    const QString home = useFreshHome();
    writeFile(fileIn(home) + u"/inside"_s, "kept");
    NSUserDefaults defaults(Domain);
    defaults.setInteger(1, Key);
    EXPECT_EQ(contentsOf(fileIn(home) + u".damaged/inside"_s), QByteArray("kept"));
    EXPECT_EQ(NSUserDefaults(Domain).integerForKey(Key), 1);
}

TEST(DefaultsFile, WithoutAHomeValuesLiveInMemory)
{
    useFreshHome();
    qunsetenv("HOME");
    NSUserDefaults defaults(Domain);
    EXPECT_FALSE(defaults.synchronize());
    defaults.setInteger(1, Key);
    defaults.setPersistentDomain({{Key, 2}}, u"D"_s);
    EXPECT_EQ(defaults.persistentDomainForName(u"D"_s).value_or(QVariantMap()).size(), 1);
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_EQ(defaults.integerForKey(Key), 1);
    EXPECT_TRUE(defaults.persistentDomainNames().isEmpty());
    useFreshHome();
    EXPECT_TRUE(defaults.synchronize()) << "what could not be written is written later";
    EXPECT_EQ(NSUserDefaults(Domain).integerForKey(Key), 1);
    EXPECT_EQ(NSUserDefaults(u"D"_s).integerForKey(Key), 2);
}

TEST(DefaultsFile, AFileInPlaceOfTheFolderKeepsValuesInMemory)
{
    const QString home = useFreshHome();
    writeFile(preferencesIn(home), "in the way");
    NSUserDefaults defaults(Domain);
    defaults.setInteger(1, Key);
    EXPECT_EQ(defaults.integerForKey(Key), 1);
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_EQ(contentsOf(preferencesIn(home)), QByteArray("in the way"));
    ASSERT_TRUE(QFile::remove(preferencesIn(home)));
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(NSUserDefaults(Domain).integerForKey(Key), 1);
}

TEST(DefaultsFile, ADomainOfItsOwnThatCannotBeWrittenIsWrittenLater)
{
    const QString home = useFreshHome();
    writeFile(preferencesIn(home), "in the way");
    NSUserDefaults defaults(Domain);
    defaults.setPersistentDomain({{Key, 1}}, Domain);
    defaults.setInteger(2, OtherKey);
    EXPECT_EQ(defaults.integerForKey(Key), 1);
    EXPECT_FALSE(defaults.synchronize());
    ASSERT_TRUE(QFile::remove(preferencesIn(home)));
    EXPECT_TRUE(defaults.synchronize());
    const QVariantMap expected = {{Key, 1LL}, {OtherKey, 2LL}};
    EXPECT_EQ(NSUserDefaults(Domain).dictionaryRepresentation(), expected);
}

TEST(DefaultsFile, AHeldLockIsWaitedForTwoSeconds)
{
    const QString home = useFreshHome();
    QDir().mkpath(preferencesIn(home));
    NSUserDefaults defaults(Domain);
    QLockFile lock(fileIn(home) + u".lock"_s);
    ASSERT_TRUE(lock.tryLock());
    QElapsedTimer timer;
    timer.start();
    defaults.setInteger(1, Key);
    EXPECT_GE(timer.restart(), 1900);
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_GE(timer.elapsed(), 1900);
    EXPECT_LT(timer.elapsed(), 3900) << "waited for once";
    EXPECT_EQ(defaults.integerForKey(Key), 1);
    EXPECT_FALSE(QFileInfo::exists(fileIn(home)));
    lock.unlock();
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(NSUserDefaults(Domain).integerForKey(Key), 1);
}

TEST(DefaultsFile, AFolderInPlaceOfTheLockIsMovedAsideWithWhatItHolds)
{
    const QString home = useFreshHome();
    const QString path = fileIn(home) + u".lock"_s;
    writeFile(path + u"/inside"_s, "kept");
    NSUserDefaults defaults(Domain);
    defaults.setInteger(1, Key);
    EXPECT_EQ(NSUserDefaults(Domain).integerForKey(Key), 1);
    EXPECT_EQ(contentsOf(path + u".damaged/inside"_s), "kept");
}

TEST(DefaultsFile, TheLockOfADeadProcessDoesNotBlock)
{
    const QString home = useFreshHome();
    QDir().mkpath(preferencesIn(home));
    const QString path = fileIn(home) + u".lock"_s;
    const OtherProcess owner([&]() -> int {
        QLockFile lock(path);
        ::_exit(lock.tryLock() ? 0 : 1);
    });
    ASSERT_EQ(owner.exitCode(), 0);
    ASSERT_TRUE(QFileInfo::exists(path));
    NSUserDefaults defaults(Domain);
    defaults.setInteger(1, Key);
    EXPECT_EQ(NSUserDefaults(Domain).integerForKey(Key), 1);
}

TEST(DefaultsFile, WhateverStandsInPlaceOfTheLockSettingsAreWritten)
{
    const QString home = useFreshHome();
    QDir().mkpath(preferencesIn(home));
    const QString path = fileIn(home) + u".lock"_s;
    const QByteArray name = QFile::encodeName(path);
    const std::function<void()> rows[] = {
        [&] { writeFile(path, ""); },
        [&] { writeFile(path, "noise\nwithout\na process"); },
        [&] { ASSERT_EQ(::mkfifo(name.constData(), 0600), 0); },
        [&] { ASSERT_TRUE(QFile::link(home + u"/none"_s, path)); },
        [&] { ASSERT_TRUE(QFile::link(path, path)); },
        [&] { ASSERT_TRUE(QDir().mkdir(path)); },
    };
    NSUserDefaults defaults(Domain);
    int number = 0;
    for (const std::function<void()> &make : rows) {
        make();
        QElapsedTimer timer;
        timer.start();
        defaults.setInteger(++number, Key);
        EXPECT_LT(timer.elapsed(), 2000) << number;
        EXPECT_EQ(NSUserDefaults(Domain).integerForKey(Key), number);
        EXPECT_FALSE(QFileInfo::exists(path));
    }
}
