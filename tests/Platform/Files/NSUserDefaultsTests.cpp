#include <KTUtility/NSUserDefaults>

#include <KTUtility/NSBundle>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSException>
#include <KTUtility/NSObject>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <QDateTime>
#include <QMap>
#include <QSize>

#include <functional>
#include <limits>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QString Domain = u"org.example.Tests"_s;
const QString Key = u"key"_s;

/// Counts change notifications while it lives.
class ChangeCounter
{
public:
    explicit ChangeCounter(NSUserDefaults *defaults)
    {
        QObject::connect(defaults, &NSUserDefaults::didChange, &_context, [this] { ++_count; });
    }
    int count() const { return _count; }

private:
    QObject _context;
    int _count = 0;
};

QVariantMap everything()
{
    return {
        {u"date"_s, QDateTime(QDate(2008, 3, 4), QTime(12, 0), KTPrivate::UTC)},
        {u"text"_s, u"é😀"_s},
        {u"array"_s, QVariantList{1LL, u"a"_s}},
        {u"dictionary"_s, QVariantMap{{u"k"_s, 2.5}}},
        {u"data"_s, QByteArray("\0\xFF", 2)},
        {u"bool"_s, true},
    };
}

/// The value that a row's query reads, as a JSON value.
QJsonValue answerTo(const QString &query, const NSUserDefaults &defaults)
{
    const QString function = query.section(u' ', 0, 0);
    const QString key = query.section(u' ', 1);
    const QMap<QString, std::function<QJsonValue()>> functions = {
        {u"integerForKey"_s, [&] { return QJsonValue(defaults.integerForKey(key)); }},
        {u"boolForKey"_s, [&] { return QJsonValue(defaults.boolForKey(key)); }},
        {u"doubleForKey"_s, [&] { return QJsonValue(defaults.doubleForKey(key)); }},
        {u"stringForKey"_s,
         [&] {
             const QString text = defaults.stringForKey(key);
             return text.isNull() ? QJsonValue() : QJsonValue(text);
         }},
    };
    EXPECT_TRUE(functions.contains(function)) << query.toStdString();
    return functions.contains(function) ? functions.value(function)() : QJsonValue();
}

QStringList argumentsOf(const QJsonObject &setup)
{
    return setup.value(u"arguments").toVariant().toStringList();
}

void prepare(NSUserDefaults &defaults, const QJsonObject &setup)
{
    defaults.registerDefaults(setup.value(u"registered").toObject().toVariantMap());
    const QVariantMap values = setup.value(u"set").toObject().toVariantMap();
    for (auto entry = values.begin(); entry != values.end(); ++entry)
        defaults.setObject(entry.value(), entry.key());
    const QString then = setup.value(u"then").toString();
    if (then.startsWith(u"removeObjectForKey "))
        defaults.removeObjectForKey(then.section(u' ', 1));
}
} // namespace

TEST(NSUserDefaults, AnswersWhatTheTableSays)
{
    int checked = 0;
    for (const QJsonObject &row : rowsOf(u"platform/user_defaults.jsonl"_s)) {
        const QString query = row.value(u"query").toString();
        if (!query.contains(u"ForKey ")) // the first line, and rows that have tests of their own
            continue;
        useFreshHome();
        const QJsonObject setup = row.value(u"setup").toObject();
        NSUserDefaults defaults(Domain, argumentsOf(setup));
        prepare(defaults, setup);
        EXPECT_EQ(answerTo(query, defaults), row.value(u"expected")) << query.toStdString();
        ++checked;
    }
    EXPECT_EQ(checked, 12);
}

TEST(NSUserDefaults, NilRemoves)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    for (const QVariant &nil : {QVariant(), QVariant(QString())}) {
        defaults.setInteger(34, Key);
        defaults.setObject(nil, Key);
        EXPECT_FALSE(defaults.objectForKey(Key).isValid());
    }
}

