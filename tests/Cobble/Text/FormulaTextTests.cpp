#include "Text/FormulaText.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
/// What a spreadsheet would run, and what it would not.
const QStringList Formulas = {
    u"=1+1"_s,
    u"="_s,
    u"@SUM(A1)"_s,
    u"=cmd|'/C calc'!A0"_s,
    u"=HYPERLINK(\"http://x\",\"y\")"_s,
    u"+1-1|x"_s,
    u"-2+3"_s,
    u"-A1"_s,
    u"-5 kg"_s,
    u"+"_s,
    u"- 5 -"_s,
    u"+49-30-1234567"_s,
    u"-(5)"_s,
    u" =1"_s,
    u"\t=1"_s,
    u"\r\n@x"_s,
    u"\u00A0=1"_s,
    u"\uFEFF=1"_s,
    u"\u200B=1"_s,
    u"\uFF1D1"_s,
    u"\uFF20x"_s,
    u"\uFF0Bx"_s,
    u"\uFF0Dx"_s,
};
const QStringList Others = {
    QString(),
    u""_s,
    u" "_s,
    u"a"_s,
    u"a=1"_s,
    u"1+1"_s,
    u"-5"_s,
    u"+5"_s,
    u"- 5"_s,
    u"-1,234.50"_s,
    u"-1.234,50 €"_s,
    u"-$5.50"_s,
    u"-1\u202F234,5\u00A0%"_s,
    u"-1’234"_s,
    u"-\u0661\u0662"_s,
    u"+49 30 1234567"_s,
    u"+1 (555) 123-4567"_s,
    u"(030) 1234"_s,
    u"'"_s,
    u"'quoted'"_s,
    u"–5"_s,
    u"\u22125"_s,
};
} // namespace

TEST(FormulaText, FormulasAreKnownByHowTheyBegin)
{
    for (const QString &text : Formulas)
        EXPECT_TRUE(FormulaText::isFormula(text)) << text.toStdString();
    for (const QString &text : Others)
        EXPECT_FALSE(FormulaText::isFormula(text)) << text.toStdString();
}

TEST(FormulaText, FormulasAloneAreMarked)
{
    for (const QString &text : Formulas) {
        EXPECT_EQ(FormulaText::marked(text), QString(u'\'' + text));
        EXPECT_FALSE(FormulaText::isFormula(FormulaText::marked(text))) << text.toStdString();
    }
    for (const QString &text : Others) {
        EXPECT_EQ(FormulaText::marked(text), text);
        EXPECT_EQ(FormulaText::unmarked(text), text);
    }
}

TEST(FormulaText, WhatWasMarkedComesBackWhateverItWas)
{
    QStringList texts = Formulas + Others;
    for (const QString &text : Formulas)
        texts += {QString(u"'" + text), QString(u"''" + text), QString(text + u'\'')};
    texts += testing_support::hostileTexts();
    for (const QString &text : std::as_const(texts)) {
        const QString marked = FormulaText::marked(text);
        EXPECT_TRUE(FormulaText::unmarked(marked) == text) << text.left(40).toStdString();
        EXPECT_EQ(FormulaText::unmarked(marked).isNull(), text.isNull());
    }
}
