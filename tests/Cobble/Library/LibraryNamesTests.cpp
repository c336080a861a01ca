#include "Library/LibraryNames.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(LibraryNames, AreUniqueWhateverTheirCase)
{
    EXPECT_EQ(LibraryNames::unique(u"a"_s, {}), u"a"_s);
    EXPECT_EQ(LibraryNames::unique(u"a"_s, {u"A"_s, u"b"_s}), u"a1"_s);
    EXPECT_EQ(LibraryNames::unique(u"a"_s, {u"A"_s, u"A1"_s, u"a2"_s}), u"a3"_s);
}

TEST(LibraryNames, OfFieldsComeFromTheHeader)
{
    LibraryField field;
    field.header = u"Date of birth"_s;
    const LibraryField made = LibraryNames::completed(field, {u"KT_DATEOFBIRTH"_s});
    EXPECT_EQ(made.columnName, u"kt_dateOfBirth1"_s);
    EXPECT_EQ(made.propertyName, u"dateOfBirth"_s);
    EXPECT_FALSE(made.label.isEmpty());
    field.header = u"?"_s;
    EXPECT_EQ(LibraryNames::completed(field, {}).columnName, u"kt_field"_s);
    field.columnName = u"ID"_s;
    EXPECT_EQ(LibraryNames::completed(field, {}).columnName, u"ID1"_s);
}

TEST(LibraryNames, OfLibrariesComeFromTheName)
{
    Library library;
    library.name = u"My People"_s;
    library.fields.resize(2);
    const Library made = LibraryNames::completed(library, {u"kt_mypeople"_s});
    EXPECT_TRUE(made.tableName.startsWith(u"kt_"_s));
    EXPECT_FALSE(made.entityName.isEmpty());
    EXPECT_FALSE(made.libraryEntityName.isEmpty());
    EXPECT_EQ(made.fields[0].columnName, u"kt_field"_s);
    EXPECT_EQ(made.fields[1].columnName, u"kt_field1"_s);
    library.tableName = u"mine"_s;
    EXPECT_EQ(LibraryNames::completed(library, {u"MINE"_s}).tableName, u"mine1"_s);
}
