#include "DataSupport.h"

#include "Library/LibraryStore.h"

using namespace Qt::StringLiterals;

using testing_support::DataCommandTest;

namespace {
class SetCommandTests : public DataCommandTest
{
};
} // namespace

TEST_F(SetCommandTests, ChangesValuesOfSeveralRecordsInOneStep)
{
    EXPECT_EQ(done({u"set"_s, u"People"_s, u"1"_s, u"2"_s, u"1"_s, u"age=1,040"_s, u"Name=Eve"_s,
                    u"--locale"_s, u"en_US"_s}),
              u"Changed 2 records of 'People'\n"_s);
    EXPECT_EQ(valuesOf(u"Age"_s), QJsonArray({1040, 1040}));
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray({u"Eve"_s, u"Eve"_s}));
    done({u"undo"_s});
    EXPECT_EQ(valuesOf(u"Age"_s), QJsonArray({31, QJsonValue()}));
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray({u"Ann"_s, u"Bob"_s}));
}

TEST_F(SetCommandTests, NothingEmptiesAField)
{
    done({u"set"_s, u"People"_s, u"1"_s, u"Age="_s});
    EXPECT_TRUE(valuesOf(u"Age"_s).first().isNull());
}

TEST_F(SetCommandTests, WhatChangesNothingIsNoStep)
{
    const QJsonObject object = doneAsJSON({u"set"_s, u"People"_s, u"1"_s, u"Name=Ann"_s});
    EXPECT_TRUE(object.value(u"step"_s).isNull());
}

TEST_F(SetCommandTests, ReadsRecordsFromTheStandardInput)
{
    const CommandResult result =
        runWithInput({u"set"_s, u"People"_s, u"--json"_s},
                     "{\"records\": [{\"id\": 2, \"values\": {\"Paid\": \"0.123456789012345678\"}},"
                     "{\"id\": 1, \"values\": {\"Name\": \"Al\", \"Age\": null}}]}");
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    const QJsonObject object = QJsonDocument::fromJson(result.output.toUtf8()).object();
    EXPECT_EQ(object.value(u"records"_s).toArray(), QJsonArray({2, 1}));
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray({u"Al"_s, u"Bob"_s}));
    EXPECT_EQ(valuesOf(u"Age"_s), QJsonArray({QJsonValue(), QJsonValue()}));
    EXPECT_EQ(valuesOf(u"Paid"_s), QJsonArray({5.5, u"0.123456789012345678"_s}));
}

TEST_F(SetCommandTests, ARecordOfTheStandardInputNeedsItsNumber)
{
    const CommandResult result =
        runWithInput({u"set"_s, u"People"_s, u"--json"_s}, "{\"values\": {\"Name\": \"Al\"}}");
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.errors, u"cobble: "_s + bundle + u": a record has no \"id\"\n"_s);
}

TEST_F(SetCommandTests, ChangesAllRecordsOrNone)
{
    const struct
    {
        QStringList arguments;
        QString failure;
    } rows[] = {
        {{u"1"_s, u"7"_s, u"Name=Eve"_s}, u"4 no record 7 in 'People'"_s},
        {{u"1"_s, u"Nmae=Eve"_s}, u"4 no field 'Nmae' in 'People'"_s},
        {{u"1"_s, u"Name"_s}, u"2 cobble: 'Name' is not FIELD=VALUE"_s},
        {{u"Name=Eve"_s}, u"2 cobble: set needs numbers of records and FIELD=VALUE"_s},
        {{u"1"_s}, u"2 cobble: set needs numbers of records and FIELD=VALUE"_s},
        {{u"99999999999999999999"_s, u"A=1"_s}, u"2 cobble: bad number '99999999999999999999'"_s},
    };
    for (const auto &row : rows)
        EXPECT_EQ(failed(QStringList{u"set"_s, u"People"_s} + row.arguments), row.failure);
    EXPECT_EQ(failed({u"set"_s, u"People"_s, u"1"_s, u"Name=Eve"_s, u"Age=old"_s}).first(14),
              u"3 Age: 'old': "_s);
}

TEST_F(SetCommandTests, TellsThatSomebodyElseIsWriting)
{
    auto other = LibraryStore::open(KTDatabaseBundle(bundle), LibraryStore::Mode::Existing);
    ASSERT_TRUE((*other)->beginChange());
    const CommandResult result = run({u"set"_s, u"People"_s, u"1"_s, u"Name=Eve"_s});
    (*other)->rollback();
    EXPECT_EQ(result.exitCode, 6);
    EXPECT_EQ(result.errors, u"cobble: "_s + bundle + u": database is locked\n"_s);
}

TEST_F(SetCommandTests, WithoutADatabaseThereIsNothing)
{
    bundle = tree.path(u"none.cobbledb"_s);
    EXPECT_EQ(failed({u"set"_s, u"People"_s, u"1"_s, u"Name=Eve"_s}), u"4 there is no database"_s);
    EXPECT_FALSE(QFile::exists(bundle));
}
