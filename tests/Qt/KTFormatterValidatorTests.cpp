// A validator of Qt that asks a formatter.

#include <KTUtility/KTFormatterValidator>

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTNumberFormatter>

#include "support/TestSupport.h"

#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
using KTFormatterValidatorTests = testing_support::WindowedTest;
using State = QValidator::State;

std::shared_ptr<KTNumberFormatter> prices()
{
    auto formatter = std::make_shared<KTNumberFormatter>();
    formatter->setDecimalPlaces(2);
    return formatter;
}
} // namespace

TEST_F(KTFormatterValidatorTests, JudgesAsTheFormatterReads)
{
    const auto number = prices();
    const auto money = std::make_shared<KTCurrencyFormatter>();
    const auto date = std::make_shared<KTDateTimeFormatter>();
    const auto duration = std::make_shared<KTDurationFormatter>();
    const struct
    {
        std::shared_ptr<const NSFormatter> formatter;
        QString text;
        State state;
    } table[] = {
        {number, u""_s, QValidator::Acceptable},
        {number, u"  "_s, QValidator::Acceptable},
        {number, u"12"_s, QValidator::Acceptable},
        {number, u"(12)"_s, QValidator::Acceptable},
        {number, u"-"_s, QValidator::Intermediate},
        {number, u"("_s, QValidator::Intermediate},
        {number, u"(12"_s, QValidator::Intermediate},
        {number, u"12x"_s, QValidator::Invalid},
        {number, u"x"_s, QValidator::Invalid},
        {money, u"$12"_s, QValidator::Acceptable},
        {money, u"12 eur"_s, QValidator::Intermediate},
        {date, u"3/"_s, QValidator::Intermediate},
        {date, u"Mar"_s, QValidator::Intermediate},
        {duration, u"2h"_s, QValidator::Acceptable},
        {duration, u"2x"_s, QValidator::Intermediate},
        {nullptr, u"anything"_s, QValidator::Acceptable},
    };
    for (const auto &[formatter, text, state] : table) {
        const KTFormatterValidator validator(formatter);
        QString input = text;
        int position = 0;
        EXPECT_EQ(validator.validate(input, position), state) << text.toStdString();
        EXPECT_EQ(input, text);
        EXPECT_EQ(validator.formatter(), formatter);
    }
}

TEST_F(KTFormatterValidatorTests, FixesWhatWasMeant)
{
    const KTFormatterValidator validator(prices());
    const struct
    {
        QString text;
        QString fixed;
    } table[] = {
        {u" 12.5 "_s, u"12.5"_s}, {u"(12"_s, u"-12"_s}, {u"12-"_s, u"12"_s},
        {u"("_s, u"("_s},         {u"x"_s, u"x"_s},     {u""_s, u""_s},
    };
    for (const auto &[text, fixed] : table) {
        QString input = text;
        validator.fixup(input);
        EXPECT_EQ(input, fixed) << text.toStdString();
    }
}

TEST_F(KTFormatterValidatorTests, TheExampleOfTheHeader)
{
    QLineEdit lineEdit;
    lineEdit.setValidator(new KTFormatterValidator(prices(), &lineEdit));
    lineEdit.show();
    lineEdit.setFocus();
    int finished = 0;
    QObject::connect(&lineEdit, &QLineEdit::editingFinished, [&] { ++finished; });
    QTest::keyClicks(&lineEdit, u"a(1b2"_s);
    EXPECT_EQ(lineEdit.text(), u"(12"_s);
    EXPECT_FALSE(lineEdit.hasAcceptableInput());
    QTest::keyClick(&lineEdit, Qt::Key_Return);
    EXPECT_EQ(lineEdit.text(), u"-12"_s);
    EXPECT_TRUE(lineEdit.hasAcceptableInput());
    EXPECT_EQ(finished, 1);
}
