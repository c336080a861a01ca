#include "Journal/ChangeJournal.h"

#include "StoreSupport.h"

#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using testing_support::fieldOf;

namespace {
class ChangeJournalTests : public testing_support::StoreTest
{
protected:
    QList<ChangeJournal::Step> steps() { return ChangeJournal(*store).steps().valueOr({}); }
    QString nameOf(qint64 id) const
    {
        return SQL::texts(store->database(), u"SELECT kt_name FROM kt_people WHERE id = ?"_s, {id})
            ->value(0);
    }
    QStringList tables() const
    {
        QStringList names = *store->tableNames();
        names.sort();
        return names;
    }
};
} // namespace

TEST_F(ChangeJournalTests, KeepsWhatWasDone)
{
    ChangeJournal journal(*store);
    const QVariantMap parameters = {{StepParameters::Field, u"Name „ä“"_s},
                                    {StepParameters::Count, 1}};
    const auto step = journal.make({StepKinds::Edit, parameters}, [this](StepRecorder &recorder) {
        return recorder.update(people, 1, 0, u"Eve"_s);
    });
    ASSERT_TRUE(step);
    const auto last = *journal.last();
    ASSERT_TRUE(last);
    EXPECT_EQ(last->number, *step);
    EXPECT_EQ(last->title.kind, u"edit"_s);
    EXPECT_EQ(last->title.parameters.value(StepParameters::Field), QVariant(u"Name „ä“"_s));
    EXPECT_EQ(last->title.parameters.value(StepParameters::Count).toInt(), 1);
    EXPECT_LT(qAbs(last->time.secsTo(QDateTime::currentDateTimeUtc())), 60);
    EXPECT_EQ(*journal.lastUndone(), std::nullopt);
    ASSERT_TRUE(journal.undo(*step));
    EXPECT_EQ((*journal.lastUndone())->number, *step);
    EXPECT_EQ((*journal.last())->number, *step - 1);
    EXPECT_FALSE((*journal.step(*step))->isDone);
    EXPECT_EQ(*journal.step(99), std::nullopt);
}

TEST_F(ChangeJournalTests, WhatChangesNothingIsNoStep)
{
    const qint64 step = setName(1, u"Eve"_s);
    EXPECT_EQ(undo(step), QString());
    EXPECT_EQ(setName(1, u"Ann"_s), 0);
    // And nothing is forgotten for it.
    EXPECT_EQ(redo(step), QString());
    EXPECT_EQ(nameOf(1), u"Eve"_s);
}

TEST_F(ChangeJournalTests, ANewStepForgetsThoseThatWereUndone)
{
    const qint64 first = setName(1, u"Eve"_s);
    const qint64 second = setName(1, u"Fay"_s);
    EXPECT_EQ(undoEach({second, first}), QString());
    const qint64 third = setName(2, u"Gus"_s);
    EXPECT_GT(third, second);
    EXPECT_EQ(redo(first), u"the history no longer has it"_s);
    EXPECT_EQ(undo(second), u"the history no longer has it"_s);
    EXPECT_EQ(steps().size(), 2);
    EXPECT_EQ(countOf(u"cobble_step_change WHERE step < 4 AND step > 1"_s), 0);
}

TEST_F(ChangeJournalTests, AStepIsUndoneOnce)
{
    const qint64 step = setName(1, u"Eve"_s);
    EXPECT_EQ(redo(step), u"the history no longer has it"_s);
    EXPECT_EQ(undo(step), QString());
    EXPECT_EQ(undo(step), u"it was undone already"_s);
}

