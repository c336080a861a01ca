#include "Editing/PastePlan.h"

#include "support/TestSupport.h"

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSLocale>
#include <KTUtility/NSObject>

using namespace Qt::StringLiterals;

/// Pasting into a library with a text, a number and a picture.
class PastePlanTests : public testing::Test
{
protected:
    PastePlanTests()
    {
        for (const auto &[header, type] :
             {std::pair(u"Name"_s, FieldType::Text), std::pair(u"Visits"_s, FieldType::Number),
              std::pair(u"Photo"_s, FieldType::Media)}) {
            LibraryField field;
            field.columnName = u"kt_"_s + header.toLower();
            field.header = header;
            field.type = type;
            target.library.fields += field;
            readers.push_back(field.reader());
        }
        target.reader = [this](qsizetype field) -> const FieldReader & {
            return *readers.at(size_t(field));
        };
        target.bundle = u"/here"_s;
    }

    static PastedTable texts(const QList<QStringList> &rows) { return {std::nullopt, rows}; }
    PastePlan records(const QList<QStringList> &rows) const
    {
        return PastePlan::records(target, texts(rows));
    }
    PastePlan cells(const QList<QStringList> &rows, const QList<qsizetype> &fields,
                    qsizetype rowCount) const
    {
        return PastePlan::cells(target, texts(rows), fields, rowCount);
    }
    PastePlan copied(const QList<CopiedField> &fields, const QList<CopiedCell> &row,
                     const QString &bundle = u"/here"_s) const
    {
        return PastePlan::records(target, {CopiedRecords{bundle, fields, {row}}, {}});
    }
    static QVariant number(int value)
    {
        return QVariant::fromValue(
            NSDecimalNumber::decimalNumberWithString(QString::number(value)));
    }
    static bool isNumber(const QVariant &value, int expected)
    {
        return NSObject::isEqual(value, number(expected));
    }

    PasteTarget target;
    std::vector<std::unique_ptr<FieldReader>> readers;
};

TEST_F(PastePlanTests, RowsBecomeRecords)
{
    const PastePlan plan = records({{u"Ann"_s, u"1234"_s}, {u"Bo"_s, u""_s}, {u"Cy"_s}});
    EXPECT_TRUE(plan.problems().isEmpty());
    ASSERT_EQ(plan.records().size(), 3);
    EXPECT_EQ(plan.records().at(0).at(0), u"Ann"_s);
    EXPECT_TRUE(isNumber(plan.records().at(0).at(1), 1234));
    EXPECT_TRUE(NSObject::isNil(plan.records().at(1).at(1)));
    EXPECT_EQ(plan.records().at(2).size(), 3);
}

TEST_F(PastePlanTests, TitlesInTheFirstRowNameTheFields)
{
    const PastePlan plan = records({{u"visits"_s, u" NAME "_s}, {u"7"_s, u"Ann"_s}});
    ASSERT_EQ(plan.records().size(), 1);
    EXPECT_EQ(plan.records().at(0).at(0), u"Ann"_s);
    EXPECT_TRUE(isNumber(plan.records().at(0).at(1), 7));
    // One name that is none makes it a row like others; alone it is one, too.
    EXPECT_EQ(records({{u"Name"_s, u"5"_s}, {u"Ann"_s, u"7"_s}}).records().size(), 2);
    EXPECT_EQ(records({{u"Name"_s}}).records().size(), 1);
}

TEST_F(PastePlanTests, WhatCannotBeReadIsToldAndNotLost)
{
    const PastePlan plan =
        records({{u"Ann"_s, u"7"_s}, {u"Bo"_s, u"a cow"_s, u"x.png"_s, u"more"_s}});
    ASSERT_EQ(plan.problems().size(), 3);
    EXPECT_EQ(plan.problems().at(0).row, 2);
    EXPECT_EQ(plan.problems().at(0).field, u"Visits"_s);
    EXPECT_EQ(plan.problems().at(0).text, u"a cow"_s);
    EXPECT_FALSE(plan.problems().at(0).reason.isEmpty());
    EXPECT_EQ(plan.problems().at(1).field, u"Photo"_s);
    EXPECT_EQ(plan.problems().at(2).field, u"4"_s);
    // The rest of the record can be stored.
    EXPECT_EQ(plan.records().at(1).at(0), u"Bo"_s);
    EXPECT_TRUE(NSObject::isNil(plan.records().at(1).at(1)));
}

