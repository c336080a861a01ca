#include "Text/CSVText.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(CSVText, QuotesWhatNeedsIt)
{
    const QList<std::pair<QString, QString>> cases = {
        {u"a"_s, u"a"_s},
        {u""_s, u""_s},
        {u"a,b"_s, u"\"a,b\""_s},
        {u"a;b"_s, u"\"a;b\""_s},
        {u"a \"b\""_s, u"\"a \"\"b\"\"\""_s},
        {u"a\nb"_s, u"\"a\nb\""_s},
        {u" a"_s, u"\" a\""_s},
        {u"a "_s, u"\"a \""_s},
    };
    for (const auto &[field, quoted] : cases)
        EXPECT_EQ(CSVText::quoted(field), quoted);
}