TEST_F(ChangeJournalTests, WhatWasChangedSinceIsNotUndone)
{
    const QString why = u"it was changed since, so that it cannot be undone"_s;
    const qint64 both = make([this](StepRecorder &step) {
        return step.update(people, 1, 0, u"Eve"_s).andThen([&] {
            return step.update(people, 2, 0, u"Fay"_s);
        });
    });
    runSQL(u"UPDATE kt_people SET kt_name = 'Gus' WHERE id = 1"_s);
    EXPECT_EQ(undo(both), why);
    EXPECT_EQ(nameOf(1) + nameOf(2), u"GusFay"_s);
    runSQL(u"DELETE FROM kt_people WHERE id = 1"_s);
    EXPECT_EQ(undo(both), why);
    // Another field of the record may be another.
    runSQL(u"INSERT INTO kt_people (id, kt_name, kt_age) VALUES (1, 'Eve', 99)"_s);
    EXPECT_EQ(undo(both), QString());
    runSQL(u"UPDATE kt_people SET kt_name = 'Gus' WHERE id = 2"_s);
    EXPECT_EQ(redo(both), u"it was changed since, so that it cannot be redone"_s);
    EXPECT_EQ(nameOf(1) + nameOf(2), u"AnnGus"_s);
}

TEST_F(ChangeJournalTests, RecordsAreNotOverwrittenByThoseThatComeBack)
{
    const qint64 step = make([this](StepRecorder &recorder) { return recorder.remove(people, 2); });
    runSQL(u"INSERT INTO kt_people (id, kt_name) VALUES (2, 'Other')"_s);
    EXPECT_EQ(undo(step), u"it was changed since, so that it cannot be undone"_s);
    EXPECT_EQ(nameOf(2), u"Other"_s);
}

TEST_F(ChangeJournalTests, ARecordWithTheNameOfADeletedOneIsAnother)
{
    const qint64 renaming = setName(3, u"Rob"_s);
    const qint64 deleting = make([this](StepRecorder &step) { return step.remove(people, 3); });
    make([this](StepRecorder &step) {
        const auto added = step.insert(people, {u"Rob"_s, QVariant(), QVariant()});
        return added ? Outcome<>() : added.failure();
    });
    const QString after = u"People(Name, Age, Photo): 1 Ann 31 cobblemedia://ann.0.png; "
                          "2 Bob nil nil; 4 Rob nil nil"_s;
    EXPECT_EQ(content(), after);
    EXPECT_EQ(undo(renaming), u"it was changed since, so that it cannot be undone"_s);
    EXPECT_EQ(content(), after);
    EXPECT_EQ(undoEach({deleting, renaming}), QString());
    EXPECT_EQ(content(), everything + u"; 4 Rob nil nil");
}

TEST_F(ChangeJournalTests, WhatLaterStepsHaveFilledIsNotTakenAway)
{
    EXPECT_GT(setName(1, u"Eve"_s), 0);
    EXPECT_EQ(undo(1), u"it was changed since, so that it cannot be undone"_s);
    EXPECT_EQ(undoEach({2, 1}), QString());
    EXPECT_EQ(content(), QString());
    EXPECT_EQ(redoEach({1, 2}), QString());
    EXPECT_EQ(nameOf(1), u"Eve"_s);
}

TEST_F(ChangeJournalTests, StepsAcrossLibraries)
{
    Library pets;
    const qint64 made = make([&](StepRecorder &step) {
        Library library;
        library.name = u"Pets"_s;
        library.fields = {fieldOf(u"Name"_s)};
        const Outcome<Library> created = step.createLibrary(library);
        pets = created.valueOr({});
        return created ? Outcome<>() : created.failure();
    });
    const qint64 both = make([&](StepRecorder &step) -> Outcome<> {
        const auto rex = step.insert(pets, {u"Rex"_s});
        const auto set = step.update(people, 1, 0, u"Eve"_s);
        const auto tom = step.insert(pets, {u"Tom"_s});
        return rex && tom ? set : rex.failure();
    });
    const qint64 gone = make([&](StepRecorder &step) { return step.removeLibrary(pets); });
    EXPECT_EQ(undo(gone), QString());
    EXPECT_TRUE(content().endsWith(u"| Pets(Name): 1 Rex; 2 Tom"_s));
    EXPECT_EQ(undoEach({both, made}), QString());
    EXPECT_EQ(content(), everything);
    EXPECT_EQ(redoEach({made, both}), QString());
    EXPECT_TRUE(content().endsWith(u"| Pets(Name): 1 Rex; 2 Tom"_s));
}