TEST_F(PastePlanTests, EmptyRowsAreNoRecords)
{
    EXPECT_EQ(records({{u"Ann"_s}, {u""_s, u""_s}, {u"Bo"_s}}).records().size(), 2);
    EXPECT_TRUE(records({}).records().isEmpty());
}

TEST_F(PastePlanTests, CopiedValuesGoToTheFieldsOfTheirNames)
{
    const QString photo = u"cobblemedia://a.png"_s;
    const PastePlan plan = copied(
        {{u"Visits"_s, FieldType::Number, {}},
         {u"Name"_s, FieldType::Text, {}},
         {u"Photo"_s, FieldType::Media, {}},
         {u"Other"_s, FieldType::Text, {}}},
        {{number(7), u"seven"_s}, {u"Ann"_s, u"Ann"_s}, {photo, photo}, {u"lost"_s, u"lost"_s}});
    ASSERT_EQ(plan.records().size(), 1);
    EXPECT_EQ(plan.records().at(0).at(0), u"Ann"_s);
    // The value, not what was shown.
    EXPECT_TRUE(isNumber(plan.records().at(0).at(1), 7));
    EXPECT_EQ(plan.records().at(0).at(2), photo);
    ASSERT_EQ(plan.problems().size(), 1);
    EXPECT_EQ(plan.problems().at(0).field, u"Other"_s);
}

TEST_F(PastePlanTests, ColumnsOfOneTitleFillTheFieldsOfItInTurn)
{
    LibraryField second = target.library.fields.first();
    second.columnName = u"kt_name2"_s;
    target.library.fields += second;
    readers.push_back(second.reader());
    const PastePlan plan =
        copied({{u"Name"_s, FieldType::Text, {}}, {u"Name"_s, FieldType::Text, {}}},
               {{u"Ann"_s, u"Ann"_s}, {u"Lee"_s, u"Lee"_s}});
    ASSERT_EQ(plan.records().size(), 1);
    EXPECT_EQ(plan.records().at(0).first(), u"Ann"_s);
    EXPECT_EQ(plan.records().at(0).last(), u"Lee"_s);
    EXPECT_TRUE(plan.problems().isEmpty());
}

TEST_F(PastePlanTests, ValuesOfOtherTypesAreReadAgain)
{
    const PastePlan plan =
        copied({{u"Visits"_s, FieldType::Currency, u"USD"_s}, {u"Name"_s, FieldType::Number, {}}},
               {{number(5), u"6"_s}, {number(1000), u"1,000"_s}});
    EXPECT_TRUE(plan.problems().isEmpty());
    EXPECT_TRUE(isNumber(plan.records().at(0).at(1), 6));
    EXPECT_EQ(plan.records().at(0).at(0), u"1,000"_s);
}

TEST_F(PastePlanTests, PicturesOfOtherBundlesAreNotHere)
{
    const QString photo = u"cobblemedia://a.png"_s;
    const PastePlan plan =
        copied({{u"Name"_s, FieldType::Text, {}}, {u"Photo"_s, FieldType::Media, {}}},
               {{u"Ann"_s, u"Ann"_s}, {photo, photo}}, u"/elsewhere"_s);
    EXPECT_TRUE(NSObject::isNil(plan.records().at(0).at(2)));
    EXPECT_EQ(plan.problems().size(), 1);
}

TEST_F(PastePlanTests, CellsGoToTheRightAndBelow)
{
    const PastePlan plan = cells({{u"5"_s, u"Ann"_s}, {u"6"_s}}, {1, 0}, 2);
    EXPECT_TRUE(plan.problems().isEmpty());
    ASSERT_EQ(plan.cells().size(), 3);
    EXPECT_EQ(plan.cells().at(0).field, 1);
    EXPECT_TRUE(isNumber(plan.cells().at(0).value, 5));
    EXPECT_EQ(plan.cells().at(1).field, 0);
    EXPECT_EQ(plan.cells().at(2).row, 1);
    EXPECT_TRUE(plan.records().isEmpty());
}

TEST_F(PastePlanTests, CellsThatHaveNoPlaceAreTold)
{
    const PastePlan plan = cells({{u"5"_s, u"a"_s}, {u"6"_s, u""_s}}, {1}, 1);
    ASSERT_EQ(plan.problems().size(), 2);
    EXPECT_EQ(plan.problems().at(0).text, u"a"_s);
    EXPECT_EQ(plan.problems().at(1).row, 2);
    EXPECT_EQ(plan.cells().size(), 1);
}