TEST(NSUserDefaults, TheExampleInTheHeaderHolds)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    const QString rows = u"rows"_s;
    defaults.registerDefaults({{rows, 20}});
    EXPECT_EQ(defaults.integerForKey(rows), 20);
    defaults.setObject(50, rows);
    EXPECT_EQ(defaults.integerForKey(rows), 50);
    defaults.removeObjectForKey(rows);
    EXPECT_EQ(defaults.integerForKey(rows), 20);
}

TEST(NSUserDefaults, DomainsAreSearchedInOrder)
{
    useFreshHome();
    NSUserDefaults defaults(Domain, {u"-key"_s, u"argument"_s});
    defaults.registerDefaults({{Key, u"registered"_s}});
    defaults.setPersistentDomain({{Key, u"global"_s}}, NSGlobalDomain);
    defaults.setObject(u"application"_s, Key);
    EXPECT_EQ(defaults.stringForKey(Key), u"argument"_s);

    NSUserDefaults withoutArguments(Domain);
    withoutArguments.registerDefaults({{Key, u"registered"_s}});
    EXPECT_EQ(withoutArguments.stringForKey(Key), u"application"_s);
    withoutArguments.removeObjectForKey(Key);
    EXPECT_EQ(withoutArguments.stringForKey(Key), u"global"_s);
    withoutArguments.removePersistentDomainForName(NSGlobalDomain);
    EXPECT_EQ(withoutArguments.stringForKey(Key), u"registered"_s);
}

TEST(NSUserDefaults, ArgumentsArePairs)
{
    useFreshHome();
    const QStringList arguments = {
        u"file"_s, u"-a"_s, u"1"_s, u"-b"_s, u"-c"_s,   u"YES"_s,
        u"--d"_s,  u"x"_s,  u"-"_s, u"y"_s,  u"-end"_s,
    };
    const QVariantMap expected = {{u"a"_s, u"1"_s}, {u"c"_s, u"YES"_s}};
    const NSUserDefaults defaults(Domain, arguments);
    EXPECT_EQ(defaults.volatileDomainForName(NSArgumentDomain), expected);
    EXPECT_TRUE(defaults.boolForKey(u"c"_s));
}

TEST(NSUserDefaults, ValuesAreConverted)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    defaults.setDouble(2.75, Key);
    EXPECT_EQ(defaults.integerForKey(Key), 2);
    EXPECT_EQ(defaults.stringForKey(Key), u"2.75"_s);
    EXPECT_TRUE(defaults.boolForKey(Key));
    defaults.setObject(u" 12abc"_s, Key);
    EXPECT_EQ(defaults.integerForKey(Key), 12);
    EXPECT_EQ(defaults.doubleForKey(Key), 12);
    defaults.setInteger(std::numeric_limits<qint64>::min(), Key);
    EXPECT_EQ(defaults.integerForKey(Key), std::numeric_limits<qint64>::min());
    defaults.setObject(QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(u"0.5")), Key);
    EXPECT_EQ(defaults.doubleForKey(Key), 0.5);
    defaults.setBool(false, Key);
    EXPECT_EQ(defaults.stringForKey(Key), u"0"_s);
}

TEST(NSUserDefaults, ValuesOfAnotherKindAreNil)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    for (const QVariant &value : everything()) {
        defaults.setObject(value, Key);
        const int type = value.typeId();
        EXPECT_EQ(defaults.arrayForKey(Key).isEmpty(), type != QMetaType::QVariantList);
        EXPECT_EQ(defaults.dictionaryForKey(Key).isEmpty(), type != QMetaType::QVariantMap);
        EXPECT_EQ(defaults.dataForKey(Key).isNull(), type != QMetaType::QByteArray);
        EXPECT_EQ(defaults.stringForKey(Key).isNull(),
                  type != QMetaType::QString && type != QMetaType::Bool);
        EXPECT_TRUE(defaults.stringArrayForKey(Key).isEmpty());
        EXPECT_EQ(defaults.integerForKey(Key), type == QMetaType::Bool ? 1 : 0);
    }
    const QStringList texts = {u"a"_s, u""_s};
    defaults.setObject(texts, Key);
    EXPECT_EQ(defaults.stringArrayForKey(Key), texts);
}

