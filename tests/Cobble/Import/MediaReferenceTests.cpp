#include "Import/MediaReference.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

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

TEST(MediaReference, HostileTextsAreReadOrRejected)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const auto url = MediaReference::urlIn(text, u"/from"_s);
        EXPECT_TRUE(!url || url->isFileURL()) << text.left(20).toStdString();
    }
}
