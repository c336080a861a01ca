#include <KTUtility/KTBaseValueTransformer>
#include <KTUtility/KTBoolImageTransformer>
#include <KTUtility/KTFileExtensionValueTransformer>
#include <KTUtility/KTNewlineTabCharTransformer>
#include <KTUtility/KTSingleObjectFilterNegated>
#include <KTUtility/KTStringColorTransformer>
#include <KTUtility/NSColor_KTAdditions>
#include <KTUtility/NSException>
#include <KTUtility/NSObject>
#include <KTUtility/NSUserDefaults>

#include "support/TestSupport.h"

#include <QDateTime>

#include <limits>

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

const QVariant nil;
} // namespace

TEST(ValueTransformers, AsInTheTable)
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

TEST(ValueTransformers, AreFoundByTheNameOfTheirClass)
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

TEST(ValueTransformers, ARegisteredOneWinsOverTheClass)
{
    const QString name = KTNewlineTabCharTransformerName;
    const Transformer mine = KTBaseValueTransformer::valueTransformer();
    NSValueTransformer::setValueTransformer(mine, name);
    EXPECT_EQ(NSValueTransformer::valueTransformerForName(name), mine);
    NSValueTransformer::setValueTransformer(nullptr, name);
    EXPECT_NE(NSValueTransformer::valueTransformerForName(name), mine);
    NSValueTransformer::setValueTransformer(nullptr, name);
}

TEST(ValueTransformers, ClassesAndDirections)
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

TEST(FileExtensionValueTransformer, HidesTheExtension)
{
    const auto transformer = KTFileExtensionValueTransformer::valueTransformer();
    EXPECT_EQ(transformer->transformedValue(u"Report.cobble"_s), QVariant(u"Report"_s));
    EXPECT_EQ(transformer->transformedValue(u"a.b.c"_s), QVariant(u"a.b"_s));
    EXPECT_EQ(transformer->transformedValue(5), QVariant(5));
    EXPECT_FALSE(transformer->transformedValue(nil).isValid());
    EXPECT_FALSE(transformer->reverseTransformedValue(u"a"_s).isValid());
    const ShowsAllExtensions flag(true);
    EXPECT_EQ(transformer->transformedValue(u"a.b.c"_s), QVariant(u"a.b.c"_s));
}

TEST(BaseValueTransformer, CountsFromOneAndRunsOver)
{
    const auto transformer = KTBaseValueTransformer::valueTransformer();
    EXPECT_EQ(transformer->transformedValue(0), QVariant(1U));
    EXPECT_EQ(transformer->reverseTransformedValue(1), QVariant(0U));
    EXPECT_EQ(transformer->reverseTransformedValue(0), QVariant(4294967295U));
    EXPECT_EQ(transformer->transformedValue(4294967295U), QVariant(0U));
    EXPECT_EQ(transformer->transformedValue(u"41"_s), QVariant(42U));
    EXPECT_FALSE(transformer->transformedValue(nil).isValid());
    EXPECT_FALSE(transformer->reverseTransformedValue(QVariant(QString())).isValid());
    const auto reversed = KTBaseValueTransformer::reversedValueTransformer();
    EXPECT_EQ(reversed->transformedValue(1), QVariant(0U));
    EXPECT_EQ(reversed->transformedValue(0), QVariant(4294967295U));
    EXPECT_EQ(reversed->reverseTransformedValue(0), QVariant(1U));
}