TEST(NSUserDefaults, WhatCannotBeStoredIsToldAndChangesNothing)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    defaults.setInteger(1, Key);
    const ChangeCounter changes(&defaults);
    for (const QVariant &value :
         {NSNull(), QVariant(QString(QChar(0))), QVariant(QString(QChar(0xD800))),
          QVariant(QVariantList{QVariant()}), QVariant(QVariantList{QSize(1, 2)}),
          QVariant::fromValue<void *>(&defaults), QVariant::fromValue<QObject *>(&defaults)}) {
        const QString log = testing_support::standardErrorOf(
            [&] { EXPECT_FALSE(defaults.setObject(value, Key)) << value.typeName(); });
        EXPECT_TRUE(log.contains(u"*** Attempt to insert a value that is no property list for the "
                                 u"key " +
                                 Key))
            << log.toStdString();
    }
    testing_support::standardErrorOf(
        [&] { EXPECT_FALSE(defaults.setInteger(1, QString(QChar(0)))); });
    EXPECT_THROW(defaults.setPersistentDomain({{Key, QVariant()}}, Domain), NSException);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(NSUserDefaults(Domain).integerForKey(Key), 1);
    EXPECT_TRUE(defaults.synchronize());
}

TEST(NSUserDefaults, ValuesOfQtComeBack)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    EXPECT_TRUE(defaults.setObject(QSize(640, 480), Key));
    EXPECT_EQ(defaults.objectOfType<QSize>(Key), QSize(640, 480));
    EXPECT_EQ(NSUserDefaults(Domain).objectOfType<QSize>(Key), QSize(640, 480));
    EXPECT_FALSE(defaults.objectOfType<QDate>(Key).has_value());
    EXPECT_FALSE(defaults.objectOfType<QSize>(u"other"_s).has_value());
    EXPECT_TRUE(defaults.setObject(QDate(2026, 3, 5), Key));
    EXPECT_EQ(defaults.stringForKey(Key), u"2026-03-05");
    EXPECT_EQ(NSUserDefaults(Domain).objectOfType<QDate>(Key), QDate(2026, 3, 5));
    EXPECT_TRUE(defaults.setObject(QVariant(), Key));
    EXPECT_FALSE(defaults.objectForKey(Key).isValid());
}

TEST(NSUserDefaults, EachChangeIsNotifiedOnce)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    const ChangeCounter changes(&defaults);
    defaults.setInteger(1, Key);
    EXPECT_EQ(changes.count(), 1);
    defaults.removeObjectForKey(Key);
    EXPECT_EQ(changes.count(), 2);
    defaults.setPersistentDomain({{Key, 1}}, u"D"_s);
    EXPECT_EQ(changes.count(), 3);
    defaults.removePersistentDomainForName(u"D"_s);
    EXPECT_EQ(changes.count(), 4);
    defaults.registerDefaults({{Key, 1}});
    defaults.setVolatileDomain({{Key, 1}}, u"V"_s);
    EXPECT_EQ(changes.count(), 4);
}

TEST(NSUserDefaults, PersistentDomainsAreSeenByOtherInstances)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    const QString name = u"D"_s;
    EXPECT_EQ(defaults.persistentDomainForName(name), std::nullopt);
    defaults.setPersistentDomain(everything(), name);
    EXPECT_EQ(NSUserDefaults(Domain).persistentDomainForName(name), everything());
    EXPECT_EQ(NSUserDefaults(name).dictionaryRepresentation(), everything());
    EXPECT_EQ(defaults.persistentDomainNames(), QStringList{name});
    defaults.setPersistentDomain({}, name);
    EXPECT_EQ(defaults.persistentDomainForName(name), QVariantMap());
    defaults.removePersistentDomainForName(name);
    EXPECT_EQ(NSUserDefaults(Domain).persistentDomainForName(name), std::nullopt);
    EXPECT_TRUE(defaults.persistentDomainNames().isEmpty());
}

