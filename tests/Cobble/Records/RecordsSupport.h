#pragma once

#include "Library/LibraryStore.h"
#include "Records/RecordSearch.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

namespace testing_support {
/// A store with a library "People" of three fields: Name, Visits and Born.
class RecordsTest : public testing::Test
{
protected:
    RecordsTest() : bundle(tree.path(QStringLiteral("b.cobbledb")))
    {
        needApplication();
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
        store = *LibraryStore::open(bundle, LibraryStore::Mode::Create);
        people.name = QStringLiteral("People");
        people.tableName = QStringLiteral("kt_people");
        people.fields = {field(QStringLiteral("Name"), FieldType::Text),
                         field(QStringLiteral("Visits"), FieldType::Number),
                         field(QStringLiteral("Born"), FieldType::Date)};
    }

    static LibraryField field(const QString &header, FieldType type)
    {
        LibraryField field;
        field.columnName = QStringLiteral("kt_") + header.toLower();
        field.header = header;
        field.type = type;
        return field;
    }
    /// What the field "Born" reads of a text.
    QVariant day(const QString &text) const
    {
        return people.fields.at(2).reader()->read(text).valueOr({});
    }
    /// Stores records, numbered from 1.
    void fill(const QList<QVariantList> &records)
    {
        ASSERT_TRUE(store->begin());
        ASSERT_TRUE(store->create(people));
        for (const QVariantList &values : records)
            ASSERT_TRUE(store->insert(values));
        ASSERT_TRUE(store->commit());
    }
    /// So many, whose visits count down.
    void fillWith(int count)
    {
        QList<QVariantList> records;
        for (int number = 1; number <= count; ++number)
            records +=
                QVariantList{QStringLiteral("person n%1").arg(number), count - number, QVariant()};
        fill(records);
    }
    void remove(const RecordIds &ids)
    {
        ASSERT_TRUE(store->begin());
        for (const qint64 id : ids)
            ASSERT_TRUE(store->removeRecord(people, id));
        ASSERT_TRUE(store->commit());
    }
    RecordIds ids() const { return store->recordIds(people).valueOr({}); }
    FieldReaders readers() const
    {
        FieldReaders readers;
        for (const LibraryField &each : people.fields)
            readers.push_back(each.reader());
        return readers;
    }
    /// All numbers from a first to a last one.
    static RecordIds between(qint64 first, qint64 last)
    {
        RecordIds ids;
        for (qint64 id = first; id <= last; ++id)
            ids.push_back(id);
        return ids;
    }

    FileTree tree;
    KTDatabaseBundle bundle;
    std::unique_ptr<LibraryStore> store;
    Library people;
};
} // namespace testing_support
