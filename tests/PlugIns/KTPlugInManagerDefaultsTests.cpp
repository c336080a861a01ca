#include <KTUtility/KTPlugInManager>

#include "PlugInSupport.h"
#include "support/TestSupport.h"

#include <KTUtility/NSPropertyListSerialization>
#include <KTUtility/NSUserDefaults>

#include <QFile>
#include <QPoint>

using namespace Qt::StringLiterals;
using namespace plugin_support;
using namespace testing_support;

namespace {
const QString listKey = u"enabledExporters"_s;

QString domainName()
{
    return NSHostIdentifier() + u".plugins"_s;
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

TEST(KTPlugInManagerDefaults, ValuesAreWrittenAtOnce)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    const QString key = u"org.example.good.delimiter"_s;
    EXPECT_FALSE(manager.pluginDefaultsObjectForKey(key).isValid());
    EXPECT_FALSE(QFile::exists(domainFile(home)));

    EXPECT_TRUE(manager.pluginDefaultsSetObject(u";"_s, key));
    EXPECT_EQ(manager.pluginDefaultsObjectForKey(key), QVariant(u";"_s));
    EXPECT_EQ(storedIn(home), (QVariantMap{{key, u";"_s}}));
    EXPECT_EQ(KTPlugInManager().pluginDefaultsObjectForKey(key), QVariant(u";"_s));

    EXPECT_TRUE(manager.pluginDefaultsSetObject(QVariantList{1, 2}, u"other"_s));
    EXPECT_EQ(storedIn(home).size(), 2);
    EXPECT_TRUE(manager.pluginDefaultsSetObject(QVariant(), key));
    EXPECT_FALSE(manager.pluginDefaultsObjectForKey(key).isValid());
    EXPECT_EQ(storedIn(home).keys(), QStringList{u"other"_s});
    EXPECT_TRUE(manager.pluginDefaultsSetObject(QString(), u"never there"_s));
}

TEST(KTPlugInManagerDefaults, TheDomainIsThePlugInsAlone)
{
    useFreshHome();
    KTPlugInManager manager;
    const QString key = u"shared"_s;
    NSUserDefaults::standardUserDefaults()->setPersistentDomain({{key, 1}}, NSGlobalDomain);
    NSUserDefaults::standardUserDefaults()->registerDefaults({{key, 2}});
    EXPECT_FALSE(manager.pluginDefaultsObjectForKey(key).isValid());
    manager.pluginDefaultsSetObject(3, key);
    EXPECT_EQ(
        NSUserDefaults::standardUserDefaults()->persistentDomainForName(domainName())->value(key),
        QVariant(3LL));
    NSUserDefaults::standardUserDefaults()->removePersistentDomainForName(NSGlobalDomain);
}

TEST(KTPlugInManagerDefaults, RegisteredDefaultsAreWrittenAndReplaceNothing)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    manager.pluginDefaultsSetObject(5, u"rows"_s);
    EXPECT_TRUE(manager.pluginDefaultsRegisterDefaults({{u"rows"_s, 20}, {u"header"_s, true}}));
    const QVariantMap expected = {{u"rows"_s, 5LL}, {u"header"_s, true}};
    EXPECT_EQ(storedIn(home), expected);
    EXPECT_TRUE(manager.pluginDefaultsRegisterDefaults({{u"header"_s, false}}));
    EXPECT_TRUE(manager.pluginDefaultsRegisterDefaults({}));
    EXPECT_EQ(storedIn(home), expected);
}

