#include "Import/ImportSchema.h"

#include "support/TestSupport.h"

#include <KTUtility/NSArray_KTAdditions>

#include <QSet>

using namespace Qt::StringLiterals;

namespace {
QStringList internalNamesOf(const QStringList &headers)
{
    QStringList names;
    for (const ImportColumn &column : ImportSchema::fromHeaders(u"contacts"_s, headers).columns)
        names += column.internalName;
    return names;
}

QStringList texts(std::initializer_list<const char16_t *> list)
{
    QStringList result;
    for (const char16_t *text : list)
        result += QString::fromUtf16(text);
    return result;
}

struct ClashCase
{
    const char *name;
    QStringList headers;
    QStringList internalNames;
};

void PrintTo(const ClashCase &row, std::ostream *stream)
{
    *stream << row.name;
}
} // namespace

TEST(ImportSchema, TheExampleOfTheHeader)
{
    const ImportSchema schema =
        ImportSchema::fromHeaders(u"contacts"_s, texts({u"E-mail", u"e mail"}));
    EXPECT_EQ(schema.tableName, u"kt_contacts"_s);
    EXPECT_EQ(schema.columns.at(0).columnName, u"kt_email"_s);
    EXPECT_EQ(schema.columns.at(1).columnName, u"kt_eMail1"_s);
}

TEST(ImportSchema, NamesTheLibrary)
{
    const ImportSchema schema = ImportSchema::fromHeaders(u"My Contacts"_s, {});
    EXPECT_EQ(schema.libraryName, u"My Contacts"_s);
    EXPECT_EQ(schema.libraryEntityName, u"lib_my_contacts"_s);
    EXPECT_EQ(schema.entityName, u"MyContacts"_s);
    EXPECT_EQ(schema.tableName, u"kt_my_contacts"_s);
    EXPECT_TRUE(schema.columns.isEmpty());
}

TEST(ImportSchema, EntityAndLibraryEntityDoNotDecideForEachOther)
{
    for (int round = 0; round < 2; ++round) {
        const ImportSchema schema = ImportSchema::fromHeaders(u"Garden Tools"_s, {});
        EXPECT_EQ(schema.entityName, u"GardenTools"_s);
        EXPECT_EQ(schema.libraryEntityName, u"lib_garden_tools"_s);
    }
}

TEST(ImportSchema, DerivesTheNamesOfAColumn)
{
    const ImportColumn column =
        ImportSchema::fromHeaders(u"x"_s, texts({u"Date of birth"})).columns.first();
    EXPECT_EQ(column.header, u"Date of birth"_s);
    EXPECT_EQ(column.label, u"Date Of Birth"_s);
    EXPECT_EQ(column.propertyString, u"dateOfBirth"_s);
    EXPECT_EQ(column.internalName, u"dateOfBirth"_s);
    EXPECT_EQ(column.columnName, u"kt_dateOfBirth"_s);
}

class ImportSchemaTests : public testing::TestWithParam<ClashCase>
{
};

TEST_P(ImportSchemaTests, InternalNamesThatClashAreNumbered)
{
    EXPECT_EQ(internalNamesOf(GetParam().headers), GetParam().internalNames);
}

INSTANTIATE_TEST_SUITE_P(
    All, ImportSchemaTests,
    testing::Values(
        ClashCase{"None", texts({u"a", u"b"}), texts({u"a", u"b"})},
        ClashCase{"Same", texts({u"a", u"a", u"a"}), texts({u"a", u"a1", u"a2"})},
        ClashCase{"Capitals", texts({u"Balance", u"balance"}), texts({u"balance", u"balance1"})},
        ClashCase{"CapitalsWithin", texts({u"E-mail", u"e mail"}), texts({u"email", u"eMail1"})},
        ClashCase{"Punctuation", texts({u"Birthday?", u"birthday!"}),
                  texts({u"birthday", u"birthday1"})},
        ClashCase{"Accents", texts({u"Téléphone", u"TÉLÉPHONE"}),
                  texts({u"téléphone", u"tÉLÉPHONE1"})},
        ClashCase{"Empty", texts({u"", u"", u"  "}), texts({u"field", u"field1", u"field2"})},
        ClashCase{"NoLetters", texts({u"?", u"--"}), texts({u"field", u"field1"})},
        ClashCase{"EmptyAndField", texts({u"Field", u"", u"field"}),
                  texts({u"field", u"field1", u"field2"})},
        ClashCase{"NumberTakenBefore", texts({u"a1", u"a", u"a"}), texts({u"a1", u"a", u"a2"})},
        ClashCase{"NumberTakenLater", texts({u"a", u"a", u"a1"}), texts({u"a", u"a1", u"a11"})},
        ClashCase{"OtherScripts", texts({u"公司", u"公司", u"שם"}),
                  texts({u"公司", u"公司1", u"שם"})}),
    [](const auto &row) { return row.param.name; });

TEST(ImportSchema, ColumnNamesFollowTheInternalNames)
{
    const QStringList headers = texts({u"First Name", u"first name", u"", u"?", u"URL", u"公司"});
    for (const ImportColumn &column : ImportSchema::fromHeaders(u"x"_s, headers).columns)
        EXPECT_EQ(column.columnName, QString(u"kt_" + column.internalName));
}

TEST(ImportSchema, NoTwoColumnsShareANameWhateverTheHeaders)
{
    QStringList headers;
    for (int number = 0; number < 300; ++number) {
        headers += number % 3 == 0 ? u"A a"_s : u"aA%1"_s.arg(number % 40);
        headers += QString(number % 7, u' ');
    }
    QSet<QString> seen;
    for (const ImportColumn &column : ImportSchema::fromHeaders(u"x"_s, headers).columns)
        seen.insert(column.columnName.toLower());
    EXPECT_EQ(seen.size(), headers.size());
}

TEST(ImportSchema, ColumnsAnswerKeys)
{
    const ImportSchema schema =
        ImportSchema::fromHeaders(u"x"_s, texts({u"First Name", u"E-mail"}));
    const auto found = KTAdditions::objectWithValue(schema.columns, u"kt_email"_s, u"columnName"_s);
    EXPECT_EQ(NSKeyValueCoding::valueForKey(schema.columns.first(), u"label"_s),
              QVariant(u"First Name"_s));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->header, u"E-mail"_s);
}

TEST(ImportSchema, HostileHeadersGetUsableNames)
{
    const QStringList headers(testing_support::hostileTexts());
    const ImportSchema schema = ImportSchema::fromHeaders(u"x"_s, headers);
    ASSERT_EQ(schema.columns.size(), headers.size());
    for (const ImportColumn &column : schema.columns)
        EXPECT_FALSE(column.internalName.isEmpty());
}

TEST(ImportSchema, MakesEntityNames)
{
    EXPECT_EQ(entityNameForText(u"First Name"_s), u"FirstName"_s);
    EXPECT_EQ(entityNameForText(u"org.example.wine list"_s), u"WineList"_s);
    EXPECT_EQ(entityNameForText(u"ends."_s), u""_s);
    EXPECT_TRUE(entityNameForText(QString()).isEmpty());
}
