#include <KTUtility/KTString_KTDataTransformer>

#include "support/TestSupport.h"

#include <QJsonObject>

using namespace Qt::StringLiterals;

using testing_support::rowsOf;

TEST(KTString_KTDataTransformer, EveryRowGivesItsResult)
{
    const KTString_KTDataTransformer transformer;
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"system/naming.jsonl"_s)) {
        const QString operation = row.value(u"op"_s).toString();
        const QJsonObject arguments = row.value(u"args"_s).toObject();
        const QVariant expected = row.value(u"out"_s).toVariant();
        if (operation == u"transformedValue:") {
            const QByteArray data =
                QByteArray::fromHex(arguments.value(u"hex"_s).toString().toLatin1());
            const QVariant result = transformer.transformedValue(data);
            EXPECT_EQ(result.isValid(), !expected.isNull());
            EXPECT_EQ(result.toString(), expected.toString());
        } else if (operation == u"reverseTransformedValue:") {
            const QVariant result =
                transformer.reverseTransformedValue(arguments.value(u"s"_s).toVariant());
            EXPECT_EQ(result.toByteArray().toHex(), expected.toByteArray());
        } else {
            continue;
        }
        ++rows;
    }
    EXPECT_EQ(rows, 4);
}

TEST(KTString_KTDataTransformer, RejectsWhatIsNotItsKind)
{
    const KTString_KTDataTransformer transformer;
    EXPECT_EQ(transformer.transformedValueClass(), QMetaType::fromType<QString>());
    EXPECT_TRUE(transformer.allowsReverseTransformation());
    EXPECT_FALSE(transformer.transformedValue(QVariant()).isValid());
    EXPECT_FALSE(transformer.transformedValue(5).isValid());
    EXPECT_FALSE(transformer.reverseTransformedValue(QVariant()).isValid());
    EXPECT_FALSE(transformer.reverseTransformedValue(QString()).isValid());
    EXPECT_FALSE(transformer.transformedValue(QByteArray("\xC3")).isValid());
    EXPECT_FALSE(transformer.transformedValue(QByteArray("\xED\xA0\x80")).isValid());
    EXPECT_FALSE(transformer.transformedValue(QByteArray("\xC0\x80")).isValid());
    EXPECT_FALSE(transformer.reverseTransformedValue(QString(u"a"_s + QChar(0xD83D))).isValid());
    EXPECT_FALSE(transformer.reverseTransformedValue(QString(QChar(0xDE00) + u"a"_s)).isValid());
    EXPECT_EQ(transformer.transformedValue(QByteArray("")).toString(), QString());
    EXPECT_TRUE(transformer.transformedValue(QByteArray("")).isValid());
    EXPECT_EQ(transformer.transformedValue(QByteArray("\xEF\xBB\xBFx")).toString().size(), 2);
}
