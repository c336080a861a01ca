#include "Library/Library.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(Library, TitlesOfFieldsFallBack)
{
    LibraryField field;
    field.columnName = u"kt_field"_s;
    EXPECT_EQ(field.title(), u"kt_field"_s);
    field.label = u"Label"_s;
    EXPECT_EQ(field.title(), u"Label"_s);
    field.header = u"Header"_s;
    EXPECT_EQ(field.title(), u"Header"_s);
}
