#include <KTUtility/NSAttributedString_KTAdditions>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>
#include <KTUtility/NSString_KTAdditions>

#include "TextRows.h"
#include "support/NamedCharacterSets.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QJsonArray>
#include <QRegularExpression>
#include <QSet>

using namespace KTAdditions;
using namespace Qt::StringLiterals;

namespace {
QString stripped(const char16_t *text, const char16_t *characters)
{
    return stringByStrippingCharactersInSet(
        QString::fromUtf16(text), NSCharacterSet::characterSetWithCharactersInString(characters));
}
} // namespace

TEST(NSString_KTAdditions, StripsAsInTheTable)
{
    for (const TextRow &row : textRows(u"stringByStrippingCharactersInSet:"_s))
        EXPECT_EQ(stringByStrippingCharactersInSet(
                      row.text, testing_support::characterSetFrom(row.arguments)),
                  row.expected().toString())
            << row.text.toStdString();
}

TEST(NSString_KTAdditions, StrippingTakesWhitespaceBehindWhatItRemoves)
{
    EXPECT_EQ(stripped(u"a - b", u"-"), u"a b"_s);
    EXPECT_EQ(stripped(u"  a b", u"-"), u"a b"_s);
    EXPECT_EQ(stripped(u" a\tb c\n", u" \t\n"), u"abc"_s);
    EXPECT_EQ(stripped(u"--", u"-"), u""_s);
    EXPECT_EQ(stripped(u"", u"-"), u""_s);
    EXPECT_EQ(stripped(u"a😀b", u"😀"), u"ab"_s);
    EXPECT_TRUE(stringByStrippingCharactersInSet(QString(), NSCharacterSet()).isNull());
}

TEST(NSString_KTAdditions, NumbersAsInTheTable)
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

TEST(NSString_KTAdditions, NumbersAreNumbersWhateverTheText)
{
    EXPECT_TRUE(NSObject::isNumber(integerNumberValue(QString())));
    EXPECT_TRUE(NSObject::isNumber(boolNumberValue(QString())));
    EXPECT_TRUE(decimalNumberValue(u"abc"_s).value<NSDecimalNumber>().isNaN());
    EXPECT_TRUE(decimalNumberValue(u"1,5"_s).value<NSDecimalNumber>() == NSDecimalNumber(1));
}

TEST(NSString_KTAdditions, SearchWithCDAsInTheTable)
{
    for (const TextRow &row : textRows(u"shouldSearchWithCD"_s))
        EXPECT_EQ(shouldSearchWithCD(row.text), row.expected().toBool()) << row.text.toStdString();
    EXPECT_FALSE(shouldSearchWithCD(u"日本"_s));
    EXPECT_TRUE(shouldSearchWithCD(u"Ünïcödé"_s));
    EXPECT_TRUE(shouldSearchWithCD(u"e\u0301"_s));
    EXPECT_FALSE(shouldSearchWithCD(u"a\u0328"_s));
}

TEST(NSString_KTAdditions, FileNameSuffixesAsInTheTable)
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

TEST(NSString_KTAdditions, UniquePathsAsInTheTable)
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

TEST(NSString_KTAdditions, UniquePathsBeginWithTwo)
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

TEST(NSString_KTAdditions, UniquePathsCanBeMade)
{
    const QTemporaryDir root;
    const struct
    {
        QString name;
        QString expected;
    } rows[] = {
        {QString(251, u'a') + u".txt"_s, QString(249, u'a') + u" 2.txt"_s},
        {QString(255, u'a'), QString(253, u'a') + u" 2"_s},
        // Two bytes, then four to a character.
        {u"x"_s + QString(127, u'é'), u"x"_s + QString(126, u'é') + u" 2"_s},
        {u"xyz"_s + u"\U0001F600"_s.repeated(63),
         u"xyz"_s + u"\U0001F600"_s.repeated(62) + u" 2"_s},
        // There is nothing before the extension that could give way.
        {u"ab."_s + QString(252, u'e'), u"ab 2."_s + QString(250, u'e')},
    };
    for (const auto &[name, expected] : rows) {
        testing_support::writeFile(root.filePath(name), "x");
        const QString path = uniqueFilePathForFilePath(root.filePath(name));
        EXPECT_EQ(path, root.filePath(expected));
        testing_support::writeFile(path, "x");
        EXPECT_TRUE(QFile::exists(path));
    }
}

TEST(NSString_KTAdditions, ALinkToNothingTakesItsPath)
{
    const QTemporaryDir root;
    const QString link = root.filePath(u"Report.txt"_s);
    ASSERT_TRUE(QFile::link(root.filePath(u"nothing"_s), link));
    EXPECT_EQ(uniqueFilePathForFilePath(link), root.filePath(u"Report 2.txt"_s));
}

TEST(NSString_KTAdditions, MakesRandomUUIDs)
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

TEST(NSString_KTAdditions, HostileTextsGetAnAnswer)
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
