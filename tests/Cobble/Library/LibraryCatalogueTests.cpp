#include "Library/LibraryCatalogue.h"

#include "Cobble/Journal/StoreSupport.h"

using namespace Qt::StringLiterals;

namespace {
struct BadColumn
{
    const char *name;
    QString column;
    QString reason;
};

/// The second field of the library has another column, as only somebody else makes it.
class BadColumnTests : public testing_support::StoreTest,
                       public testing::WithParamInterface<BadColumn>
{
protected:
    BadColumnTests()
    {
        make([](StepRecorder &step) -> Outcome<> {
            Library pets;
            pets.name = u"Pets"_s;
            pets.fields = {testing_support::fieldOf(u"Name"_s)};
            const auto made = step.createLibrary(pets);
            const auto added = made ? step.insert(*made, {u"Rex"_s}) : made.failure();
            return added ? Outcome<>() : added.failure();
        });
        EXPECT_TRUE(SQL::run(store->database(),
                             u"UPDATE cobble_field SET column_name = ? WHERE table_name = "
                             "'kt_people' AND position = 1"_s,
                             {GetParam().column}));
        people = *store->libraryNamed(u"People"_s);
    }
};
} // namespace

TEST_P(BadColumnTests, KeepsNobodyFromTheOtherLibraries)
{
    EXPECT_EQ(store->libraries()->size(), 2);
    const Library pets = *store->libraryNamed(u"Pets"_s);
    EXPECT_EQ(contentOf(pets), u"Pets(Name): 1 Rex"_s);
    EXPECT_EQ(*store->recordCount(pets), 1);
    EXPECT_GT(make([&](StepRecorder &step) { return step.update(pets, 1, 0, u"Max"_s); }), 0);
}

TEST_P(BadColumnTests, MakesALibraryUnreadable)
{
    const QString &expected = GetParam().reason;
    EXPECT_EQ(LibraryCatalogue::checkColumns(store->database(), people).reason(), expected);
    EXPECT_EQ(*store->recordCount(people), 3);
    EXPECT_EQ(store->recordIds(people).reason(), expected);
    RecordCursor cursor = store->records(people);
    EXPECT_FALSE(cursor.next());
    EXPECT_EQ(cursor.outcome().reason(), expected);
}

TEST_P(BadColumnTests, KeepsNobodyFromRemovingTheLibrary)
{
    const qint64 removal = make([this](StepRecorder &step) { return step.removeLibrary(people); });
    EXPECT_GT(removal, 0) << reason.toStdString();
    EXPECT_EQ(content(), u"Pets(Name): 1 Rex"_s);
    // But nothing brings such a library back.
    EXPECT_EQ(undo(removal), u"it was changed since, so that it cannot be undone"_s);
}

TEST_P(BadColumnTests, MakesALibraryUnchangeable)
{
    const auto steps = ChangeJournal(*store).steps()->size();
    for (const auto &change : QList<std::function<Outcome<>(StepRecorder &)>>{
             [this](StepRecorder &step) { return step.update(people, 1, 1, 7); },
             [this](StepRecorder &step) { return step.remove(people, 1); },
             [this](StepRecorder &step) {
                 return step.insertWithId(people, 9, {u"Dan"_s, 9, QVariant()});
             }}) {
        EXPECT_EQ(make(change), -1);
        EXPECT_EQ(reason, GetParam().reason);
    }
    EXPECT_EQ(ChangeJournal(*store).steps()->size(), steps);
    EXPECT_EQ(countOf(u"kt_people WHERE id IN (1, 2, 3)"_s), 3);
}

INSTANTIATE_TEST_SUITE_P(
    Columns, BadColumnTests,
    testing::Values(BadColumn{"Number", u"id"_s,
                              u"a field has the column 'id', which is the records' number"_s},
                    BadColumn{"Row", u"RowId"_s,
                              u"a field has the column 'RowId', which is the records' number"_s},
                    BadColumn{"Object", u"OID"_s,
                              u"a field has the column 'OID', which is the records' number"_s},
                    BadColumn{"Underlined", u"_rowid_"_s,
                              u"a field has the column '_rowid_', which is the records' number"_s},
                    BadColumn{"None", u"kt_none"_s,
                              u"a field has the column 'kt_none', which the table has not"_s},
                    BadColumn{"Empty", u""_s,
                              u"a field has the column '', which the table has not"_s},
                    BadColumn{"Twice", u"kt_name"_s, u"two fields have the column 'kt_name'"_s}),
    [](const auto &each) { return std::string(each.param.name); });
