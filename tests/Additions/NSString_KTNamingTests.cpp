#include <KTUtility/KTStringTransformCache>
#include <KTUtility/NSStringTrim>
#include <KTUtility/NSString_KTNaming>

#include "support/NamedCharacterSets.h"
#include "support/TestSupport.h"

#include <QRandomGenerator>

#include <map>

using namespace KTAdditions;
using namespace Qt::StringLiterals;
using testing_support::rowsOf;

namespace {
/// The part of a row's operation before the first colon, applied to its text.
const std::map<QString, QString (*)(const QString &)> &transforms()
{
    static const std::map<QString, QString (*)(const QString &)> table = {
        {u"entityString"_s, entityString},
        {u"entityStringFromString:"_s, entityStringFromString},
        {u"labelString"_s, labelString},
        {u"libraryEntityName"_s, libraryEntityName},
        {u"libraryEntityNameFromString:"_s, libraryEntityNameFromString},
        {u"lowerCaseNameFromString:"_s, lowerCaseNameFromString},
        {u"properNounString"_s, properNounString},
        {u"propertyStringFromString:"_s, propertyStringFromString},
        {u"stringFromBumpyCaseString:"_s, stringFromBumpyCaseString},
        {u"tableColumnString"_s, tableColumnString},
        {u"tableNameString"_s, tableNameString},
    };
    return table;
}

/// The rows are about fresh processes, but entities share one cache: forget between rows.
void forgetEverything()
{
    for (const char *domain : {"properties", "entities", "tableColumns", "tableNames"})
        KTStringTransformCache::sharedCache()->domain(QLatin1String(domain)).clear();
}

QString resultOf(const QString &operation, const QJsonObject &arguments)
{
    const QString text = arguments.value(u"s"_s).toString();
    if (operation == u"bumpyCaseStringFromString:uppercaseFirst:")
        return bumpyCaseStringFromString(text, arguments.value(u"uppercaseFirst"_s).toBool());
    if (operation == u"stringWithString:andFilter:")
        return stringWithString(text, testing_support::characterSetFrom(arguments));
    return transforms().at(operation)(text);
}

/// Rows that take words to end at spaces only; capitalisation here also ends them at hyphens,
/// underscores and digits, as NSString::capitalizedString() says.
const std::map<QString, QString> &otherwiseCapitalized()
{
    static const std::map<QString, QString> table = {
        {u"12  g-g\t"_s, u"12  G-G\t"_s},
        {u" a--b "_s, u" A--B "_s},
        {u"under_score Name"_s, u"Under_Score  Name"_s},
        {u"foo-bar Baz"_s, u"Foo-Bar  Baz"_s},
    };
    return table;
}

QString expectedOf(const QJsonObject &row, const QString &text)
{
    const auto other = otherwiseCapitalized().find(text);
    const bool isLabel = row.value(u"op"_s).toString() == u"stringFromBumpyCaseString:";
    return isLabel && other != otherwiseCapitalized().end() ? other->second
                                                            : row.value(u"out"_s).toString();
}
} // namespace

TEST(NSString_KTNaming, EveryRowGivesItsResult)
{
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"system/naming.jsonl"_s)) {
        const QString operation = row.value(u"op"_s).toString();
        if (operation == u"calls" || operation.contains(u"ransformedValue:"))
            continue;
        const QJsonObject arguments = row.value(u"args"_s).toObject();
        const QString text = arguments.value(u"s"_s).toString();
        SCOPED_TRACE(operation.toStdString() + ' ' + text.toStdString());
        forgetEverything();
        EXPECT_EQ(resultOf(operation, arguments), expectedOf(row, text));
        ++rows;
    }
    EXPECT_EQ(rows, 334);
}

TEST(NSString_KTNaming, TheExamplesOfTheHeaderHold)
{
    forgetEverything();
    EXPECT_EQ(propertyString(u"Date of birth"_s), u"dateOfBirth"_s);
    EXPECT_EQ(entityString(u"My Library"_s), u"MyLibrary"_s);
    EXPECT_EQ(libraryEntityName(u"Bücher"_s), u"lib_library"_s);
    EXPECT_EQ(tableNameString(u"My Library"_s), u"kt_my_library"_s);
    EXPECT_EQ(tableColumnString(u"First Name"_s), u"kt_firstName"_s);
    EXPECT_EQ(labelString(u"firstName"_s), u"First Name"_s);
}

TEST(NSString_KTNaming, WritesBumpyCase)
{
    struct Case
    {
        const char16_t *text;
        bool uppercaseFirst;
        const char16_t *result;
    };
    const Case cases[] = {
        {u"first  name", false, u"firstName"},
        {u"Name", false, u"name"},
        {u"name", false, u"name"},
        {u"nAME", true, u"Name"},
        {u"URL", false, u"uRL"},
        {u"First Name", false, u"firstName"},
        {u"First Name", true, u"FirstName"},
        {u"", true, u""},
        {u" ", true, u""},
        {u" x", false, u"X"},
        {u"a\tb", true, u"A\tb"},
        {u"straße GROSS", true, u"StraßeGross"},
        {u"ßa b", true, u"SSaB"},
        {u"𐐨𐐀 𐐨", true, u"𐐀𐐨𐐀"},
        {u"ΟΔΟΣ ΝΕΑ", false, u"οδοςΝεα"},
        {u"E-mail", false, u"e-mail"},
    };
    for (const Case &row : cases)
        EXPECT_EQ(bumpyCaseStringFromString(QString::fromUtf16(row.text), row.uppercaseFirst),
                  QString::fromUtf16(row.result));
}

