#include <KTUtility/KTBoolImageTransformer>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QVariant nil;

/// An object that answers whether it is true.
class Lock : public QObject
{
    Q_OBJECT

public:
    explicit Lock(bool isClosed) : _isClosed(isClosed) {}
    Q_INVOKABLE bool boolValue() const { return _isClosed; }

private:
    bool _isClosed;
};
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

TEST(KTBoolImageTransformer, ObjectsMayAnswerBoolValue)
{
    KTBoolImageTransformer transformer;
    transformer.setOnImage(QImage(1, 1, QImage::Format_RGB32));
    transformer.setOffImage(QImage(2, 2, QImage::Format_RGB32));
    Lock closed(true), open(false);
    QObject other;
    const auto sizeFor = [&](QObject *object) {
        return transformer.transformedValue(QVariant::fromValue(object)).value<QImage>().width();
    };
    EXPECT_EQ(sizeFor(&closed), 1);
    EXPECT_EQ(sizeFor(&open), 2);
    EXPECT_EQ(sizeFor(&other), 0);
}

#include "KTBoolImageTransformerTests.moc"
