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
    const QString Key = QStringLiteral("AppleShowAllExtensions");
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
    EXPECT_EQ(operation, QStringLiteral("allowsReverseTransformation"));
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
    const QList<QJsonObject> rows = rowsOf(QStringLiteral("system/transformers.jsonl"));
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
         {QStringLiteral("KTFileExtensionValueTransformer"),
          QStringLiteral("KTBaseValueTransformer"), QStringLiteral("KTBoolImageTransformer"),
          KTNewlineTabCharTransformerName, QStringLiteral("KTSingleObjectFilter"),
          QStringLiteral("KTSingleObjectFilterNegated"), KTStringColorTransformerName}) {
        const Transformer found = NSValueTransformer::valueTransformerForName(name);
        EXPECT_TRUE(found) << name.toStdString();
        EXPECT_EQ(NSValueTransformer::valueTransformerForName(name), found);
        EXPECT_TRUE(NSValueTransformer::valueTransformerNames().contains(name));
        NSValueTransformer::setValueTransformer(nullptr, name);
        EXPECT_FALSE(NSValueTransformer::valueTransformerNames().contains(name));
    }
    EXPECT_EQ(KTNewlineTabCharTransformerName, QStringLiteral("KTNewlineTabCharTransformer"));
    EXPECT_EQ(KTStringColorTransformerName, QStringLiteral("KTStringColorTransformer"));
    EXPECT_FALSE(NSValueTransformer::valueTransformerForName(QStringLiteral("none")));
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
    EXPECT_EQ(transformer->transformedValue(QStringLiteral("Report.cobble")),
              QVariant(QStringLiteral("Report")));
    EXPECT_EQ(transformer->transformedValue(QStringLiteral("a.b.c")),
              QVariant(QStringLiteral("a.b")));
    EXPECT_EQ(transformer->transformedValue(5), QVariant(5));
    EXPECT_FALSE(transformer->transformedValue(nil).isValid());
    EXPECT_FALSE(transformer->reverseTransformedValue(QStringLiteral("a")).isValid());
    const ShowsAllExtensions flag(true);
    EXPECT_EQ(transformer->transformedValue(QStringLiteral("a.b.c")),
              QVariant(QStringLiteral("a.b.c")));
}

TEST(BaseValueTransformer, CountsFromOneAndRunsOver)
{
    const auto transformer = KTBaseValueTransformer::valueTransformer();
    EXPECT_EQ(transformer->transformedValue(0), QVariant(1U));
    EXPECT_EQ(transformer->reverseTransformedValue(1), QVariant(0U));
    EXPECT_EQ(transformer->reverseTransformedValue(0), QVariant(4294967295U));
    EXPECT_EQ(transformer->transformedValue(4294967295U), QVariant(0U));
    EXPECT_EQ(transformer->transformedValue(QStringLiteral("41")), QVariant(42U));
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
    for (const QVariant &value : {QVariant(true), QVariant(1), QVariant(-0.5),
                                  QVariant(QStringLiteral("yes")), QVariant(QStringLiteral("1"))})
        EXPECT_EQ(transformer.transformedValue(value).value<QImage>().size(), QSize(1, 1));
    for (const QVariant &value : {QVariant(false), QVariant(0), QVariant(QStringLiteral("no")),
                                  QVariant(QStringLiteral(""))})
        EXPECT_EQ(transformer.transformedValue(value).value<QImage>().size(), QSize(2, 2));
    for (const QVariant &value : {nil, QVariant(QVariantList{true}), QVariant(QDate(2008, 3, 5)),
                                  QVariant(QByteArray("yes"))})
        EXPECT_FALSE(transformer.transformedValue(value).isValid());
}

TEST(NewlineTabCharTransformer, ForthAndBack)
{
    const KTNewlineTabCharTransformer transformer;
    EXPECT_EQ(transformer.transformedValue(QStringLiteral("one\ntwo")),
              QVariant(QStringLiteral("one\ttwo")));
    EXPECT_EQ(transformer.reverseTransformedValue(QStringLiteral("one\ttwo")),
              QVariant(QStringLiteral("one\ntwo")));
    EXPECT_EQ(transformer.transformedValue(QStringLiteral("a\r\nb\r")),
              QVariant(QStringLiteral("a\r\tb\r")));
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
                      QStringLiteral("value must be NSString"));
        EXPECT_RAISES(transformer.reverseTransformedValue(QVariantList()),
                      NSInternalInconsistencyException, QStringLiteral("value must be NSString"));
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
    EXPECT_EQ(filter->transformedValue(QStringLiteral("a")), QVariant(QStringLiteral("a")));
    EXPECT_EQ(filter->reverseTransformedValue(QStringLiteral("a")),
              QVariant(QVariantList{QStringLiteral("a")}));
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
    EXPECT_EQ(filter->transformedValue(QStringList{QStringLiteral("a"), QStringLiteral("b")}),
              QVariant(QStringLiteral("a")));
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
    EXPECT_EQ(filter->transformedValue(QVariantList{QStringLiteral("YES")}),
              QVariant(QStringLiteral("YES")));
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
    EXPECT_EQ(transformer.reverseTransformedValue(QColor(Qt::red)),
              QVariant(QStringLiteral("1 0 0 1")));
    EXPECT_FALSE(transformer.transformedValue(nil).isValid());
    EXPECT_FALSE(transformer.reverseTransformedValue(nil).isValid());
}

TEST(StringColorTransformer, ColorsOfOtherModels)
{
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor::fromHsv(120, 255, 255)),
              QStringLiteral("0 1 0 1"));
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor::fromCmyk(0, 255, 255, 0)),
              QStringLiteral("1 0 0 1"));
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor()), QStringLiteral("0 0 0 0"));
    EXPECT_EQ(KTStringColorTransformer().reverseTransformedValue(QColor()),
              QVariant(QStringLiteral("0 0 0 0")));
}

TEST(StringColorTransformer, TextsThatAreNoColors)
{
    const auto textOf = [](const QString &text) {
        return KTAdditions::ktStringRepresentation(KTAdditions::ktColorWithString(text));
    };
    EXPECT_EQ(textOf(QStringLiteral("0.2 0.4 0.6")), QStringLiteral("0.2 0.4 0.6 1"));
    EXPECT_EQ(textOf(QStringLiteral("  1\t0  0 1  ")), QStringLiteral("1 0 0 1"));
    EXPECT_EQ(textOf(QStringLiteral("2 -1 0 9")), QStringLiteral("1 0 0 1"));
    EXPECT_EQ(textOf(QStringLiteral("cow")), QStringLiteral("0 0 0 1"));
    EXPECT_EQ(textOf(QStringLiteral("1e999 nan 0 1")), QStringLiteral("0 0 0 1"));
    for (const QString &text : hostileTexts())
        EXPECT_TRUE(KTAdditions::ktColorWithString(text).isValid());
}

TEST(StringColorTransformer, OtherTypesAreAssertions)
{
    const KTStringColorTransformer transformer;
    const QString output = standardErrorOf([&] {
        EXPECT_RAISES(transformer.transformedValue(QColor(Qt::red)),
                      NSInternalInconsistencyException, QStringLiteral("value must be NSString"));
        EXPECT_RAISES(transformer.reverseTransformedValue(QStringLiteral("1 0 0 1")),
                      NSInternalInconsistencyException, QStringLiteral("value must be NSColor"));
    });
    EXPECT_TRUE(output.contains(u"ValueTransformers/KTStringColorTransformer:"));
}