TEST(NSString_KTNaming, MakesLabelsFromCamelCase)
{
    EXPECT_EQ(stringFromBumpyCaseString(u"ID"_s), u"I D"_s);
    EXPECT_EQ(stringFromBumpyCaseString(u"URLField"_s), u"U R L Field"_s);
    EXPECT_EQ(stringFromBumpyCaseString(u"First Name"_s), u"First  Name"_s);
    EXPECT_EQ(stringFromBumpyCaseString(u""_s), u""_s);
    EXPECT_EQ(stringFromBumpyCaseString(u"don't stop"_s), u"Don't Stop"_s);
}

TEST(NSString_KTNaming, WritesSnakeCase)
{
    EXPECT_EQ(lowerCaseNameFromString(u"First Name!"_s), u"first_name"_s);
    EXPECT_EQ(lowerCaseNameFromString(u" a--b "_s), u"a_b"_s);
    EXPECT_EQ(lowerCaseNameFromString(u"!?"_s), u""_s);
    EXPECT_FALSE(lowerCaseNameFromString(u"!?"_s).isNull());
}

TEST(NSString_KTNaming, MakesLibraryEntityNames)
{
    forgetEverything();
    EXPECT_EQ(libraryEntityNameFromString(u"Sales.Contacts 2"_s), u"lib_contacts_2"_s);
    EXPECT_EQ(libraryEntityNameFromString(u"lib_x"_s), u"lib_x"_s);
    EXPECT_EQ(libraryEntityNameFromString(u""_s), u"lib_library"_s);
    EXPECT_EQ(libraryEntityNameFromString(u"Sales."_s), u"lib_library"_s);
}

TEST(NSString_KTNaming, TheFirstConversionOfAnEntityStays)
{
    forgetEverything();
    EXPECT_EQ(entityStringFromString(u"Books"_s), u"Books"_s);
    EXPECT_EQ(libraryEntityNameFromString(u"Books"_s), u"Books"_s);
    EXPECT_EQ(libraryEntityNameFromString(u"Films"_s), u"lib_films"_s);
    EXPECT_EQ(entityStringFromString(u"Films"_s), u"lib_films"_s);
}

TEST(NSString_KTNaming, TrimmedTextsShareTheCachedObject)
{
    forgetEverything();
    const QString plain = propertyStringFromString(u"First Name"_s);
    const QString padded = propertyStringFromString(u" \n First Name\t"_s);
    EXPECT_EQ(padded.constData(), plain.constData());
    EXPECT_EQ(KTStringTransformCache::sharedCache()->domain(u"properties"_s).size(), 1);
}

TEST(NSString_KTNaming, NamesInASCIIAreThoseOfTheLongWay)
{
    QRandomGenerator random(3);
    const QStringView units = u"aZ bY 09-_.\t\n\u007F";
    for (int count = 0; count < 20000; ++count) {
        QString text(random.bounded(10), u' ');
        for (QChar &unit : text)
            unit = units[random.bounded(int(units.size()))];
        const QString trimmed = NSString::stringByTrimmingWhitespaceAndNewlines(text);
        const QString expected = stringWithString(bumpyCaseStringFromString(trimmed, false),
                                                  NSCharacterSet::alphanumericCharacterSet());
        EXPECT_EQ(propertyStringFromString(text), expected) << qPrintable(text);
        EXPECT_FALSE(propertyStringFromString(text).isNull());
    }
}

TEST(NSString_KTNaming, FiltersNeverPassWhitespace)
{
    const NSCharacterSet everything([](char32_t) { return true; });
    EXPECT_EQ(stringWithString(u" a b\n\u00A0c\u2003"_s, everything), u"abc"_s);
    EXPECT_EQ(stringWithString(u"a😀b"_s, NSCharacterSet::symbolCharacterSet()), u"😀"_s);
}

TEST(NSString_KTNaming, NilStaysNilAndIsNotRemembered)
{
    forgetEverything();
    for (const auto &[name, transform] : transforms())
        EXPECT_TRUE(transform(QString()).isNull()) << name.toStdString();
    EXPECT_TRUE(stringWithString(QString(), NSCharacterSet()).isNull());
    EXPECT_TRUE(bumpyCaseStringFromString(QString(), true).isNull());
    EXPECT_TRUE(KTStringTransformCache::sharedCache()->domain(u"entities"_s).isEmpty());
}

TEST(NSString_KTNaming, HostileTextsGetAnAnswer)
{
    for (const QString &text : testing_support::hostileTexts()) {
        for (const auto &[name, transform] : transforms()) {
            const QString once = transform(text);
            EXPECT_EQ(transform(text), once) << name.toStdString();
        }
        for (const QChar unit : propertyString(text))
            EXPECT_FALSE(unit.isSpace());
    }
}
