#include <KTUtility/NSCollections>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSObject>
#include <KTUtility/NSStringFormat>

#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using NSKeyValueCoding::setValue;
using NSKeyValueCoding::valueForKey;
using NSKeyValueCoding::valueForKeyPath;

// What answers keys and what merely converts to QVariant.
static_assert(KeyValueCodable<TestField *> && KeyValueCodable<const TestField *>);
static_assert(KeyValueCodable<QPointer<TestField>> && KeyValueCodable<std::shared_ptr<TestField>>);
static_assert(KeyValueCodable<QSharedPointer<TestField>> && KeyValueCodable<QVariant>);
static_assert(KeyValueCodable<TestPoint> && KeyValueCodable<TestPoint *>);
static_assert(KeyValueCodable<QVariantMap> && KeyValueCodable<QVariantHash>);
static_assert(KeyValueCodable<QString> && !KeyValueCodable<QStringView>);
static_assert(!KeyValueCodable<int> && !KeyValueCodable<void *>);

namespace {
QString undefinedReason(const void *object, const char *className, const char16_t *key)
{
    return NSString::stringWithFormat(u"[<%s 0x%lx> valueForUndefinedKey:]: this class is not key "
                                      u"value coding-compliant for the key %S.",
                                      className, quintptr(object), key);
}

const QString Unknown = u"nmae"_s;
} // namespace

TEST(NSKeyValueCoding, ReadsPropertiesMethodsAndDynamicProperties)
{
    TestField field(u"Price"_s, 12);
    field.setProperty("colour", u"red"_s);
    EXPECT_EQ(valueForKey(&field, u"name"_s), QVariant(u"Price"_s));
    EXPECT_EQ(valueForKey(&field, u"size"_s), QVariant(12));
    EXPECT_EQ(valueForKey(&field, u"answer"_s), QVariant(42));
    EXPECT_EQ(valueForKey(&field, u"flagged"_s), QVariant(false));
    EXPECT_EQ(valueForKey(&field, u"hidden"_s), QVariant(true));
    EXPECT_EQ(valueForKey(&field, u"colour"_s), QVariant(u"red"_s));
    EXPECT_FALSE(valueForKey(&field, u"objectName"_s).isValid());
}

TEST(NSKeyValueCoding, NullTextsAreNil)
{
    const TestField field;
    EXPECT_FALSE(valueForKey(&field, u"name"_s).isValid());
    EXPECT_FALSE(valueForKey(&field, u"order"_s).isValid());
    EXPECT_FALSE(valueForKey(QVariantMap{{u"a"_s, QString()}}, u"a"_s).isValid());
}

TEST(NSKeyValueCoding, UnknownKeysRaise)
{
    TestField field;
    EXPECT_RAISES(valueForKey(&field, Unknown), NSUndefinedKeyException,
                  undefinedReason(&field, "TestField", u"nmae"));
    EXPECT_THROW(valueForKey(&field, u""_s), NSException);
    EXPECT_THROW(valueForKey(&field, u"doNothing"_s), NSException);
    EXPECT_THROW(valueForKey(TestPoint(), Unknown), NSException);
    EXPECT_THROW(valueForKey(QVariant(5), Unknown), NSException);
    EXPECT_THROW(valueForKey(QVariant(u"text"_s), Unknown), NSException);
    for (const QString &key : testing_support::hostileTexts()) {
        if (!key.isNull()) {
            EXPECT_THROW(valueForKey(&field, key), NSException);
        }
    }
}

TEST(NSKeyValueCoding, NilReceiversAndNilKeysGiveNil)
{
    TestField field;
    EXPECT_FALSE(valueForKey(static_cast<TestField *>(nullptr), Unknown).isValid());
    EXPECT_FALSE(valueForKey(QVariant(), Unknown).isValid());
    EXPECT_FALSE(valueForKey(&field, QString()).isValid());
    EXPECT_FALSE(valueForKeyPath(&field, QString()).isValid());
    EXPECT_TRUE(isNSNull(valueForKey(NSNull(), Unknown)));
}

TEST(NSKeyValueCoding, ReadsMapsAndGadgets)
{
    const QVariantMap map{{u"a"_s, 1}, {u"@x"_s, 2}};
    EXPECT_EQ(valueForKey(map, u"a"_s), QVariant(1));
    EXPECT_FALSE(valueForKey(map, u"missing"_s).isValid());
    EXPECT_EQ(valueForKey(map, u"@count"_s).toInt(), 2);
    TestPoint point{3, 1};
    EXPECT_EQ(valueForKey(point, u"x"_s), QVariant(3));
    EXPECT_EQ(valueForKey(&point, u"right"_s), QVariant(true));
    EXPECT_EQ(valueForKey(QVariant::fromValue(point), u"x"_s), QVariant(3));
}

