#include "Journal/CatalogueChange.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
Library sample()
{
    Library library;
    library.name = u"Größen \"1\""_s;
    library.libraryEntityName = u"lib"_s;
    library.entityName = u"Sizes"_s;
    library.tableName = u"kt_sizes"_s;
    LibraryField field;
    field.columnName = u"kt_size"_s;
    field.header = u"Size\n"_s;
    field.label = u"Size"_s;
    field.propertyName = u"size"_s;
    field.type = FieldType::DateTime;
    field.options = {{u"currencyType"_s, u"EUR"_s}, {u"x"_s, 5}};
    library.fields = {field};
    return library;
}
} // namespace

TEST(CatalogueChange, ComesBackWhole)
{
    const auto read = CatalogueChange::read(CatalogueChange{sample(), std::nullopt}.bytes());
    ASSERT_TRUE(read);
    ASSERT_TRUE(read->before);
    EXPECT_TRUE(CatalogueChange::areEqual(*read->before, sample()));
    EXPECT_EQ(read->before->fields[0].type, FieldType::DateTime);
    EXPECT_FALSE(read->after);
}

TEST(CatalogueChange, TellsLibrariesApartByAllThatTheyHave)
{
    const QList<std::function<void(Library &)>> changes = {
        [](Library &library) { library.name = u"x"_s; },
        [](Library &library) { library.entityName = u"x"_s; },
        [](Library &library) { library.libraryEntityName = u"x"_s; },
        [](Library &library) { library.tableName = u"x"_s; },
        [](Library &library) { library.fields += library.fields; },
        [](Library &library) { library.fields[0].columnName = u"x"_s; },
        [](Library &library) { library.fields[0].header = u"x"_s; },
        [](Library &library) { library.fields[0].label = u"x"_s; },
        [](Library &library) { library.fields[0].propertyName = u"x"_s; },
        [](Library &library) { library.fields[0].type = FieldType::Text; },
        [](Library &library) { library.fields[0].options.clear(); },
    };
    for (const auto &change : changes) {
        Library other = sample();
        EXPECT_TRUE(CatalogueChange::areEqual(sample(), other));
        change(other);
        EXPECT_FALSE(CatalogueChange::areEqual(sample(), other));
    }
}

TEST(CatalogueChange, BytesOfAnybodyElseAreAnError)
{
    for (const char *bytes : {"", "x", "[]", "{}", "{\"before\":5}", "{\"before\":null}"})
        EXPECT_EQ(CatalogueChange::read(bytes).reason(), u"the step cannot be read"_s) << bytes;
}
