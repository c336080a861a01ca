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

using namespace KTAdditions;
using testing_support::rowsOf;

namespace {
struct TextRow
{
    QString operation;
    QString text;
    QJsonObject arguments;
    QJsonObject row;

    QJsonValue expected() const { return row.value(QStringLiteral("out")); }
};

QList<TextRow> textRows(const QString &operation)
{
    QList<TextRow> rows;
    for (const QJsonObject &row : rowsOf(QStringLiteral("system/text.jsonl"))) {
        const QJsonObject arguments = row.value(QStringLiteral("args")).toObject();
        if (row.value(QStringLiteral("op")).toString() == operation)
            rows += {operation, arguments.value(QStringLiteral("s")).toString(), arguments, row};
    }
    EXPECT_FALSE(rows.isEmpty()) << operation.toStdString();
    return rows;
}

/// The links of a text as the tables write them: [[location, length, {"NSLink": url}], …].
QJsonArray linksOf(const NSAttributedString &text)
{
    QJsonArray links;
    for (const auto &run : text.formats())
        links += QJsonArray{run.start, run.length,
                            QJsonObject{{QStringLiteral("NSLink"), run.format.anchorHref()}}};
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
    for (const TextRow &row : textRows(QStringLiteral("stringByStrippingCharactersInSet:")))
        EXPECT_EQ(stringByStrippingCharactersInSet(
                      row.text, testing_support::characterSetFrom(row.arguments)),
                  row.expected().toString())
            << row.text.toStdString();
}

TEST(TextAdditions, StrippingTakesBlanksBehindWhatItRemoves)
{
    EXPECT_EQ(stripped(u"a - b", u"-"), QStringLiteral("a b"));
    EXPECT_EQ(stripped(u"  a b", u"-"), QStringLiteral("a b"));
    EXPECT_EQ(stripped(u" a\tb c\n", u" \t\n"), QStringLiteral("abc"));
    EXPECT_EQ(stripped(u"--", u"-"), QStringLiteral(""));
    EXPECT_EQ(stripped(u"", u"-"), QStringLiteral(""));
    EXPECT_EQ(stripped(u"a😀b", u"😀"), QStringLiteral("ab"));
    EXPECT_TRUE(stringByStrippingCharactersInSet(QString(), NSCharacterSet()).isNull());
}

TEST(TextAdditions, NumbersAsInTheTable)
{
    for (const TextRow &row : textRows(QStringLiteral("integerNumberValue")))
        EXPECT_EQ(integerNumberValue(row.text), row.expected().toVariant())
            << row.text.toStdString();
    for (const TextRow &row : textRows(QStringLiteral("boolNumberValue")))
        EXPECT_EQ(boolNumberValue(row.text), QVariant(row.expected().toBool()))
            << row.text.toStdString();
    for (const TextRow &row : textRows(QStringLiteral("decimalNumberValue")))
        EXPECT_EQ(NSObject::description(decimalNumberValue(row.text)), row.expected().toString())
            << row.text.toStdString();
}

TEST(TextAdditions, NumbersAreNumbersWhateverTheText)
{
    EXPECT_TRUE(NSObject::isNumber(integerNumberValue(QString())));
    EXPECT_TRUE(NSObject::isNumber(boolNumberValue(QString())));
    EXPECT_TRUE(decimalNumberValue(QStringLiteral("abc")).value<NSDecimalNumber>().isNaN());
    EXPECT_TRUE(decimalNumberValue(QStringLiteral("1,5")).value<NSDecimalNumber>() ==
                NSDecimalNumber(1));
}

TEST(TextAdditions, SearchWithCDAsInTheTable)
{
    for (const TextRow &row : textRows(QStringLiteral("shouldSearchWithCD")))
        EXPECT_EQ(shouldSearchWithCD(row.text), row.expected().toBool()) << row.text.toStdString();
    EXPECT_FALSE(shouldSearchWithCD(QStringLiteral("日本")));
    EXPECT_TRUE(shouldSearchWithCD(QStringLiteral("Ünïcödé")));
    EXPECT_TRUE(shouldSearchWithCD(QStringLiteral("e\u0301")));
    EXPECT_FALSE(shouldSearchWithCD(QStringLiteral("a\u0328")));
}

TEST(TextAdditions, FileNameSuffixesAsInTheTable)
{
    for (const TextRow &row : textRows(QStringLiteral("stringByAppendingToFilename:"))) {
        const QString suffix = row.arguments.value(QStringLiteral("suffix")).toString();
        const QString expected = row.expected().toString();
        // An empty extension appends nothing here: no dot is left at the end.
        const bool hasNoExtension = expected.endsWith(u'.');
        EXPECT_EQ(stringByAppendingToFilename(row.text, suffix),
                  hasNoExtension ? expected.chopped(1) : expected);
    }
    EXPECT_EQ(stringByAppendingToFilename(QStringLiteral("Notes.txt"), QStringLiteral("(old)")),
              QStringLiteral("Notes(old).txt"));
    EXPECT_EQ(stringByAppendingToFilename(QStringLiteral("Report"), QStringLiteral(" 2")),
              QStringLiteral("Report 2"));
}

TEST(TextAdditions, UniquePathsAsInTheTable)
{
    for (const TextRow &row : textRows(QStringLiteral("uniqueFilePathForFilePath"))) {
        const QTemporaryDir root;
        const auto inRoot = [&](QString path) {
            return path.replace(QStringLiteral("{root}"), root.path());
        };
        const QJsonArray files = row.row.value(QStringLiteral("tree")).toArray();
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
    const QString report = root.filePath(QStringLiteral("Report.txt"));
    EXPECT_EQ(uniqueFilePathForFilePath(report), report);
    testing_support::writeFile(report, "x");
    EXPECT_EQ(uniqueFilePathForFilePath(report), root.filePath(QStringLiteral("Report 2.txt")));
    testing_support::writeFile(root.filePath(QStringLiteral("Report 2.txt")), "x");
    EXPECT_EQ(uniqueFilePathForFilePath(report), root.filePath(QStringLiteral("Report 3.txt")));
    EXPECT_EQ(uniqueFilePathForFilePath(root.path()), root.path() + QStringLiteral(" 2"));
}

TEST(TextAdditions, UUIDs)
{
    static const QRegularExpression form(
        QStringLiteral("^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$"));
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
    const QString text = QStringLiteral("www.example.com");
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
    for (const TextRow &row : textRows(QStringLiteral("_findURLInString:"))) {
        const auto url = KTURLTextAdditions::_findURLInString(row.text);
        EXPECT_EQ(url.has_value(), !row.expected().isNull()) << row.text.toStdString();
        if (url) {
            EXPECT_EQ(url->absoluteString(), row.expected().toString());
        }
    }
    EXPECT_EQ(KTURLTextAdditions::_findURLInString(QStringLiteral("awww.b"))->absoluteString(),
              QStringLiteral("http://awww.b"));
    EXPECT_EQ(KTURLTextAdditions::_findURLInString(QStringLiteral("x://"))->absoluteString(),
              QStringLiteral("x://"));
}

TEST(URLDetection, DetectsAsInTheTable)
{
    for (const TextRow &row : textRows(QStringLiteral("detectURLs"))) {
        NSAttributedString text(row.text);
        KTURLTextAdditions::detectURLs(text);
        EXPECT_EQ(linksOf(text), row.expected().toArray()) << row.text.toStdString();
        EXPECT_EQ(text.string(), row.text);
    }
}

TEST(URLDetection, LinksOnlyTheWordThatLooksLikeAURL)
{
    NSAttributedString note(QStringLiteral("see www.example.com, today"));
    KTURLTextAdditions::detectURLs(note);
    ASSERT_EQ(note.formats().size(), 1);
    EXPECT_EQ(note.attribute(NSLinkAttributeName, 4).toString(),
              QStringLiteral("http://www.example.com,"));
    EXPECT_TRUE(note.attributesAtIndex(4).isAnchor());
    EXPECT_FALSE(note.attribute(NSLinkAttributeName, 3).isValid());
    EXPECT_FALSE(note.attribute(NSLinkAttributeName, 20).isValid());
}

TEST(URLDetection, LeavesOtherAttributes)
{
    NSAttributedString note(QStringLiteral("a http://b c"));
    note.addAttribute(NSForegroundColorAttributeName, QBrush(Qt::red), {0, 5});
    KTURLTextAdditions::detectURLs(note);
    EXPECT_EQ(note.attribute(NSForegroundColorAttributeName, 3), QVariant(QBrush(Qt::red)));
    EXPECT_EQ(note.attribute(NSLinkAttributeName, 3).toString(), QStringLiteral("http://b"));
    EXPECT_EQ(note.attribute(NSLinkAttributeName, 9).toString(), QStringLiteral("http://b"));
    EXPECT_FALSE(note.attribute(NSForegroundColorAttributeName, 9).isValid());
}

TEST(URLDetection, FindsEveryOneOfManyLinks)
{
    NSAttributedString note(QStringLiteral("http://a.b ").repeated(40000));
    KTURLTextAdditions::detectURLs(note);
    EXPECT_EQ(note.formats().size(), 40000);
    EXPECT_EQ(note.attribute(NSLinkAttributeName, note.length() - 2).toString(),
              QStringLiteral("http://a.b"));
}

TEST(URLDetection, RejectedWordsGetNoLink)
{
    NSAttributedString note(QStringLiteral("\"http://x.y\" http://a%zz http://ü.de www.<b>"));
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
    EXPECT_TRUE(attributedStringWithString(QStringLiteral("x")).formats().isEmpty());
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
        EXPECT_GE(stringByAppendingToFilename(text, QStringLiteral("x")).size(), 1);
        NSAttributedString note(text);
        KTURLTextAdditions::detectURLs(note);
        EXPECT_TRUE(note.formats().isEmpty());
        EXPECT_EQ(hyperlink(text).string(), text);
        if (text.size() < 1000) {
            EXPECT_EQ(uniqueFilePathForFilePath(u"/nowhere/" + text), u"/nowhere/" + text);
        }
    }
}
