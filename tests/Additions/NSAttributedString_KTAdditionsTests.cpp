#include <KTUtility/NSAttributedString_KTAdditions>
#include <KTUtility/NSObject>
#include <KTUtility/NSString_KTAdditions>

#include "TextRows.h"
#include "support/TestSupport.h"

#include <QJsonArray>

using namespace KTAdditions;
using namespace Qt::StringLiterals;

namespace {
/// The links of a text as the tables write them: [[location, length, {"NSLink": url}], …].
QJsonArray linksOf(const NSAttributedString &text)
{
    QJsonArray links;
    for (const auto &run : text.formats())
        links +=
            QJsonArray{run.start, run.length, QJsonObject{{u"NSLink"_s, run.format.anchorHref()}}};
    return links;
}
} // namespace

TEST(NSAttributedString_KTAdditions, HyperlinkIsStyledAsALink)
{
    const QString text = u"www.example.com"_s;
    const NSAttributedString link = hyperlink(text);
    EXPECT_EQ(link.string(), text);
    ASSERT_EQ(link.formats().size(), 1);
    const QTextCharFormat format = link.attributesAtIndex(3);
    EXPECT_EQ(format.foreground().color(), QColor(Qt::blue));
    EXPECT_EQ(format.underlineStyle(), QTextCharFormat::SingleUnderline);
    EXPECT_TRUE(format.isAnchor());
    EXPECT_EQ(link.attribute(NSLinkAttributeName, 0), QVariant(text));
    EXPECT_EQ(format.font().pixelSize(), 11);
    EXPECT_TRUE(hyperlink(QString()).formats().isEmpty());
}

TEST(NSAttributedString_KTAdditions, FindsURLsInWordsAsInTheTable)
{
    for (const TextRow &row : textRows(u"_findURLInString:"_s)) {
        const auto url = KTURLTextAdditions::_findURLInString(row.text);
        EXPECT_EQ(url.has_value(), !row.expected().isNull()) << row.text.toStdString();
        if (url) {
            EXPECT_EQ(url->absoluteString(), row.expected().toString());
        }
    }
    EXPECT_EQ(KTURLTextAdditions::_findURLInString(u"awww.b"_s)->absoluteString(),
              u"http://awww.b"_s);
    EXPECT_EQ(KTURLTextAdditions::_findURLInString(u"x://"_s)->absoluteString(), u"x://"_s);
}

TEST(NSAttributedString_KTAdditions, DetectsAsInTheTable)
{
    for (const TextRow &row : textRows(u"detectURLs"_s)) {
        NSAttributedString text(row.text);
        KTURLTextAdditions::detectURLs(text);
        EXPECT_EQ(linksOf(text), row.expected().toArray()) << row.text.toStdString();
        EXPECT_EQ(text.string(), row.text);
    }
}

TEST(NSAttributedString_KTAdditions, LinksOnlyTheWordThatLooksLikeAURL)
{
    NSAttributedString note(u"see www.example.com, today"_s);
    KTURLTextAdditions::detectURLs(note);
    ASSERT_EQ(note.formats().size(), 1);
    EXPECT_EQ(note.attribute(NSLinkAttributeName, 4).toString(), u"http://www.example.com,"_s);
    EXPECT_TRUE(note.attributesAtIndex(4).isAnchor());
    EXPECT_FALSE(note.attribute(NSLinkAttributeName, 3).isValid());
    EXPECT_FALSE(note.attribute(NSLinkAttributeName, 20).isValid());
}

TEST(NSAttributedString_KTAdditions, LeavesOtherAttributes)
{
    NSAttributedString note(u"a http://b c"_s);
    note.addAttribute(NSForegroundColorAttributeName, QBrush(Qt::red), {0, 5});
    KTURLTextAdditions::detectURLs(note);
    EXPECT_EQ(note.attribute(NSForegroundColorAttributeName, 3), QVariant(QBrush(Qt::red)));
    EXPECT_EQ(note.attribute(NSLinkAttributeName, 3).toString(), u"http://b"_s);
    EXPECT_EQ(note.attribute(NSLinkAttributeName, 9).toString(), u"http://b"_s);
    EXPECT_FALSE(note.attribute(NSForegroundColorAttributeName, 9).isValid());
}

TEST(NSAttributedString_KTAdditions, FindsEveryOneOfManyLinks)
{
    NSAttributedString note(u"http://a.b "_s.repeated(40000));
    KTURLTextAdditions::detectURLs(note);
    EXPECT_EQ(note.formats().size(), 40000);
    EXPECT_EQ(note.attribute(NSLinkAttributeName, note.length() - 2).toString(), u"http://a.b"_s);
}

TEST(NSAttributedString_KTAdditions, RejectedWordsGetNoLink)
{
    NSAttributedString note(u"\"http://x.y\" http://a%zz http://ü.de www.<b>"_s);
    KTURLTextAdditions::detectURLs(note);
    EXPECT_TRUE(note.formats().isEmpty());
}

TEST(NSAttributedString_KTAdditions, ComparesPlainTexts)
{
    const auto compareTexts = [](const char16_t *left, const char16_t *right) {
        return compare(attributedStringWithString(QString::fromUtf16(left)),
                       attributedStringWithString(QString::fromUtf16(right)));
    };
    EXPECT_TRUE(compareTexts(u"a", u"b") < 0);
    EXPECT_TRUE(compareTexts(u"a", u"B") > 0);
    EXPECT_TRUE(compareTexts(u"a", u"a") == 0);
    EXPECT_TRUE(compareTexts(u"é", u"e\u0301") != 0);
    EXPECT_TRUE(attributedStringWithString(u"x"_s).formats().isEmpty());
}
