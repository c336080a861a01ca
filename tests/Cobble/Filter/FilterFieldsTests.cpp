#include "Filter/FilterFields.h"

#include "FilterSupport.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace filter_support;

TEST(FilterFields, AreFoundByEachOfTheirNames)
{
    const FilterFields fields(people());
    for (const QString &name : {u"First name"_s, u"FIRST NAME"_s, u"first\tname"_s, u"Fírst name"_s,
                                u"firstname"_s, u"kt_first_name"_s})
        EXPECT_EQ(fields.named(name).valueOr(-1), 1) << name.toStdString();
    EXPECT_EQ(fields.named(u"kt_first_name"_s, FilterNotation::Portable).valueOr(-1), 1);
    EXPECT_FALSE(fields.named(u"First name"_s, FilterNotation::Portable));
    for (const QString &name : {u""_s, u" "_s, u"First"_s})
        EXPECT_FALSE(fields.named(name)) << name.toStdString();
}

TEST(FilterFields, TitlesComeBeforeOtherNames)
{
    Library library = people();
    library.fields[3].header = u"kt_name"_s;
    const FilterFields fields(library);
    EXPECT_EQ(*fields.named(u"kt_name"_s), 3);
    EXPECT_EQ(*fields.named(u"kt_name"_s, FilterNotation::Portable), 0);
}

TEST(FilterFields, HaveNamesByWhichTheyAreFound)
{
    Library library = people();
    library.fields[1].header = u"Name"_s;
    library.fields[2].header = u"  "_s;
    library.fields[3].header = u"two\nlines"_s;
    library.fields[4].header = u"name"_s;
    const FilterFields fields(library);
    for (qsizetype field = 0; field < fields.count(); ++field) {
        for (const FilterNotation notation : {FilterNotation::Typed, FilterNotation::Portable})
            EXPECT_EQ(fields.named(fields.nameOf(field, notation), notation).valueOr(-1), field);
    }
}
