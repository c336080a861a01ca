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
static_assert(!KeyValueCodable<int> && !KeyValueCodable<QString> && !KeyValueCodable<void *>);

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