TEST_F(ChangeJournalTests, TellsWhatAStepHasChanged)
{
    const qint64 records = make([this](StepRecorder &step) {
        return step.update(people, 3, 0, u"Eve"_s).andThen([&] { return step.remove(people, 1); });
    });
    ChangeJournal journal(*store);
    const auto undone = journal.undo(records);
    ASSERT_TRUE(undone);
    EXPECT_EQ(undone->records.value(u"kt_people"_s), (std::vector<qint64>{1, 3}));
    EXPECT_TRUE(undone->libraries.isEmpty());
    const auto redone = journal.redo(records);
    EXPECT_EQ(redone->records.value(u"kt_people"_s), (std::vector<qint64>{3, 1}));
    const qint64 library =
        change([this](StepRecorder &step) { return step.renameLibrary(people, u"Men"_s); });
    EXPECT_EQ(journal.undo(library)->libraries, QSet<QString>{u"kt_people"_s});
}

TEST_F(ChangeJournalTests, AnotherStoreUndoes)
{
    const qint64 step = setName(1, u"Eve"_s);
    const auto other = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ChangeJournal journal(*other);
    EXPECT_EQ((*journal.last())->number, step);
    EXPECT_TRUE(journal.undo(step));
    EXPECT_EQ(nameOf(1), u"Ann"_s);
    EXPECT_EQ(undo(step), u"it was undone already"_s);
    EXPECT_EQ(redo(step), QString());
    EXPECT_EQ((*journal.steps()).size(), 2);
}

TEST_F(ChangeJournalTests, WithinATransactionAStepIsPartOfIt)
{
    ASSERT_TRUE(store->beginChange());
    EXPECT_EQ(setName(1, u"Eve"_s), 2);
    EXPECT_EQ(setName(2, u"Fay"_s), 3);
    store->rollback();
    EXPECT_EQ(content(), everything);
    EXPECT_EQ(steps().size(), 1);
    ASSERT_TRUE(store->beginChange());
    EXPECT_EQ(setName(1, u"Eve"_s), 2);
    EXPECT_TRUE(store->commit());
    EXPECT_EQ(steps().size(), 2);
}

TEST_F(ChangeJournalTests, KeepsFiveHundredSteps)
{
    ASSERT_TRUE(store->beginChange());
    for (int number = 0; number < 600; ++number)
        ASSERT_GT(setName(1, u"name %1"_s.arg(number)), 0);
    ASSERT_TRUE(store->commit());
    const auto kept = steps();
    EXPECT_EQ(kept.size(), 500);
    EXPECT_EQ(kept.first().number, 102);
    ASSERT_TRUE(store->beginChange());
    for (auto step = kept.rbegin(); step != kept.rend(); ++step)
        ASSERT_EQ(undo(step->number), QString());
    ASSERT_TRUE(store->commit());
    EXPECT_EQ(nameOf(1), u"name 99"_s);
    for (const auto &step : kept)
        ASSERT_EQ(redo(step.number), QString());
    EXPECT_EQ(nameOf(1), u"name 599"_s);
}

TEST_F(ChangeJournalTests, StepsThatAreTooLargeGoButTheLastOne)
{
    limits.size = 5000;
    for (int number = 0; number < 10; ++number)
        setName(1, QString(500, QChar(u'a' + number)));
    EXPECT_EQ(steps().size(), 2);
    setName(1, QString(5000, u'x'));
    EXPECT_EQ(steps().size(), 1);
    EXPECT_EQ(undo(steps().first().number), QString());
    EXPECT_EQ(nameOf(1), QString(500, u'j'));
}

