#include <KTUtility/NSURL>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QString pathOf(const char16_t *text)
{
    return NSURL::URLWithString(QString::fromUtf16(text))->path();
}
} // namespace

TEST(NSURL, RunsItsExample)
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

TEST(NSURL, FileURLsHoldPaths)
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

TEST(NSURL, TheExampleOfTheHeaderHolds)
{
    const auto url = NSURL::URLWithString(u"cobblemedia://Photo.0.jpg"_s);
    ASSERT_TRUE(url.has_value());
    EXPECT_EQ(url->absoluteString(), u"cobblemedia://Photo.0.jpg"_s);
    EXPECT_EQ(url->scheme(), u"cobblemedia"_s);
    EXPECT_FALSE(NSURL::URLWithString(u"http://a b"_s).has_value());
    EXPECT_TRUE(*url == *NSURL::URLWithString(url->absoluteString()));
    EXPECT_TRUE(NSURL::URLWithString(u"1a:b"_s)->scheme().isNull());
}

TEST(NSURL, HostileTextsAreAcceptedOrNot)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const auto url = NSURL::URLWithString(text);
        EXPECT_TRUE(!url || url->absoluteString() == text);
    }
    EXPECT_FALSE(NSURL::URLWithString(u"a%4"_s).has_value());
    EXPECT_FALSE(NSURL::URLWithString(u"a#b#c"_s).has_value());
    EXPECT_TRUE(NSURL::URLWithString(u"a[b]#c"_s).has_value());
}
