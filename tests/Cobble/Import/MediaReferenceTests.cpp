#include "Import/MediaReference.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using testing_support::FileTree;

namespace {
QString urlTextIn(const QString &text, const QString &folder = QStringLiteral("/from"))
{
    const auto url = MediaReference::urlIn(text, folder);
    return url ? url->absoluteString() : QString();
}
} // namespace

TEST(MediaReference, PathsAndURLs)
{
    const QString home = testing_support::useFreshHome();
    EXPECT_EQ(urlTextIn(QStringLiteral("/a b.png")), QStringLiteral("file:///a%20b.png"));
    EXPECT_EQ(urlTextIn(QStringLiteral("pics/ü.png")),
              QStringLiteral("file:///from/pics/%C3%BC.png"));
    EXPECT_EQ(urlTextIn(QStringLiteral("~/a.png")), u"file://" + home + u"/a.png");
    EXPECT_EQ(urlTextIn(QStringLiteral(" file:///a%20b.png ")),
              QStringLiteral("file:///a%20b.png"));
    EXPECT_EQ(urlTextIn(QStringLiteral("http://example.org/a")),
              QStringLiteral("http://example.org/a"));
    EXPECT_EQ(urlTextIn(QStringLiteral("cobblemedia://a.0.png")),
              QStringLiteral("cobblemedia://a.0.png"));
    EXPECT_TRUE(urlTextIn(QStringLiteral("https://example.org/a.png")).isNull());
    EXPECT_TRUE(urlTextIn(QStringLiteral("ftp://example.org/a.png")).isNull());
}

TEST(MediaReference, WhatIsObvious)
{
    const FileTree tree;
    tree.add(QStringLiteral("photo.png"));
    tree.add(QStringLiteral("Ann/"));
    const auto isObvious = [&tree](const char16_t *text) {
        return MediaReference::isObvious(QString::fromUtf16(text), tree.root());
    };
    EXPECT_TRUE(isObvious(u"photo.png"));
    EXPECT_TRUE(isObvious(u"file:///nowhere/a.png"));
    EXPECT_TRUE(isObvious(u"cobblemedia://a.0.png"));
    EXPECT_TRUE(isObvious(u"http://example.org/photos/1.JPG?size=2"));
    EXPECT_FALSE(isObvious(u"http://example.org/about"));
    EXPECT_FALSE(isObvious(u"http://example.org"));
    EXPECT_FALSE(isObvious(u"https://example.org/1.jpg"));
    EXPECT_FALSE(isObvious(u"other.png"));
    EXPECT_FALSE(isObvious(u"Ann"));
    EXPECT_FALSE(isObvious(u""));
}

TEST(MediaReference, HostileTexts)
{
    const FileTree tree;
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_FALSE(MediaReference::isObvious(text, tree.root()));
}
