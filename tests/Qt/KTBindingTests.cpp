#include <KTUtility/KTBinding>

#include <KTUtility/KTFormatterEdit>
#include <KTUtility/NSArrayController>
#include <KTUtility/NSException>
#include <KTUtility/NSObject>

#include "support/Reading.h"
#include "support/TestSupport.h"

#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
class KTBindingTests : public testing_support::WindowedTest
{
protected:
    std::unique_ptr<Reading> record = std::make_unique<Reading>();
};
} // namespace

TEST_F(KTBindingTests, BothSidesFollowEachOther)
{
    QSpinBox box;
    const KTBinding binding = KT::bind(&box, &QSpinBox::value, &QSpinBox::setValue, record.get(),
                                       &Reading::level, &Reading::setLevel);
    EXPECT_TRUE(binding.isActive());
    EXPECT_EQ(box.value(), 1);
    record->setLevel(7);
    EXPECT_EQ(box.value(), 7);
    box.setValue(9);
    EXPECT_EQ(record->level(), 9);
}

TEST_F(KTBindingTests, PropertiesKnowTheirSetters)
{
    QSpinBox box;
    KTFormatterEdit edit;
    const KTBinding level = KT::bind<&QSpinBox::value, &Reading::level>(&box, record.get());
    record->setTitle(u"Tea"_s);
    const KTBinding title = KT::bind<&KTFormatterEdit::value, &Reading::title>(&edit, record.get());
    box.setValue(9);
    EXPECT_EQ(record->level(), 9);
    EXPECT_EQ(edit.value(), u"Tea"_s);
    edit.setValue(u"Milk"_s);
    EXPECT_EQ(record->title(), u"Milk"_s);
    Reading other;
    const KTBinding valid = KT::bind<&Reading::isValid, &Reading::isValid>(&other, record.get());
    other.setValid(true);
    EXPECT_TRUE(record->isValid());
    EXPECT_RAISES((void)(KT::bind<&Reading::fixed, &Reading::level>(&other, record.get())),
                  NSUndefinedKeyException,
                  u"Reading has no property of the type int by the name of its getter fixed that "
                  u"can be set."_s);
}

TEST_F(KTBindingTests, WhatTheFirstMakesOfAValueIsNotPassedBack)
{
    Reading exact;
    const KTBinding binding = KT::bind<&Reading::rounded, &Reading::rounded>(record.get(), &exact);
    QSpinBox box;
    box.setMaximum(10);
    record->setLevel(500);
    const KTBinding level = KT::bind<&QSpinBox::value, &Reading::level>(&box, record.get());
    EXPECT_EQ(box.value(), 10);
    EXPECT_EQ(record->level(), 500);
    box.setValue(4);
    EXPECT_EQ(record->level(), 4);
}

TEST_F(KTBindingTests, TheCursorSurvivesTheEcho)
{
    QLineEdit line;
    record->setTitle(u"abc"_s);
    const KTBinding binding = KT::bind<&QLineEdit::text, &Reading::title>(&line, record.get());
    line.setCursorPosition(1);
    line.insert(u"x"_s);
    EXPECT_EQ(record->title(), u"axbc"_s);
    EXPECT_EQ(line.cursorPosition(), 2);
    EXPECT_EQ(record->titleSets, 2);
}

TEST_F(KTBindingTests, VariantsTakeWhatTheyCanPass)
{
    Reading other;
    other.setAny(3);
    const KTBinding binding = KT::bind<&Reading::level, &Reading::any>(record.get(), &other);
    EXPECT_EQ(record->level(), 3);
    record->setLevel(4);
    EXPECT_EQ(other.any(), 4);
    const QString logged =
        testing_support::standardErrorOf([&] { other.setAny(u"a great deal"_s); });
    EXPECT_TRUE(logged.contains(u"cannot be stored"_s)) << qPrintable(logged);
    EXPECT_EQ(record->level(), 4);
    other.setAny(5.0);
    EXPECT_EQ(record->level(), 5);
    other.setAny(QVariant());
    Reading third;
    EXPECT_THROW((void)(KT::bind<&Reading::level, &Reading::any>(&third, &other)), NSException);
}

TEST_F(KTBindingTests, ASetterMayFollowAlone)
{
    QLabel label;
    KTBinding binding = KT::bind(&label, &QLabel::setText, record.get(), [](const Reading &each) {
        return u"Level %1"_s.arg(each.level());
    });
    EXPECT_EQ(label.text(), u"Level 1"_s);
    record->setLevel(2);
    EXPECT_EQ(label.text(), u"Level 2"_s);
    EXPECT_TRUE(binding.isActive());
    binding.invalidate();
    record->setLevel(3);
    EXPECT_EQ(label.text(), u"Level 2"_s);
    EXPECT_FALSE(binding.isActive());
}

