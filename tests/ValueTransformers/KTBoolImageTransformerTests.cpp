#include <KTUtility/KTBoolImageTransformer>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QVariant nil;
} // namespace

TEST(KTBoolImageTransformer, ShowsOneOfTwoImages)
{
    QImage on(1, 1, QImage::Format_RGB32);
    QImage off(2, 2, QImage::Format_RGB32);
    KTBoolImageTransformer transformer;
    EXPECT_FALSE(transformer.transformedValue(true).isValid());
    transformer.setOnImage(on);
    EXPECT_FALSE(transformer.transformedValue(false).isValid());
    transformer.setOffImage(off);
    for (const QVariant &value : {QVariant(true), QVariant(1), QVariant(-0.5), QVariant(u"yes"_s),
                                  QVariant(u"1"_s), QVariant::fromValue(Qt::Checked)})
        EXPECT_EQ(transformer.transformedValue(value).value<QImage>().size(), QSize(1, 1));
    for (const QVariant &value : {QVariant(false), QVariant(0), QVariant(u"no"_s), QVariant(u""_s)})
        EXPECT_EQ(transformer.transformedValue(value).value<QImage>().size(), QSize(2, 2));
    for (const QVariant &value : {nil, QVariant(QVariantList{true}), QVariant(QDate(2008, 3, 5)),
                                  QVariant(QByteArray("yes"))})
        EXPECT_FALSE(transformer.transformedValue(value).isValid());
}
