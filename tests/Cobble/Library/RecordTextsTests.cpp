#include "Library/RecordTexts.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
LibraryField fieldNamed(const QString &name, FieldType type)
{
    LibraryField field;
    field.columnName = QString(u"kt_" + name);
    field.header = name;
    field.type = type;
    return field;
}

Library people()
{
    Library library;
    library.name = u"People"_s;
    library.tableName = u"kt_people"_s;
    library.fields = {fieldNamed(u"Name"_s, FieldType::Text),
                      fieldNamed(u"Paid"_s, FieldType::Number),
                      fieldNamed(u"Phone"_s, FieldType::Phone)};
    return library;
}
} // namespace

TEST(RecordTexts, ShowsValuesAsTheirFieldsDo)
{
    const RecordTexts texts(people());
    EXPECT_EQ(texts.titles(), QStringList({u"Name"_s, u"Paid"_s, u"Phone"_s}));
    EXPECT_EQ(texts.textOf(1, 1234), u"1,234"_s);
    EXPECT_EQ(texts.textOf(2, u"2125550106"_s), u"(212) 555-0106"_s);
    EXPECT_EQ(texts.textOf(0, u"Ann"_s), u"Ann"_s);
}

TEST(RecordTexts, WhatCouldNotBeReadIsShownAsItWasTyped)
{
    const RecordTexts texts(people());
    EXPECT_EQ(texts.textOf(1, u"a cow"_s), u"a cow"_s);
}

TEST(RecordTexts, NothingIsShownForNil)
{
    const RecordTexts texts(people());
    for (qsizetype field = 0; field < 3; ++field) {
        const QString text = texts.textOf(field, QVariant());
        EXPECT_TRUE(text.isEmpty() && !text.isNull());
    }
}

TEST(RecordTexts, ShowsAllOfARecord)
{
    testing_support::needApplication();
    const testing_support::FileTree tree;
    const KTDatabaseBundle bundle(tree.path(u"b.cobbledb"_s));
    ASSERT_TRUE(bundle.buildDatabaseBundleOnDisk());
    const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Create);
    ASSERT_TRUE(store->begin() && store->create(people()));
    ASSERT_TRUE(store->insert({u"Ann"_s, 1000, QVariant()}) && store->commit());
    RecordCursor records = store->records(people());
    ASSERT_TRUE(records.next());
    EXPECT_EQ(RecordTexts(people()).textsOf(records), QStringList({u"Ann"_s, u"1,000"_s, u""_s}));
}