TEST_F(KTBindingTests, EndsWithItsOwnerAndEitherObject)
{
    auto box = std::make_unique<QSpinBox>();
    {
        const KTBinding brief =
            KT::bind<&QSpinBox::value, &Reading::level>(box.get(), record.get());
    }
    record->setLevel(7);
    EXPECT_NE(box->value(), 7);
    KTBinding binding;
    EXPECT_FALSE(binding.isActive());
    binding = KT::bind<&QSpinBox::value, &Reading::level>(box.get(), record.get());
    box.reset();
    record->setLevel(8);
    EXPECT_FALSE(binding.isActive());
    QSpinBox other;
    binding = KT::bind<&QSpinBox::value, &Reading::level>(&other, record.get());
    record.reset();
    other.setValue(3);
    EXPECT_FALSE(binding.isActive());
    EXPECT_FALSE((KT::bind<&QSpinBox::value, &Reading::level>(&other, record.get()).isActive()));
}

TEST_F(KTBindingTests, MayBeEndedWhileAChangeIsOnItsWay)
{
    QSpinBox box;
    KTBinding binding = KT::bind<&QSpinBox::value, &Reading::level>(&box, record.get());
    QObject::connect(&box, &QSpinBox::valueChanged, &box, [&] { binding.invalidate(); });
    record->setLevel(7);
    EXPECT_EQ(box.value(), 7);
    box.setValue(8);
    EXPECT_EQ(record->level(), 7);
}

// --- QProperty ----------------------------------------------------------------------------------

TEST_F(KTBindingTests, APropertyFollowsAKeyPathAndBack)
{
    Reading other;
    NSArrayController controller;
    controller.setContent({QVariant::fromValue(record.get()), QVariant::fromValue(&other)});
    controller.setSelectionIndex(0);
    QProperty<int> level;
    const KTBinding binding = KT::bind(&level, &controller, u"selection.level");
    EXPECT_EQ(level.value(), 1);
    record->setLevel(4);
    EXPECT_EQ(level.value(), 4);
    level = 6;
    EXPECT_EQ(record->level(), 6);
    other.setLevel(9);
    controller.setSelectionIndex(1);
    EXPECT_EQ(level.value(), 9);
    EXPECT_EQ(record->level(), 6);
}

TEST_F(KTBindingTests, APropertyMayBeWhatAnotherDependsOn)
{
    QProperty<int> quiet;
    QProperty<int> next;
    next.setBinding([&] { return quiet.value() + 1; });
    const KTBinding binding = KT::bind(&quiet, record.get(), u"quiet");
    record->setQuiet(4);
    EXPECT_EQ(next.value(), 5);
    quiet.setBinding([] { return 9; });
    EXPECT_EQ(record->quiet(), 9);
}

TEST_F(KTBindingTests, WhatAPropertyCannotHoldIsLogged)
{
    record->setAny(3);
    QProperty<int> level;
    KTBinding binding = KT::bind(&level, record.get(), u"any");
    const QString logged =
        testing_support::standardErrorOf([&] { record->setAny(u"a great deal"_s); });
    EXPECT_TRUE(logged.contains(u"cannot hold the value of any"_s)) << qPrintable(logged);
    EXPECT_EQ(level.value(), 3);
    binding.invalidate();
    record->setAny(4);
    EXPECT_EQ(level.value(), 3);
    EXPECT_THROW((void)(KT::bind(&level, record.get(), u"levle")), NSException);
}

TEST_F(KTBindingTests, APropertyMayBeBoundBeforeSomethingIsSelected)
{
    NSArrayController controller;
    controller.setContent({QVariant::fromValue(record.get())});
    QProperty<int> level(7);
    KTBinding binding;
    const QString logged = testing_support::standardErrorOf(
        [&] { binding = KT::bind(&level, &controller, u"selection.level"); });
    EXPECT_TRUE(logged.contains(u"cannot hold the value of selection.level"_s))
        << qPrintable(logged);
    EXPECT_TRUE(binding.isActive());
    EXPECT_EQ(level.value(), 7);
    controller.setSelectionIndex(0);
    EXPECT_EQ(level.value(), 1);
    level = 4;
    EXPECT_EQ(record->level(), 4);
}

TEST_F(KTBindingTests, APropertyOutlivesTheObject)
{
    QProperty<int> level;
    const KTBinding binding = KT::bind(&level, record.get(), u"level");
    record.reset();
    EXPECT_FALSE(binding.isActive());
    level = 5;
    EXPECT_EQ(level.value(), 5);
}
