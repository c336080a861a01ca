#include <KTUtility/KTPlugInManager>

#include "PlugInSupport.h"
#include "support/TestSupport.h"

#include <KTUtility/NSPropertyListSerialization>
#include <KTUtility/NSUserDefaults>

#include <QFile>
#include <QPoint>

using namespace plugin_support;
using namespace testing_support;

namespace {
const QString listKey = QStringLiteral("enabledExporters");

QString domainName()
{
    return NSHostIdentifier() + QStringLiteral(".plugins");
}

/// The file of the domain in a home folder.
QString domainFile(const QString &home)
{
    return home + u"/.local/share/Cobble/Preferences/" + domainName() + u".plist";
}

QVariantMap storedIn(const QString &home)
{
    return NSDictionary::dictionaryWithContentsOfFile(domainFile(home)).value_or(QVariantMap());
}

QVariantList identifiers(std::initializer_list<QString> texts)
{
    return QVariantList(texts.begin(), texts.end());
}
} // namespace

TEST(KTPlugInDefaults, ValuesAreWrittenAtOnce)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    const QString key = QStringLiteral("org.example.good.delimiter");
    EXPECT_FALSE(manager.pluginDefaultsObjectForKey(key).isValid());
    EXPECT_FALSE(QFile::exists(domainFile(home)));

    EXPECT_TRUE(manager.pluginDefaultsSetObject(QStringLiteral(";"), key));
    EXPECT_EQ(manager.pluginDefaultsObjectForKey(key), QVariant(QStringLiteral(";")));
    EXPECT_EQ(storedIn(home), (QVariantMap{{key, QStringLiteral(";")}}));
    EXPECT_EQ(KTPlugInManager().pluginDefaultsObjectForKey(key), QVariant(QStringLiteral(";")));

    EXPECT_TRUE(manager.pluginDefaultsSetObject(QVariantList{1, 2}, QStringLiteral("other")));
    EXPECT_EQ(storedIn(home).size(), 2);
    EXPECT_TRUE(manager.pluginDefaultsSetObject(QVariant(), key));
    EXPECT_FALSE(manager.pluginDefaultsObjectForKey(key).isValid());
    EXPECT_EQ(storedIn(home).keys(), QStringList{QStringLiteral("other")});
    EXPECT_TRUE(manager.pluginDefaultsSetObject(QString(), QStringLiteral("never there")));
}

TEST(KTPlugInDefaults, TheDomainIsThePlugInsAlone)
{
    useFreshHome();
    KTPlugInManager manager;
    const QString key = QStringLiteral("shared");
    NSUserDefaults::standardUserDefaults()->setPersistentDomain({{key, 1}}, NSGlobalDomain);
    NSUserDefaults::standardUserDefaults()->registerDefaults({{key, 2}});
    EXPECT_FALSE(manager.pluginDefaultsObjectForKey(key).isValid());
    manager.pluginDefaultsSetObject(3, key);
    EXPECT_EQ(
        NSUserDefaults::standardUserDefaults()->persistentDomainForName(domainName())->value(key),
        QVariant(3LL));
    NSUserDefaults::standardUserDefaults()->removePersistentDomainForName(NSGlobalDomain);
}

TEST(KTPlugInDefaults, RegisteredDefaultsAreWrittenAndReplaceNothing)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    manager.pluginDefaultsSetObject(5, QStringLiteral("rows"));
    EXPECT_TRUE(manager.pluginDefaultsRegisterDefaults(
        {{QStringLiteral("rows"), 20}, {QStringLiteral("header"), true}}));
    const QVariantMap expected = {{QStringLiteral("rows"), 5LL}, {QStringLiteral("header"), true}};
    EXPECT_EQ(storedIn(home), expected);
    EXPECT_TRUE(manager.pluginDefaultsRegisterDefaults({{QStringLiteral("header"), false}}));
    EXPECT_TRUE(manager.pluginDefaultsRegisterDefaults({}));
    EXPECT_EQ(storedIn(home), expected);
}

TEST(KTPlugInDefaults, WhatNoFileCanHoldIsRefused)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    manager.pluginDefaultsSetObject(1, QStringLiteral("kept"));
    const QString key = QStringLiteral("key");
    const QList<QVariant> values = {QVariant::fromValue<QObject *>(nullptr), QVariant(QPoint(1, 2)),
                                    QVariant(QString(QChar(0xD800))),
                                    QVariant(QStringList{QString(QChar(0))})};
    for (const QVariant &value : values) {
        manager.pluginDefaultsSetObject(value, key);
        EXPECT_FALSE(manager.pluginDefaultsObjectForKey(key).isValid());
        manager.pluginDefaultsRegisterDefaults({{key, value}, {QStringLiteral("more"), 1}});
        EXPECT_FALSE(manager.pluginDefaultsObjectForKey(key).isValid());
        manager.pluginDefaultsSetObject(QVariant(), QStringLiteral("more"));
    }
    EXPECT_FALSE(manager.pluginDefaultsSetObject(QPoint(1, 2), key));
    EXPECT_FALSE(manager.pluginDefaultsSetObject(1, QString(QChar(0xD800))));
    EXPECT_FALSE(manager.pluginDefaultsSetObject(1, QString()));
    EXPECT_FALSE(manager.pluginDefaultsObjectForKey(QString()).isValid());
    EXPECT_EQ(storedIn(home), (QVariantMap{{QStringLiteral("kept"), 1LL}}));
}

