#include <KTUtility/NSBoxed>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <QStringBuilder>

using namespace Qt::StringLiterals;

enum class BoxedColour : unsigned char { Red, Green = 200 };

namespace {
enum Plain { Zero, One };
} // namespace

TEST(NSBoxed, KeepsTypes)
{
    const auto typeOf = [](const auto &value) { return NSBoxed(value).metaType(); };
    EXPECT_EQ(typeOf(3), QMetaType::fromType<int>());
    EXPECT_EQ(typeOf(3L), QMetaType::fromType<long>());
    EXPECT_EQ(typeOf(3UL), QMetaType::fromType<unsigned long>());
    EXPECT_EQ(typeOf(short(3)), QMetaType::fromType<short>());
    EXPECT_EQ(typeOf(QChar(u'x')), QMetaType::fromType<QChar>());
    EXPECT_EQ(typeOf(BoxedColour::Green), QMetaType::fromType<BoxedColour>());
    EXPECT_EQ(typeOf(One), QMetaType::fromType<Plain>());
    EXPECT_EQ(typeOf(QByteArray("x")), QMetaType::fromType<QByteArray>());
    EXPECT_EQ(typeOf(NSDecimalNumber(1)), QMetaType::fromType<NSDecimalNumber>());
    EXPECT_EQ(typeOf(TestPoint()), QMetaType::fromType<TestPoint>());
    EXPECT_EQ(typeOf(QList<int>{1}), QMetaType::fromType<QList<int>>());
    EXPECT_EQ(typeOf(QVariant(2.5)), QMetaType::fromType<double>());
}

TEST(NSBoxed, TextsOfEveryTypeAreTexts)
{
    const QString text = u"é"_s;
    const QList<QVariant> boxed{NSBoxed(text),
                                NSBoxed(u"é"),
                                NSBoxed("é"),
                                NSBoxed(u8"é"),
                                NSBoxed(QStringView(text)),
                                NSBoxed(QAnyStringView(text)),
                                NSBoxed(QUtf8StringView("é")),
                                NSBoxed(QLatin1String("\xE9")),
                                NSBoxed(std::string("é")),
                                NSBoxed(std::string_view("é")),
                                NSBoxed(std::u16string(u"é")),
                                NSBoxed(u""_s % text)};
    for (const QVariant &value : boxed) {
        EXPECT_EQ(value.typeId(), QMetaType::QString);
        EXPECT_EQ(value.toString(), text);
    }
}

TEST(NSBoxed, WhatPointsNowhereIsNil)
{
    EXPECT_FALSE(NSBoxed(QString()).isValid());
    EXPECT_FALSE(NSBoxed(QStringView()).isValid());
    EXPECT_FALSE(NSBoxed(nullptr).isValid());
    EXPECT_FALSE(NSBoxed(static_cast<TestField *>(nullptr)).isValid());
    EXPECT_FALSE(NSBoxed(std::shared_ptr<TestField>()).isValid());
    EXPECT_FALSE(NSBoxed(QPointer<TestField>()).isValid());
    EXPECT_FALSE(NSBoxed(std::optional<QString>()).isValid());
    EXPECT_FALSE(NSBoxed(std::optional<QString>(QString())).isValid());
    EXPECT_TRUE(NSBoxed(u"").isValid());
    EXPECT_TRUE(NSBoxed(u""_s).isValid());
}

TEST(NSBoxed, PointersOfEveryTypeAreTheirObject)
{
    const auto field = std::make_shared<TestField>();
    const TestField *const constant = field.get();
    const QPointer<TestField> guarded = field.get();
    const QVariant plain = QVariant::fromValue(field.get());
    EXPECT_EQ(NSBoxed(field), plain);
    EXPECT_EQ(NSBoxed(constant), plain);
    EXPECT_EQ(NSBoxed(guarded), plain);
    EXPECT_EQ(NSBoxed(std::optional(field.get())), plain);
    TestPoint point;
    EXPECT_EQ(NSBoxed(&point), QVariant::fromValue(&point));
}