TEST(NSKeyValueCoding, ListsCollect)
{
    TestField one(u"a"_s);
    TestField two;
    const QVariant list = QVariantList{QVariant::fromValue(&one), QVariant::fromValue(&two)};
    const QVariantList names = valueForKey(list, u"name"_s).toList();
    ASSERT_EQ(names.size(), 2);
    EXPECT_EQ(names[0], QVariant(u"a"_s));
    EXPECT_TRUE(isNSNull(names[1]));
    EXPECT_EQ(valueForKey(list, u"@count"_s).toInt(), 2);
    const QVariant typed = QVariant::fromValue(QList<TestField *>{&one});
    EXPECT_EQ(valueForKey(typed, u"size"_s).toList(), QVariantList{0});
}

TEST(NSKeyValueCoding, FollowsKeyPaths)
{
    TestField top(u"top"_s);
    TestField middle(u"middle"_s);
    TestField leaf;
    leaf._parent = &middle;
    middle._parent = &top;
    EXPECT_EQ(valueForKeyPath(&leaf, u"parent.parent.name"_s), QVariant(u"top"_s));
    EXPECT_FALSE(valueForKeyPath(&top, u"parent.parent.name"_s).isValid());
    EXPECT_THROW(valueForKeyPath(&leaf, u"parent.nmae"_s), NSException);
    EXPECT_THROW(valueForKeyPath(&leaf, u"parent..name"_s), NSException);
    EXPECT_THROW(valueForKeyPath(&leaf, u"size.name"_s), NSException);
}

TEST(NSKeyValueCoding, ComputesOperatorsOverCollections)
{
    const auto value = [](const char *text) {
        return QVariantMap{{u"value"_s, QLatin1String(text)}};
    };
    const QVariant list = QVariantList{value("10"), value("12"), value("10")};
    const auto at = [&](const char *path) { return valueForKeyPath(list, QLatin1String(path)); };
    EXPECT_EQ(at("@count").toInt(), 3);
    EXPECT_EQ(at("@count.value").toInt(), 3);
    EXPECT_EQ(at("@sum.value").toDouble(), 32);
    EXPECT_NEAR(at("@avg.value").toDouble(), 32.0 / 3, 1e-9);
    EXPECT_EQ(at("@min.value").toString(), u"10"_s);
    EXPECT_EQ(at("@max.value").toString(), u"12"_s);
    EXPECT_EQ(at("@distinctUnionOfObjects.value").toList().size(), 2);
    EXPECT_EQ(at("value").toList().size(), 3);
    EXPECT_THROW(at("@nothing.value"), NSException);
    const QVariant empty = QVariantList();
    EXPECT_EQ(valueForKeyPath(empty, u"@sum.value"_s).toDouble(), 0);
    EXPECT_FALSE(valueForKeyPath(empty, u"@max.value"_s).isValid());
}

TEST(NSKeyValueCoding, SetsCollectSets)
{
    const auto record = [](const QVariant &a) { return QVariantMap{{u"a"_s, a}}; };
    const QVariant set = QVariant::fromValue(
        NSSet{record(1), record(2), QVariantMap{{u"a"_s, 1}, {u"b"_s, 1}}, QVariantMap()});
    EXPECT_EQ(valueForKey(set, u"a").value<NSSet>(), (NSSet{1, 2}));
    EXPECT_EQ(valueForKeyPath(set, u"a").value<NSSet>(), (NSSet{1, 2}));
    EXPECT_EQ(valueForKeyPath(set, u"@count"), QVariant(4));
    EXPECT_EQ(valueForKeyPath(set, u"@sum.a"), QVariant(4.0));
    EXPECT_EQ(valueForKeyPath(set, u"@max.a"), QVariant(2));
    const QVariantMap owner{{u"children"_s, set}};
    EXPECT_EQ(valueForKeyPath(owner, u"children.a").value<NSSet>(), (NSSet{1, 2}));
    EXPECT_EQ(valueForKeyPath(owner, u"children.@count"), QVariant(4));
    TestField field;
    QVariant fields = QVariant::fromValue(NSSet{QVariant::fromValue(&field)});
    setValue(fields, 5, u"size");
    EXPECT_EQ(field.size(), 5);
}

TEST(NSKeyValueCoding, EveryValueIsItself)
{
    TestField field;
    EXPECT_EQ(valueForKey(&field, u"self"), QVariant::fromValue(&field));
    EXPECT_EQ(valueForKey(TestPoint{3, 1}, u"self").value<TestPoint>(), (TestPoint{3, 1}));
    EXPECT_EQ(valueForKey(QVariant(5), u"self"), QVariant(5));
    EXPECT_EQ(valueForKey(QVariant(QVariantList{1, u"a"_s}), u"self"),
              QVariant(QVariantList{1, u"a"_s}));
    EXPECT_FALSE(valueForKey(QVariantMap(), u"self").isValid());
    field.setProperty("self", 7);
    EXPECT_EQ(valueForKey(&field, u"self"), QVariant(7));
}

