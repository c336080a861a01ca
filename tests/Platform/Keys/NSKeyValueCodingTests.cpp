#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSObject>
#include <KTUtility/NSStringFormat>

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <memory>

using NSKeyValueCoding::setValue;
using NSKeyValueCoding::valueForKey;
using NSKeyValueCoding::valueForKeyPath;

// What answers keys and what merely converts to QVariant.
static_assert(NSKeyValueCodable<TestField *> && NSKeyValueCodable<const TestField *>);
static_assert(NSKeyValueCodable<QPointer<TestField>> &&
              NSKeyValueCodable<std::shared_ptr<TestField>>);
static_assert(NSKeyValueCodable<QSharedPointer<TestField>> && NSKeyValueCodable<QVariant>);
static_assert(NSKeyValueCodable<TestPoint> && NSKeyValueCodable<TestPoint *>);
static_assert(NSKeyValueCodable<QVariantMap> && NSKeyValueCodable<QVariantHash>);
static_assert(!NSKeyValueCodable<int> && !NSKeyValueCodable<QString> && !NSKeyValueCodable<void *>);

namespace {
QString undefinedReason(const void *object, const char *className, const char16_t *key)
{
    return NSString::stringWithFormat(u"[<%s 0x%lx> valueForUndefinedKey:]: this class is not key "
                                      u"value coding-compliant for the key %S.",
                                      className, quintptr(object), key);
}

const QString Unknown = QStringLiteral("nmae");
} // namespace

TEST(NSKeyValueCoding, ReadsPropertiesMethodsAndDynamicProperties)
{
    TestField field(QStringLiteral("Price"), 12);
    field.setProperty("colour", QStringLiteral("red"));
    EXPECT_EQ(valueForKey(&field, QStringLiteral("name")), QVariant(QStringLiteral("Price")));
    EXPECT_EQ(valueForKey(&field, QStringLiteral("size")), QVariant(12));
    EXPECT_EQ(valueForKey(&field, QStringLiteral("answer")), QVariant(42));
    EXPECT_EQ(valueForKey(&field, QStringLiteral("flagged")), QVariant(false));
    EXPECT_EQ(valueForKey(&field, QStringLiteral("hidden")), QVariant(true));
    EXPECT_EQ(valueForKey(&field, QStringLiteral("colour")), QVariant(QStringLiteral("red")));
    EXPECT_FALSE(valueForKey(&field, QStringLiteral("objectName")).isValid());
}

TEST(NSKeyValueCoding, NullTextsAreNil)
{
    const TestField field;
    EXPECT_FALSE(valueForKey(&field, QStringLiteral("name")).isValid());
    EXPECT_FALSE(valueForKey(&field, QStringLiteral("order")).isValid());
    EXPECT_FALSE(
        valueForKey(QVariantMap{{QStringLiteral("a"), QString()}}, QStringLiteral("a")).isValid());
}

