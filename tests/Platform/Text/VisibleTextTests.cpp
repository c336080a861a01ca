#include <KTUtility/Platform/Text/VisibleText_p.h>

#include "support/TestSupport.h"

#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(VisibleText, ShowsWhatBreaksOrSteersALine)
{
    const std::vector<std::pair<QString, QString>> rows = {
        {u"a\nb\rc\td"_s, u"a\\nb\\rc\\td"_s},
        {QString(QChar(0)), u"\\u0000"_s},
        {u"\u001b[31m"_s, u"\\u001b[31m"_s},
        {u"\u007f\u0080\u009f"_s, u"\\u007f\\u0080\\u009f"_s},
        {u"\u2028\u2029"_s, u"\\u2028\\u2029"_s},
        {u"\u202eabc\u202c"_s, u"\\u202eabc\\u202c"_s},
        {u"\u2066\u2069\u200e\u200f\u061c"_s, u"\\u2066\\u2069\\u200e\\u200f\\u061c"_s},
    };
    for (const auto &[text, visible] : rows) {
        EXPECT_TRUE(holdsControls(text)) << visible.toStdString();
        EXPECT_EQ(visibleText(text), visible);
        EXPECT_FALSE(holdsControls(visible));
    }
}

TEST(VisibleText, LeavesOtherTextAsItIs)
{
    for (const QString &text : {u""_s, u"plain ~ text"_s, u"back\\slash \\n"_s, u"é\u00a0日本 😀"_s,
                                u"\u2027\u202f\u200d"_s, QString(QChar(0xD83D))}) {
        EXPECT_FALSE(holdsControls(text)) << text.toStdString();
        EXPECT_EQ(visibleText(text), text);
    }
}
