#include <KTUtility/KTStringTransformCache>
#include <KTUtility/KTString_KTDataTransformer>
#include <KTUtility/NSString_KTNaming>

#include "support/NamedCharacterSets.h"
#include "support/TestSupport.h"

#include <functional>
#include <map>

using namespace KTAdditions;
using testing_support::rowsOf;

namespace {
/// The part of a row's operation before the first colon, applied to its text.
const std::map<QString, QString (*)(const QString &)> &transforms()
{
    static const std::map<QString, QString (*)(const QString &)> table = {
        {QStringLiteral("entityString"), entityString},
        {QStringLiteral("entityStringFromString:"), entityStringFromString},
        {QStringLiteral("labelString"), labelString},
        {QStringLiteral("libraryEntityName"), libraryEntityName},
        {QStringLiteral("libraryEntityNameFromString:"), libraryEntityNameFromString},
        {QStringLiteral("lowerCaseNameFromString:"), lowerCaseNameFromString},
        {QStringLiteral("properNounString"), properNounString},
        {QStringLiteral("propertyStringFromString:"), propertyStringFromString},
        {QStringLiteral("stringFromBumpyCaseString:"), stringFromBumpyCaseString},
        {QStringLiteral("tableColumnString"), tableColumnString},
        {QStringLiteral("tableNameString"), tableNameString},
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
    const QString text = arguments.value(QStringLiteral("s")).toString();
    if (operation == u"bumpyCaseStringFromString:uppercaseFirst:")
        return bumpyCaseStringFromString(
            text, arguments.value(QStringLiteral("uppercaseFirst")).toBool());
    if (operation == u"stringWithString:andFilter:")
        return stringWithString(text, testing_support::characterSetFrom(arguments));
    return transforms().at(operation)(text);
}
/// Rows that take words to end at blanks only; capitalisation here also ends them at hyphens,
/// underscores and digits, as NSString::capitalizedString() says.
const std::map<QString, QString> &otherwiseCapitalized()
{
    static const std::map<QString, QString> table = {
        {QStringLiteral("12  g-g\t"), QStringLiteral("12  G-G\t")},
        {QStringLiteral(" a--b "), QStringLiteral(" A--B ")},
        {QStringLiteral("under_score Name"), QStringLiteral("Under_Score  Name")},
        {QStringLiteral("foo-bar Baz"), QStringLiteral("Foo-Bar  Baz")},
    };
    return table;
}

QString expectedOf(const QJsonObject &row, const QString &text)
{
    const auto other = otherwiseCapitalized().find(text);
    const bool isLabel =
        row.value(QStringLiteral("op")).toString() == u"stringFromBumpyCaseString:";
    return isLabel && other != otherwiseCapitalized().end()
               ? other->second
               : row.value(QStringLiteral("out")).toString();
}
} // namespace

TEST(Naming, EveryRowGivesItsResult)
{
    int rows = 0;
    for (const QJsonObject &row : rowsOf(QStringLiteral("system/naming.jsonl"))) {
        const QString operation = row.value(QStringLiteral("op")).toString();
        if (operation == u"calls" || operation.contains(u"ransformedValue:"))
            continue;
        const QJsonObject arguments = row.value(QStringLiteral("args")).toObject();
        const QString text = arguments.value(QStringLiteral("s")).toString();
        SCOPED_TRACE(operation.toStdString() + ' ' + text.toStdString());
        forgetEverything();
        EXPECT_EQ(resultOf(operation, arguments), expectedOf(row, text));
        ++rows;
    }
    EXPECT_EQ(rows, 334);
}

TEST(Naming, TheExamplesOfTheHeaderHold)
{
    forgetEverything();
    EXPECT_EQ(propertyString(QStringLiteral("Date of birth")), QStringLiteral("dateOfBirth"));
    EXPECT_EQ(entityString(QStringLiteral("My Library")), QStringLiteral("MyLibrary"));
    EXPECT_EQ(libraryEntityName(QStringLiteral("Bücher")), QStringLiteral("lib_library"));
    EXPECT_EQ(tableNameString(QStringLiteral("My Library")), QStringLiteral("kt_my_library"));
    EXPECT_EQ(tableColumnString(QStringLiteral("First Name")), QStringLiteral("kt_firstName"));
    EXPECT_EQ(labelString(QStringLiteral("firstName")), QStringLiteral("First Name"));
}

TEST(Naming, BumpyCase)
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

TEST(Naming, LabelsFromCamelCase)
{
    EXPECT_EQ(stringFromBumpyCaseString(QStringLiteral("ID")), QStringLiteral("I D"));
    EXPECT_EQ(stringFromBumpyCaseString(QStringLiteral("URLField")), QStringLiteral("U R L Field"));
    EXPECT_EQ(stringFromBumpyCaseString(QStringLiteral("First Name")),
              QStringLiteral("First  Name"));
    EXPECT_EQ(stringFromBumpyCaseString(QStringLiteral("")), QStringLiteral(""));
    EXPECT_EQ(stringFromBumpyCaseString(QStringLiteral("don't stop")),
              QStringLiteral("Don't Stop"));
}

TEST(Naming, SnakeCase)
{
    EXPECT_EQ(lowerCaseNameFromString(QStringLiteral("First Name!")), QStringLiteral("first_name"));
    EXPECT_EQ(lowerCaseNameFromString(QStringLiteral(" a--b ")), QStringLiteral("a_b"));
    EXPECT_EQ(lowerCaseNameFromString(QStringLiteral("!?")), QStringLiteral(""));
    EXPECT_FALSE(lowerCaseNameFromString(QStringLiteral("!?")).isNull());
}

TEST(Naming, LibraryEntityNames)
{
    forgetEverything();
    EXPECT_EQ(libraryEntityNameFromString(QStringLiteral("Sales.Contacts 2")),
              QStringLiteral("lib_contacts_2"));
    EXPECT_EQ(libraryEntityNameFromString(QStringLiteral("lib_x")), QStringLiteral("lib_x"));
    EXPECT_EQ(libraryEntityNameFromString(QStringLiteral("")), QStringLiteral("lib_library"));
    EXPECT_EQ(libraryEntityNameFromString(QStringLiteral("Sales.")), QStringLiteral("lib_library"));
}

TEST(Naming, TheFirstConversionOfAnEntityStays)
{
    forgetEverything();
    EXPECT_EQ(entityStringFromString(QStringLiteral("Books")), QStringLiteral("Books"));
    EXPECT_EQ(libraryEntityNameFromString(QStringLiteral("Books")), QStringLiteral("Books"));
    EXPECT_EQ(libraryEntityNameFromString(QStringLiteral("Films")), QStringLiteral("lib_films"));
    EXPECT_EQ(entityStringFromString(QStringLiteral("Films")), QStringLiteral("lib_films"));
}

TEST(Naming, TrimmedTextsShareTheCachedObject)
{
    forgetEverything();
    const QString plain = propertyStringFromString(QStringLiteral("First Name"));
    const QString padded = propertyStringFromString(QStringLiteral(" \n First Name\t"));
    EXPECT_EQ(padded.constData(), plain.constData());
    EXPECT_EQ(KTStringTransformCache::sharedCache()->domain(QStringLiteral("properties")).size(),
              1);
}

TEST(Naming, FiltersNeverPassBlanks)
{
    const NSCharacterSet everything([](char32_t) { return true; });
    EXPECT_EQ(stringWithString(QStringLiteral(" a b\n\u00A0c\u2003"), everything),
              QStringLiteral("abc"));
    EXPECT_EQ(stringWithString(QStringLiteral("a😀b"), NSCharacterSet::symbolCharacterSet()),
              QStringLiteral("😀"));
}

TEST(Naming, NilStaysNilAndIsNotRemembered)
{
    forgetEverything();
    for (const auto &[name, transform] : transforms())
        EXPECT_TRUE(transform(QString()).isNull()) << name.toStdString();
    EXPECT_TRUE(stringWithString(QString(), NSCharacterSet()).isNull());
    EXPECT_TRUE(bumpyCaseStringFromString(QString(), true).isNull());
    EXPECT_TRUE(
        KTStringTransformCache::sharedCache()->domain(QStringLiteral("entities")).isEmpty());
}

TEST(Naming, HostileTextsGetAnAnswer)
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

TEST(KTStringTransformCache, StoresPerDomainAndReplaces)
{
    KTStringTransformCache cache;
    const QString domain = QStringLiteral("mine");
    EXPECT_TRUE(cache.transformedStringForOriginalString(QStringLiteral("A"), domain).isNull());
    cache.addTransformedString(QStringLiteral("kt_a"), QStringLiteral("A"), domain);
    EXPECT_EQ(cache.transformedStringForOriginalString(QStringLiteral("A"), domain),
              QStringLiteral("kt_a"));
    cache.addTransformedString(QStringLiteral("kt_b"), QStringLiteral("A"), domain);
    EXPECT_EQ(cache.transformedStringForOriginalString(QStringLiteral("A"), domain),
              QStringLiteral("kt_b"));
    EXPECT_TRUE(
        cache.transformedStringForOriginalString(QStringLiteral("A"), QStringLiteral("other"))
            .isNull());
}

TEST(KTStringTransformCache, FindsTheSmallestOriginal)
{
    KTStringTransformCache cache;
    const QString domain = QStringLiteral("mine");
    for (const char16_t *original : {u"b", u"a", u"Z", u"ä"})
        cache.addTransformedString(QStringLiteral("x"), QString::fromUtf16(original), domain);
    EXPECT_EQ(cache.originalStringForTransformedString(QStringLiteral("x"), domain),
              QStringLiteral("Z"));
    EXPECT_TRUE(cache.originalStringForTransformedString(QStringLiteral("y"), domain).isNull());
    EXPECT_TRUE(cache.originalStringForTransformedString(QStringLiteral("x"), QString()).isNull());
}

TEST(KTStringTransformCache, TakesNoNil)
{
    KTStringTransformCache cache;
    cache.addTransformedString(QString(), QStringLiteral("a"), QStringLiteral("d"));
    cache.addTransformedString(QStringLiteral("a"), QString(), QStringLiteral("d"));
    EXPECT_TRUE(cache.domain(QStringLiteral("d")).isEmpty());
}

TEST(KTStringTransformCache, IsOneForTheProcessAndDomainsStay)
{
    auto *cache = KTStringTransformCache::sharedCache();
    EXPECT_EQ(cache, KTStringTransformCache::sharedCache());
    auto &domain = cache->domain(QStringLiteral("stays"));
    for (int index = 0; index < 1000; ++index)
        cache->domain(QString::number(index));
    EXPECT_EQ(&domain, &cache->domain(QStringLiteral("stays")));
}

TEST(KTString_KTDataTransformer, EveryRowGivesItsResult)
{
    const KTString_KTDataTransformer transformer;
    int rows = 0;
    for (const QJsonObject &row : rowsOf(QStringLiteral("system/naming.jsonl"))) {
        const QString operation = row.value(QStringLiteral("op")).toString();
        const QJsonObject arguments = row.value(QStringLiteral("args")).toObject();
        const QVariant expected = row.value(QStringLiteral("out")).toVariant();
        if (operation == u"transformedValue:") {
            const QByteArray data =
                QByteArray::fromHex(arguments.value(QStringLiteral("hex")).toString().toLatin1());
            const QVariant result = transformer.transformedValue(data);
            EXPECT_EQ(result.isValid(), !expected.isNull());
            EXPECT_EQ(result.toString(), expected.toString());
        } else if (operation == u"reverseTransformedValue:") {
            const QVariant result = transformer.reverseTransformedValue(
                arguments.value(QStringLiteral("s")).toVariant());
            EXPECT_EQ(result.toByteArray().toHex(), expected.toByteArray());
        } else {
            continue;
        }
        ++rows;
    }
    EXPECT_EQ(rows, 4);
}

TEST(KTString_KTDataTransformer, RefusesWhatIsNotItsKind)
{
    const KTString_KTDataTransformer transformer;
    EXPECT_EQ(transformer.transformedValueClass(), QMetaType::fromType<QString>());
    EXPECT_TRUE(transformer.allowsReverseTransformation());
    EXPECT_FALSE(transformer.transformedValue(QVariant()).isValid());
    EXPECT_FALSE(transformer.transformedValue(5).isValid());
    EXPECT_FALSE(transformer.reverseTransformedValue(QVariant()).isValid());
    EXPECT_FALSE(transformer.reverseTransformedValue(QString()).isValid());
    EXPECT_FALSE(transformer.transformedValue(QByteArray("\xC3")).isValid());
    EXPECT_FALSE(transformer.transformedValue(QByteArray("\xED\xA0\x80")).isValid());
    EXPECT_FALSE(transformer.transformedValue(QByteArray("\xC0\x80")).isValid());
    EXPECT_EQ(transformer.transformedValue(QByteArray("")).toString(), QString());
    EXPECT_TRUE(transformer.transformedValue(QByteArray("")).isValid());
    EXPECT_EQ(transformer.transformedValue(QByteArray("\xEF\xBB\xBFx")).toString().size(), 2);
}
