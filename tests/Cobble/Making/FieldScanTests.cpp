#include "Making/FieldScan.h"

#include "Cobble/Journal/StoreSupport.h"

#include <KTUtility/NSLocale>

using namespace Qt::StringLiterals;

namespace {
class FieldScanTests : public testing_support::StoreTest
{
protected:
    FieldScanTests() : plan(people) { NSLocale::setCurrentLocale(NSLocale(u"en_US"_s)); }
    ~FieldScanTests() override { NSLocale::resetCurrentLocale(); }

    Outcome<FieldPreview> preview()
    {
        return FieldScan(plan).run(*store, [] { return true; });
    }

    FieldPlan plan;
};
} // namespace

TEST_F(FieldScanTests, CountsWhatCannotBeReadAndWhatGoes)
{
    setName(2, u"12"_s);
    plan.setType(0, FieldType::Number, {});
    plan.remove(2);
    plan.remove(1);
    const Outcome<FieldPreview> found = preview();
    ASSERT_TRUE(found) << found.reason().toStdString();
    EXPECT_EQ(found->converted.size(), 1);
    const FieldConversion::Preview names = found->converted.value(0);
    EXPECT_EQ(names.readCount, 1);
    EXPECT_EQ(names.unreadCount, 2);
    ASSERT_EQ(names.unread.size(), 2);
    EXPECT_EQ(names.unread.at(1).record, 3);
    EXPECT_EQ(names.unread.at(1).text, u"Cid"_s);
    EXPECT_FALSE(names.unread.at(1).reason.isEmpty());
    // Bob has no age, and his photo is none; an empty text is a value.
    EXPECT_EQ(found->removed, (QHash<qsizetype, qint64>{{1, 2}, {2, 2}}));
}

TEST_F(FieldScanTests, LooksAtNothingForNamesAndOrder)
{
    plan.rename(0, u"Who"_s);
    plan.move(0, 2);
    plan.setOptions(1, {{u"decimalPlaces"_s, 2}});
    EXPECT_TRUE(FieldScan::partsOf(plan).isEmpty());
}

TEST_F(FieldScanTests, TheOrderOfThePlanDoesNotMatter)
{
    plan.setType(0, FieldType::Number, {});
    plan.setType(1, FieldType::Text, {});
    const QList<FieldScan::Part> parts = FieldScan::partsOf(plan);
    plan.move(0, 2);
    EXPECT_EQ(FieldScan::partsOf(plan), parts);
    plan.setType(0, FieldType::Currency, {{u"currencyType"_s, u"EUR"_s}});
    EXPECT_NE(FieldScan::partsOf(plan), parts);
}

TEST_F(FieldScanTests, EndsWhenNobodyWantsIt)
{
    plan.remove(0);
    const auto found = FieldScan(plan).run(*store, [] { return false; });
    ASSERT_TRUE(found);
    EXPECT_EQ(found->removed.value(0), 0);
}

TEST_F(FieldScanTests, FailsForALibraryThatIsGone)
{
    plan.remove(0);
    runSQL(u"DROP TABLE "_s + people.tableName);
    EXPECT_FALSE(preview());
}