TEST_F(ChangeJournalTests, ForgottenStepsLetTheirTablesGo)
{
    make([this](StepRecorder &step) { return step.removeLibrary(people); });
    EXPECT_TRUE(tables().contains(u"kt_people"_s));
    EXPECT_TRUE(store->usedMedia()->contains(u"cobblemedia://ann.0.png"_s));
    limits.steps = 1;
    make([this](StepRecorder &step) { return addPeople(step); });
    EXPECT_EQ(people.tableName, u"kt_people1"_s);
    EXPECT_FALSE(tables().contains(u"kt_people"_s));
    EXPECT_EQ(forgottenMedia, QSet<QString>{u"cobblemedia://ann.0.png"_s});
    EXPECT_EQ(countOf(u"cobble_bin"_s), 0);
    EXPECT_EQ(content(), everything);
}

TEST_F(ChangeJournalTests, ForgottenStepsLetTheirColumnsGo)
{
    change([this](StepRecorder &step) { return step.removeField(people, 2); });
    EXPECT_TRUE(store->usedMedia()->contains(u"cobblemedia://ann.0.png"_s));
    const qint64 removal = make([this](StepRecorder &step) { return step.remove(people, 1); });
    EXPECT_EQ(undo(removal), QString());
    EXPECT_EQ(countOf(u"kt_people WHERE kt_photo = 'cobblemedia://ann.0.png'"_s), 1);
    EXPECT_EQ(redo(removal), QString());
    limits.steps = 2;
    setName(2, u"Gus"_s);
    EXPECT_EQ(countOf(u"pragma_table_info('kt_people') WHERE name = 'kt_photo'"_s), 0);
    // What the column had is no longer of use; the rest comes back.
    EXPECT_EQ(undo(removal), QString());
    EXPECT_EQ(nameOf(1), u"Ann"_s);
}

TEST_F(ChangeJournalTests, AnUndoneTypeLeavesNoColumnBehind)
{
    const auto same = [](const QVariant &value) { return Outcome<QVariant>(value); };
    const Library before = people;
    const qint64 step = change([&](StepRecorder &recorder) {
        return recorder.changeType(people, 1, FieldType::Text, {}, same);
    });
    EXPECT_EQ(undo(step), QString());
    people = before;
    setName(2, u"Gus"_s);
    EXPECT_EQ(countOf(u"pragma_table_info('kt_people')"_s), 4);
}

TEST_F(ChangeJournalTests, MediaOfStepsAreInUse)
{
    const qint64 step = make([this](StepRecorder &recorder) {
        return recorder.update(people, 1, 2, u"cobblemedia://new.0.png"_s);
    });
    const QSet<QString> both = {u"cobblemedia://ann.0.png"_s, u"cobblemedia://new.0.png"_s};
    EXPECT_EQ(*store->usedMedia(), both);
    EXPECT_EQ(undo(step), QString());
    EXPECT_EQ(*store->usedMedia(), both);
    setName(1, u"Eve"_s);
    EXPECT_EQ(forgottenMedia, both);
    EXPECT_EQ(*store->usedMedia(), QSet<QString>{u"cobblemedia://ann.0.png"_s});
}

TEST_F(ChangeJournalTests, LookingMakesNoTables)
{
    const QString path = tree.path(u"c.cobbledb"_s);
    const KTDatabaseBundle empty(path);
    ASSERT_TRUE(empty.buildDatabaseBundleOnDisk());
    const auto fresh = *LibraryStore::open(empty, LibraryStore::Mode::Create);
    EXPECT_EQ((*ChangeJournal(*fresh).steps()).size(), 0);
    EXPECT_EQ(*ChangeJournal(*fresh).last(), std::nullopt);
    EXPECT_EQ(ChangeJournal(*fresh).undo(1).reason(), u"the history no longer has it"_s);
    EXPECT_EQ(*fresh->tableNames(), QStringList());
}