TEST(BoolImageTransformer, ShowsOneOfTwoImages)
{
    QImage on(1, 1, QImage::Format_RGB32);
    QImage off(2, 2, QImage::Format_RGB32);
    KTBoolImageTransformer transformer;
    EXPECT_FALSE(transformer.transformedValue(true).isValid());
    transformer.setOnImage(on);
    EXPECT_FALSE(transformer.transformedValue(false).isValid());
    transformer.setOffImage(off);
    for (const QVariant &value :
         {QVariant(true), QVariant(1), QVariant(-0.5), QVariant(u"yes"_s), QVariant(u"1"_s)})
        EXPECT_EQ(transformer.transformedValue(value).value<QImage>().size(), QSize(1, 1));
    for (const QVariant &value : {QVariant(false), QVariant(0), QVariant(u"no"_s), QVariant(u""_s)})
        EXPECT_EQ(transformer.transformedValue(value).value<QImage>().size(), QSize(2, 2));
    for (const QVariant &value : {nil, QVariant(QVariantList{true}), QVariant(QDate(2008, 3, 5)),
                                  QVariant(QByteArray("yes"))})
        EXPECT_FALSE(transformer.transformedValue(value).isValid());
}

TEST(NewlineTabCharTransformer, ForthAndBack)
{
    const KTNewlineTabCharTransformer transformer;
    EXPECT_EQ(transformer.transformedValue(u"one\ntwo"_s), QVariant(u"one\ttwo"_s));
    EXPECT_EQ(transformer.reverseTransformedValue(u"one\ttwo"_s), QVariant(u"one\ntwo"_s));
    EXPECT_EQ(transformer.transformedValue(u"a\r\nb\r"_s), QVariant(u"a\r\tb\r"_s));
    EXPECT_FALSE(transformer.transformedValue(nil).isValid());
    EXPECT_FALSE(transformer.reverseTransformedValue(nil).isValid());
    for (const QString &text : hostileTexts()) {
        if (!text.isNull() && !text.contains(u'\t')) {
            EXPECT_EQ(transformer.reverseTransformedValue(transformer.transformedValue(text)),
                      QVariant(text));
        }
    }
}

TEST(NewlineTabCharTransformer, OtherTypesAreAssertions)
{
    const KTNewlineTabCharTransformer transformer;
    const QString output = standardErrorOf([&] {
        EXPECT_RAISES(transformer.transformedValue(5), NSInternalInconsistencyException,
                      u"value must be NSString"_s);
        EXPECT_RAISES(transformer.reverseTransformedValue(QVariantList()),
                      NSInternalInconsistencyException, u"value must be NSString"_s);
    });
    EXPECT_TRUE(output.contains(u"ValueTransformers/KTNewlineTabCharTransformer:"));
}

TEST(SingleObjectFilter, HeaderExample)
{
    const auto filter = KTSingleObjectFilter::valueTransformer();
    EXPECT_EQ(filter->transformedValue(QVariantList{1, 2}), QVariant(1));
    EXPECT_FALSE(filter->transformedValue(QVariantList()).isValid());
    EXPECT_EQ(filter->reverseTransformedValue(1), QVariant(QVariantList{1}));
    EXPECT_EQ(filter->reverseTransformedValue(nil), QVariant(QVariantList()));
    EXPECT_EQ(filter->transformedValue(u"a"_s), QVariant(u"a"_s));
    EXPECT_EQ(filter->reverseTransformedValue(u"a"_s), QVariant(QVariantList{u"a"_s}));
    EXPECT_FALSE(filter->transformedValue(nil).isValid());
}

TEST(SingleObjectFilter, ReversedEachDirectionIsTheOther)
{
    const auto filter = KTSingleObjectFilter::reversedValueTransformer();
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(filter->transformedValue(1), QVariant(QVariantList{1}));
        EXPECT_EQ(filter->transformedValue(nil), QVariant(QVariantList()));
        EXPECT_EQ(filter->reverseTransformedValue(QVariantList{1, 2}), QVariant(1));
    }
}

TEST(SingleObjectFilter, ListsOfOtherTypes)
{
    const auto filter = KTSingleObjectFilter::valueTransformer();
    EXPECT_EQ(filter->transformedValue(QStringList{u"a"_s, u"b"_s}), QVariant(u"a"_s));
    EXPECT_EQ(filter->reverseTransformedValue(QVariantList{1}),
              QVariant(QVariantList{QVariant(QVariantList{1})}));
}

