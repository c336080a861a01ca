#include "Appearance/FieldTitle.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
LibraryField field(const QString &header, const QString &label)
{
    LibraryField field;
    field.columnName = u"kt_field"_s;
    field.header = header;
    field.label = label;
    return field;
}
} // namespace

TEST(FieldTitle, IsNeverTheNameOfAColumn)
{
    EXPECT_EQ(FieldTitle::of(field(u"Name"_s, u"name"_s)), u"Name"_s);
    EXPECT_EQ(FieldTitle::of(field(u" "_s, u"name"_s)), u"name"_s);
    EXPECT_EQ(FieldTitle::of(field({}, {})), u"Untitled"_s);
    EXPECT_EQ(FieldTitle::of(field(u" "_s, u" "_s)), u"Untitled"_s);
}

TEST(FieldTitle, LabelsEndInOneMark)
{
    const struct
    {
        QString title;
        QString label;
    } rows[] = {
        {u"Name"_s, u"Name:"_s},           {u"Birthday?"_s, u"Birthday?"_s},
        {u"Name: "_s, u"Name: "_s},        {u"No."_s, u"No."_s},
        {u"A & B"_s, u"A && B:"_s},        {u"結婚？"_s, u"結婚？"_s},
        {QString(u""_s), QString(u":"_s)},
    };
    for (const auto &row : rows)
        EXPECT_EQ(FieldTitle::label(row.title), row.label);
}
