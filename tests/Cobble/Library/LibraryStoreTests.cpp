#include "Library/LibraryStore.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <KTUtility/NSObject>

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
    library.name = QStringLiteral("Contacts");
    library.libraryEntityName = QStringLiteral("lib_contacts");
    library.entityName = QStringLiteral("Contacts");
    library.tableName = QStringLiteral("kt_contacts");
    library.fields = {fieldNamed(QStringLiteral("kt_name"), FieldType::Text),
                      fieldNamed(QStringLiteral("kt_paid"), FieldType::Currency,
                                 {{QStringLiteral("currencyType"), QStringLiteral("EUR")}}),
                      fieldNamed(QStringLiteral("kt \"odd\" name"), FieldType::Media)};
    return library;
}

class LibraryStoreTest : public testing::Test
{
protected:
    LibraryStoreTest() : bundle(tree.path(QStringLiteral("b.cobbledb")))
    {
        testing_support::needApplication();
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
    }

    std::unique_ptr<LibraryStore> open(LibraryStore::Mode mode = LibraryStore::Mode::Create)
    {
        error = QString();
        return LibraryStore::open(bundle, mode, &error);
    }

    void storeContacts()
    {
        const auto store = open();
        ASSERT_TRUE(store && store->begin() && store->create(contacts()));
        ASSERT_TRUE(store->insert({QStringLiteral("Ann"), 5, QStringLiteral("cobblemedia://a")}));
        ASSERT_TRUE(store->insert({QStringLiteral("Bob"), QVariant(), QVariant()}));
        ASSERT_TRUE(store->commit());
    }

    FileTree tree;
    KTDatabaseBundle bundle;
    QString error;
};
} // namespace

TEST_F(LibraryStoreTest, KeepsLibrariesWithTheirFields)
{
    storeContacts();
    const auto store = open(LibraryStore::Mode::Existing);
    const QList<Library> libraries = store->libraries();
    ASSERT_EQ(libraries.size(), 1);
    const Library &library = libraries.first();
    EXPECT_EQ(library.name, QStringLiteral("Contacts"));
    EXPECT_EQ(library.libraryEntityName, QStringLiteral("lib_contacts"));
    EXPECT_EQ(library.tableName, QStringLiteral("kt_contacts"));
    ASSERT_EQ(library.fields.size(), 3);
    EXPECT_EQ(library.fields[1].type, FieldType::Currency);
    EXPECT_EQ(library.fields[1].header, QStringLiteral("KT_PAID"));
    EXPECT_EQ(library.fields[1].options, contacts().fields[1].options);
    EXPECT_EQ(library.fields[2].columnName, QStringLiteral("kt \"odd\" name"));
}

TEST_F(LibraryStoreTest, KeepsRecordsInOrder)
{
    storeContacts();
    const auto store = open(LibraryStore::Mode::Existing);
    EXPECT_EQ(store->recordCount(contacts()), 2);
    RecordCursor records = store->records(contacts());
    ASSERT_TRUE(records.next());
    EXPECT_EQ(records.value(0), QVariant(QStringLiteral("Ann")));
    EXPECT_TRUE(NSObject::isEqual(records.value(1), 5));
    ASSERT_TRUE(records.next());
    EXPECT_FALSE(records.value(1).isValid());
    EXPECT_FALSE(records.next());
    EXPECT_TRUE(records.errorText().isNull());
    RecordCursor first = store->records(contacts(), 1);
    EXPECT_TRUE(first.next());
    EXPECT_FALSE(first.next());
    EXPECT_FALSE(store->records(contacts(), 0).next());
}

TEST_F(LibraryStoreTest, FindsLibrariesByNameThenWithoutCase)
{
    storeContacts();
    const auto store = open();
    Library small = contacts();
    small.name = QStringLiteral("contacts");
    small.tableName = QStringLiteral("kt_contacts1");
    ASSERT_TRUE(store->begin() && store->create(small) && store->commit());
    EXPECT_EQ(store->libraryNamed(QStringLiteral("contacts"))->tableName,
              QStringLiteral("kt_contacts1"));
    EXPECT_EQ(store->libraryNamed(QStringLiteral("Contacts"))->tableName,
              QStringLiteral("kt_contacts"));
    EXPECT_TRUE(store->libraryNamed(QStringLiteral("CONTACTS")).has_value());
    EXPECT_FALSE(store->libraryNamed(QStringLiteral("Contact")).has_value());
}

TEST_F(LibraryStoreTest, WhatIsRolledBackNeverWas)
{
    storeContacts();
    const auto store = open();
    ASSERT_TRUE(store->begin());
    ASSERT_TRUE(store->remove(contacts()));
    EXPECT_TRUE(store->libraries().isEmpty());
    store->rollback();
    EXPECT_EQ(store->recordCount(contacts()), 2);
    ASSERT_TRUE(store->begin() && store->remove(contacts()) && store->commit());
    EXPECT_TRUE(store->libraries().isEmpty());
}

TEST_F(LibraryStoreTest, KnowsWhichMediaAreUsed)
{
    storeContacts();
    const auto store = open();
    const std::optional<QSet<QString>> used = store->usedMedia();
    ASSERT_TRUE(used.has_value());
    EXPECT_TRUE(used->contains(QStringLiteral("cobblemedia://a")));
    EXPECT_FALSE(used->contains(QStringLiteral("cobblemedia://b")));
    EXPECT_FALSE(used->contains(QStringLiteral("Ann")));
    EXPECT_EQ(store->mediaOf(contacts()), used);
}