TEST(NSKeyValueCoding, UnknownKeysRaise)
{
    TestField field;
    EXPECT_RAISES(valueForKey(&field, Unknown), NSUndefinedKeyException,
                  undefinedReason(&field, "TestField", u"nmae"));
    EXPECT_THROW(valueForKey(&field, QStringLiteral("")), NSException);
    EXPECT_THROW(valueForKey(&field, QStringLiteral("doNothing")), NSException);
    EXPECT_THROW(valueForKey(TestPoint(), Unknown), NSException);
    EXPECT_THROW(valueForKey(QVariant(5), Unknown), NSException);
    EXPECT_THROW(valueForKey(QVariant(QStringLiteral("text")), Unknown), NSException);
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

TEST(NSKeyValueCoding, MapsAndGadgets)
{
    const QVariantMap map{{QStringLiteral("a"), 1}, {QStringLiteral("@x"), 2}};
    EXPECT_EQ(valueForKey(map, QStringLiteral("a")), QVariant(1));
    EXPECT_FALSE(valueForKey(map, QStringLiteral("missing")).isValid());
    EXPECT_EQ(valueForKey(map, QStringLiteral("@count")).toInt(), 2);
    TestPoint point{3, 1};
    EXPECT_EQ(valueForKey(point, QStringLiteral("x")), QVariant(3));
    EXPECT_EQ(valueForKey(&point, QStringLiteral("right")), QVariant(true));
    EXPECT_EQ(valueForKey(QVariant::fromValue(point), QStringLiteral("x")), QVariant(3));
}

TEST(NSKeyValueCoding, ListsCollect)
{
    TestField one(QStringLiteral("a"));
    TestField two;
    const QVariant list = QVariantList{QVariant::fromValue(&one), QVariant::fromValue(&two)};
    const QVariantList names = valueForKey(list, QStringLiteral("name")).toList();
    ASSERT_EQ(names.size(), 2);
    EXPECT_EQ(names[0], QVariant(QStringLiteral("a")));
    EXPECT_TRUE(isNSNull(names[1]));
    EXPECT_EQ(valueForKey(list, QStringLiteral("@count")).toInt(), 2);
    const QVariant typed = QVariant::fromValue(QList<TestField *>{&one});
    EXPECT_EQ(valueForKey(typed, QStringLiteral("size")).toList(), QVariantList{0});
}

TEST(NSKeyValueCoding, KeyPaths)
{
    TestField top(QStringLiteral("top"));
    TestField middle(QStringLiteral("middle"));
    TestField leaf;
    leaf._parent = &middle;
    middle._parent = &top;
    EXPECT_EQ(valueForKeyPath(&leaf, QStringLiteral("parent.parent.name")),
              QVariant(QStringLiteral("top")));
    EXPECT_FALSE(valueForKeyPath(&top, QStringLiteral("parent.parent.name")).isValid());
    EXPECT_THROW(valueForKeyPath(&leaf, QStringLiteral("parent.nmae")), NSException);
    EXPECT_THROW(valueForKeyPath(&leaf, QStringLiteral("parent..name")), NSException);
    EXPECT_THROW(valueForKeyPath(&leaf, QStringLiteral("size.name")), NSException);
}

TEST(NSKeyValueCoding, OperatorsOverCollections)
{
    const auto value = [](const char *text) {
        return QVariantMap{{QStringLiteral("value"), QLatin1String(text)}};
    };
    const QVariant list = QVariantList{value("10"), value("12"), value("10")};
    const auto at = [&](const char *path) { return valueForKeyPath(list, QLatin1String(path)); };
    EXPECT_EQ(at("@count").toInt(), 3);
    EXPECT_EQ(at("@count.value").toInt(), 3);
    EXPECT_EQ(at("@sum.value").toDouble(), 32);
    EXPECT_NEAR(at("@avg.value").toDouble(), 32.0 / 3, 1e-9);
    EXPECT_EQ(at("@min.value").toString(), QStringLiteral("10"));
    EXPECT_EQ(at("@max.value").toString(), QStringLiteral("12"));
    EXPECT_EQ(at("@distinctUnionOfObjects.value").toList().size(), 2);
    EXPECT_EQ(at("value").toList().size(), 3);
    EXPECT_THROW(at("@nothing.value"), NSException);
    const QVariant empty = QVariantList();
    EXPECT_EQ(valueForKeyPath(empty, QStringLiteral("@sum.value")).toDouble(), 0);
    EXPECT_FALSE(valueForKeyPath(empty, QStringLiteral("@max.value")).isValid());
}

TEST(NSKeyValueCoding, SetsPropertiesAndMaps)
{
    TestField field;
    setValue(&field, QStringLiteral("new"), QStringLiteral("name"));
    setValue(&field, QStringLiteral("7"), QStringLiteral("size"));
    setValue(&field, QVariant(), QStringLiteral("name"));
    EXPECT_TRUE(field.name().isNull());
    EXPECT_EQ(field.size(), 7);
    QVariantMap map;
    setValue(map, 1, QStringLiteral("a"));
    EXPECT_EQ(map.size(), 1);
    setValue(map, QVariant(), QStringLiteral("a"));
    EXPECT_TRUE(map.isEmpty());
    QVariant gadget = QVariant::fromValue(TestPoint());
    setValue(gadget, 9, QStringLiteral("x"));
    EXPECT_EQ(gadget.value<TestPoint>().x, 9);
    setValue(static_cast<TestField *>(nullptr), 1, QStringLiteral("size"));
}

TEST(NSKeyValueCoding, RefusesWhatCannotBeSet)
{
    TestField field;
    EXPECT_THROW(setValue(&field, 1, Unknown), NSException);
    EXPECT_THROW(setValue(&field, 1, QStringLiteral("weight")), NSException);
    EXPECT_THROW(setValue(&field, QVariant(), QStringLiteral("size")), NSException);
    EXPECT_THROW(setValue(&field, QStringLiteral("x"), QStringLiteral("parent")), NSException);
    QVariant null = NSNull();
    EXPECT_THROW(setValue(null, 1, QStringLiteral("size")), NSException);
    EXPECT_FALSE(field.dynamicPropertyNames().contains("nmae"));
}

TEST(NSKeyValueCoding, ListsSetEveryElement)
{
    TestField one;
    TestField two;
    QVariant list = QVariantList{QVariant::fromValue(&one), QVariant::fromValue(&two)};
    setValue(list, 5, QStringLiteral("size"));
    EXPECT_EQ(one.size() + two.size(), 10);
}

TEST(NSKeyAccessor, FollowsChangesOfClass)
{
    NSKeyAccessor size(QStringLiteral("size"));
    TestField field(QString(), 3);
    const QVariantMap map{{QStringLiteral("size"), QStringLiteral("big")}};
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(size.read(NSKeyValueTarget::of(&field)), QVariant(3));
        EXPECT_EQ(size.read(NSKeyValueTargets::target(map)), QVariant(QStringLiteral("big")));
        EXPECT_FALSE(size.read(NSKeyValueTarget()).isValid());
    }
}

TEST(NSKeyAccessor, DynamicPropertiesBelongToOneObject)
{
    TestField with;
    TestField without;
    with.setProperty("colour", 1);
    NSKeyAccessor colour(QStringLiteral("colour"));
    EXPECT_EQ(colour.read(NSKeyValueTarget::of(&with)), QVariant(1));
    EXPECT_THROW(colour.read(NSKeyValueTarget::of(&without)), NSException);
    EXPECT_EQ(colour.read(NSKeyValueTarget::of(&with)), QVariant(1));
}

TEST(NSKeyAccessor, ValuesThatWereCopiedStay)
{
    NSKeyAccessor name(QStringLiteral("name"));
    TestField one(QStringLiteral("one"));
    TestField two(QStringLiteral("two"));
    const QVariant kept = name.read(NSKeyValueTarget::of(&one));
    EXPECT_EQ(name.read(NSKeyValueTarget::of(&two)), QVariant(QStringLiteral("two")));
    EXPECT_EQ(kept, QVariant(QStringLiteral("one")));
}