TEST(NSKeyValueCoding, TextsKnowTheirLength)
{
    EXPECT_EQ(valueForKey(u"abc"_s, u"length"), QVariant(3));
    EXPECT_EQ(valueForKey(u"abc"_s, u"self"), QVariant(u"abc"_s));
    EXPECT_EQ(valueForKeyPath(QVariantMap{{u"a"_s, u"four"_s}}, u"a.length"), QVariant(4));
    EXPECT_FALSE(valueForKey(QString(), u"length").isValid());
    EXPECT_THROW(valueForKey(u"abc"_s, Unknown), NSException);
    QVariant text = u"abc"_s;
    EXPECT_THROW(setValue(text, 1, u"length"), NSException);
}

TEST(NSKeyValueCoding, KeysAreTextsOfEveryType)
{
    TestField field(u"a"_s, 3);
    for (const QVariant &size :
         {valueForKey(&field, u"size"), valueForKey(&field, "size"),
          valueForKey(&field, QStringView(u"sizes").chopped(1)),
          valueForKeyPath(&field, QLatin1String("size")), valueForKeyPath(&field, u"size"_s)})
        EXPECT_EQ(size, QVariant(3));
}

TEST(NSKeyValueCoding, SetsPropertiesAndMaps)
{
    TestField field;
    setValue(&field, u"new"_s, u"name"_s);
    setValue(&field, u"7"_s, u"size"_s);
    setValue(&field, QVariant(), u"name"_s);
    EXPECT_TRUE(field.name().isNull());
    EXPECT_EQ(field.size(), 7);
    QVariantMap map;
    setValue(map, 1, u"a"_s);
    EXPECT_EQ(map.size(), 1);
    setValue(map, QVariant(), u"a"_s);
    EXPECT_TRUE(map.isEmpty());
    QVariant gadget = QVariant::fromValue(TestPoint());
    setValue(gadget, 9, u"x"_s);
    EXPECT_EQ(gadget.value<TestPoint>().x, 9);
    setValue(static_cast<TestField *>(nullptr), 1, u"size"_s);
}

TEST(NSKeyValueCoding, ValuesAreSetAsTheyAre)
{
    TestField field;
    TestField parent;
    setValue(&field, &parent, u"parent");
    EXPECT_EQ(field._parent, &parent);
    setValue(&field, QPointer<TestField>(), u"parent");
    EXPECT_EQ(field._parent, nullptr);
    setValue(&field, 3L, u"size");
    setValue(&field, std::optional(u"new"_s), u"name");
    EXPECT_EQ(field.size(), 3);
    EXPECT_EQ(field.name(), u"new"_s);
}

TEST(NSKeyValueCoding, NumbersAreSetAsThePlatformSetsThem)
{
    TestField field;
    setValue(&field, NSDecimalNumber(3), u"size");
    EXPECT_EQ(field.size(), 3);
    setValue(&field, 2.7, u"size");
    EXPECT_EQ(field.size(), 2);
    setValue(&field, -2.7, u"size");
    EXPECT_EQ(field.size(), -2);
    setValue(&field, NSDecimalNumber(1), u"flag");
    EXPECT_TRUE(field._flag);
    setValue(&field, u"NO", u"flag");
    EXPECT_FALSE(field._flag);
}

TEST(NSKeyValueCoding, RejectsWhatCannotBeSet)
{
    TestField field;
    EXPECT_THROW(setValue(&field, 1, Unknown), NSException);
    EXPECT_THROW(setValue(&field, 1, u"weight"_s), NSException);
    EXPECT_THROW(setValue(&field, QVariant(), u"size"_s), NSException);
    EXPECT_THROW(setValue(&field, u"x"_s, u"parent"_s), NSException);
    QVariant null = NSNull();
    EXPECT_THROW(setValue(null, 1, u"size"_s), NSException);
    EXPECT_FALSE(field.dynamicPropertyNames().contains("nmae"));
}

TEST(NSKeyValueCoding, ListsSetEveryElement)
{
    TestField one;
    TestField two;
    QVariant list = QVariantList{QVariant::fromValue(&one), QVariant::fromValue(&two)};
    setValue(list, 5, u"size"_s);
    EXPECT_EQ(one.size() + two.size(), 10);
}

TEST(NSKeyValueCoding, OperatorsJoinTheElementsCollections)
{
    const QVariant lists =
        QVariantList{QVariantMap{{u"tags"_s, QVariantList{1, 2}}},
                     QVariantMap{{u"tags"_s, QVariantList{2, 3}}}, QVariantMap{{u"other"_s, 5}}};
    EXPECT_EQ(NSKeyValueCoding::valueForKeyPath(lists, u"@unionOfArrays.tags"),
              QVariant(QVariantList({1, 2, 2, 3})));
    for (const char16_t *const path :
         {u"@distinctUnionOfArrays.tags", u"@distinctUnionOfSets.tags"})
        EXPECT_EQ(NSKeyValueCoding::valueForKeyPath(lists, path),
                  QVariant(QVariantList({1, 2, 3})));
}