TEST(KTPlugInDefaults, AnyTextCanBeAKey)
{
    useFreshHome();
    KTPlugInManager manager;
    for (const QString &key : hostileTexts()) {
        const bool isSet = manager.pluginDefaultsSetObject(1, key);
        EXPECT_EQ(manager.pluginDefaultsObjectForKey(key).isValid(), isSet);
        EXPECT_EQ(manager.pluginDefaultsSetObject(QVariant(), key), !key.isNull());
    }
}

TEST(KTPlugInDefaults, WithoutAFolderToWriteToItSaysSo)
{
    useFreshHome();
    KTPlugInManager manager;
    manager.setEnabledKey(listKey);
    qunsetenv("HOME");
    EXPECT_FALSE(manager.pluginDefaultsSetObject(1, QStringLiteral("a")));
    EXPECT_EQ(manager.pluginDefaultsObjectForKey(QStringLiteral("a")), QVariant(1));
    EXPECT_FALSE(manager.setEnabledForPlugin(true, goodIdentifier));
    EXPECT_TRUE(manager.isPluginEnabled(goodIdentifier));

    // What was kept in memory is written as soon as it can be.
    const QString home = useFreshHome();
    EXPECT_TRUE(manager.pluginDefaultsSetObject(2, QStringLiteral("b")));
    EXPECT_EQ(storedIn(home).size(), 3);
}

TEST(KTPlugInDefaults, EnabledPlugInsAreAListUnderTheKey)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    manager.setEnabledKey(listKey);
    EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
    EXPECT_TRUE(manager.setEnabledForPlugin(true, goodIdentifier));
    EXPECT_TRUE(manager.setEnabledForPlugin(true, oddIdentifier));
    EXPECT_TRUE(manager.isPluginEnabled(goodIdentifier));
    EXPECT_FALSE(manager.isPluginEnabled(QStringLiteral("org.example")));
    EXPECT_EQ(storedIn(home).value(listKey).toList(), identifiers({goodIdentifier, oddIdentifier}));

    // Another kind of plug-in has another list.
    manager.setEnabledKey(QStringLiteral("enabledImporters"));
    EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
}

TEST(KTPlugInDefaults, EnablingTwiceListsTwiceAndDisablingRemovesBoth)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    manager.setEnabledKey(listKey);
    manager.setEnabledForPlugin(true, goodIdentifier);
    manager.setEnabledForPlugin(true, oddIdentifier);
    manager.setEnabledForPlugin(true, goodIdentifier);
    EXPECT_EQ(storedIn(home).value(listKey).toList(),
              identifiers({goodIdentifier, oddIdentifier, goodIdentifier}));
    EXPECT_TRUE(manager.setEnabledForPlugin(false, goodIdentifier));
    EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
    EXPECT_EQ(storedIn(home).value(listKey).toList(), identifiers({oddIdentifier}));
}

TEST(KTPlugInDefaults, DisablingWithoutAListWritesAnEmptyOne)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    manager.setEnabledKey(listKey);
    EXPECT_TRUE(manager.setEnabledForPlugin(false, goodIdentifier));
    EXPECT_EQ(storedIn(home), (QVariantMap{{listKey, QVariantList()}}));
}

TEST(KTPlugInDefaults, WithoutAKeyNothingIsEnabled)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    EXPECT_FALSE(manager.setEnabledForPlugin(true, goodIdentifier));
    EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
    EXPECT_FALSE(QFile::exists(domainFile(home)));
}

TEST(KTPlugInDefaults, AListThatIsNoneCountsAsEmpty)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    manager.setEnabledKey(listKey);
    for (const QVariant &stored :
         {QVariant(goodIdentifier), QVariant(5), QVariant(QVariantMap{{goodIdentifier, true}})}) {
        manager.pluginDefaultsSetObject(stored, listKey);
        EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
        EXPECT_TRUE(manager.setEnabledForPlugin(true, goodIdentifier));
        EXPECT_EQ(storedIn(home).value(listKey).toList(), identifiers({goodIdentifier}));
    }
    manager.pluginDefaultsSetObject(QVariantList{5, goodIdentifier, QVariantList()}, listKey);
    EXPECT_TRUE(manager.isPluginEnabled(goodIdentifier));
    EXPECT_FALSE(manager.isPluginEnabled(QStringLiteral("5")));
}

TEST(KTPlugInDefaults, ADamagedFileCountsAsEmptyAndIsKeptBeside)
{
    const QString home = useFreshHome();
    writeFile(domainFile(home), "<plist><dict><key>enabledExporters");
    KTPlugInManager manager;
    manager.setEnabledKey(listKey);
    EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
    EXPECT_TRUE(manager.setEnabledForPlugin(true, goodIdentifier));
    EXPECT_TRUE(manager.isPluginEnabled(goodIdentifier));
    EXPECT_TRUE(QFile::exists(domainFile(home) + u".damaged"));
}

TEST(KTPlugInDefaults, AnyTextCanBeAnIdentifier)
{
    useFreshHome();
    KTPlugInManager manager;
    manager.setEnabledKey(listKey);
    for (const QString &identifier : hostileTexts()) {
        const bool isSet = manager.setEnabledForPlugin(true, identifier);
        EXPECT_EQ(manager.isPluginEnabled(identifier), isSet);
        EXPECT_EQ(manager.setEnabledForPlugin(false, identifier), !identifier.isNull());
        EXPECT_FALSE(manager.isPluginEnabled(identifier));
    }
}