TEST(NSUserDefaults, ReplacingTheOwnDomainReplacesAllOfIt)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    defaults.setInteger(1, u"old"_s);
    defaults.setPersistentDomain({{Key, 2}}, Domain);
    EXPECT_FALSE(defaults.objectForKey(u"old"_s).isValid());
    EXPECT_EQ(defaults.integerForKey(Key), 2);
    defaults.removePersistentDomainForName(Domain);
    EXPECT_FALSE(defaults.objectForKey(Key).isValid());
}

TEST(NSUserDefaults, VolatileDomainsLiveInMemory)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    const QString name = u"TestDomain"_s;
    EXPECT_FALSE(defaults.volatileDomainNames().contains(name));
    defaults.setVolatileDomain(everything(), name);
    EXPECT_EQ(defaults.volatileDomainForName(name), everything());
    EXPECT_TRUE(defaults.volatileDomainNames().contains(name));
    EXPECT_FALSE(defaults.objectForKey(u"text"_s).isValid());
    EXPECT_THROW(defaults.setVolatileDomain({}, name), NSException);
    EXPECT_THROW(defaults.setVolatileDomain({}, NSRegistrationDomain), NSException);
    defaults.removeVolatileDomainForName(name);
    EXPECT_EQ(defaults.volatileDomainForName(name), std::nullopt);
    EXPECT_TRUE(defaults.persistentDomainNames().isEmpty());
}

TEST(NSUserDefaults, NamesThatCannotBeFilesRaise)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    for (const QString &name : {QString(), u""_s, u"."_s, u".."_s, u"a/b"_s, u"../a"_s,
                                QString(QChar(0)), QString(QChar(0xD800))}) {
        EXPECT_THROW(NSUserDefaults{name}, NSException);
        EXPECT_THROW(defaults.persistentDomainForName(name), NSException);
        EXPECT_THROW(defaults.setPersistentDomain({}, name), NSException);
        EXPECT_THROW(defaults.removePersistentDomainForName(name), NSException);
    }
}

TEST(NSUserDefaults, HostileKeysAndTextsSurvive)
{
    useFreshHome();
    for (const QString &text : hostileTexts()) {
        NSUserDefaults defaults(Domain);
        const bool canBeKept = text.isValidUtf16() && !text.contains(QChar(0));
        if (!canBeKept || text.isNull()) // these raise, and nil removes
            continue;
        defaults.setObject(text, text);
        const QVariant value = NSUserDefaults(Domain).objectForKey(text);
        EXPECT_TRUE(value == QVariant(text)) << text.left(20).toStdString();
    }
}

TEST(NSUserDefaults, TheStandardDefaultsAreTheHosts)
{
    useFreshHome();
    NSUserDefaults *defaults = NSUserDefaults::standardUserDefaults();
    EXPECT_EQ(defaults, NSUserDefaults::standardUserDefaults());
    const QString key = u"NSUserDefaultsTests"_s;
    defaults->setInteger(5, key);
    const auto domain = NSUserDefaults(Domain).persistentDomainForName(NSHostIdentifier());
    EXPECT_EQ(domain.value_or(QVariantMap()).value(key), QVariant(5LL));
    defaults->removeObjectForKey(key);
}

