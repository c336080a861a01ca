#include <KTUtility/Invoker>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSException>

#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// A gadget with enumerations of several widths.
class WideAndNarrow
{
    Q_GADGET

public:
    enum class Small : quint8 { No, Yes };
    enum class Middle : qint16 { No, Yes = 256 };
    enum class Large : quint64 { No, Yes };
    Q_ENUM(Small)
    Q_ENUM(Middle)
    Q_ENUM(Large)

    Q_INVOKABLE WideAndNarrow::Small small() const { return Small::Yes; }
    Q_INVOKABLE WideAndNarrow::Middle middle() const { return Middle::Yes; }
    Q_INVOKABLE WideAndNarrow::Large large() const { return Large::Yes; }
};

bool isTrue(TestField &field, const char *selector, const QVariant &argument = {})
{
    return Invoker(selector, {argument}).isTrue(KeyValueTarget::of(&field));
}

QVariant perform(TestField &field, const char *selector, const QVariant &argument = {})
{
    return Invoker(selector, {argument}).perform(KeyValueTarget::of(&field));
}
} // namespace

TEST(Invoker, KnowsWhoResponds)
{
    Invoker invoker("sizeOver:", {1});
    TestField field;
    const QObject stranger;
    EXPECT_TRUE(invoker.respondsTo(KeyValueTarget::of(&field)));
    EXPECT_FALSE(invoker.respondsTo(KeyValueTarget::of(&stranger)));
    EXPECT_FALSE(invoker.respondsTo({}));
    EXPECT_FALSE(invoker.respondsTo(KeyValueTarget::ofVariant(u"text"_s)));
}

TEST(Invoker, NumbersAreCutForIntegerParameters)
{
    TestField field(QString(), 3);
    EXPECT_TRUE(isTrue(field, "sizeOver:", 2.9));
    EXPECT_FALSE(isTrue(field, "sizeOver:", QVariant::fromValue(NSDecimalNumber(3))));
    EXPECT_EQ(perform(field, "sizeModulo:", QVariant::fromValue(NSDecimalNumber(2))), QVariant(1));
}

TEST(Invoker, TestsResultsByTheirWidth)
{
    struct Case
    {
        int size;
        bool isChar, isShort, isInt;
    };
    for (const Case &row : {Case{0, false, false, false}, Case{1, true, true, true},
                            Case{256, false, true, true}, Case{65536, false, false, true},
                            Case{-1, true, true, true}, Case{-65536, false, false, true}}) {
        TestField field(QString(), row.size);
        EXPECT_EQ(isTrue(field, "sizeChar"), row.isChar) << row.size;
        EXPECT_EQ(isTrue(field, "sizeUShort"), row.isShort) << row.size;
        EXPECT_EQ(isTrue(field, "sizeInt"), row.isInt) << row.size;
        EXPECT_EQ(isTrue(field, "sizeUInt"), row.isInt) << row.size;
        EXPECT_EQ(isTrue(field, "size"), row.isInt) << row.size;
    }
}

TEST(Invoker, OtherReturnTypesAreNoConditions)
{
    TestField field(u"x"_s, 5);
    for (const char *selector :
         {"sizeLong", "sizeObject", "doNothing", "name", "weight", "missing", "missing:", "", ":"})
        EXPECT_FALSE(isTrue(field, selector)) << selector;
}

TEST(Invoker, ConvertsArguments)
{
    TestField field(QString(), 5);
    EXPECT_TRUE(isTrue(field, "sizeOver:", 4));
    EXPECT_TRUE(isTrue(field, "sizeOver:", 4.0));
    EXPECT_TRUE(isTrue(field, "sizeOver:", u"4"_s));
    EXPECT_FALSE(isTrue(field, "sizeOver:", u"9"_s));
    EXPECT_TRUE(isTrue(field, "sizeOver:", QVariant()));
    EXPECT_TRUE(isTrue(field, "sizeOver:", QVariantList{9}));
    EXPECT_TRUE(isTrue(field, "sizeOver", 4));
    EXPECT_FALSE(isTrue(field, "sizeOver::", 4));
}

TEST(Invoker, PerformsOnReceiversOfAllKinds)
{
    TestField field(u"x"_s, 5);
    field._label = u"L"_s;
    EXPECT_EQ(perform(field, "sizeLong"), QVariant(qlonglong(5)));
    EXPECT_EQ(perform(field, "sizeObject"), QVariant(5));
    EXPECT_EQ(perform(field, "labelIfSmall:", 6), QVariant(u"L"_s));
    EXPECT_FALSE(perform(field, "labelIfSmall:", 5).isValid());
    EXPECT_FALSE(perform(field, "doNothing").isValid());
    EXPECT_EQ(perform(field, "name"), QVariant(u"x"_s));
    EXPECT_FALSE(Invoker("name", {}).perform(KeyValueTarget()).isValid());
}

TEST(Invoker, UnknownSelectorsRaise)
{
    TestField field;
    EXPECT_THROW(perform(field, "missing"), NSException);
    EXPECT_THROW(perform(field, "destroyed:"), NSException);
    const QVariant number = 5;
    EXPECT_THROW(Invoker("name", {}).perform(KeyValueTarget::ofVariant(number)), NSException);
}

TEST(Invoker, AmbiguousOverloadsRaiseWithBothNames)
{
    TestField field;
    EXPECT_RAISES(isTrue(field, "ambiguous:", 1), NSInvalidArgumentException,
                  u"TestField: the selector fits both ambiguous(int) and "
                  "ambiguous(QString)"_s);
}

TEST(Invoker, CallsMethodsOfGadgets)
{
    const TestPoint right{1, 0};
    const TestPoint left{-1, 0};
    Invoker isRight("isRight", {});
    EXPECT_TRUE(isRight.isTrue(KeyValueTargets::target(right)));
    EXPECT_FALSE(isRight.isTrue(KeyValueTargets::target(left)));
}

TEST(Invoker, NarrowEnumerationsAreConditions)
{
    WideAndNarrow gadget;
    const QVariant value = QVariant::fromValue(gadget);
    for (const char *selector : {"small", "middle"})
        EXPECT_TRUE(Invoker(selector, {}).isTrue(KeyValueTarget::ofVariant(value))) << selector;
    EXPECT_FALSE(Invoker("large", {}).isTrue(KeyValueTarget::ofVariant(value)));
}

#include "InvokerTests.moc"
