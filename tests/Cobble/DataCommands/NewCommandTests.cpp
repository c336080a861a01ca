#include "DataSupport.h"

using namespace Qt::StringLiterals;

using testing_support::DataCommandTest;

namespace {
class NewCommandTests : public DataCommandTest
{
};
} // namespace

TEST_F(NewCommandTests, MakesALibraryOfTheFieldsGiven)
{
    EXPECT_EQ(fieldNames(), QStringList({u"Name"_s, u"Age"_s, u"Paid"_s, u"Born"_s, u"Photo"_s}));
    QStringList types;
    for (const QJsonValue &field : shown().value(u"fields"_s).toArray())
        types += field[u"type"].toString();
    EXPECT_EQ(types, QStringList({u"text"_s, u"number"_s, u"currency"_s, u"date"_s, u"media"_s}));
    EXPECT_EQ(shown().value(u"fields"_s)[2][u"options"][u"currencyType"].toString(), u"USD"_s);
}

TEST_F(NewCommandTests, MakesALibraryInABundleThatIsNotThere)
{
    bundle = tree.path(u"other.cobbledb"_s);
    EXPECT_EQ(done({u"new"_s, u"Things"_s}), u"Made the library 'Things'\n"_s);
    EXPECT_EQ(shown(u"Things"_s).value(u"fields"_s)[0][u"name"].toString(), u"Name"_s);
    EXPECT_EQ(shown(u"Things"_s).value(u"records"_s).toArray(), QJsonArray());
}

TEST_F(NewCommandTests, SaysTheNumberOfTheRecordThatItAdds)
{
    EXPECT_EQ(done({u"new"_s, u"people"_s, u"--record"_s, u"Name=Cid"_s}),
              u"Added record 3 to 'People'\n"_s);
    const QJsonObject object = doneAsJSON({u"new"_s, u"People"_s, u"--record"_s, u"Age=3"_s});
    EXPECT_EQ(object.value(u"records"_s).toArray(), QJsonArray({4}));
    EXPECT_EQ(object.value(u"kind"_s).toString(), u"insert"_s);
    EXPECT_EQ(object.value(u"step"_s).toInteger(), 5);
}

TEST_F(NewCommandTests, ReadsValuesAsTheLocaleWritesThem)
{
    done({u"new"_s, u"People"_s, u"--record"_s, u"Name=a=b"_s, u"Age=1.234,5"_s,
          u"Born=24.12.2009"_s, u"--locale"_s, u"de_DE"_s});
    EXPECT_EQ(valuesOf(u"Name"_s).last().toString(), u"a=b"_s);
    EXPECT_EQ(valuesOf(u"Age"_s).last().toDouble(), 1234.5);
    EXPECT_TRUE(valuesOf(u"Born"_s).last().toString().startsWith(u"2009-12-24T"_s));
    EXPECT_TRUE(valuesOf(u"Paid"_s).last().isNull());
}

TEST_F(NewCommandTests, AddsTheRecordsOfTheStandardInput)
{
    const CommandResult result =
        runWithInput({u"new"_s, u"People"_s, u"--record"_s, u"--json"_s},
                     "[{\"values\": {\"Name\": \"Cid\", \"Age\": 0.1, \"Born\": \"2008-03-04\"}},"
                     " {\"id\": 1, \"values\": {\"Age\": \"12345678901234567890\"}}]");
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray({u"Ann"_s, u"Bob"_s, u"Cid"_s, QJsonValue()}));
    EXPECT_EQ(valuesOf(u"Age"_s), QJsonArray({31, QJsonValue(), 0.1, u"12345678901234567890"_s}));
    EXPECT_TRUE(valuesOf(u"Born"_s)[2].toString().startsWith(u"2008-03-04T00:00:00"_s));
}

TEST_F(NewCommandTests, WhatIsShownCanBeAddedAgain)
{
    const QByteArray shownText = done({u"show"_s, u"People"_s, u"--json"_s}).toUtf8();
    EXPECT_EQ(runWithInput({u"new"_s, u"People"_s, u"--record"_s, u"--json"_s}, shownText).exitCode,
              0);
    const QJsonArray records = shown().value(u"records"_s).toArray();
    ASSERT_EQ(records.size(), 4);
    EXPECT_EQ(records[2][u"values"], records[0][u"values"]);
    EXPECT_EQ(records[3][u"values"], records[1][u"values"]);
}