TEST(NSUserDefaults, ADomainIsChangedWhereItsFileIs)
{
    useFreshHome();
    NSUserDefaults mine(Domain);
    NSUserDefaults theirs(Domain);
    const auto count = [](QVariantMap &values) {
        values.insert(u"starts"_s, values.value(u"starts"_s).toInt() + 1);
    };
    for (const QString &name : {Domain, NSGlobalDomain, u"org.example.Counter"_s}) {
        ChangeCounter changes(&mine);
        EXPECT_TRUE(mine.changePersistentDomain(count, name));
        EXPECT_TRUE(theirs.changePersistentDomain(count, name));
        EXPECT_TRUE(mine.changePersistentDomain(count, name));
        EXPECT_EQ(changes.count(), 2);
        EXPECT_EQ(NSUserDefaults(Domain).persistentDomainForName(name),
                  (QVariantMap{{u"starts"_s, 3LL}}));
        EXPECT_EQ(mine.integerForKey(u"starts"_s), 3);
    }
}

TEST(NSUserDefaults, AChangeThatGivesNoPropertyListRaisesAndChangesNothing)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    defaults.setInteger(1, Key);
    const auto spoil = [](QVariantMap &values) {
        values.insert(Key, QVariant::fromValue<QObject *>(nullptr));
    };
    for (const QString &name : {Domain, NSGlobalDomain, u"org.example.Other"_s})
        EXPECT_THROW(defaults.changePersistentDomain(spoil, name), NSException);
    EXPECT_THROW(defaults.changePersistentDomain(spoil, u"a/b"_s), NSException);
    EXPECT_EQ(defaults.integerForKey(Key), 1);
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(NSUserDefaults(Domain).persistentDomainForName(Domain), (QVariantMap{{Key, 1LL}}));
}

TEST(NSUserDefaults, ChangesThatCannotBeWrittenWaitInTheirOrder)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    const auto append = [](const QString &text) {
        return [text](QVariantMap &values) {
            values.insert(Key, QString(values.value(Key).toString() + text));
        };
    };
    const QString other = u"org.example.Other"_s;
    qunsetenv("HOME");
    defaults.setObject(u"a"_s, Key);
    EXPECT_FALSE(defaults.changePersistentDomain(append(u"b"_s), Domain));
    defaults.setPersistentDomain({{Key, u"x"_s}}, other);
    EXPECT_FALSE(defaults.changePersistentDomain(append(u"y"_s), other));
    EXPECT_FALSE(defaults.changePersistentDomain(append(u"z"_s), NSGlobalDomain));
    EXPECT_EQ(defaults.stringForKey(Key), u"ab");
    EXPECT_EQ(defaults.persistentDomainForName(other), (QVariantMap{{Key, u"xy"_s}}));
    EXPECT_EQ(defaults.persistentDomainForName(NSGlobalDomain), (QVariantMap{{Key, u"z"_s}}));

    // Meanwhile somebody else has written.
    useFreshHome();
    NSUserDefaults theirs(u"org.example.Theirs"_s);
    theirs.setPersistentDomain({{Key, u"1"_s}}, NSGlobalDomain);
    EXPECT_TRUE(defaults.synchronize());
    const NSUserDefaults written(Domain);
    EXPECT_EQ(written.persistentDomainForName(Domain), (QVariantMap{{Key, u"ab"_s}}));
    EXPECT_EQ(written.persistentDomainForName(other), (QVariantMap{{Key, u"xy"_s}}));
    EXPECT_EQ(written.persistentDomainForName(NSGlobalDomain), (QVariantMap{{Key, u"1z"_s}}));
}

TEST(NSUserDefaults, ARemovedDomainThatIsChangedIsNew)
{
    useFreshHome();
    NSUserDefaults defaults(Domain);
    defaults.setPersistentDomain({{Key, 1}}, NSGlobalDomain);
    qunsetenv("HOME");
    defaults.removePersistentDomainForName(NSGlobalDomain);
    const auto add = [](QVariantMap &values) { values.insert(u"new"_s, values.size()); };
    EXPECT_FALSE(defaults.changePersistentDomain(add, NSGlobalDomain));
    useFreshHome();
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(NSUserDefaults(Domain).persistentDomainForName(NSGlobalDomain),
              (QVariantMap{{u"new"_s, 0LL}}));
}