namespace {
/// Root's files are somebody else's for this thread while it exists; others have no need of it.
class WithoutRootsPrivileges
{
public:
    WithoutRootsPrivileges() : _before(::setfsuid(::geteuid() == 0 ? Nobody : ::geteuid())) {}
    ~WithoutRootsPrivileges() { ::setfsuid(uid_t(_before)); }
    WithoutRootsPrivileges(const WithoutRootsPrivileges &) = delete;
    WithoutRootsPrivileges &operator=(const WithoutRootsPrivileges &) = delete;

private:
    static constexpr uid_t Nobody = 65'534;
    int _before;
};

/// Everybody may read a file, with the folders around it, and nobody may write it.
void letAllRead(const QString &path)
{
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0444), 0);
    for (QDir folder = QFileInfo(path).dir(); folder.path() != QDir::tempPath(); folder.cdUp())
        ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
}
} // namespace

TEST_F(ChangeJournalTests, WhoMayOnlyReadCanLook)
{
    setName(1, u"Eve"_s);
    store.reset();
    letAllRead(bundle.databaseFilePath());
    const WithoutRootsPrivileges ordinary;
    store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    EXPECT_EQ(steps().size(), 2);
    EXPECT_FALSE(undo(2).isEmpty());
    EXPECT_EQ(nameOf(1), u"Eve"_s);
}

// --- Journals of somebody else

namespace {
struct ForeignJournal
{
    const char *name;
    QString statement;
};

class ForeignJournalTests : public testing_support::StoreTest,
                            public testing::WithParamInterface<ForeignJournal>
{
};
} // namespace

