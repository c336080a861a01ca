#include "Filter/QueriedRecords.h"

#include "FilterSupport.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QSqlQuery>

using namespace Qt::StringLiterals;
using namespace filter_support;

namespace {
class QueriedRecordsTests : public testing::Test
{
protected:
    QueriedRecordsTests()
        : scope(u"en_US"_s)
        , bundle(tree.path(u"b.cobbledb"_s))
        , fields(std::make_shared<FilterFields>(people()))
    {
        testing_support::needApplication();
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
        store = *LibraryStore::open(bundle, LibraryStore::Mode::Create);
        EXPECT_TRUE(store->begin() && store->create(people()));
        for (const QVariantMap &each : records()) {
            QVariantList values;
            for (const LibraryField &field : people().fields)
                values += each.value(field.columnName);
            EXPECT_TRUE(store->insert(values));
        }
        EXPECT_TRUE(store->commit());
    }

    QString letters(const RecordQuery &query)
    {
        QueriedRecords found(*store, people(), query);
        QString letters;
        while (found.next())
            letters += found.value(0).toString().front();
        EXPECT_TRUE(found.outcome());
        return letters;
    }

    LocaleScope scope;
    testing_support::FileTree tree;
    KTDatabaseBundle bundle;
    RecordFilter::Fields fields;
    std::unique_ptr<LibraryStore> store;
};
} // namespace

TEST_F(QueriedRecordsTests, FiltersSortsAndLimits)
{
    const struct
    {
        const char16_t *filter;
        const char16_t *order;
        qint64 limit;
        const char16_t *letters;
    } rows[] = {
        {u"", u"", -1, u"ABcDé"},
        {u"", u"", 2, u"AB"},
        {u"", u"", 0, u""},
        {u"visits > 7", u"", -1, u"Bc"},
        {u"visits > 7", u"", 1, u"B"},
        {u"", u"visits", -1, u"DéABc"},
        {u"", u"-visits", -1, u"cBAéD"},
        {u"", u"-visits", 2, u"cB"},
        {u"", u"talked,name", -1, u"DéBcA"},
        {u"visits is not empty", u"-name", -1, u"écBA"},
        {u"name = nobody", u"name", -1, u""},
    };
    for (const auto &row : rows) {
        RecordQuery query;
        query.filter = RecordFilter::read(QString::fromUtf16(row.filter), fields);
        const QString order = QString::fromUtf16(row.order);
        if (!order.isEmpty())
            query.order = *RecordQuery::orderIn(order, *fields);
        query.limit = row.limit;
        EXPECT_EQ(letters(query), QString::fromUtf16(row.letters)) << order.toStdString();
    }
}

TEST_F(QueriedRecordsTests, HasTheColumnsThatAreAskedFor)
{
    for (const char16_t *const order : {u"", u"-visits"}) {
        RecordQuery query;
        query.filter = RecordFilter::read(u"balance > 0"_s, fields);
        query.columns = *RecordQuery::columnsIn(u"Talked,Name"_s, *fields);
        if (*order)
            query.order = *RecordQuery::orderIn(QString::fromUtf16(order), *fields);
        QueriedRecords found(*store, people(), query);
        ASSERT_EQ(found.library().fields.size(), 2);
        EXPECT_EQ(found.library().fields.at(0).title(), u"Talked"_s);
        ASSERT_TRUE(found.next());
        EXPECT_EQ(found.value(1).toString(), *order ? u"céline"_s : u"Ada"_s);
        EXPECT_EQ(found.value(0).toInt(), *order ? 3600 : 5400);
    }
}

TEST_F(QueriedRecordsTests, SaysWhyThereAreNone)
{
    Library other = people();
    other.tableName = u"kt_none"_s;
    for (const bool isSorted : {false, true}) {
        RecordQuery query;
        if (isSorted)
            query.order = {{0, true}};
        QueriedRecords found(*store, other, query);
        EXPECT_FALSE(found.next());
        EXPECT_FALSE(found.outcome());
    }
}

TEST_F(QueriedRecordsTests, AFilterThatTakesTooLongIsAFailure)
{
    QSqlQuery change(store->database());
    ASSERT_TRUE(
        change.exec(u"UPDATE kt_people SET kt_name = 'aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa' "
                    "WHERE kt_name = 'Dora'"_s));
    for (const QString &text :
         {u"name MATCHES \"(a+)+[bc]\""_s, u"name NOT MATCHES \"(a+)+[bc]\""_s}) {
        for (const bool isSorted : {false, true}) {
            RecordQuery query;
            query.filter = RecordFilter::read(text, fields);
            if (isSorted)
                query.order = {{0, true}};
            QueriedRecords found(*store, people(), query);
            while (found.next())
                continue;
            EXPECT_FALSE(found.outcome());
            EXPECT_TRUE(found.outcome().reason().contains(u"(a+)+[bc]"));
        }
    }
}
