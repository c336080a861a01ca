#include "Journal/JournalRepair.h"

#include "StoreSupport.h"

using namespace Qt::StringLiterals;

namespace {
const QString MakeForeign = u"ALTER TABLE cobble_step ADD COLUMN more"_s;

class JournalRepairTests : public testing_support::StoreTest
{
protected:
    Outcome<> repair()
    {
        return store->transaction([this] { return JournalRepair::need(store->database()); });
    }
    qint64 removePeople()
    {
        return make([this](StepRecorder &step) { return step.removeLibrary(people); },
                    StepKinds::RemoveLibrary);
    }
    qint64 makeLibrary(const QString &name)
    {
        return make([&](StepRecorder &step) -> Outcome<> {
            Library library;
            library.name = name;
            library.fields = {testing_support::fieldOf(u"Name"_s)};
            const auto made = step.createLibrary(library);
            return made ? Outcome<>() : made.failure();
        });
    }
};
} // namespace

TEST_F(JournalRepairTests, LeavesAJournalAloneThatCanBeRead)
{
    const qint64 step = setName(1, u"Eve"_s);
    EXPECT_TRUE(repair());
    EXPECT_EQ(undo(step), QString());
    EXPECT_EQ(content(), everything);
}

TEST_F(JournalRepairTests, AnIndexIsDroppedAndTheHistoryStays)
{
    const qint64 removal = removePeople();
    runSQL(u"CREATE UNIQUE INDEX refuses ON cobble_step (number > 1)"_s);
    runSQL(u"CREATE INDEX \"of parts\" ON cobble_step_change (content)"_s);
    EXPECT_EQ(ChangeJournal(*store).steps()->size(), 2);
    EXPECT_EQ(*store->usedMedia(), QSet<QString>{u"cobblemedia://ann.0.png"_s});
    EXPECT_GT(makeLibrary(u"Pets"_s), removal) << reason.toStdString();
    EXPECT_EQ(countOf(u"sqlite_master WHERE type = 'index' AND sql IS NOT NULL"_s), 0);
    EXPECT_EQ(undo(removal), QString());
    EXPECT_EQ(content(), everything + u" | Pets(Name): ");
}

TEST_F(JournalRepairTests, RemovedLibrariesComeBack)
{
    const qint64 removal = removePeople();
    makeLibrary(u"people"_s);
    runSQL(MakeForeign);
    const qint64 step = makeLibrary(u"Pets"_s);
    EXPECT_GT(step, removal + 1);
    EXPECT_EQ(content(), u"people(Name):  | "_s +
                             QString(everything).replace(u"People"_s, u"People1"_s) +
                             u" | Pets(Name): ");
    EXPECT_EQ(ChangeJournal(*store).steps()->size(), 1);
    EXPECT_EQ(undo(removal), u"the history no longer has it"_s);
}

TEST_F(JournalRepairTests, WhatSomebodyElseSaysIsRemovedDoesNotComeBack)
{
    removePeople();
    const QStringList tables = {u"cobble_step"_s, u"sqlite_sequence"_s, u"no such"_s, u"seen"_s};
    runSQL(u"CREATE VIEW seen AS SELECT 1 AS id, 2 AS kt_name"_s);
    for (const QString &table : tables) {
        Library library = people;
        library.tableName = table;
        const QByteArray content = CatalogueChange{library, std::nullopt}.bytes();
        EXPECT_TRUE(SQL::run(store->database(),
                             u"INSERT INTO cobble_step_change VALUES (?, 1, 'catalogue', ?, ?)"_s,
                             {9 + tables.indexOf(table), table, content}));
    }
    runSQL(MakeForeign);
    EXPECT_TRUE(repair());
    EXPECT_EQ(content(), everything);
}

TEST_F(JournalRepairTests, NumbersGoOn)
{
    const qint64 last = setName(1, u"Eve"_s);
    runSQL(u"DROP TABLE cobble_step"_s);
    EXPECT_EQ(setName(2, u"Fay"_s), last + 1);
    // Unless they are nearly spent.
    runSQL(u"UPDATE sqlite_sequence SET seq = 9223372036854775807"_s);
    EXPECT_EQ(setName(1, u"Gus"_s), last + 2);
}

TEST_F(JournalRepairTests, AnErrorIsNoReasonToForgetTheHistory)
{
    const qint64 removal = removePeople();
    const qint64 root = *SQL::number(
        store->database(), u"SELECT rootpage FROM sqlite_master WHERE name = 'cobble_step'"_s);
    store.reset();
    const QByteArray before = testing_support::contentsOf(bundle.databaseFilePath());
    constexpr qsizetype PageSize = 4096;
    QByteArray damaged = before;
    damaged.replace((root - 1) * PageSize, PageSize, QByteArray(PageSize, '\xAA'));
    testing_support::writeFile(bundle.databaseFilePath(), damaged);
    store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    EXPECT_EQ(repair().reason(), u"database disk image is malformed"_s);
    store.reset();
    EXPECT_EQ(testing_support::contentsOf(bundle.databaseFilePath()), damaged);
    testing_support::writeFile(bundle.databaseFilePath(), before);
    store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    EXPECT_EQ(undo(removal), QString());
    EXPECT_EQ(content(), everything);
}
