// Paths of URLs, and escapes. Which texts are URLs stands in TableTests.cpp.

#include <KTUtility/NSPercentEscapes>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSPercentEscapes, EscapesAsTheTableSays)
{
    for (const QJsonObject &row : testing_support::rowsOf(u"platform/percent_escapes.jsonl"_s)) {
        const bool isAdding = row.value(u"op"_s).toString().startsWith(u"stringByAdding");
        const QString input = row.value(u"input"_s).toString();
        const QJsonValue expected = row.value(u"expected"_s);
        const QString result = isAdding ? NSString::stringByAddingPercentEscapes(input)
                                        : NSString::stringByReplacingPercentEscapes(input);
        EXPECT_EQ(result.isNull(), expected.isNull()) << input.toStdString();
        EXPECT_EQ(result, expected.toString());
    }
}

TEST(NSPercentEscapes, EscapedTextsComeBack)
{
    EXPECT_EQ(NSString::stringByAddingPercentEscapes(u"My photo.jpg"_s), u"My%20photo.jpg"_s);
    EXPECT_EQ(NSString::stringByReplacingPercentEscapes(u"%C3%BC.png"_s), u"ü.png"_s);
    EXPECT_EQ(NSString::stringByReplacingPercentEscapes(u"a+b"_s), u"a+b"_s);
    EXPECT_TRUE(NSString::stringByReplacingPercentEscapes(u"a%2"_s).isNull());
    EXPECT_TRUE(NSString::stringByReplacingPercentEscapes(u"a%FF"_s).isNull());
    for (const QString &text : testing_support::hostileTexts()) {
        const QString escaped = NSString::stringByAddingPercentEscapes(text);
        EXPECT_EQ(escaped.isNull(), text.isNull() || !text.isValidUtf16());
        EXPECT_EQ(NSString::stringByReplacingPercentEscapes(escaped),
                  escaped.isNull() ? QString() : text);
    }
}
