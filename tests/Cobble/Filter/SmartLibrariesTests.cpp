#include "Filter/SmartLibraries.h"

#include "FilterSupport.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QSqlQuery>

using namespace Qt::StringLiterals;
using namespace filter_support;

namespace {
class SmartLibrariesTests : public testing::Test
{
protected:
    SmartLibrariesTests()
        : scope(u"en_US"_s)
        , bundle(tree.path(u"b.cobbledb"_s))
        , fields(std::make_shared<FilterFields>(people()))
    {
        testing_support::needApplication();
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
        store = *LibraryStore::open(bundle, LibraryStore::Mode::Create);
        EXPECT_TRUE(store->begin() && store->create(people()) && store->commit());
    }

    SmartLibrary smart(const QString &name)
    {
        RecordQuery query;
        query.filter = RecordFilter::read(u"balance > 1,234.50"_s, fields);
        query.order = {{5, false}, {0, true}};
        query.columns = {0, 9};
        return SmartLibraries::make(name, people(), query, *fields);
    }
    Outcome<> change(const std::function<Outcome<>()> &changes)
    {
        const Outcome<> changed =
            store->beginChange().andThen(changes).andThen([&] { return store->commit(); });
        if (!changed)
            store->rollback();
        return changed;
    }
    Outcome<> save(const SmartLibrary &each)
    {
        return change([&] { return SmartLibraries::save(*store, each); });
    }
    void run(const QString &statement)
    {
        QSqlQuery query(store->database());
        EXPECT_TRUE(query.exec(statement)) << statement.toStdString();
    }

    LocaleScope scope;
    testing_support::FileTree tree;
    KTDatabaseBundle bundle;
    RecordFilter::Fields fields;
    std::unique_ptr<LibraryStore> store;
};
} // namespace

TEST_F(SmartLibrariesTests, AreKeptAsTheyWereSaved)
{
    EXPECT_TRUE(SmartLibraries::all(*store)->isEmpty());
    ASSERT_TRUE(save(smart(u"rich"_s)) && save(smart(u"Also"_s)));
    const auto again = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    const auto all = SmartLibraries::all(*again);
    ASSERT_TRUE(all) << all.reason().toStdString();
    ASSERT_EQ(all->size(), 2);
    EXPECT_TRUE(all->at(0) == smart(u"Also"_s));
    EXPECT_TRUE(all->at(1) == smart(u"rich"_s));
    EXPECT_EQ(SmartLibraries::named(u"RICH"_s, *all)->name, u"rich"_s);
    EXPECT_FALSE(SmartLibraries::named(u"poor"_s, *all));
}

TEST_F(SmartLibrariesTests, LookingMakesNoTable)
{
    EXPECT_TRUE(SmartLibraries::all(*store));
    QSqlQuery query(store->database());
    ASSERT_TRUE(
        query.exec(u"SELECT count(*) FROM sqlite_master WHERE name LIKE 'cobble_smart%'"_s));
    ASSERT_TRUE(query.next());
    EXPECT_EQ(query.value(0).toInt(), 0);
}

TEST_F(SmartLibrariesTests, StandForTheirQueryInEveryLocale)
{
    const SmartLibrary saved = smart(u"rich"_s);
    for (const QString &locale : {u"de_DE"_s, u"ar_EG"_s, u"ja_JP"_s}) {
        const LocaleScope other(locale);
        const auto query = SmartLibraries::queryOf(saved, std::make_shared<FilterFields>(people()));
        ASSERT_TRUE(query) << query.reason().toStdString();
        EXPECT_EQ(found(query->filter), u"c"_s);
        EXPECT_TRUE(query->order == QList<RecordOrder>({{5, false}, {0, true}}));
        EXPECT_EQ(query->columns, QList<qsizetype>({0, 9}));
    }
}

TEST_F(SmartLibrariesTests, FollowFieldsThatAreRenamed)
{
    Library library = people();
    library.fields[2].header = u"Guthaben"_s;
    const auto renamed = std::make_shared<FilterFields>(library);
    const auto query = SmartLibraries::queryOf(smart(u"rich"_s), renamed);
    ASSERT_TRUE(query);
    EXPECT_EQ(query->filter.text(FilterNotation::Typed), u"Guthaben > \"$1,234.50\""_s);
    library.fields.removeAt(2);
    const auto lost =
        SmartLibraries::queryOf(smart(u"rich"_s), std::make_shared<FilterFields>(library));
    EXPECT_TRUE(lost.reason().contains(u"kt_balance")) << lost.reason().toStdString();
}

