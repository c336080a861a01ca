#include <KTUtility/KeyPath>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>

#include "support/ObservedModel.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
const QString Number = u"number"_s;
const QString Name = u"name"_s;
} // namespace

TEST(KeyPath, SetsTheEndOfThePath)
{
    ObservedRecord record, next;
    record.setNext(&next);
    NSKeyValueCoding::setValueForKeyPath(&record, 5, u"next.number"_s);
    EXPECT_EQ(next.number(), 5);
    NSKeyValueCoding::setValueForKeyPath(&record, 6, Number);
    EXPECT_EQ(record.number(), 6);
    next.setNext(nullptr);
    NSKeyValueCoding::setValueForKeyPath(&record, 7, u"next.next.number"_s);
    NSKeyValueCoding::setValueForKeyPath(nullptr, 7, Number);
}

TEST(KeyPath, SettingChangesMapsAndPutsThemBack)
{
    ObservedRecord record;
    record.setMap({{u"a"_s, QVariantMap{{u"b"_s, 1}}}});
    NSKeyValueCoding::setValueForKeyPath(&record, 2, u"map.a.b"_s);
    EXPECT_EQ(record.map().value(u"a"_s).toMap().value(u"b"_s), QVariant(2));
    NSKeyValueCoding::setValueForKeyPath(&record, QVariant(), u"map.a.b"_s);
    EXPECT_TRUE(record.map().value(u"a"_s).toMap().isEmpty());
}

TEST(KeyPath, SettingReachesEveryElementOfAList)
{
    ObservedRecord record, first, second;
    record.setList({QVariant::fromValue(&first), QVariant::fromValue(&second)});
    NSKeyValueCoding::setValueForKeyPath(&record, 9, u"list.number"_s);
    EXPECT_EQ(first.number() + second.number(), 18);
    record.setList({QVariantMap{{Name, 1}}, QVariantMap()});
    NSKeyValueCoding::setValueForKeyPath(&record, 2, u"list.name"_s);
    for (const QVariant &element : record.list())
        EXPECT_EQ(element.toMap().value(Name), QVariant(2));
}

TEST(KeyPath, LongPathsEndWhereNothingIs)
{
    const QString path = u"map"_s + u".a"_s.repeated(300000);
    ObservedRecord record;
    EXPECT_FALSE(NSKeyValueCoding::valueForKeyPath(&record, path).isValid());
    NSKeyValueCoding::setValueForKeyPath(&record, 1, path);
    EXPECT_TRUE(record.map().isEmpty());
}

TEST(KeyPath, KeysDoNotEndAtANul)
{
    ObservedRecord record(u"A"_s);
    const QString key = u"name"_s + QChar(u'\0') + u"x"_s;
    EXPECT_THROW(NSKeyValueCoding::valueForKey(&record, key), NSException);
    EXPECT_THROW(NSKeyValueCoding::setValue(&record, 1, key), NSException);
    EXPECT_EQ(record.name(), u"A"_s);
}

TEST(KeyPath, UnknownKeysRaise)
{
    ObservedRecord record, next;
    record.setNext(&next);
    for (const char16_t *path : {u"none", u"next.none", u"none.name", u"", u"next."})
        EXPECT_THROW(NSKeyValueCoding::setValueForKeyPath(&record, 1, QString::fromUtf16(path)),
                     NSException)
            << QString::fromUtf16(path).toStdString();
}

TEST(KeyPath, SumsKeepAllBits)
{
    const QVariantList values{QVariant(0.1 + 0.2), QVariant::fromValue(NSDecimalNumber(1))};
    const QVariantMap holder{{u"all"_s, values}, {u"one"_s, QVariantList{0.1 + 0.2}}};
    EXPECT_EQ(NSKeyValueCoding::valueForKeyPath(QVariant(holder), u"all.@sum.self"_s),
              QVariant(0.1 + 0.2 + 1));
    EXPECT_EQ(NSKeyValueCoding::valueForKeyPath(QVariant(holder), u"one.@sum.self"_s).toDouble(),
              0.1 + 0.2);
}
