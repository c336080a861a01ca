#include "Import/MediaReference.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using testing_support::FileTree;

namespace {
QString urlTextIn(const QString &text, const QString &folder = u"/from"_s)
{
    const auto url = MediaReference::urlIn(text, folder);
    return url ? url->absoluteString() : QString();
}
} // namespace

TEST(MediaReference, ReadsPathsAndURLs)
{
    const QString home = testing_support::useFreshHome();
    EXPECT_EQ(urlTextIn(u"/a b.png"_s), u"file:///a%20b.png"_s);
    EXPECT_EQ(urlTextIn(u"pics/ü.png"_s), u"file:///from/pics/%C3%BC.png"_s);
    EXPECT_EQ(urlTextIn(u"~/a.png"_s), u"file://" + home + u"/a.png");
    EXPECT_EQ(urlTextIn(u" file:///a%20b.png "_s), u"file:///a%20b.png"_s);
    EXPECT_EQ(urlTextIn(u"http://example.org/a"_s), u"http://example.org/a"_s);
    EXPECT_EQ(urlTextIn(u"cobblemedia://a.0.png"_s), u"cobblemedia://a.0.png"_s);
    EXPECT_TRUE(urlTextIn(u"https://example.org/a.png"_s).isNull());
    EXPECT_TRUE(urlTextIn(u"ftp://example.org/a.png"_s).isNull());
}

TEST(MediaReference, KnowsWhatIsObvious)
{
    const FileTree tree;
    tree.add(u"photo.png"_s);
    tree.add(u"Ann/"_s);
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

TEST(MediaReference, HostileTextsAreReadOrRejected)
{
    const FileTree tree;
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_FALSE(MediaReference::isObvious(text, tree.root()));
}
