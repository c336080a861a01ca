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

TEST(FoldedText, MarksGoWhereverTheyStand)
{
    const QList<std::pair<QString, QString>> table{
        {u"Céline"_s, u"Celine"_s},
        {u"e\u0316\u0301x"_s, u"ex"_s},
        {u"\u0301"_s, u""_s},
        // Beyond the first plane, and one that takes room.
        {u"a"_s + QString::fromUcs4(U"\U0001E8D0") + u"b"_s, u"ab"_s},
        {u"\u1100\u1161\u302E"_s, u"\u1100\u1161"_s},
        {u"\U0001F600"_s, u"\U0001F600"_s},
        {QString(QChar(0xD83D)), QString(QChar(0xD83D))},
        {u"a"_s + QString(u"\u0316\u0301"_s).repeated(50'000), u"a"_s},
    };
    for (const auto &[text, letters] : table)
        EXPECT_EQ(textWithoutAccents(text), letters) << text.left(20).toStdString();
}

TEST(FoldedText, FoldedTextsStayAsTheyAre)
{
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_EQ(foldedText(foldedText(text)), foldedText(text)) << text.left(20).toStdString();
}
