#include "Appearance/IsolatedText.h"

#include "Appearance/WindowLanguage.h"
#include "Commands/UserSettings.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using IsolatedTextTests = testing_support::WindowedTest;

TEST_F(IsolatedTextTests, MarksTextsWhereWindowsAreWrittenFromTheRight)
{
    EXPECT_EQ(IsolatedText::of(u"2 records."_s), u"2 records."_s);
    const LocaleScope locale(u"ar_EG"_s);
    const WindowLanguage language;
    EXPECT_EQ(IsolatedText::of(u"2 records."_s), u"\u20682 records.\u2069"_s);
    EXPECT_EQ(IsolatedText::of(QString()), QString());
}
