// One form for all ways of typing a text.

#include <KTUtility/CommonForms/Text/FoldedText_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
struct Row
{
    const char16_t *typed;
    const char16_t *folded;
};

constexpr Row Rows[] = {
    {u"", u""},
    {u"  ", u""},
    {u"Wed 5 March", u"wed 5 march"},
    {u"\tWed \n 5  ", u"wed 5"},
    {u"10 Ao\u00FBt", u"10 aout"},
    {u"10 Aou\u0302t", u"10 aout"},
    {u"STRASSE stra\u00DFe", u"strasse strasse"},
    {u"\u0130stanbul I\u015F\u0131k", u"istanbul isik"},
    {u"\u03A4\u03C1\u03AF\u03C4\u03B7", u"\u03C4\u03C1\u03B9\u03C4\u03B7"},
    {u"\u043C\u0430\u0439 \u041C\u0410\u0418\u0306", u"\u043C\u0430\u0439 \u043C\u0430\u0439"},
    {u"\u304B\u3099", u"\u304C"},
    {u"\uFF11\uFF12:\uFF13\uFF10", u"12:30"},
    {u"\u0661\u0662/\u0966", u"12/0"},
    {u"1\u00BD 5\u00B2", u"1\u00BD 5\u00B2"},
    {u"1\u202F234\u00A05", u"1 234 5"},
    {u"\u22125 \u20135 \u20145", u"-5 -5 -5"},
    {u"l\u2019heure 3 o\u02BCclock d`", u"l'heure 3 o'clock d'"},
    {u"\u200F5\u200E\u00AD6\uFEFF", u"56"},
    {u"\U0001D7CF\U0001F600", u"1\U0001F600"},
};
} // namespace

TEST(FoldedText, IsOneFormForAllWaysOfTyping)
{
    for (const Row &row : Rows)
        EXPECT_EQ(FoldedText::folded(QStringView(row.typed)), QString::fromUtf16(row.folded));
}

TEST(FoldedText, IsTheFoldedFormOfItself)
{
    for (const Row &row : Rows)
        EXPECT_EQ(FoldedText::folded(QStringView(row.folded)), QString::fromUtf16(row.folded));
}

TEST(FoldedText, KnowsWhereItsPartsWereTyped)
{
    const FoldedText text(u"  \u200Em\u00E4rz  \uFF12\uFF10\uFF10\uFF18 ");
    ASSERT_EQ(text.text(), u"marz 2008");
    EXPECT_EQ(text.rangeInText(0, 4), (NSRange{3, 4}));
    EXPECT_EQ(text.rangeInText(5, 4), (NSRange{9, 4}));
    EXPECT_EQ(text.rangeInText(0, 9), (NSRange{3, 10}));
}

TEST(FoldedText, LooksAtNoMoreThanPeopleType)
{
    const FoldedText longText(QString(FoldedText::MaximumLength + 1, u'5'));
    EXPECT_TRUE(longText.isTooLong());
    EXPECT_TRUE(longText.text().isEmpty());
    EXPECT_FALSE(FoldedText(QString(FoldedText::MaximumLength, u'5')).isTooLong());
}

TEST(FoldedText, TakesHalvesOfCharacters)
{
    const char16_t halves[] = {0xD835, u'a', 0xDC00};
    EXPECT_EQ(FoldedText(QStringView(halves, 3)).text().size(), 3);
}
