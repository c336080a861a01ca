#include "DataSupport.h"

using namespace Qt::StringLiterals;

using testing_support::DataCommandTest;

namespace {
class RenameCommandTests : public DataCommandTest
{
};
} // namespace

TEST_F(RenameCommandTests, GivesALibraryAnotherName)
{
    EXPECT_EQ(done({u"rename"_s, u"People"_s, u"Friends"_s}), u"Renamed 'People' to 'Friends'\n"_s);
    EXPECT_EQ(shown(u"Friends"_s).value(u"table"_s).toString(), u"kt_people"_s);
    done({u"undo"_s});
    EXPECT_EQ(shown(u"People"_s).value(u"library"_s).toString(), u"People"_s);
}

TEST_F(RenameCommandTests, OnlyTheCaseOfANameCanChange)
{
    done({u"rename"_s, u"People"_s, u"PEOPLE"_s});
    EXPECT_EQ(shown(u"PEOPLE"_s).value(u"library"_s).toString(), u"PEOPLE"_s);
    done({u"rename"_s, u"PEOPLE"_s, u"NAME"_s, u"--field"_s, u"Name"_s});
    EXPECT_EQ(fieldNames().first(), u"NAME"_s);
}

TEST_F(RenameCommandTests, GivesAFieldAnotherName)
{
    const QJsonObject object =
        doneAsJSON({u"rename"_s, u"People"_s, u"Years"_s, u"--field"_s, u"age"_s});
    EXPECT_EQ(object.value(u"field"_s).toString(), u"Years"_s);
    EXPECT_EQ(fieldNames().at(1), u"Years"_s);
    EXPECT_EQ(valuesOf(u"Years"_s), QJsonArray({31, QJsonValue()}));
}

TEST_F(RenameCommandTests, TakesNoNameThatAnotherHas)
{
    done({u"new"_s, u"Things"_s});
    const struct
    {
        QStringList arguments;
        QString failure;
    } rows[] = {
        {{u"People"_s, u"things"_s}, u"5 there is a library 'Things'"_s},
        {{u"None"_s, u"Some"_s}, u"4 no library 'None'"_s},
        {{u"People"_s, u"name"_s, u"--field"_s, u"Age"_s}, u"5 there is a field 'Name'"_s},
        {{u"People"_s, u"A"_s, u"--field"_s, u"None"_s}, u"4 no field 'None' in 'People'"_s},
        {{u"People"_s, u" "_s}, u"2 cobble: the new name is empty"_s},
        {{u"People"_s}, u"2 cobble: rename needs a library and a new name"_s},
    };
    for (const auto &row : rows)
        EXPECT_EQ(failed(QStringList{u"rename"_s} + row.arguments), row.failure);
}
