#include "DataSupport.h"

using namespace Qt::StringLiterals;

using testing_support::DataCommandTest;

namespace {
class FieldCommandTests : public DataCommandTest
{
protected:
    QString typeOf(qsizetype field) const
    {
        return shown().value(u"fields"_s)[field][u"type"].toString();
    }
};
} // namespace

TEST_F(FieldCommandTests, AddsAFieldAtItsPlace)
{
    EXPECT_EQ(done({u"field"_s, u"add"_s, u"People"_s, u"Note: a:text"_s}),
              u"Added the field 'Note: a' to 'People'\n"_s);
    done({u"field"_s, u"add"_s, u"People"_s, u"Size:number"_s, u"--at"_s, u"1"_s, u"--option"_s,
          u"decimalPlaces=2"_s});
    EXPECT_EQ(fieldNames(), QStringList({u"Size"_s, u"Name"_s, u"Age"_s, u"Paid"_s, u"Born"_s,
                                         u"Photo"_s, u"Note: a"_s}));
    EXPECT_EQ(shown().value(u"fields"_s)[0][u"options"][u"decimalPlaces"].toInt(), 2);
    done({u"set"_s, u"People"_s, u"1"_s, u"Size=3"_s, u"Note: a=x"_s});
    EXPECT_EQ(valuesOf(u"Note: a"_s), QJsonArray({u"x"_s, QJsonValue()}));
    EXPECT_TRUE(done({u"show"_s, u"People"_s, u"--locale"_s, u"en_US"_s}).contains(u"\n3.00 "_s));
}

TEST_F(FieldCommandTests, RemovesAField)
{
    done({u"field"_s, u"remove"_s, u"People"_s, u"age"_s});
    EXPECT_EQ(fieldNames(), QStringList({u"Name"_s, u"Paid"_s, u"Born"_s, u"Photo"_s}));
    done({u"undo"_s});
    EXPECT_EQ(valuesOf(u"Age"_s), QJsonArray({31, QJsonValue()}));
}

TEST_F(FieldCommandTests, MovesAField)
{
    done({u"field"_s, u"move"_s, u"People"_s, u"Born"_s, u"2"_s});
    EXPECT_EQ(fieldNames(), QStringList({u"Name"_s, u"Born"_s, u"Age"_s, u"Paid"_s, u"Photo"_s}));
    done({u"field"_s, u"move"_s, u"People"_s, u"Name"_s, u"99"_s});
    EXPECT_EQ(fieldNames().last(), u"Name"_s);
    // Names are no places for what comes behind them.
    done({u"rename"_s, u"People"_s, u"Born%1"_s, u"--field"_s, u"Born"_s});
    EXPECT_EQ(done({u"field"_s, u"move"_s, u"People"_s, u"Born%1"_s, u"1"_s}),
              u"Moved the field 'Born%1' of 'People' to place 1\n"_s);
}

TEST_F(FieldCommandTests, ChangesATypeWhoseValuesItCanRead)
{
    EXPECT_EQ(done({u"field"_s, u"type"_s, u"People"_s, u"Paid"_s, u"number"_s}),
              u"'Paid' is of type number now\n"_s);
    EXPECT_EQ(valuesOf(u"Paid"_s), QJsonArray({5.5, QJsonValue()}));
    done({u"field"_s, u"type"_s, u"People"_s, u"Born"_s, u"text"_s, u"--locale"_s, u"en_US"_s});
    EXPECT_EQ(valuesOf(u"Born"_s).first().toString(), u"3/4/2008"_s);
    done({u"field"_s, u"type"_s, u"People"_s, u"Born"_s, u"date"_s, u"--locale"_s, u"en_US"_s});
    EXPECT_TRUE(valuesOf(u"Born"_s).first().toString().startsWith(u"2008-03-04T"_s));
}

TEST_F(FieldCommandTests, RefusesATypeThatCannotReadTheValues)
{
    const QString failure = failed(
        {u"field"_s, u"type"_s, u"People"_s, u"Name"_s, u"number"_s, u"--locale"_s, u"en_US"_s});
    EXPECT_TRUE(failure.startsWith(u"3 2 records cannot be read as number (record 1, 'Ann': "_s))
        << failure.toStdString();
    EXPECT_TRUE(failure.endsWith(u"; --clear empties these fields"_s)) << failure.toStdString();
}