TEST_F(LibraryStoreTest, MediaThatMayBeUsedAreNotKnown)
{
    storeContacts();
    const auto store = open();
    ASSERT_TRUE(store->begin());
    QSqlQuery(QSqlDatabase::database(QSqlDatabase::connectionNames().last()))
        .exec(QStringLiteral("ALTER TABLE kt_contacts RENAME TO lost"));
    EXPECT_FALSE(store->usedMedia().has_value());
    EXPECT_EQ(store->recordCount(contacts()), 0);
    EXPECT_EQ(store->errorText(), QStringLiteral("no such table: kt_contacts"));
    EXPECT_EQ(store->records(contacts()).errorText(), QStringLiteral("no such table: kt_contacts"));
    EXPECT_EQ(store->libraries().size(), 1);
    EXPECT_TRUE(store->errorText().isNull());
}

TEST_F(LibraryStoreTest, APageThatIsDamagedIsAnError)
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
    EXPECT_TRUE(store->libraries().isEmpty());
    EXPECT_EQ(store->errorText(), QStringLiteral("database disk image is malformed"));
    EXPECT_EQ(store->reasonForNo(QStringLiteral("x")), store->errorText());
    EXPECT_FALSE(store->usedMedia().has_value());
    EXPECT_FALSE(store->libraryNamed(QStringLiteral("Contacts")).has_value());
}

TEST_F(LibraryStoreTest, ASchemaThatIsDamagedIsAnError)
{
    storeContacts();
    QByteArray bytes = testing_support::contentsOf(bundle.databaseFilePath());
    bytes.replace("CREATE TABLE cobble_library", "CREATE FABLE cobble_library");
    testing_support::writeFile(bundle.databaseFilePath(), bytes);
    const auto store = open(LibraryStore::Mode::Existing);
    ASSERT_TRUE(store) << error.toStdString();
    EXPECT_TRUE(store->libraries().isEmpty());
    EXPECT_TRUE(store->errorText().startsWith(u"malformed database schema"))
        << store->errorText().toStdString();
}

TEST_F(LibraryStoreTest, ADatabaseWithoutACatalogueHasNoLibraries)
{
    testing_support::writeFile(bundle.databaseFilePath(), "");
    const auto store = open(LibraryStore::Mode::Existing);
    ASSERT_TRUE(store) << error.toStdString();
    EXPECT_TRUE(store->libraries().isEmpty());
    EXPECT_TRUE(store->errorText().isNull());
    EXPECT_EQ(store->reasonForNo(QStringLiteral("x")), QStringLiteral("no library 'x'"));
    EXPECT_EQ(store->usedMedia(), QSet<QString>());
}

TEST_F(LibraryStoreTest, MissingAndDamagedDatabasesAreErrors)
{
    EXPECT_EQ(open(LibraryStore::Mode::Existing), nullptr);
    EXPECT_EQ(error, QStringLiteral("there is no database"));
    testing_support::writeFile(bundle.databaseFilePath(), QByteArray(5000, 'x'));
    EXPECT_EQ(open(LibraryStore::Mode::Existing), nullptr);
    EXPECT_EQ(error, QStringLiteral("file is not a database"));
    EXPECT_EQ(testing_support::contentsOf(bundle.databaseFilePath()), QByteArray(5000, 'x'));
    QFile::remove(bundle.databaseFilePath());
    QDir().mkdir(bundle.databaseFilePath());
    EXPECT_EQ(open(), nullptr);
    EXPECT_EQ(error, QStringLiteral("unable to open database file"));
}

TEST_F(LibraryStoreTest, DatabasesOfNewerVersionsAreLeftAlone)
{
    storeContacts();
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("newer"));
        database.setDatabaseName(bundle.databaseFilePath());
        ASSERT_TRUE(database.open());
        QSqlQuery(database).exec(QStringLiteral("PRAGMA user_version = 99"));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("newer"));
    EXPECT_EQ(open(), nullptr);
    EXPECT_EQ(error, QStringLiteral("the database was made by a newer version of Cobble"));
}

TEST_F(LibraryStoreTest, ErrorsOfSQLiteAreTold)
{
    storeContacts();
    const auto store = open();
    ASSERT_TRUE(store->begin());
    EXPECT_FALSE(store->create(contacts()));
    EXPECT_TRUE(store->errorText().contains(u"UNIQUE constraint failed"));
    store->rollback();
    Library none = contacts();
    none.tableName = QStringLiteral("none");
    EXPECT_FALSE(store->records(none).next());
    EXPECT_FALSE(store->remove(none));
    EXPECT_EQ(store->errorText(), QStringLiteral("no such table: none"));
}

TEST(LibraryField, TitlesFallBack)
{
    LibraryField field;
    field.columnName = QStringLiteral("kt_field");
    EXPECT_EQ(field.title(), QStringLiteral("kt_field"));
    field.label = QStringLiteral("Label");
    EXPECT_EQ(field.title(), QStringLiteral("Label"));
    field.header = QStringLiteral("Header");
    EXPECT_EQ(field.title(), QStringLiteral("Header"));
}
