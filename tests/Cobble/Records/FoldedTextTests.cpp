#include "Records/FoldedText.h"

#include "support/TestSupport.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(FoldedText, PassesOverCaseAccentsAndWidth)
{
    const QList<std::pair<QString, QString>> table{
        {u"CÉLINE"_s, u"celine"_s}, {u"Ada 12"_s, u"ada 12"_s},     {u"Straße"_s, u"straße"_s},
        {u"Bjørn"_s, u"bjørn"_s},   {u"ŁÓDŹ"_s, u"łodz"_s},         {u"Ｗｉｄｅ"_s, u"wide"_s},
        {u"e\u0301"_s, u"e"_s},     {u"Ὀδυσσεύς"_s, u"οδυσσευσ"_s}, {u"½"_s, u"1\u20442"_s},
        {QString(), QString()},
    };
    for (const auto &[text, folded] : table)
        EXPECT_EQ(foldedText(text), folded) << text.toStdString();
}

/// A letter behind the table has the whole text folded in the other way.
TEST(FoldedText, TheTableFoldsAsUnicodeDoes)
{
    for (char16_t unit = 0; unit < 0x250; ++unit) {
        const QString text = QString(QChar(unit)) + u"x";
        EXPECT_EQ(foldedText(text) + u"\u4e00", foldedText(text + u"\u4e00")) << int(unit);
    }
}

TEST(FoldedText, FoldedTextsStayAsTheyAre)
{
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_EQ(foldedText(foldedText(text)), foldedText(text)) << text.left(20).toStdString();
}
