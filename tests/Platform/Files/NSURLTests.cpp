// Paths of URLs, and escapes. Which texts are URLs stands in TableTests.cpp.

#include <KTUtility/NSPercentEscapes>
#include <KTUtility/NSURL>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QString pathOf(const char16_t *text)
{
    return NSURL::URLWithString(QString::fromUtf16(text))->path();
}
} // namespace

TEST(NSURL, HeaderExample)
{
    EXPECT_EQ(NSURL::fileURLWithPath(u"/tmp/a b"_s)->absoluteString(), u"file:///tmp/a%20b"_s);
}

TEST(NSURL, PathsAreDecoded)
{
    EXPECT_EQ(pathOf(u"http://h/a%20b.png?c#d"), u"/a b.png"_s);
    EXPECT_EQ(pathOf(u"http://h/%C3%BC/"), u"/ü"_s);
    EXPECT_EQ(pathOf(u"http://h/a%2Fb"), u"/a/b"_s);
    EXPECT_EQ(pathOf(u"file:///tmp/x"), u"/tmp/x"_s);
    EXPECT_EQ(pathOf(u"file://localhost/tmp/x"), u"/tmp/x"_s);
    EXPECT_EQ(pathOf(u"file:/tmp/x"), u"/tmp/x"_s);
    EXPECT_EQ(pathOf(u"a/b?c"), u"a/b"_s);
}

TEST(NSURL, PathsMayBeEmptyOrNil)
{
    EXPECT_EQ(pathOf(u"http://h"), u""_s);
    EXPECT_FALSE(pathOf(u"http://h?q/r").isNull());
    EXPECT_EQ(pathOf(u"http://h/"), u"/"_s);
    EXPECT_EQ(pathOf(u"cobblemedia://Photo.0.jpg"), u""_s);
    EXPECT_TRUE(pathOf(u"mailto:ada").isNull());
    EXPECT_TRUE(pathOf(u"http://h/%FF").isNull());
}

TEST(NSURL, FileURLs)
{
    for (const QString &path : {u"/"_s, u"/a b/ü?#;%.jpg"_s, u"/[x]/\"<>"_s, u"//a"_s}) {
        const auto url = NSURL::fileURLWithPath(path);
        ASSERT_TRUE(url.has_value()) << path.toStdString();
        EXPECT_TRUE(url->isFileURL());
        EXPECT_EQ(url->path(), path);
    }
    EXPECT_TRUE(NSURL::URLWithString(u"FILE:///a"_s)->isFileURL());
    EXPECT_FALSE(NSURL::URLWithString(u"http://file"_s)->isFileURL());
    EXPECT_FALSE(NSURL::fileURLWithPath(QString()).has_value());
    EXPECT_FALSE(NSURL::fileURLWithPath(u"a/b"_s).has_value());
    EXPECT_FALSE(NSURL::fileURLWithPath(u'/' + QString(QChar(0xD800))).has_value());
}

TEST(PercentEscapes, AsInTheTable)
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

TEST(PercentEscapes, ComeBack)
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
