#include "Import/ImportSchema.h"

#include "support/TestSupport.h"

#include <KTUtility/NSArray_KTAdditions>

#include <QSet>

namespace {
QStringList internalNamesOf(const QStringList &headers)
{
    QStringList names;
    for (const ImportColumn &column :
         ImportSchema::fromHeaders(QStringLiteral("contacts"), headers).columns)
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
        ImportSchema::fromHeaders(QStringLiteral("contacts"), texts({u"E-mail", u"e mail"}));
    EXPECT_EQ(schema.tableName, QStringLiteral("kt_contacts"));
    EXPECT_EQ(schema.columns.at(0).columnName, QStringLiteral("kt_email"));
    EXPECT_EQ(schema.columns.at(1).columnName, QStringLiteral("kt_eMail1"));
}

TEST(ImportSchema, NamesTheLibrary)
{
    const ImportSchema schema = ImportSchema::fromHeaders(QStringLiteral("My Contacts"), {});
    EXPECT_EQ(schema.libraryName, QStringLiteral("My Contacts"));
    EXPECT_EQ(schema.libraryEntityName, QStringLiteral("lib_my_contacts"));
    EXPECT_EQ(schema.entityName, QStringLiteral("MyContacts"));
    EXPECT_EQ(schema.tableName, QStringLiteral("kt_my_contacts"));
    EXPECT_TRUE(schema.columns.isEmpty());
}

TEST(ImportSchema, EntityAndLibraryEntityDoNotDecideForEachOther)
{
    for (int round = 0; round < 2; ++round) {
        const ImportSchema schema = ImportSchema::fromHeaders(QStringLiteral("Garden Tools"), {});
        EXPECT_EQ(schema.entityName, QStringLiteral("GardenTools"));
        EXPECT_EQ(schema.libraryEntityName, QStringLiteral("lib_garden_tools"));
    }
}

TEST(ImportSchema, NamesOfAColumn)
{
    const ImportColumn column =
        ImportSchema::fromHeaders(QStringLiteral("x"), texts({u"Date of birth"})).columns.first();
    EXPECT_EQ(column.header, QStringLiteral("Date of birth"));
    EXPECT_EQ(column.label, QStringLiteral("Date Of Birth"));
    EXPECT_EQ(column.propertyString, QStringLiteral("dateOfBirth"));
    EXPECT_EQ(column.internalName, QStringLiteral("dateOfBirth"));
    EXPECT_EQ(column.columnName, QStringLiteral("kt_dateOfBirth"));
}

class ImportSchemaClashes : public testing::TestWithParam<ClashCase>
{
};

TEST_P(ImportSchemaClashes, InternalNamesAre)
{
    EXPECT_EQ(internalNamesOf(GetParam().headers), GetParam().internalNames);
}

INSTANTIATE_TEST_SUITE_P(
    All, ImportSchemaClashes,
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
    for (const ImportColumn &column :
         ImportSchema::fromHeaders(QStringLiteral("x"), headers).columns)
        EXPECT_EQ(column.columnName, QString(u"kt_" + column.internalName));
}

TEST(ImportSchema, NoTwoColumnsShareANameWhateverTheHeaders)
{
    QStringList headers;
    for (int number = 0; number < 300; ++number) {
        headers +=
            number % 3 == 0 ? QStringLiteral("A a") : QStringLiteral("aA%1").arg(number % 40);
        headers += QString(number % 7, u' ');
    }
    QSet<QString> seen;
    for (const ImportColumn &column :
         ImportSchema::fromHeaders(QStringLiteral("x"), headers).columns)
        seen.insert(column.columnName.toLower());
    EXPECT_EQ(seen.size(), headers.size());
}

TEST(ImportSchema, ColumnsAnswerKeys)
{
    const ImportSchema schema =
        ImportSchema::fromHeaders(QStringLiteral("x"), texts({u"First Name", u"E-mail"}));
    const auto found = KTAdditions::objectWithValue(schema.columns, QStringLiteral("kt_email"),
                                                    QStringLiteral("columnName"));
    EXPECT_EQ(NSKeyValueCoding::valueForKey(schema.columns.first(), QStringLiteral("label")),
              QVariant(QStringLiteral("First Name")));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->header, QStringLiteral("E-mail"));
}

TEST(ImportSchema, HostileHeadersGetUsableNames)
{
    const QStringList headers(testing_support::hostileTexts());
    const ImportSchema schema = ImportSchema::fromHeaders(QStringLiteral("x"), headers);
    ASSERT_EQ(schema.columns.size(), headers.size());
    for (const ImportColumn &column : schema.columns)
        EXPECT_FALSE(column.internalName.isEmpty());
}

TEST(ImportSchema, EntityNames)
{
    EXPECT_EQ(entityNameForText(QStringLiteral("First Name")), QStringLiteral("FirstName"));
    EXPECT_EQ(entityNameForText(QStringLiteral("org.example.wine list")),
              QStringLiteral("WineList"));
    EXPECT_EQ(entityNameForText(QStringLiteral("ends.")), QStringLiteral(""));
    EXPECT_TRUE(entityNameForText(QString()).isEmpty());
}
