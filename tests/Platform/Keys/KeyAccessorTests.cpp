#include <KTUtility/KeyAccessor>
#include <KTUtility/NSException>

#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(KeyAccessor, FollowsChangesOfClass)
{
    KeyAccessor size(u"size"_s);
    TestField field(QString(), 3);
    const QVariantMap map{{u"size"_s, u"big"_s}};
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(size.read(KeyValueTarget::of(&field)), QVariant(3));
        EXPECT_EQ(size.read(KeyValueTargets::target(map)), QVariant(u"big"_s));
        EXPECT_FALSE(size.read(KeyValueTarget()).isValid());
    }
}

TEST(KeyAccessor, DynamicPropertiesBelongToOneObject)
{
    TestField with;
    TestField without;
    with.setProperty("colour", 1);
    KeyAccessor colour(u"colour"_s);
    EXPECT_EQ(colour.read(KeyValueTarget::of(&with)), QVariant(1));
    EXPECT_THROW(colour.read(KeyValueTarget::of(&without)), NSException);
    EXPECT_EQ(colour.read(KeyValueTarget::of(&with)), QVariant(1));
}

TEST(KeyAccessor, ValuesThatWereCopiedStay)
{
    KeyAccessor name(u"name"_s);
    TestField one(u"one"_s);
    TestField two(u"two"_s);
    const QVariant kept = name.read(KeyValueTarget::of(&one));
    EXPECT_EQ(name.read(KeyValueTarget::of(&two)), QVariant(u"two"_s));
    EXPECT_EQ(kept, QVariant(u"one"_s));
}

TEST(KeyAccessor, SmallValuesAreNotNull)
{
    KeyAccessor size(u"size"_s);
    KeyAccessor name(u"name"_s);
    TestField field(u"one"_s, 0);
    for (int round = 0; round < 2; ++round) {
        QVariant read = size.read(KeyValueTarget::of(&field));
        EXPECT_FALSE(read.isNull());
        EXPECT_TRUE(read.convert(QMetaType::fromType<QString>()));
        EXPECT_EQ(read, QVariant(u"0"_s));
        EXPECT_FALSE(name.read(KeyValueTarget::of(&field)).isNull());
    }
}
