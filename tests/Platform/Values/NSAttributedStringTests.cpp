#include <KTUtility/NSAttributedString>
#include <KTUtility/NSException>

#include "support/TestSupport.h"

#include <random>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int Number = QTextFormat::UserProperty;
}

TEST(NSAttributedString, TheExampleOfTheHeaderHolds)
{
    NSAttributedString note(u"see www.example.com"_s);
    note.addAttribute(NSLinkAttributeName, u"http://www.example.com"_s, {4, 15});
    EXPECT_EQ(note.attribute(NSLinkAttributeName, 5).toString(), u"http://www.example.com"_s);
    EXPECT_EQ(note.length(), 19);
}

TEST(NSAttributedString, RangesOutsideOfTheTextRaise)
{
    NSAttributedString text(u"abc"_s);
    for (const NSRange range :
         {NSRange{-1, 1}, NSRange{0, -1}, NSRange{4, 0}, NSRange{2, 2}, NSRange{1, PTRDIFF_MAX}})
        EXPECT_THROW(text.addAttribute(Number, 1, range), NSException);
    text.addAttribute(Number, 1, {3, 0});
    EXPECT_TRUE(text.formats().isEmpty());
    EXPECT_TRUE(text.attributesAtIndex(-1).isEmpty());
    EXPECT_TRUE(text.attributesAtIndex(99).isEmpty());
}

TEST(NSAttributedString, AgreesWithAModelOverRandomRanges)
{
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        NSAttributedString text(QString(20, u'x'));
        std::vector<std::vector<int>> model(20, std::vector<int>(3, -1));
        for (int step = 0; step < 12; ++step) {
            const int start = int(random() % 20);
            const int length = int(random() % unsigned(21 - start));
            const int which = int(random() % 3);
            text.addAttribute(Number + which, step, {start, length});
            for (int index = start; index < start + length; ++index)
                model[size_t(index)][size_t(which)] = step;
        }
        for (int index = 0; index < 20; ++index) {
            for (int which = 0; which < 3; ++which) {
                const QVariant value = text.attribute(Number + which, index);
                EXPECT_EQ(value.isValid() ? value.toInt() : -1,
                          model[size_t(index)][size_t(which)]);
            }
        }
        int position = 0;
        for (const auto &run : text.formats()) {
            EXPECT_GE(run.start, position);
            EXPECT_GT(run.length, 0);
            position = run.start + run.length;
        }
        EXPECT_LE(position, 20);
    }
}

TEST(NSAttributedString, ComparesTextAndAttributes)
{
    NSAttributedString one(u"a"_s);
    NSAttributedString other(u"a"_s);
    EXPECT_TRUE(one == other);
    one.addAttribute(Number, 1, {0, 1});
    EXPECT_FALSE(one == other);
}
