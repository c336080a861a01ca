#include "Library/LibraryStore.h"

#include "InterruptedChange.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <KTUtility/NSException>
#include <KTUtility/NSObject>

using namespace Qt::StringLiterals;

using testing_support::FileTree;

namespace {
LibraryField fieldNamed(const QString &name, FieldType type, const QVariantMap &options = {})
{
    LibraryField field;
    field.columnName = name;
    field.header = name.toUpper();
    field.type = type;
    field.options = options;
    return field;
}

Library contacts()
{
    Library library;
    library.name = u"Contacts"_s;
    library.libraryEntityName = u"lib_contacts"_s;
    library.entityName = u"Contacts"_s;
    library.tableName = u"kt_contacts"_s;
    library.fields = {
        fieldNamed(u"kt_name"_s, FieldType::Text),
        fieldNamed(u"kt_paid"_s, FieldType::Currency, {{u"currencyType"_s, u"EUR"_s}}),
        fieldNamed(u"kt \"odd\" name"_s, FieldType::Media)};
    return library;
}

class LibraryStoreTests : public testing::Test
{
protected:
    LibraryStoreTests() : bundle(tree.path(u"b.cobbledb"_s))
    {
        testing_support::needApplication();
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
    }

    std::unique_ptr<LibraryStore> open(LibraryStore::Mode mode = LibraryStore::Mode::Create)
    {
        auto store = LibraryStore::open(bundle, mode);
        error = store.reason();
        return std::move(store).valueOr(nullptr);
    }

    void storeContacts()
    {
        const auto store = open();
        ASSERT_TRUE(store && store->begin() && store->create(contacts()));
        ASSERT_TRUE(store->insert({u"Ann"_s, 5, u"cobblemedia://a"_s}));
        ASSERT_TRUE(store->insert({u"Bob"_s, QVariant(), QVariant()}));
        ASSERT_TRUE(store->commit());
    }

    void storeManyContacts()
    {
        const auto store = open();
        ASSERT_TRUE(store && store->begin() && store->create(contacts()));
        for (int number = 0; number < 3000; ++number)
            ASSERT_TRUE(store->insert({u"Ann"_s, number, u"cobblemedia://a"_s}));
        ASSERT_TRUE(store->commit());
    }

    FileTree tree;
    KTDatabaseBundle bundle;
    QString error;
};
} // namespace

TEST_F(LibraryStoreTests, KeepsLibrariesWithTheirFields)
{
    storeContacts();
    const auto store = open(LibraryStore::Mode::Existing);
    const QList<Library> libraries = *store->libraries();
    ASSERT_EQ(libraries.size(), 1);
    const Library &library = libraries.first();
    EXPECT_EQ(library.name, u"Contacts"_s);
    EXPECT_EQ(library.libraryEntityName, u"lib_contacts"_s);
    EXPECT_EQ(library.tableName, u"kt_contacts"_s);
    ASSERT_EQ(library.fields.size(), 3);
    EXPECT_EQ(library.fields[1].type, FieldType::Currency);
    EXPECT_EQ(library.fields[1].header, u"KT_PAID"_s);
    EXPECT_EQ(library.fields[1].options, contacts().fields[1].options);
    EXPECT_EQ(library.fields[2].columnName, u"kt \"odd\" name"_s);
}

TEST_F(LibraryStoreTests, KeepsRecordsInOrder)
{
    storeContacts();
    const auto store = open(LibraryStore::Mode::Existing);
    EXPECT_EQ(*store->recordCount(contacts()), 2);
    RecordCursor records = store->records(contacts());
    ASSERT_TRUE(records.next());
    EXPECT_EQ(records.value(0), QVariant(u"Ann"_s));
    EXPECT_TRUE(NSObject::isEqual(records.value(1), 5));
    ASSERT_TRUE(records.next());
    EXPECT_FALSE(records.value(1).isValid());
    EXPECT_FALSE(records.next());
    EXPECT_TRUE(records.outcome());
    RecordCursor first = store->records(contacts(), 1);
    EXPECT_TRUE(first.next());
    EXPECT_FALSE(first.next());
    EXPECT_FALSE(store->records(contacts(), 0).next());
}

