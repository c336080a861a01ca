#include <KTUtility/KTStringTransforms>

#include "support/TestSupport.h"

#include <QHash>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {
/// Few letters and lengths, so that many texts come twice and many begin alike.
QString someText(QRandomGenerator &random)
{
    QString text(random.bounded(12), u'a');
    for (QChar &unit : text)
        unit = QChar(char16_t(u'a' + random.bounded(2)));
    return text;
}

/// What a text was turned into; nil if it is not known.
QString found(const KTStringTransforms &transforms, QStringView original)
{
    const QString *const known = transforms.find(original);
    return known ? *known : QString();
}
} // namespace

TEST(KTStringTransforms, RunsItsExample)
{
    KTStringTransforms transforms;
    EXPECT_EQ(transforms.find(u"First Name"), nullptr);
    transforms.insert(u"First Name"_s, u"firstName"_s);
    ASSERT_NE(transforms.find(u"First Name"), nullptr);
    EXPECT_EQ(*transforms.find(u"First Name"), u"firstName"_s);
    EXPECT_EQ(transforms.find(u"First Nam"), nullptr);
    EXPECT_EQ(transforms.find(u""), nullptr);
}

TEST(KTStringTransforms, AreThoseOfAHash)
{
    QRandomGenerator random(5);
    KTStringTransforms transforms;
    QHash<QString, QString> expected;
    for (int count = 0; count < 20000; ++count) {
        const QString original = someText(random);
        const QString transformed = QString::number(count);
        EXPECT_EQ(found(transforms, original), expected.value(original));
        transforms.insert(original, transformed);
        expected.insert(original, transformed);
    }
    EXPECT_EQ(transforms.size(), expected.size());
    for (const auto &[original, transformed] : transforms)
        EXPECT_EQ(transformed, expected.value(original));
}

TEST(KTStringTransforms, KeepTheOrderInWhichTheyCame)
{
    KTStringTransforms transforms;
    for (int number = 0; number < 100; ++number)
        transforms.insert(QString::number(number), {});
    transforms.insert(u"7"_s, u"seven"_s);
    int number = 0;
    for (const KTStringTransforms::Entry &entry : transforms)
        EXPECT_EQ(entry.original, QString::number(number++));
    EXPECT_EQ(number, 100);
    EXPECT_EQ(found(transforms, u"7"), u"seven"_s);
}

TEST(KTStringTransforms, ForgetAll)
{
    KTStringTransforms transforms;
    transforms.insert(u"a"_s, u"b"_s);
    transforms.clear();
    EXPECT_TRUE(transforms.isEmpty());
    EXPECT_EQ(transforms.find(u"a"), nullptr);
    transforms.insert(u"a"_s, u"c"_s);
    EXPECT_EQ(found(transforms, u"a"), u"c"_s);
}

TEST(KTStringTransforms, HostileTextsAreToldApart)
{
    KTStringTransforms transforms;
    QHash<QString, QString> expected;
    for (const QString &text : testing_support::hostileTexts()) {
        transforms.insert(text, text + u'!');
        expected.insert(text, text + u'!');
    }
    for (auto each = expected.cbegin(); each != expected.cend(); ++each)
        EXPECT_EQ(found(transforms, each.key()), each.value());
}