TEST_F(NewCommandTests, StoresTheFilesOfMedia)
{
    tree.add(u"a.png"_s, "picture");
    done({u"new"_s, u"People"_s, u"--record"_s, u"Photo="_s + tree.path(u"a.png"_s)});
    const QString url = valuesOf(u"Photo"_s).last().toString();
    EXPECT_EQ(url, u"cobblemedia://a.0.png"_s);
    EXPECT_TRUE(done({u"media"_s, u"list"_s}).contains(url));
}

TEST_F(NewCommandTests, StoresNoFileOfARecordThatIsRefused)
{
    tree.add(u"a.png"_s, "picture");
    EXPECT_EQ(failed({u"new"_s, u"People"_s, u"--record"_s, u"Photo="_s + tree.path(u"a.png"_s),
                      u"Age=old"_s, u"--locale"_s, u"en_US"_s})
                  .first(17),
              u"3 Age: 'old': The"_s);
    EXPECT_EQ(done({u"media"_s, u"list"_s}), QString());
}

TEST_F(NewCommandTests, FailsWithACodeThatSaysWhy)
{
    const struct
    {
        QStringList arguments;
        QString failure;
    } rows[] = {
        {{u"people"_s}, u"5 there is a library 'People'"_s},
        {{u"None"_s, u"--record"_s}, u"4 no library 'None'"_s},
        {{u"People"_s, u"--record"_s, u"Aeg=3"_s}, u"4 no field 'Aeg' in 'People'"_s},
        {{u"People"_s, u"--record"_s, u"Photo=/no/such.png"_s},
         u"3 '/no/such.png': there is no such file"_s},
        {{u"People"_s, u"--record"_s, u"Photo=cobblemedia://no.png"_s},
         u"3 'cobblemedia://no.png' is no media file of the bundle"_s},
        {{u"People"_s, u"Name=Ann"_s},
         u"2 cobble: new takes one library, not also 'Name=Ann'; for a record, give --record"_s},
        {{u"People"_s, u"--record"_s, u"Ann"_s}, u"2 cobble: 'Ann' is not FIELD=VALUE"_s},
        {{u"People"_s, u"--record"_s, u"--field"_s, u"A"_s},
         u"2 cobble: --field makes a library, --record adds to one"_s},
        {{u"A"_s, u"--field"_s, u"B:digits"_s},
         u"2 cobble: unknown type 'digits'; there are text, media, number, currency, duration, "
         "time, date, date+time, phone"_s},
        {{u"A"_s, u"--field"_s, u":text"_s}, u"2 cobble: a field needs a name"_s},
        {{}, u"2 cobble: new needs the name of a library"_s},
    };
    for (const auto &row : rows)
        EXPECT_EQ(failed(QStringList{u"new"_s} + row.arguments), row.failure);
}

TEST_F(NewCommandTests, RefusesInputThatIsNoRecord)
{
    const struct
    {
        QByteArray input;
        QString reason;
    } rows[] = {
        {"", u"the standard input is no JSON: illegal value"_s},
        {"[{\"Name\": \"Ann\"}]", u"a record is an object with \"values\", and \"id\" a number"_s},
        {"[3]", u"a record is an object with \"values\", and \"id\" a number"_s},
        {"{\"values\": {\"Name\": 3}}", u"Name: it is no text"_s},
        {"{\"values\": {\"Age\": \"old\"}}", u"Age: it is no number"_s},
        {"{\"values\": {\"Age\": true}}", u"Age: a number, a text or null is needed"_s},
        {"{\"values\": {\"Born\": \"3/4/2008\"}}", u"Born: it is no date of ISO 8601"_s},
        {"{\"values\": {\"Photo\": \"/etc/passwd\"}}",
         u"'/etc/passwd' is no media file of the bundle"_s},
        {"{\"values\": {\"Name\": \"Ann\", \"name\": \"Bob\"}}",
         u"the field 'Name' has two values"_s},
        {"{\"values\": {\"Age\": 0.1234567890123456789}}",
         u"the number 0.1234567890123456789 has more digits than are kept; write it as a text"_s},
    };
    for (const auto &row : rows) {
        const CommandResult result =
            runWithInput({u"new"_s, u"People"_s, u"--record"_s, u"--json"_s}, row.input);
        EXPECT_EQ(result.exitCode, 3) << row.input.constData();
        EXPECT_EQ(result.errors, u"cobble: "_s + bundle + u": "_s + row.reason + u'\n');
    }
    EXPECT_EQ(valuesOf(u"Name"_s).size(), 2);
}
