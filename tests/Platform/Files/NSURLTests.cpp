// Paths of URLs, and escapes. Which texts are URLs stands in TableTests.cpp.

#include <KTUtility/NSPercentEscapes>
#include <KTUtility/NSURL>

#include "support/TestSupport.h"

namespace {
QString pathOf(const char16_t *text)
{
    return NSURL::URLWithString(QString::fromUtf16(text))->path();
}
} // namespace

TEST(NSURL, HeaderExample)
{
    EXPECT_EQ(NSURL::fileURLWithPath(QStringLiteral("/tmp/a b"))->absoluteString(),
              QStringLiteral("file:///tmp/a%20b"));
}

TEST(NSURL, PathsAreDecoded)
{
    EXPECT_EQ(pathOf(u"http://h/a%20b.png?c#d"), QStringLiteral("/a b.png"));
    EXPECT_EQ(pathOf(u"http://h/%C3%BC/"), QStringLiteral("/ü"));
    EXPECT_EQ(pathOf(u"http://h/a%2Fb"), QStringLiteral("/a/b"));
    EXPECT_EQ(pathOf(u"file:///tmp/x"), QStringLiteral("/tmp/x"));
    EXPECT_EQ(pathOf(u"file://localhost/tmp/x"), QStringLiteral("/tmp/x"));
    EXPECT_EQ(pathOf(u"file:/tmp/x"), QStringLiteral("/tmp/x"));
    EXPECT_EQ(pathOf(u"a/b?c"), QStringLiteral("a/b"));
}

TEST(NSURL, PathsMayBeEmptyOrNil)
{
    EXPECT_EQ(pathOf(u"http://h"), QStringLiteral(""));
    EXPECT_FALSE(pathOf(u"http://h?q/r").isNull());
    EXPECT_EQ(pathOf(u"http://h/"), QStringLiteral("/"));
    EXPECT_EQ(pathOf(u"cobblemedia://Photo.0.jpg"), QStringLiteral(""));
    EXPECT_TRUE(pathOf(u"mailto:ada").isNull());
    EXPECT_TRUE(pathOf(u"http://h/%FF").isNull());
}

TEST(NSURL, FileURLs)
{
    for (const QString &path : {QStringLiteral("/"), QStringLiteral("/a b/ü?#;%.jpg"),
                                QStringLiteral("/[x]/\"<>"), QStringLiteral("//a")}) {
        const auto url = NSURL::fileURLWithPath(path);
        ASSERT_TRUE(url.has_value()) << path.toStdString();
        EXPECT_TRUE(url->isFileURL());
        EXPECT_EQ(url->path(), path);
    }
    EXPECT_TRUE(NSURL::URLWithString(QStringLiteral("FILE:///a"))->isFileURL());
    EXPECT_FALSE(NSURL::URLWithString(QStringLiteral("http://file"))->isFileURL());
    EXPECT_FALSE(NSURL::fileURLWithPath(QString()).has_value());
    EXPECT_FALSE(NSURL::fileURLWithPath(QStringLiteral("a/b")).has_value());
    EXPECT_FALSE(NSURL::fileURLWithPath(u'/' + QString(QChar(0xD800))).has_value());
}

TEST(PercentEscapes, AsInTheTable)
{
    for (const QJsonObject &row :
         testing_support::rowsOf(QStringLiteral("platform/percent_escapes.jsonl"))) {
        const bool isAdding =
            row.value(QStringLiteral("op")).toString().startsWith(u"stringByAdding");
        const QString input = row.value(QStringLiteral("input")).toString();
        const QJsonValue expected = row.value(QStringLiteral("expected"));
        const QString result = isAdding ? NSString::stringByAddingPercentEscapes(input)
                                        : NSString::stringByReplacingPercentEscapes(input);
        EXPECT_EQ(result.isNull(), expected.isNull()) << input.toStdString();
        EXPECT_EQ(result, expected.toString());
    }
}

TEST(PercentEscapes, ComeBack)
{
    EXPECT_EQ(NSString::stringByAddingPercentEscapes(QStringLiteral("My photo.jpg")),
              QStringLiteral("My%20photo.jpg"));
    EXPECT_EQ(NSString::stringByReplacingPercentEscapes(QStringLiteral("%C3%BC.png")),
              QStringLiteral("ü.png"));
    EXPECT_EQ(NSString::stringByReplacingPercentEscapes(QStringLiteral("a+b")),
              QStringLiteral("a+b"));
    EXPECT_TRUE(NSString::stringByReplacingPercentEscapes(QStringLiteral("a%2")).isNull());
    EXPECT_TRUE(NSString::stringByReplacingPercentEscapes(QStringLiteral("a%FF")).isNull());
    for (const QString &text : testing_support::hostileTexts()) {
        const QString escaped = NSString::stringByAddingPercentEscapes(text);
        EXPECT_EQ(escaped.isNull(), text.isNull() || !text.isValidUtf16());
        EXPECT_EQ(NSString::stringByReplacingPercentEscapes(escaped),
                  escaped.isNull() ? QString() : text);
    }
}