TEST(SingleObjectFilterNegated, NegatesNumbersOnly)
{
    const auto filter = KTSingleObjectFilterNegated::valueTransformer();
    EXPECT_EQ(filter->transformedValue(QVariantList{true}), QVariant(false));
    EXPECT_EQ(filter->transformedValue(QVariantList{0.0}), QVariant(true));
    EXPECT_EQ(filter->transformedValue(5), QVariant(false));
    EXPECT_FALSE(filter->transformedValue(QVariantList()).isValid());
    EXPECT_EQ(filter->transformedValue(QVariantList{u"YES"_s}), QVariant(u"YES"_s));
    EXPECT_FALSE(filter->allowsReverseTransformation());
    // The inherited factory makes the plain class.
    const Transformer plain = KTSingleObjectFilterNegated::reversedValueTransformer();
    EXPECT_FALSE(std::dynamic_pointer_cast<KTSingleObjectFilterNegated>(plain));
    EXPECT_EQ(plain->transformedValue(true), QVariant(QVariantList{true}));
}

TEST(StringColorTransformer, ForthAndBackKeepsTheComponents)
{
    const KTStringColorTransformer transformer;
    for (const QColor &color : {QColor(Qt::red), QColor(1, 2, 3, 4), QColor(255, 254, 253, 252),
                                QColor::fromRgbF(0.1F, 0.2F, 0.3F, 0.4F), QColor(Qt::transparent)})
        EXPECT_EQ(transformer.transformedValue(transformer.reverseTransformedValue(color))
                      .value<QColor>(),
                  color);
    EXPECT_EQ(transformer.reverseTransformedValue(QColor(Qt::red)), QVariant(u"1 0 0 1"_s));
    EXPECT_FALSE(transformer.transformedValue(nil).isValid());
    EXPECT_FALSE(transformer.reverseTransformedValue(nil).isValid());
}

TEST(StringColorTransformer, ColorsOfOtherModels)
{
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor::fromHsv(120, 255, 255)), u"0 1 0 1"_s);
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor::fromCmyk(0, 255, 255, 0)), u"1 0 0 1"_s);
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor()), u"0 0 0 0"_s);
    EXPECT_EQ(KTStringColorTransformer().reverseTransformedValue(QColor()), QVariant(u"0 0 0 0"_s));
}

TEST(StringColorTransformer, TextsThatAreNoColors)
{
    const auto textOf = [](const QString &text) {
        return KTAdditions::ktStringRepresentation(KTAdditions::ktColorWithString(text));
    };
    EXPECT_EQ(textOf(u"0.2 0.4 0.6"_s), u"0.2 0.4 0.6 1"_s);
    EXPECT_EQ(textOf(u"  1\t0  0 1  "_s), u"1 0 0 1"_s);
    EXPECT_EQ(textOf(u"2 -1 0 9"_s), u"1 0 0 1"_s);
    EXPECT_EQ(textOf(u"cow"_s), u"0 0 0 1"_s);
    EXPECT_EQ(textOf(u"1e999 nan 0 1"_s), u"0 0 0 1"_s);
    for (const QString &text : hostileTexts())
        EXPECT_TRUE(KTAdditions::ktColorWithString(text).isValid());
}

TEST(StringColorTransformer, OtherTypesAreAssertions)
{
    const KTStringColorTransformer transformer;
    const QString output = standardErrorOf([&] {
        EXPECT_RAISES(transformer.transformedValue(QColor(Qt::red)),
                      NSInternalInconsistencyException, u"value must be NSString"_s);
        EXPECT_RAISES(transformer.reverseTransformedValue(u"1 0 0 1"_s),
                      NSInternalInconsistencyException, u"value must be NSColor"_s);
    });
    EXPECT_TRUE(output.contains(u"ValueTransformers/KTStringColorTransformer:"));
}