TEST_F(LibraryStoreTests, FindsLibrariesByNameThenWithoutCase)
{
    storeContacts();
    const auto store = open();
    Library small = contacts();
    small.name = u"contacts"_s;
    small.tableName = u"kt_contacts1"_s;
    ASSERT_TRUE(store->begin() && store->create(small) && store->commit());
    EXPECT_EQ(store->libraryNamed(u"contacts"_s)->tableName, u"kt_contacts1"_s);
    EXPECT_EQ(store->libraryNamed(u"Contacts"_s)->tableName, u"kt_contacts"_s);
    EXPECT_TRUE(store->libraryNamed(u"CONTACTS"_s));
    EXPECT_EQ(store->libraryNamed(u"Contact"_s).reason(), u"no library 'Contact'"_s);
}

TEST_F(LibraryStoreTests, WhatIsRolledBackNeverWas)
{
    storeContacts();
    const auto store = open();
    ASSERT_TRUE(store->begin());
    ASSERT_TRUE(store->remove(contacts()));
    EXPECT_TRUE(store->libraries()->isEmpty());
    store->rollback();
    EXPECT_EQ(*store->recordCount(contacts()), 2);
    ASSERT_TRUE(store->begin() && store->remove(contacts()) && store->commit());
    EXPECT_TRUE(store->libraries()->isEmpty());
}

TEST_F(LibraryStoreTests, AnExceptionTakesAChangeBack)
{
    storeContacts();
    const auto store = open();
    const auto fail = [&]() -> Outcome<> {
        EXPECT_TRUE(store->removeRecord(contacts(), 1));
        throw NSException(u"Test"_s, u"no"_s);
    };
    EXPECT_THROW((void)store->transaction(fail), NSException);
    EXPECT_EQ(*store->recordCount(contacts()), 2);
    const auto other = open();
    other->setPatience(0);
    EXPECT_EQ(other->beginChange().reason(), QString());
    other->rollback();
    EXPECT_TRUE(store->transaction([&] { return store->removeRecord(contacts(), 1); }));
    EXPECT_EQ(*other->recordCount(contacts()), 1);
}

TEST_F(LibraryStoreTests, KnowsWhichMediaAreUsed)
{
    storeContacts();
    const auto store = open();
    const Outcome<QSet<QString>> used = store->usedMedia();
    ASSERT_TRUE(used);
    EXPECT_TRUE(used->contains(u"cobblemedia://a"_s));
    EXPECT_FALSE(used->contains(u"cobblemedia://b"_s));
    EXPECT_FALSE(used->contains(u"Ann"_s));
    EXPECT_EQ(*used, QSet<QString>({u"cobblemedia://a"_s}));
    EXPECT_EQ(*store->mediaOf(contacts()), QSet<QString>({u"cobblemedia://a"_s, u""_s}));
}

TEST_F(LibraryStoreTests, MediaAreInUseWhateverTheTypeOfTheirField)
{
    const auto store = open();
    ASSERT_TRUE(store->begin() && store->create(contacts()));
    ASSERT_TRUE(store->insert({u"cobblemedia://b"_s, u" CobbleMedia://c\n"_s, u"a"_s}));
    ASSERT_TRUE(store->insert({u"see cobblemedia://d"_s, 5, u"cobblemedia:e"_s}));
    EXPECT_EQ(*store->usedMedia(),
              QSet<QString>({u"cobblemedia://b"_s, u"CobbleMedia://c"_s, u"cobblemedia:e"_s}));
}

TEST_F(LibraryStoreTests, MediaAreInUseInAnyOfManyFields)
{
    Library library = contacts();
    library.fields.clear();
    QVariantList values;
    for (int number = 0; number < 1999; ++number) {
        library.fields += fieldNamed(u"kt_%1"_s.arg(number), FieldType::Text);
        values += number % 400 == 99 ? u"cobblemedia://%1"_s.arg(number) : u"x"_s;
    }
    const auto store = open();
    ASSERT_TRUE(store->begin() && store->create(library) && store->insert(values));
    EXPECT_EQ(*store->usedMedia(),
              QSet<QString>({u"cobblemedia://99"_s, u"cobblemedia://499"_s, u"cobblemedia://899"_s,
                             u"cobblemedia://1299"_s, u"cobblemedia://1699"_s}));
}

