#include "Import/ReplacedLibrary.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
class ReplacedLibraryTests : public testing::Test
{
protected:
    ReplacedLibraryTests() : bundle(tree.path(u"b.cobbledb"_s))
    {
        testing_support::needApplication();
    }

    /// Makes a library with a picture and a text.
    void store(const QString &name, const QString &picture, const QString &text)
    {
        ASSERT_TRUE(bundle.buildDatabaseBundleOnDisk());
        Library library;
        library.name = name;
        library.tableName = QString(u"kt_" + name);
        for (const auto &[column, type] : {std::pair(u"kt_picture"_s, FieldType::Media),
                                           std::pair(u"kt_text"_s, FieldType::Text)}) {
            LibraryField field;
            field.columnName = column;
            field.type = type;
            library.fields += field;
        }
        const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Create);
        ASSERT_TRUE(store->begin() && store->create(library));
        ASSERT_TRUE(store->insert({picture, text}) && store->commit());
    }

    testing_support::FileTree tree;
    KTDatabaseBundle bundle;
};
} // namespace

TEST_F(ReplacedLibraryTests, WithoutABundleOrALibraryNothingIsLost)
{
    const auto none = ReplacedLibrary::find(bundle, u"one"_s);
    ASSERT_TRUE(none);
    EXPECT_FALSE(none->library());
    EXPECT_FALSE(bundle.doesExist());
    store(u"one"_s, u"cobblemedia://a.0.png"_s, u"x"_s);
    const auto other = ReplacedLibrary::find(bundle, u"two"_s);
    ASSERT_TRUE(other);
    EXPECT_FALSE(other->library());
    EXPECT_FALSE(other->loses(u"y"_s));
}

TEST_F(ReplacedLibraryTests, KnowsWhatIsLost)
{
    store(u"one"_s, u"cobblemedia://a.0.png"_s, u"x"_s);
    const auto replaced = ReplacedLibrary::find(bundle, u"one"_s);
    ASSERT_TRUE(replaced && replaced->library());
    EXPECT_TRUE(replaced->loses(u"x"_s));
    EXPECT_FALSE(replaced->loses(u"cobblemedia://a.0.png"_s));
    EXPECT_EQ(ReplacedLibrary::loss(3, u"x"_s, u"it is gone"_s).reason,
              u"row 3: 'x': it is gone"_s);
    store(u"two"_s, u"no file"_s, u"cobblemedia://b"_s);
    EXPECT_FALSE(ReplacedLibrary::find(bundle, u"two"_s)->loses(u"x"_s));
}

TEST_F(ReplacedLibraryTests, ItsColumnsOfMediaStaySuch)
{
    store(u"one"_s, u"a"_s, u"x"_s);
    const ImportSchema schema =
        ImportSchema::fromHeaders(u"one"_s, {u"text"_s, u"picture"_s, u"other"_s});
    QMap<qsizetype, FieldType> types = {{2, FieldType::Number}};
    ReplacedLibrary().keepMediaColumns(schema, &types);
    EXPECT_EQ(types.size(), 1);
    ReplacedLibrary::find(bundle, u"one"_s)->keepMediaColumns(schema, &types);
    EXPECT_EQ(types, (QMap<qsizetype, FieldType>{{1, FieldType::Media}, {2, FieldType::Number}}));
}

TEST_F(ReplacedLibraryTests, ADatabaseThatCannotBeReadIsAnError)
{
    ASSERT_TRUE(bundle.buildDatabaseBundleOnDisk());
    testing_support::writeFile(bundle.databaseFilePath(), QByteArray(4096, 'x'));
    EXPECT_EQ(ReplacedLibrary::find(bundle, u"one"_s).reason(), u"file is not a database"_s);
    ASSERT_TRUE(QFile::remove(bundle.databaseFilePath()));
    ASSERT_TRUE(QFile::link(tree.path(u"none"_s), bundle.databaseFilePath()));
    EXPECT_EQ(ReplacedLibrary::find(bundle, u"one"_s).reason(),
              u"the database is a link, or no file"_s);
}