TEST_F(SmartLibrariesTests, BelongToTheirTableOrName)
{
    Library other = people();
    other.tableName = u"kt_people_2"_s;
    Library renamed = people();
    renamed.name = u"Folk"_s;
    EXPECT_EQ(SmartLibraries::libraryOf(smart(u"x"_s), {other, renamed})->name, u"Folk"_s);
    EXPECT_EQ(SmartLibraries::libraryOf(smart(u"x"_s), {other})->tableName, u"kt_people_2"_s);
    EXPECT_FALSE(SmartLibraries::libraryOf(smart(u"x"_s), {}));
}

TEST_F(SmartLibrariesTests, AreRenamedAndRemoved)
{
    ASSERT_TRUE(save(smart(u"rich"_s)) && save(smart(u"poor"_s)));
    EXPECT_FALSE(save(smart(u"RICH"_s)));
    EXPECT_FALSE(save(smart(u"people"_s)));
    const auto rename = [this](const QString &from, const QString &to) {
        return change([&] { return SmartLibraries::rename(*store, from, to); });
    };
    EXPECT_FALSE(rename(u"rich"_s, u"Poor"_s));
    EXPECT_FALSE(rename(u"rich"_s, u""_s));
    EXPECT_TRUE(rename(u"rich"_s, u"Rich"_s));
    EXPECT_TRUE(change([&] { return SmartLibraries::remove(*store, u"poor"_s); }));
    ASSERT_EQ(SmartLibraries::all(*store)->size(), 1);
    EXPECT_EQ(SmartLibraries::all(*store)->first().name, u"Rich"_s);
}

TEST_F(SmartLibrariesTests, WhatStrangersMadeIsNotTrusted)
{
    run(u"CREATE VIEW cobble_smart_library AS SELECT 1"_s);
    EXPECT_FALSE(SmartLibraries::all(*store));
    run(u"DROP VIEW cobble_smart_library"_s);
    run(u"CREATE TABLE cobble_smart_library (name TEXT)"_s);
    EXPECT_FALSE(SmartLibraries::all(*store));
    run(u"DROP TABLE cobble_smart_library"_s);
    ASSERT_TRUE(save(smart(u"rich"_s)));
    run(u"UPDATE cobble_smart_library SET filter = printf('%.*c', 1000000, '('), columns = NULL"_s);
    const auto all = SmartLibraries::all(*store);
    ASSERT_TRUE(all);
    EXPECT_FALSE(SmartLibraries::queryOf(all->first(), fields));
}

TEST_F(SmartLibrariesTests, OnlyWhatCanBeReadAgainIsSaved)
{
    const auto of = [this](const QString &text) {
        RecordQuery query;
        query.filter = RecordFilter::read(text, fields);
        return SmartLibraries::make(u"x"_s, people(), query, *fields);
    };
    for (const QString &text : {u"born = 12/31/10000"_s, u"vists > 7"_s}) {
        const Outcome<> saved = save(of(text));
        EXPECT_TRUE(saved.reason().startsWith(u"the filter cannot be kept: "))
            << saved.reason().toStdString();
    }
    SmartLibrary homeless = of(u"visits > 7"_s);
    homeless.tableName = homeless.libraryName = u"Nothing"_s;
    EXPECT_EQ(save(homeless).reason(), u"there is no library “Nothing”"_s);
    EXPECT_TRUE(SmartLibraries::all(*store)->isEmpty());
    QString list = u"visits IN (7,12"_s;
    for (int number = 100001; list.size() < 18500; ++number)
        list += u',' + QString::number(number);
    ASSERT_TRUE(save(of(list + u')')));
    const auto query = SmartLibraries::queryOf(SmartLibraries::all(*store)->first(), fields);
    ASSERT_TRUE(query) << query.reason().toStdString();
    EXPECT_EQ(found(query->filter), u"AB"_s);
}