TEST_F(LibraryStoreTests, MediaThatMayBeUsedAreNotKnown)
{
    storeContacts();
    const auto store = open();
    ASSERT_TRUE(store->begin());
    QSqlQuery(QSqlDatabase::database(QSqlDatabase::connectionNames().last()))
        .exec(u"ALTER TABLE kt_contacts RENAME TO lost"_s);
    const QString reason = u"no such table: kt_contacts"_s;
    EXPECT_EQ(store->usedMedia().reason(), reason);
    EXPECT_EQ(store->recordCount(contacts()).reason(), reason);
    EXPECT_EQ(store->records(contacts()).outcome().reason(), reason);
    EXPECT_EQ(store->libraries()->size(), 1);
}

TEST_F(LibraryStoreTests, APageThatIsDamagedIsAnError)
{
    storeContacts();
    QByteArray bytes = testing_support::contentsOf(bundle.databaseFilePath());
    constexpr qsizetype PageSize = 4096;
    ASSERT_GT(bytes.size(), PageSize);
    // The first page says where everything is, and stays.
    bytes.replace(PageSize, bytes.size() - PageSize, QByteArray(bytes.size() - PageSize, '\xAA'));
    testing_support::writeFile(bundle.databaseFilePath(), bytes);
    const auto store = open(LibraryStore::Mode::Existing);
    ASSERT_TRUE(store) << error.toStdString();
    const QString reason = u"database disk image is malformed"_s;
    EXPECT_EQ(store->libraries().reason(), reason);
    EXPECT_EQ(store->usedMedia().reason(), reason);
    EXPECT_EQ(store->libraryNamed(u"Contacts"_s).reason(), reason);
}

TEST_F(LibraryStoreTests, ASchemaThatIsDamagedIsAnError)
{
    storeContacts();
    QByteArray bytes = testing_support::contentsOf(bundle.databaseFilePath());
    bytes.replace("CREATE TABLE cobble_library", "CREATE FABLE cobble_library");
    testing_support::writeFile(bundle.databaseFilePath(), bytes);
    const auto store = open(LibraryStore::Mode::Existing);
    ASSERT_TRUE(store) << error.toStdString();
    const QString reason = store->libraries().reason();
    EXPECT_TRUE(reason.startsWith(u"malformed database schema")) << reason.toStdString();
}

TEST_F(LibraryStoreTests, ADatabaseWithoutACatalogueHasNoLibraries)
{
    testing_support::writeFile(bundle.databaseFilePath(), "");
    const auto store = open(LibraryStore::Mode::Existing);
    ASSERT_TRUE(store) << error.toStdString();
    EXPECT_TRUE(store->libraries()->isEmpty());
    EXPECT_EQ(store->libraryNamed(u"x"_s).reason(), u"no library 'x'"_s);
    EXPECT_TRUE(store->usedMedia()->isEmpty());
}

TEST_F(LibraryStoreTests, MissingAndDamagedDatabasesAreErrors)
{
    EXPECT_EQ(open(LibraryStore::Mode::Existing), nullptr);
    EXPECT_EQ(error, u"there is no database"_s);
    testing_support::writeFile(bundle.databaseFilePath(), QByteArray(5000, 'x'));
    EXPECT_EQ(open(LibraryStore::Mode::Existing), nullptr);
    EXPECT_EQ(error, u"file is not a database"_s);
    EXPECT_EQ(testing_support::contentsOf(bundle.databaseFilePath()), QByteArray(5000, 'x'));
    QFile::remove(bundle.databaseFilePath());
    QDir().mkdir(bundle.databaseFilePath());
    EXPECT_EQ(open(), nullptr);
    EXPECT_EQ(error, u"the database is a link, or no file"_s);
}

TEST_F(LibraryStoreTests, IsForReadingUntilSomethingIsWritten)
{
    storeContacts();
    const QJsonObject before = tree.contents();
    const auto store = open(LibraryStore::Mode::Existing);
    store->setPatience(10);
    const qint64 version = store->dataVersion();
    EXPECT_EQ(*store->recordCount(contacts()), 2);
    EXPECT_EQ(tree.contents(), before);
    ASSERT_TRUE(store->beginChange());
    // It is the same state that was read.
    EXPECT_EQ(store->dataVersion(), version);
    EXPECT_TRUE(store->update(contacts(), 1, 0, u"Eve"_s) && store->commit());
    EXPECT_EQ(store->dataVersion(), version);
    EXPECT_NE(tree.contents(), before);
    // Somebody else cannot write meanwhile, and does not wait longer than that.
    ASSERT_TRUE(store->beginChange());
    const auto other = open(LibraryStore::Mode::Existing);
    other->setPatience(10);
    EXPECT_EQ(other->beginChange().reason(), u"database is locked"_s);
    store->rollback();
    EXPECT_TRUE(other->beginChange());
}

