#include "DataCommands/FieldNames.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
Library library()
{
    Library library;
    for (const auto &[header, column] :
         {std::pair(u"a=b"_s, u"kt_ab"_s), {u"A"_s, u"kt_a"_s}, {u"a"_s, u"kt_a1"_s}}) {
        LibraryField field;
        field.header = header;
        field.columnName = column;
        library.fields += field;
    }
    return library;
}
} // namespace

TEST(FieldNames, FindsFieldsByTheirNames)
{
    const struct
    {
        QString name;
        qsizetype field;
    } rows[] = {{u"A"_s, 1},     {u"a"_s, 2},  {u"A=B"_s, 0},
                {u"kt_a1"_s, 2}, {u"b"_s, -1}, {u""_s, -1}};
    for (const auto &row : rows)
        EXPECT_EQ(FieldNames::indexOf(library(), row.name), row.field) << row.name.toStdString();
}

TEST(FieldNames, TakesTheLongestNameThatStandsBeforeASign)
{
    const struct
    {
        QString text;
        qsizetype field;
        QString value;
    } rows[] = {
        {u"a=b=c"_s, 0, u"c"_s}, {u"a=c=d"_s, 2, u"c=d"_s}, {u"A="_s, 1, u""_s},
        {u"=a"_s, -1, u""_s},    {u"b=1"_s, -1, u""_s},
    };
    for (const auto &row : rows) {
        const FieldNames::Assignment assignment = FieldNames::assignmentIn(library(), row.text);
        EXPECT_EQ(assignment.field, row.field) << row.text.toStdString();
        EXPECT_EQ(assignment.value, row.value) << row.text.toStdString();
    }
    EXPECT_EQ(FieldNames::assignmentIn(library(), u"b=1=2"_s).name, u"b"_s);
}
