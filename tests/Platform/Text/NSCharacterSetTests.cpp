#include <KTUtility/NSCharacterSet>

#include "support/TestSupport.h"

namespace {
/// The code points of a set below \a end, beside the categories of Qt's own tables.
void expectCategories(const NSCharacterSet &set, const QList<QChar::Category> &categories)
{
    constexpr char32_t End = 0x3000;
    for (char32_t character = 0; character < End; ++character) {
        // Letters and signs that are newer than Qt's tables have no category there.
        if (QChar::category(character) == QChar::Other_NotAssigned)
            continue;
        EXPECT_EQ(set.characterIsMember(character), categories.contains(QChar::category(character)))
            << unsigned(character);
    }
}
} // namespace

TEST(NSCharacterSet, TheExampleOfTheHeaderHolds)
{
    const auto digits = NSCharacterSet::decimalDigitCharacterSet();
    EXPECT_TRUE(digits.characterIsMember(U'7'));
    EXPECT_FALSE(digits.invertedSet().characterIsMember(U'7'));
    EXPECT_TRUE(NSCharacterSet::characterSetWithCharactersInString(u"-/.").characterIsMember(U'/'));
}

TEST(NSCharacterSet, CapitalizedLettersAreTitleCase)
{
    expectCategories(NSCharacterSet::capitalizedLetterCharacterSet(), {QChar::Letter_Titlecase});
    EXPECT_TRUE(NSCharacterSet::capitalizedLetterCharacterSet().characterIsMember(U'ǅ'));
}

TEST(NSCharacterSet, NonBaseCharactersAreMarks)
{
    expectCategories(NSCharacterSet::nonBaseCharacterSet(),
                     {QChar::Mark_NonSpacing, QChar::Mark_SpacingCombining, QChar::Mark_Enclosing});
}

TEST(NSCharacterSet, PunctuationIsOfAllKinds)
{
    expectCategories(NSCharacterSet::punctuationCharacterSet(),
                     {QChar::Punctuation_Connector, QChar::Punctuation_Dash,
                      QChar::Punctuation_Open, QChar::Punctuation_Close,
                      QChar::Punctuation_InitialQuote, QChar::Punctuation_FinalQuote,
                      QChar::Punctuation_Other});
}

TEST(NSCharacterSet, ControlsIncludeFormats)
{
    expectCategories(NSCharacterSet::controlCharacterSet(),
                     {QChar::Other_Control, QChar::Other_Format});
}