TEST(KTPlugInManagerDefaults, WhatNoFileCanHoldIsRejected)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    manager.pluginDefaultsSetObject(1, u"kept"_s);
    const QString key = u"key"_s;
    const QList<QVariant> values = {QVariant::fromValue<QObject *>(nullptr), QVariant(QPoint(1, 2)),
                                    QVariant(QString(QChar(0xD800))),
                                    QVariant(QStringList{QString(QChar(0))})};
    for (const QVariant &value : values) {
        manager.pluginDefaultsSetObject(value, key);
        EXPECT_FALSE(manager.pluginDefaultsObjectForKey(key).isValid());
        manager.pluginDefaultsRegisterDefaults({{key, value}, {u"more"_s, 1}});
        EXPECT_FALSE(manager.pluginDefaultsObjectForKey(key).isValid());
        manager.pluginDefaultsSetObject(QVariant(), u"more"_s);
    }
    EXPECT_FALSE(manager.pluginDefaultsSetObject(QPoint(1, 2), key));
    EXPECT_FALSE(manager.pluginDefaultsSetObject(1, QString(QChar(0xD800))));
    EXPECT_FALSE(manager.pluginDefaultsSetObject(1, QString()));
    EXPECT_FALSE(manager.pluginDefaultsObjectForKey(QString()).isValid());
    EXPECT_EQ(storedIn(home), (QVariantMap{{u"kept"_s, 1LL}}));
}

TEST(KTPlugInManagerDefaults, AnyTextCanBeAKey)
{
    useFreshHome();
    KTPlugInManager manager;
    for (const QString &key : hostileTexts()) {
        const bool isSet = manager.pluginDefaultsSetObject(1, key);
        EXPECT_EQ(manager.pluginDefaultsObjectForKey(key).isValid(), isSet);
        EXPECT_EQ(manager.pluginDefaultsSetObject(QVariant(), key), !key.isNull());
    }
}

TEST(KTPlugInManagerDefaults, WithoutAFolderToWriteToItSaysSo)
{
    useFreshHome();
    KTPlugInManager manager;
    manager.setEnabledKey(listKey);
    qunsetenv("HOME");
    EXPECT_FALSE(manager.pluginDefaultsSetObject(1, u"a"_s));
    EXPECT_EQ(manager.pluginDefaultsObjectForKey(u"a"_s), QVariant(1));
    EXPECT_FALSE(manager.setEnabledForPlugin(true, goodIdentifier));
    EXPECT_TRUE(manager.isPluginEnabled(goodIdentifier));

    // What was kept in memory is written as soon as it can be.
    const QString home = useFreshHome();
    EXPECT_TRUE(manager.pluginDefaultsSetObject(2, u"b"_s));
    EXPECT_EQ(storedIn(home).size(), 3);
}

TEST(KTPlugInManagerDefaults, EnabledPlugInsAreAListUnderTheKey)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    manager.setEnabledKey(listKey);
    EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
    EXPECT_TRUE(manager.setEnabledForPlugin(true, goodIdentifier));
    EXPECT_TRUE(manager.setEnabledForPlugin(true, oddIdentifier));
    EXPECT_TRUE(manager.isPluginEnabled(goodIdentifier));
    EXPECT_FALSE(manager.isPluginEnabled(u"org.example"_s));
    EXPECT_EQ(storedIn(home).value(listKey).toList(), identifiers({goodIdentifier, oddIdentifier}));

    // Another kind of plug-in has another list.
    manager.setEnabledKey(u"enabledImporters"_s);
    EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
}

TEST(KTPlugInManagerDefaults, EnablingTwiceListsTwiceAndDisablingRemovesBoth)
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

TEST(KTPlugInManagerDefaults, DisablingWithoutAListWritesAnEmptyOne)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    manager.setEnabledKey(listKey);
    EXPECT_TRUE(manager.setEnabledForPlugin(false, goodIdentifier));
    EXPECT_EQ(storedIn(home), (QVariantMap{{listKey, QVariantList()}}));
}

TEST(KTPlugInManagerDefaults, WithoutAKeyNothingIsEnabled)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    EXPECT_FALSE(manager.setEnabledForPlugin(true, goodIdentifier));
    EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
    EXPECT_FALSE(QFile::exists(domainFile(home)));
}

TEST(KTPlugInManagerDefaults, AListThatIsNoneCountsAsEmpty)
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
    EXPECT_FALSE(manager.isPluginEnabled(u"5"_s));
}

TEST(KTPlugInManagerDefaults, ADamagedFileCountsAsEmptyAndIsKeptBeside)
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

TEST(KTPlugInManagerDefaults, AnyTextCanBeAnIdentifier)
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