TEST_F(LibraryStoreTests, NoticesWhatOthersHaveWrittenBeforeItWrites)
{
    storeContacts();
    const auto store = open(LibraryStore::Mode::Existing);
    const qint64 version = store->dataVersion();
    const auto other = open(LibraryStore::Mode::Existing);
    EXPECT_TRUE(other->beginChange() && other->removeRecord(contacts(), 1) && other->commit());
    ASSERT_TRUE(store->beginChange());
    const qint64 later = store->dataVersion();
    EXPECT_NE(later, version);
    store->rollback();
    EXPECT_EQ(store->dataVersion(), later);
    EXPECT_TRUE(other->beginChange() && other->removeRecord(contacts(), 2) && other->commit());
    EXPECT_NE(store->dataVersion(), later);
}

TEST_F(LibraryStoreTests, AnInterruptedChangeIsTakenBackByWhoWrites)
{
    storeManyContacts();
    InterruptedChange::leaveIn(bundle, u"kt_contacts"_s, u"kt_name"_s);
    const QJsonObject before = tree.contents();
    const auto store = open(LibraryStore::Mode::Existing);
    ASSERT_TRUE(store) << error.toStdString();
    const qint64 version = store->dataVersion();
    RecordCursor records = store->records(contacts());
    ASSERT_TRUE(records.next());
    EXPECT_EQ(records.value(0), QVariant(u"Ann"_s));
    records = store->records(contacts(), 0);
    EXPECT_EQ(tree.contents(), before);
    ASSERT_TRUE(store->beginChange());
    EXPECT_FALSE(tree.contents().contains(u"b.cobbledb/Contents/Resources/Database-journal"_s));
    // Others may have written between the copy that was read and this.
    EXPECT_NE(store->dataVersion(), version);
    EXPECT_EQ(*store->recordCount(contacts()), 3000);
}

TEST_F(LibraryStoreTests, WhatLeadsOutOfTheBundleMeanwhileIsNotWrittenTo)
{
    storeContacts();
    const auto store = open(LibraryStore::Mode::Existing);
    ASSERT_TRUE(store);
    QFile::rename(bundle.databaseFilePath(), tree.path(u"elsewhere"_s));
    QFile::link(tree.path(u"elsewhere"_s), bundle.databaseFilePath());
    const QJsonObject before = tree.contents();
    EXPECT_EQ(store->beginChange().reason(), u"the database is a link, or no file"_s);
    EXPECT_EQ(store->begin().reason(), u"the database is a link, or no file"_s);
    EXPECT_EQ(tree.contents(), before);
    // What was opened can still be read.
    EXPECT_EQ(*store->recordCount(contacts()), 2);
}

TEST_F(LibraryStoreTests, DatabasesOfNewerVersionsAreLeftAlone)
{
    storeContacts();
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"newer"_s);
        database.setDatabaseName(bundle.databaseFilePath());
        ASSERT_TRUE(database.open());
        QSqlQuery(database).exec(u"PRAGMA user_version = 99"_s);
    }
    QSqlDatabase::removeDatabase(u"newer"_s);
    EXPECT_EQ(open(), nullptr);
    EXPECT_EQ(error, u"the database was made by a newer version of Cobble"_s);
}

TEST_F(LibraryStoreTests, ErrorsOfSQLiteAreTold)
{
    storeContacts();
    const auto store = open();
    ASSERT_TRUE(store->begin());
    EXPECT_TRUE(store->create(contacts()).reason().contains(u"UNIQUE constraint failed"));
    store->rollback();
    Library none = contacts();
    none.tableName = u"none"_s;
    EXPECT_FALSE(store->records(none).next());
    EXPECT_EQ(store->remove(none).reason(), u"no such table: none"_s);
}