TEST_P(ForeignJournalTests, IsEmptyForAReasonAndMadeAnew)
{
    for (const QString &statement : GetParam().statement.split(u';'))
        runSQL(statement);
    const auto steps = ChangeJournal(*store).steps();
    EXPECT_FALSE(steps);
    EXPECT_FALSE(steps.reason().isEmpty());
    EXPECT_FALSE(undo(1).isEmpty());
    EXPECT_FALSE(store->usedMedia());
    const qint64 step = setName(1, u"Eve"_s);
    ASSERT_GT(step, 0) << reason.toStdString();
    EXPECT_EQ(undo(step), QString());
    EXPECT_EQ(content(), everything);
    EXPECT_EQ(ChangeJournal(*store).steps()->size(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Tables, ForeignJournalTests,
    testing::Values(
        ForeignJournal{"TableIsMissing", u"DROP TABLE cobble_step_media"_s},
        ForeignJournal{"OtherColumns",
                       u"DROP TABLE cobble_bin;CREATE TABLE cobble_bin (step, table_name)"_s},
        ForeignJournal{"Refuses", u"DROP TABLE cobble_step_media;CREATE TABLE cobble_step_media "
                                  "(step INTEGER, url TEXT, CHECK (0))"_s},
        ForeignJournal{"NumbersAreSpent",
                       u"UPDATE sqlite_sequence SET seq = 9223372036854775807"_s},
        ForeignJournal{"NumberIsTooLarge", u"UPDATE cobble_step SET number = 1 << 62"_s}),
    [](const auto &each) { return std::string(each.param.name); });

TEST_F(ChangeJournalTests, AViewInThePlaceOfTheJournalGivesWayToAChange)
{
    runSQL(u"DROP TABLE cobble_step"_s);
    runSQL(u"CREATE VIEW cobble_step AS SELECT 1 AS number"_s);
    EXPECT_FALSE(ChangeJournal(*store).steps());
    const qint64 step = setName(1, u"Eve"_s);
    EXPECT_GT(step, 0) << reason.toStdString();
    EXPECT_NE(content(), everything);
    EXPECT_EQ(undo(step), QString());
    EXPECT_EQ(content(), everything);
}

namespace {
class ForeignStepTests : public testing_support::StoreTest,
                         public testing::WithParamInterface<ForeignJournal>
{
};
} // namespace

TEST_P(ForeignStepTests, CanDoNothing)
{
    const qint64 step = setName(1, u"Eve"_s);
    const QString before = content();
    for (const QString &statement : GetParam().statement.split(u';'))
        runSQL(statement);
    EXPECT_FALSE(undo(step).isEmpty());
    EXPECT_EQ(content(), before);
    EXPECT_EQ(countOf(u"cobble_library"_s), 1);
    // Nor when it is forgotten.
    limits.steps = 1;
    EXPECT_GT(setName(2, u"Fay"_s), 0) << reason.toStdString();
    EXPECT_EQ(countOf(u"kt_people"_s), 3);
    EXPECT_EQ(ChangeJournal(*store).steps()->size(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, ForeignStepTests,
    testing::Values(
        ForeignJournal{"OtherKind", u"UPDATE cobble_step_change SET kind = 'x'"_s},
        ForeignJournal{"OtherTable",
                       u"UPDATE cobble_step_change SET table_name = 'cobble_library'"_s},
        ForeignJournal{"NoTable", u"UPDATE cobble_step_change SET table_name = 'x\" DROP'"_s},
        ForeignJournal{"NoBytes", u"UPDATE cobble_step_change SET content = x'01'"_s},
        ForeignJournal{"CutBytes", u"UPDATE cobble_step_change SET content = substr(content, 1, "
                                   "length(content) - 1)"_s},
        ForeignJournal{"ManyColumns", u"UPDATE cobble_step_change SET content = "
                                      "x'000000000000000105FFFFFFFF' || content"_s},
        ForeignJournal{"NoLibrary", u"UPDATE cobble_step_change SET kind = 'catalogue', content = "
                                    "'{}'"_s},
        ForeignJournal{"TheCatalogue",
                       u"UPDATE cobble_step_change SET kind = 'catalogue', content = '{\"before\":"
                       "{\"table\":\"cobble_step\",\"name\":\"x\",\"fields\":[{\"column\":\"kind\"}"
                       "]}}';INSERT INTO cobble_bin VALUES (2, 'cobble_step', '')"_s},
        ForeignJournal{"NotInTheBin",
                       u"CREATE TABLE theirs (id INTEGER PRIMARY KEY, a);UPDATE cobble_step_change "
                       "SET kind = 'catalogue', content = '{\"before\":{\"table\":\"theirs\","
                       "\"name\":\"x\",\"fields\":[{\"column\":\"a\"}]}}'"_s},
        ForeignJournal{"LibraryInTheBin",
                       u"UPDATE cobble_step_change SET content = x'';INSERT INTO cobble_bin VALUES "
                       "(2, 'KT_PEOPLE', ''), (2, 'kt_people', 'kt_name'), (2, 'kt_people', 'id'), "
                       "(2, 'no such', ''), (1, 'sqlite_sequence', '');UPDATE cobble_step_change "
                       "SET kind = 'x'"_s},
        ForeignJournal{"EndlessTableInTheBin",
                       u"CREATE VIEW endless AS WITH RECURSIVE n (a) AS (SELECT 1 UNION ALL SELECT "
                       "a FROM n) SELECT a FROM n;INSERT INTO cobble_bin VALUES (2, 'endless', '');"
                       "UPDATE cobble_step_change SET kind = 'x'"_s},
        ForeignJournal{"ColumnWithAnIndexInTheBin",
                       u"ALTER TABLE kt_people ADD COLUMN more;CREATE INDEX i ON kt_people (more);"
                       "INSERT INTO cobble_bin VALUES (2, 'kt_people', 'more');UPDATE "
                       "cobble_step_change SET kind = 'x'"_s},
        ForeignJournal{"HugeSizes", u"UPDATE cobble_step SET size = 9223372036854775807;UPDATE "
                                    "cobble_step_change SET kind = 'x'"_s}),
    [](const auto &each) { return std::string(each.param.name); });
