#include "Journal/SpentNumbers.h"

#include "StoreSupport.h"

#include "Journal/JournalKinds.h"

using namespace Qt::StringLiterals;

namespace {
class SpentNumbersTests : public testing_support::StoreTest
{
protected:
    /// Adds a record.
    /// \return its number.
    qint64 add()
    {
        qint64 number = 0;
        make([&](StepRecorder &step) -> Outcome<> {
            const Outcome<qint64> added = step.insert(people, {u"Dan"_s, 1, QVariant()});
            number = added.valueOr(-1);
            return added ? Outcome<>() : added.failure();
        });
        return number;
    }
    qint64 remove(qint64 number)
    {
        return make([&](StepRecorder &step) { return step.remove(people, number); });
    }
    qint64 keptNumber() const
    {
        return SQL::number(store->database(),
                           u"SELECT last FROM cobble_number WHERE table_name = 'kt_people'"_s)
            .valueOr(-1);
    }
};
} // namespace

TEST_F(SpentNumbersTests, GoOnBehindThoseThatWereDeleted)
{
    remove(3);
    EXPECT_EQ(add(), 4);
    remove(4);
    remove(1);
    EXPECT_EQ(add(), 5);
    EXPECT_EQ(keptNumber(), 4);
}

TEST_F(SpentNumbersTests, WhatIsUndoneWasThere)
{
    const qint64 before = ChangeJournal(*store).last()->value().number;
    EXPECT_EQ(add(), 4);
    EXPECT_EQ(undo(before + 1), QString());
    EXPECT_EQ(add(), 5);
}

TEST_F(SpentNumbersTests, AreNotGivenTwiceWithinAStep)
{
    make([this](StepRecorder &step) {
        SpentNumbers numbers(store->database());
        const QString table = people.tableName;
        EXPECT_EQ(*numbers.next(table), 4);
        EXPECT_TRUE(numbers.take(table, 10));
        EXPECT_EQ(*numbers.next(table), 11);
        EXPECT_TRUE(numbers.keep(table, 11));
        EXPECT_TRUE(numbers.take(table, 7));
        EXPECT_EQ(*numbers.next(table), 12);
        return step.insertWithId(people, 20, {u"Dan"_s, 1, QVariant()});
    });
    EXPECT_EQ(keptNumber(), 11);
    EXPECT_EQ(add(), 21);
}

TEST_F(SpentNumbersTests, TheJournalKnowsWhatOlderVersionsHaveDeleted)
{
    make([this](StepRecorder &step) {
        return step.insertWithId(people, 40, {u"Dan"_s, 1, QVariant()});
    });
    remove(40);
    runSQL(u"DROP TABLE cobble_number"_s);
    EXPECT_EQ(add(), 41);
    // What cannot be read tells nothing.
    runSQL(u"DROP TABLE cobble_number"_s);
    runSQL(u"UPDATE cobble_step_change SET content = x'01'"_s);
    EXPECT_EQ(add(), 42);
}

TEST_F(SpentNumbersTests, LookingWritesNothingDown)
{
    runSQL(u"DROP TABLE cobble_number"_s);
    EXPECT_EQ(ChangeJournal(*store).steps()->size(), 1);
    EXPECT_EQ(content(), everything);
    EXPECT_EQ(countOf(u"sqlite_master WHERE name = 'cobble_number'"_s), 0);
}

TEST_F(SpentNumbersTests, TheDatabaseChoosesWhenTheLastOneIsSpent)
{
    runSQL(u"UPDATE cobble_number SET last = 9223372036854775807"_s);
    EXPECT_EQ(add(), 4);
    // Records of such a table cannot be found by the number that was chosen.
    runSQL(u"CREATE TABLE theirs (id, kt_name TEXT, kt_age, kt_photo TEXT)"_s);
    runSQL(u"INSERT INTO theirs (id) VALUES (9223372036854775807)"_s);
    runSQL(u"UPDATE cobble_library SET table_name = 'theirs'"_s);
    runSQL(u"UPDATE cobble_field SET table_name = 'theirs'"_s);
    people.tableName = u"theirs"_s;
    EXPECT_EQ(add(), -1);
    EXPECT_EQ(reason, u"the record is no longer there"_s);
    EXPECT_EQ(countOf(u"theirs"_s), 1);
}

TEST_F(SpentNumbersTests, GoWithTheirTable)
{
    limits.steps = 1;
    make([this](StepRecorder &step) { return step.removeLibrary(people); });
    EXPECT_EQ(countOf(u"cobble_number"_s), 1);
    make([](StepRecorder &step) -> Outcome<> {
        Library pets;
        pets.name = u"Pets"_s;
        pets.fields = {testing_support::fieldOf(u"Name"_s)};
        const auto made = step.createLibrary(pets);
        return made ? Outcome<>() : made.failure();
    });
    EXPECT_EQ(countOf(u"cobble_number"_s), 0);
}
