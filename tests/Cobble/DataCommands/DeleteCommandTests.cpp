#include "DataSupport.h"

using namespace Qt::StringLiterals;

using testing_support::DataCommandTest;

namespace {
class DeleteCommandTests : public DataCommandTest
{
};
} // namespace

TEST_F(DeleteCommandTests, DeletesRecordsByTheirNumbers)
{
    EXPECT_EQ(done({u"delete"_s, u"People"_s, u"1"_s}), u"Deleted 1 record of 'People'\n"_s);
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray({u"Bob"_s}));
    const QJsonObject object = doneAsJSON({u"delete"_s, u"People"_s, u"2"_s, u"02"_s});
    EXPECT_EQ(object.value(u"records"_s).toArray(), QJsonArray({2}));
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray());
    done({u"undo"_s});
    done({u"undo"_s});
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray({u"Ann"_s, u"Bob"_s}));
}

TEST_F(DeleteCommandTests, TheLibraryIsDeletedWhenThatIsSaid)
{
    EXPECT_EQ(done({u"delete"_s, u"people"_s, u"--library"_s}),
              u"Deleted the library 'People'\n"_s);
    EXPECT_EQ(doneAsJSON({u"show"_s}).value(u"libraries"_s).toArray(), QJsonArray());
    done({u"undo"_s});
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray({u"Ann"_s, u"Bob"_s}));
}

TEST_F(DeleteCommandTests, DeletesAllThatIsNamedOrNothing)
{
    EXPECT_EQ(failed({u"delete"_s, u"People"_s, u"1"_s, u"3"_s}), u"4 no record 3 in 'People'"_s);
    EXPECT_EQ(failed({u"delete"_s, u"None"_s, u"1"_s}), u"4 no library 'None'"_s);
    EXPECT_EQ(failed({u"delete"_s, u"People"_s, u"1"_s, u"Ann"_s}),
              u"2 cobble: 'Ann' is no number of a record"_s);
    EXPECT_EQ(failed({u"delete"_s}), u"2 cobble: delete needs the name of a library"_s);
    // As if a script has found no numbers.
    const QString unclear =
        u"2 cobble: delete needs the numbers of records, or --library for all of it"_s;
    EXPECT_EQ(failed({u"delete"_s, u"People"_s}), unclear);
    EXPECT_EQ(failed({u"delete"_s, u"People"_s, u"1"_s, u"--library"_s}), unclear);
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray({u"Ann"_s, u"Bob"_s}));
}
