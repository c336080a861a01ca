// What all value transformers have in common.

#include <KTUtility/KTBaseValueTransformer>
#include <KTUtility/KTBoolImageTransformer>
#include <KTUtility/KTFileExtensionValueTransformer>
#include <KTUtility/KTNewlineTabCharTransformer>
#include <KTUtility/KTSingleObjectFilterNegated>
#include <KTUtility/KTStringColorTransformer>
#include <KTUtility/NSObject>
#include <KTUtility/NSUserDefaults>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
using Transformer = std::shared_ptr<NSValueTransformer>;

/// The flag of the user defaults as long as it lives.
class ShowsAllExtensions
{
public:
    explicit ShowsAllExtensions(bool isSet)
    {
        NSUserDefaults::standardUserDefaults()->setBool(isSet, Key);
    }
    ~ShowsAllExtensions() { NSUserDefaults::standardUserDefaults()->removeObjectForKey(Key); }

private:
    const QString Key = u"AppleShowAllExtensions"_s;
};

Transformer transformerOf(const QString &className, bool isReversed)
{
    if (className == u"KTBaseValueTransformer" && isReversed)
        return KTBaseValueTransformer::reversedValueTransformer();
    if (className == u"KTSingleObjectFilter" && isReversed)
        return KTSingleObjectFilter::reversedValueTransformer();
    return NSValueTransformer::valueTransformerForName(className);
}

QVariant answerOf(const QString &operation, const NSValueTransformer &transformer,
                  const QVariant &value)
{
    if (operation == u"transformedValue:")
        return transformer.transformedValue(value);
    if (operation == u"reverseTransformedValue:")
        return transformer.reverseTransformedValue(value);
    if (operation == u"roundTrip")
        return transformer.reverseTransformedValue(transformer.transformedValue(value));
    EXPECT_EQ(operation, u"allowsReverseTransformation"_s);
    return transformer.allowsReverseTransformation();
}

QVariant valueOf(const QJsonValue &value)
{
    return value.isNull() ? QVariant() : value.toVariant();
}
} // namespace

TEST(ValueTransformerTable, EveryRowGivesItsResult)
{
    const QList<QJsonObject> rows = rowsOf(u"system/transformers.jsonl"_s);
    EXPECT_EQ(rows.size(), 67);
    for (const QJsonObject &row : rows) {
        const QJsonObject arguments = row.value(u"args").toObject();
        const QString className = arguments.value(u"class").toString();
        const QVariant value = valueOf(arguments.value(u"value"));
        SCOPED_TRACE(className.toStdString() + ' ' + NSObject::description(value).toStdString());
        const ShowsAllExtensions flag(arguments.value(u"AppleShowAllExtensions").toBool());
        const Transformer transformer =
            transformerOf(className, arguments.value(u"reversed").toBool());
        ASSERT_TRUE(transformer);
        const QVariant answer = answerOf(row.value(u"op").toString(), *transformer, value);
        EXPECT_TRUE(NSObject::isEqual(answer, valueOf(row.value(u"out"))))
            << NSObject::description(answer).toStdString();
    }
}

TEST(ValueTransformerTable, AreFoundByTheNameOfTheirClass)
{
    for (const QString &name :
         {u"KTFileExtensionValueTransformer"_s, u"KTBaseValueTransformer"_s,
          u"KTBoolImageTransformer"_s, KTNewlineTabCharTransformerName, u"KTSingleObjectFilter"_s,
          u"KTSingleObjectFilterNegated"_s, KTStringColorTransformerName}) {
        const Transformer found = NSValueTransformer::valueTransformerForName(name);
        EXPECT_TRUE(found) << name.toStdString();
        EXPECT_EQ(NSValueTransformer::valueTransformerForName(name), found);
        EXPECT_TRUE(NSValueTransformer::valueTransformerNames().contains(name));
        NSValueTransformer::setValueTransformer(nullptr, name);
        EXPECT_FALSE(NSValueTransformer::valueTransformerNames().contains(name));
    }
    EXPECT_EQ(KTNewlineTabCharTransformerName, u"KTNewlineTabCharTransformer"_s);
    EXPECT_EQ(KTStringColorTransformerName, u"KTStringColorTransformer"_s);
    EXPECT_FALSE(NSValueTransformer::valueTransformerForName(u"none"_s));
    EXPECT_FALSE(NSValueTransformer::valueTransformerForName(QString()));
}

TEST(ValueTransformerTable, ARegisteredOneWinsOverTheClass)
{
    const QString name = KTNewlineTabCharTransformerName;
    const Transformer mine = KTBaseValueTransformer::valueTransformer();
    NSValueTransformer::setValueTransformer(mine, name);
    EXPECT_EQ(NSValueTransformer::valueTransformerForName(name), mine);
    NSValueTransformer::setValueTransformer(nullptr, name);
    EXPECT_NE(NSValueTransformer::valueTransformerForName(name), mine);
    NSValueTransformer::setValueTransformer(nullptr, name);
}

TEST(ValueTransformerTable, EachHasItsClassAndDirections)
{
    struct Row
    {
        Transformer transformer;
        QMetaType type;
        bool allowsReverse;
    };
    const QList<Row> rows = {
        {std::make_shared<KTFileExtensionValueTransformer>(), QMetaType::fromType<QString>(),
         false},
        {std::make_shared<KTBaseValueTransformer>(), QMetaType::fromType<uint>(), true},
        {std::make_shared<KTBoolImageTransformer>(), QMetaType::fromType<double>(), false},
        {std::make_shared<KTNewlineTabCharTransformer>(), QMetaType::fromType<QString>(), true},
        {std::make_shared<KTSingleObjectFilter>(), QMetaType(), true},
        {std::make_shared<KTSingleObjectFilterNegated>(), QMetaType(), false},
        {std::make_shared<KTStringColorTransformer>(), QMetaType::fromType<QColor>(), true},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(row.transformer->transformedValueClass(), row.type);
        EXPECT_EQ(row.transformer->allowsReverseTransformation(), row.allowsReverse);
    }
}
