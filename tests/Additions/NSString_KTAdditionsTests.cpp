#include <KTUtility/NSAttributedString_KTAdditions>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>
#include <KTUtility/NSString_KTAdditions>

#include "support/NamedCharacterSets.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFont>
#include <QJsonArray>
#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

using namespace KTAdditions;
using testing_support::rowsOf;

namespace {
struct TextRow
{
    QString operation;
    QString text;
    QJsonObject arguments;
    QJsonObject row;

    QJsonValue expected() const { return row.value(u"out"_s); }
};

QList<TextRow> textRows(const QString &operation)
{
    QList<TextRow> rows;
    for (const QJsonObject &row : rowsOf(u"system/text.jsonl"_s)) {
        const QJsonObject arguments = row.value(u"args"_s).toObject();
        if (row.value(u"op"_s).toString() == operation)
            rows += {operation, arguments.value(u"s"_s).toString(), arguments, row};
    }
    EXPECT_FALSE(rows.isEmpty()) << operation.toStdString();
    return rows;
}

/// The links of a text as the tables write them: [[location, length, {"NSLink": url}], …].
QJsonArray linksOf(const NSAttributedString &text)
{
    QJsonArray links;
    for (const auto &run : text.formats())
        links +=
            QJsonArray{run.start, run.length, QJsonObject{{u"NSLink"_s, run.format.anchorHref()}}};
    return links;
}

QString stripped(const char16_t *text, const char16_t *characters)
{
    return stringByStrippingCharactersInSet(
        QString::fromUtf16(text), NSCharacterSet::characterSetWithCharactersInString(characters));
}
} // namespace

TEST(TextAdditions, StripsAsInTheTable)
{
    for (const TextRow &row : textRows(u"stringByStrippingCharactersInSet:"_s))
        EXPECT_EQ(stringByStrippingCharactersInSet(
                      row.text, testing_support::characterSetFrom(row.arguments)),
                  row.expected().toString())
            << row.text.toStdString();
}

TEST(TextAdditions, StrippingTakesBlanksBehindWhatItRemoves)
{
    EXPECT_EQ(stripped(u"a - b", u"-"), u"a b"_s);
    EXPECT_EQ(stripped(u"  a b", u"-"), u"a b"_s);
    EXPECT_EQ(stripped(u" a\tb c\n", u" \t\n"), u"abc"_s);
    EXPECT_EQ(stripped(u"--", u"-"), u""_s);
    EXPECT_EQ(stripped(u"", u"-"), u""_s);
    EXPECT_EQ(stripped(u"a😀b", u"😀"), u"ab"_s);
    EXPECT_TRUE(stringByStrippingCharactersInSet(QString(), NSCharacterSet()).isNull());
}

TEST(TextAdditions, NumbersAsInTheTable)
{
    for (const TextRow &row : textRows(u"integerNumberValue"_s))
        EXPECT_EQ(integerNumberValue(row.text), row.expected().toVariant())
            << row.text.toStdString();
    for (const TextRow &row : textRows(u"boolNumberValue"_s))
        EXPECT_EQ(boolNumberValue(row.text), QVariant(row.expected().toBool()))
            << row.text.toStdString();
    for (const TextRow &row : textRows(u"decimalNumberValue"_s))
        EXPECT_EQ(NSObject::description(decimalNumberValue(row.text)), row.expected().toString())
            << row.text.toStdString();
}

TEST(TextAdditions, NumbersAreNumbersWhateverTheText)
{
    EXPECT_TRUE(NSObject::isNumber(integerNumberValue(QString())));
    EXPECT_TRUE(NSObject::isNumber(boolNumberValue(QString())));
    EXPECT_TRUE(decimalNumberValue(u"abc"_s).value<NSDecimalNumber>().isNaN());
    EXPECT_TRUE(decimalNumberValue(u"1,5"_s).value<NSDecimalNumber>() == NSDecimalNumber(1));
}

TEST(TextAdditions, SearchWithCDAsInTheTable)
{
    for (const TextRow &row : textRows(u"shouldSearchWithCD"_s))
        EXPECT_EQ(shouldSearchWithCD(row.text), row.expected().toBool()) << row.text.toStdString();
    EXPECT_FALSE(shouldSearchWithCD(u"日本"_s));
    EXPECT_TRUE(shouldSearchWithCD(u"Ünïcödé"_s));
    EXPECT_TRUE(shouldSearchWithCD(u"e\u0301"_s));
    EXPECT_FALSE(shouldSearchWithCD(u"a\u0328"_s));
}

TEST(TextAdditions, FileNameSuffixesAsInTheTable)
{
    for (const TextRow &row : textRows(u"stringByAppendingToFilename:"_s)) {
        const QString suffix = row.arguments.value(u"suffix"_s).toString();
        const QString expected = row.expected().toString();
        // An empty extension appends nothing here: no dot is left at the end.
        const bool hasNoExtension = expected.endsWith(u'.');
        EXPECT_EQ(stringByAppendingToFilename(row.text, suffix),
                  hasNoExtension ? expected.chopped(1) : expected);
    }
    EXPECT_EQ(stringByAppendingToFilename(u"Notes.txt"_s, u"(old)"_s), u"Notes(old).txt"_s);
    EXPECT_EQ(stringByAppendingToFilename(u"Report"_s, u" 2"_s), u"Report 2"_s);
}

