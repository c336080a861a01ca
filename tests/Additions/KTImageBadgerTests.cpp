#include <KTUtility/KTImageBadger>
#include <KTUtility/NSFont>
#include <KTUtility/NSImage>
#include <KTUtility/NSImage_KTAdditions>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

#include <QFontMetricsF>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// The smallest rectangle, from the bottom left, that holds all pixels as bright as text.
QRect brightPart(const QImage &image, const QImage &background)
{
    QRect part;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) != background.pixelColor(x, y))
                part |= QRect(x, image.height() - 1 - y, 1, 1);
    return part;
}
} // namespace

TEST(KTImageBadger, PillsGrowWithTheNumberOfCharacters)
{
    needApplication();
    const QImage one = KTImageBadger::badgeOfSize(1);
    ASSERT_FALSE(one.isNull());
    for (const unsigned count : {0U, 2U, 6U, 7U, 4000000000U})
        EXPECT_EQ(KTImageBadger::badgeOfSize(count), one);
    EXPECT_EQ(one, NSImage::imageNamed(u"dragBadge1-2.tif"_s));
    for (const unsigned count : {3U, 4U, 5U}) {
        EXPECT_EQ(KTImageBadger::badgeOfSize(count),
                  NSImage::imageNamed(u"dragBadge%1.tif"_s.arg(count)));
        EXPECT_GT(KTImageBadger::badgeOfSize(count).width(),
                  KTImageBadger::badgeOfSize(count - 1).width());
    }
}

TEST(KTImageBadger, PillsAreRedWithRoundEnds)
{
    const QImage pill = KTImageBadger::badgeOfSize(5);
    EXPECT_EQ(pill.pixelColor(0, 0).alpha(), 0);
    const QColor middle = pill.pixelColor(pill.width() / 2, pill.height() / 2);
    EXPECT_EQ(middle.alpha(), 255);
    EXPECT_GT(middle.red(), 2 * middle.green());
    EXPECT_GT(middle.red(), 3 * middle.blue());
}

TEST(KTImageBadger, PillsHoldTheWidestCharacters)
{
    needApplication();
    const QFontMetricsF metrics(NSFont::userFontOfSize(11));
    for (const unsigned count : {1U, 2U, 3U, 4U, 5U}) {
        const qreal width = metrics.horizontalAdvance(QString(qsizetype(count), u'W'));
        EXPECT_LE(width, NSImage::sizeOf(KTImageBadger::badgeOfSize(count)).width() - 5) << count;
    }
}

TEST(KTImageBadger, TextStandsInTheMiddle)
{
    needApplication();
    const QString text = u"247"_s;
    const QImage pill = KTImageBadger::badgeOfSize(3);
    const QImage badge = KTImageBadger::badgeWithString(text);
    EXPECT_EQ(badge.size(), pill.size());
    const QRect ink = brightPart(badge, pill.convertToFormat(badge.format()));
    ASSERT_FALSE(ink.isEmpty());
    const QFontMetricsF metrics(NSFont::userFontOfSize(11));
    const QRectF tight = metrics.tightBoundingRect(text);
    const qreal x = (pill.width() - metrics.horizontalAdvance(text)) * 0.5 + 0.5;
    const qreal y = (pill.height() - metrics.height()) * 0.5 + 1.7;
    EXPECT_NEAR(ink.left(), x + tight.left(), 1.5);
    EXPECT_NEAR(ink.left() + ink.width(), x + tight.right(), 1.5);
    EXPECT_NEAR(ink.top(), y + metrics.descent() - tight.bottom(), 1.5);
    EXPECT_NEAR(ink.top() + ink.height(), y + metrics.descent() - tight.top(), 1.5);
}

TEST(KTImageBadger, LongTextsAreReplaced)
{
    needApplication();
    const QImage question = KTImageBadger::badgeWithString(u"?!"_s);
    EXPECT_EQ(question.size(), KTImageBadger::badgeOfSize(2).size());
    EXPECT_EQ(KTImageBadger::badgeWithString(u"123456"_s), question);
    EXPECT_EQ(KTImageBadger::badgeWithString(megabyteOf(u"12"_s)), question);
    EXPECT_NE(KTImageBadger::badgeWithString(u"12345"_s), question);
    EXPECT_EQ(KTImageBadger::badgeWithString(u"12345"_s).size(),
              KTImageBadger::badgeOfSize(5).size());
}

TEST(KTImageBadger, AnyTextIsTaken)
{
    needApplication();
    const QImage empty = KTImageBadger::badgeWithString(QString());
    EXPECT_EQ(empty, KTImageBadger::badgeWithString(u""_s));
    EXPECT_EQ(empty.size(), KTImageBadger::badgeOfSize(0).size());
    for (const QString &text : hostileTexts())
        EXPECT_FALSE(KTImageBadger::badgeWithString(text).isNull());
    EXPECT_FALSE(KTImageBadger::badgeWithString(u"1\n2"_s).isNull());
}

TEST(KTImageBadger, ABadgedPictureHasItsPillAtTheBottom)
{
    needApplication();
    const QImage picture = solid(64, 64, Qt::black);
    const QImage badge = KTImageBadger::badgeWithString(u"12"_s);
    const QImage dragged = KTAdditions::applyBadge(picture, badge, 1, 0, false);
    const QColor corner = pixelFromBottom(dragged, 63 - badge.width() + 6, 10);
    EXPECT_GT(corner.red(), 150);
    EXPECT_COLOR(pixelFromBottom(dragged, 5, 10), Qt::black, 0);
}