TEST_F(FieldCommandTests, ShowsWhatATypeCannotReadAndChangesNothing)
{
    done({u"set"_s, u"People"_s, u"2"_s, u"Name=12"_s});
    const QStringList arguments = {u"field"_s,  u"type"_s,     u"People"_s, u"Name"_s,
                                   u"number"_s, u"--locale"_s, u"en_US"_s,  u"--dry-run"_s};
    const CommandResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_TRUE(result.output.startsWith(u"1 record would be read, 1 would not\n1  Ann  "_s))
        << result.output.toStdString();
    const QJsonObject object =
        QJsonDocument::fromJson(run(arguments + QStringList{u"--json"_s}).output.toUtf8()).object();
    EXPECT_EQ(object.value(u"unread"_s).toInt(), 1);
    EXPECT_EQ(object.value(u"first"_s)[0][u"text"].toString(), u"Ann"_s);
    EXPECT_EQ(typeOf(0), u"text"_s);
}

TEST_F(FieldCommandTests, EmptiesWhatCannotBeReadIfThatIsSaid)
{
    done({u"set"_s, u"People"_s, u"2"_s, u"Name=12"_s});
    EXPECT_EQ(done({u"field"_s, u"type"_s, u"People"_s, u"Name"_s, u"number"_s, u"--clear"_s}),
              u"'Name' is of type number now; it was emptied in 1 record\n"_s);
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray({QJsonValue(), 12}));
    done({u"undo"_s});
    EXPECT_EQ(valuesOf(u"Name"_s), QJsonArray({u"Ann"_s, u"12"_s}));
    EXPECT_EQ(typeOf(0), u"text"_s);
}

TEST_F(FieldCommandTests, OnlyFilesOfTheBundleBecomeMedia)
{
    EXPECT_EQ(failed({u"field"_s, u"type"_s, u"People"_s, u"Name"_s, u"media"_s}),
              u"3 2 records cannot be read as media (record 1, 'Ann': it is no media file); "
              "--clear empties these fields"_s);
}

TEST_F(FieldCommandTests, FailsWithACodeThatSaysWhy)
{
    const struct
    {
        QStringList arguments;
        QString failure;
    } rows[] = {
        {{u"add"_s, u"People"_s, u"name"_s}, u"5 there is a field 'name'"_s},
        {{u"remove"_s, u"People"_s, u"None"_s}, u"4 no field 'None' in 'People'"_s},
        {{u"move"_s, u"None"_s, u"A"_s, u"1"_s}, u"4 no library 'None'"_s},
        {{u"move"_s, u"People"_s, u"Age"_s, u"0"_s},
         u"2 cobble: bad place '0'; the first field has 1"_s},
        {{u"type"_s, u"People"_s, u"Age"_s},
         u"2 cobble: field type needs a library, a field and a type"_s},
        {{u"add"_s, u"People"_s, u"A"_s, u"--clear"_s},
         u"2 cobble: --clear and --dry-run are for field type"_s},
        {{u"add"_s, u"People"_s, u"A:text"_s, u"--option"_s, u"decimalPlaces=2"_s},
         u"2 cobble: a field of this type has no options"_s},
        {{u"list"_s}, u"2 cobble: field needs one of add, remove, move, type"_s},
    };
    for (const auto &row : rows)
        EXPECT_EQ(failed(QStringList{u"field"_s} + row.arguments), row.failure);
    EXPECT_EQ(
        run({u"field"_s, u"type"_s, u"People"_s, u"None"_s, u"text"_s, u"--dry-run"_s}).exitCode,
        4);
}

TEST_F(FieldCommandTests, ALibraryKeepsItsLastField)
{
    done({u"new"_s, u"Things"_s});
    EXPECT_EQ(failed({u"field"_s, u"remove"_s, u"Things"_s, u"Name"_s}),
              u"1 a library needs a field"_s);
}