TEST(TextAdditions, UniquePathsAsInTheTable)
{
    for (const TextRow &row : textRows(u"uniqueFilePathForFilePath"_s)) {
        const QTemporaryDir root;
        const auto inRoot = [&](QString path) { return path.replace(u"{root}"_s, root.path()); };
        const QJsonArray files = row.row.value(u"tree"_s).toArray();
        for (const QJsonValue file : files) {
            const QString path = root.filePath(file.toString());
            if (path.endsWith(u'/'))
                QDir().mkpath(path);
            else
                testing_support::writeFile(path, "x");
        }
        QString expected = row.expected().toString();
        if (expected.endsWith(u'.'))
            expected.chop(1);
        EXPECT_EQ(uniqueFilePathForFilePath(inRoot(row.text)), inRoot(expected))
            << row.text.toStdString();
    }
}

TEST(TextAdditions, UniquePathsBeginWithTwo)
{
    const QTemporaryDir root;
    const QString report = root.filePath(u"Report.txt"_s);
    EXPECT_EQ(uniqueFilePathForFilePath(report), report);
    testing_support::writeFile(report, "x");
    EXPECT_EQ(uniqueFilePathForFilePath(report), root.filePath(u"Report 2.txt"_s));
    testing_support::writeFile(root.filePath(u"Report 2.txt"_s), "x");
    EXPECT_EQ(uniqueFilePathForFilePath(report), root.filePath(u"Report 3.txt"_s));
    EXPECT_EQ(uniqueFilePathForFilePath(root.path()), root.path() + u" 2"_s);
}

TEST(TextAdditions, UUIDs)
{
    static const QRegularExpression form(
        u"^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$"_s);
    QSet<QString> seen;
    for (int index = 0; index < 100; ++index) {
        const QString plain = UUID();
        const QString xml = UUIDforXML();
        EXPECT_TRUE(form.match(plain).hasMatch()) << plain.toStdString();
        EXPECT_TRUE(xml.startsWith(u'X') && form.match(xml.mid(1)).hasMatch());
        seen << plain << xml;
    }
    EXPECT_EQ(seen.size(), 200);
}

TEST(TextAdditions, HyperlinkIsStyledAsALink)
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

TEST(URLDetection, FindsURLsInWordsAsInTheTable)
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

TEST(URLDetection, DetectsAsInTheTable)
{
    for (const TextRow &row : textRows(u"detectURLs"_s)) {
        NSAttributedString text(row.text);
        KTURLTextAdditions::detectURLs(text);
        EXPECT_EQ(linksOf(text), row.expected().toArray()) << row.text.toStdString();
        EXPECT_EQ(text.string(), row.text);
    }
}

TEST(URLDetection, LinksOnlyTheWordThatLooksLikeAURL)
{
    NSAttributedString note(u"see www.example.com, today"_s);
    KTURLTextAdditions::detectURLs(note);
    ASSERT_EQ(note.formats().size(), 1);
    EXPECT_EQ(note.attribute(NSLinkAttributeName, 4).toString(), u"http://www.example.com,"_s);
    EXPECT_TRUE(note.attributesAtIndex(4).isAnchor());
    EXPECT_FALSE(note.attribute(NSLinkAttributeName, 3).isValid());
    EXPECT_FALSE(note.attribute(NSLinkAttributeName, 20).isValid());
}

TEST(URLDetection, LeavesOtherAttributes)
{
    NSAttributedString note(u"a http://b c"_s);
    note.addAttribute(NSForegroundColorAttributeName, QBrush(Qt::red), {0, 5});
    KTURLTextAdditions::detectURLs(note);
    EXPECT_EQ(note.attribute(NSForegroundColorAttributeName, 3), QVariant(QBrush(Qt::red)));
    EXPECT_EQ(note.attribute(NSLinkAttributeName, 3).toString(), u"http://b"_s);
    EXPECT_EQ(note.attribute(NSLinkAttributeName, 9).toString(), u"http://b"_s);
    EXPECT_FALSE(note.attribute(NSForegroundColorAttributeName, 9).isValid());
}

TEST(URLDetection, FindsEveryOneOfManyLinks)
{
    NSAttributedString note(u"http://a.b "_s.repeated(40000));
    KTURLTextAdditions::detectURLs(note);
    EXPECT_EQ(note.formats().size(), 40000);
    EXPECT_EQ(note.attribute(NSLinkAttributeName, note.length() - 2).toString(), u"http://a.b"_s);
}

TEST(URLDetection, RejectedWordsGetNoLink)
{
    NSAttributedString note(u"\"http://x.y\" http://a%zz http://ü.de www.<b>"_s);
    KTURLTextAdditions::detectURLs(note);
    EXPECT_TRUE(note.formats().isEmpty());
}

TEST(AttributedStringAdditions, ComparesPlainTexts)
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

TEST(TextAdditions, HostileTextsGetAnAnswer)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const QString kept = stringByStrippingCharactersInSet(
            text, NSCharacterSet::whitespaceAndNewlineCharacterSet());
        EXPECT_LE(kept.size(), text.size());
        EXPECT_FALSE(kept.contains(u' '));
        EXPECT_TRUE(NSObject::isNumber(integerNumberValue(text)));
        EXPECT_TRUE(NSObject::isNumber(decimalNumberValue(text)));
        EXPECT_EQ(boolNumberValue(text).typeId(), int(QMetaType::Bool));
        EXPECT_GE(stringByAppendingToFilename(text, u"x"_s).size(), 1);
        NSAttributedString note(text);
        KTURLTextAdditions::detectURLs(note);
        EXPECT_TRUE(note.formats().isEmpty());
        EXPECT_EQ(hyperlink(text).string(), text);
        if (text.size() < 1000) {
            EXPECT_EQ(uniqueFilePathForFilePath(u"/nowhere/" + text), u"/nowhere/" + text);
        }
    }
}
