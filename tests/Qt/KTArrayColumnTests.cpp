// Where the values of a table's column come from.

#include <KTUtility/KTArrayColumn>

#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSKeyValueCoding>

#include "Expense.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QVariant row(Expense &expense)
{
    return QVariant::fromValue(&expense);
}
} // namespace

TEST(KTArrayColumn, KnowsWhatItIsMadeWith)
{
    const auto numbers = std::make_shared<KTNumberFormatter>();
    KTArrayColumn column(u"amount"_s, u"Amount"_s, numbers);
    EXPECT_EQ(column.keyPath(), u"amount"_s);
    EXPECT_EQ(column.title(), u"Amount"_s);
    EXPECT_EQ(column.formatter(), numbers);
    EXPECT_FALSE(column.isEditable());
    EXPECT_FALSE(column.isCheckable());
    column.setEditable(true).setCheckable(true).setPlaceholders({.nullPlaceholder = u"none"_s});
    EXPECT_TRUE(column.isEditable());
    EXPECT_TRUE(column.isCheckable());
    EXPECT_EQ(column.placeholders().nullPlaceholder, u"none"_s);
    EXPECT_TRUE(KTArrayColumn::of<&Expense::title>(u"Title"_s).keyPath().isNull());
}

TEST(KTArrayColumn, QuantitiesStandOnTheRight)
{
    const struct
    {
        std::shared_ptr<const NSFormatter> formatter;
        Qt::AlignmentFlag side;
    } table[] = {
        {nullptr, Qt::AlignLeft},
        {std::make_shared<KTNumberFormatter>(), Qt::AlignRight},
        {std::make_shared<KTDurationFormatter>(), Qt::AlignRight},
        {std::make_shared<KTPhoneNumberFormatter>(), Qt::AlignLeft},
    };
    for (const auto &[formatter, side] : table)
        EXPECT_EQ(KTArrayColumn(u"key"_s, {}, formatter).alignment(), side | Qt::AlignVCenter);
}

TEST(KTArrayColumn, ReadsByKeyPathAndByMember)
{
    Expense expense(u"Bread"_s, 2);
    Expense next(u"Butter"_s);
    expense.setNext(&next);
    expense.note = u"dear"_s;
    expense.setLimit(4);
    EXPECT_EQ(KTArrayColumn(u"title"_s, {}).value(row(expense)), u"Bread"_s);
    EXPECT_EQ(KTArrayColumn(u"next.title"_s, {}).value(row(expense)), u"Butter"_s);
    EXPECT_EQ(KTArrayColumn(u"key"_s, {}).value(QVariantMap{{u"key"_s, 3}}), 3);
    EXPECT_EQ(KTArrayColumn::of<&Expense::title>({}).value(row(expense)), u"Bread"_s);
    EXPECT_EQ(KTArrayColumn::of<&Expense::note>({}).value(row(expense)), u"dear"_s);
    EXPECT_EQ(KTArrayColumn::of<&Expense::limit>({}).value(row(expense)), 4);
    EXPECT_EQ(KTArrayColumn::of<&Expense::limit>({}).value(row(next)), QVariant());
    EXPECT_EQ(KTArrayColumn::of<&Expense::title>({}).value(u"no object"_s), QVariant());
    EXPECT_THROW(KTArrayColumn(u"titel"_s, {}).value(row(expense)), NSException);
}

TEST(KTArrayColumn, SetsByKeyPathAndByMember)
{
    Expense expense(u"Bread"_s, 2);
    KTArrayColumn(u"title"_s, {}).setValue(u"Butter"_s, row(expense));
    EXPECT_EQ(expense.title(), u"Butter"_s);
    KTArrayColumn::of<&Expense::note>({}).setValue(u"dear"_s, row(expense));
    EXPECT_EQ(expense.note, u"dear"_s);
    KTArrayColumn::of<&Expense::count>({}).setBy<&Expense::setCount>().setValue(
        QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(u"7.9")), row(expense));
    EXPECT_EQ(expense.count(), 7);
    // A getter alone sets nothing, and neither does a row that is no object.
    KTArrayColumn::of<&Expense::count>({}).setValue(1, row(expense));
    KTArrayColumn(u"title"_s, {}).setValue(u"x"_s, u"no object"_s);
    EXPECT_EQ(expense.count(), 7);
    EXPECT_EQ(expense.title(), u"Butter"_s);
}

TEST(KTArrayColumn, RaisesForWhatIsNotTaken)
{
    Expense expense(u"Bread"_s, 2);
    KTArrayColumn count = KTArrayColumn::of<&Expense::count>({});
    count.setBy<&Expense::setCount>();
    EXPECT_TRUE(count.isEditable());
    EXPECT_RAISES(KTArrayColumn(u"title"_s, {}).setValue(u"taken"_s, row(expense)),
                  NSInvalidArgumentException, u"The book refuses."_s);
    EXPECT_RAISES(count.setValue({}, row(expense)), NSInvalidArgumentException,
                  u"This value cannot be stored here."_s);
    EXPECT_RAISES(count.setValue(u"many"_s, row(expense)), NSInvalidArgumentException,
                  u"This value cannot be stored here."_s);
    EXPECT_EQ(expense.title(), u"Bread"_s);
    EXPECT_EQ(expense.count(), 0);
}

TEST(KTArrayColumn, SortsForPeople)
{
    EXPECT_TRUE(KTArrayColumn::compareForPeople(u"äpfel"_s, u"Birnen"_s) < 0);
    EXPECT_TRUE(KTArrayColumn::compareForPeople(u"b"_s, u"C"_s) < 0);
    EXPECT_TRUE(KTArrayColumn::compareForPeople(10, 9.5) > 0);
    EXPECT_TRUE(KTArrayColumn::compareForPeople({}, u""_s) < 0);
    Expense one(u"b"_s);
    Expense other(u"C"_s);
    const QVariantList list{row(other), row(one)};
    const KTArrayColumn columns[] = {KTArrayColumn(u"title"_s, {}),
                                     KTArrayColumn::of<&Expense::title>({})};
    for (const KTArrayColumn &column : columns) {
        EXPECT_EQ(NSSortDescriptor::sorted(list, {column.sortDescriptor(true)}).first(), row(one));
        EXPECT_EQ(NSSortDescriptor::sorted(list, {column.sortDescriptor(false)}).first(),
                  row(other));
    }
    KTArrayColumn byUnits(u"title"_s, {});
    byUnits.setLocalized(false);
    EXPECT_EQ(NSSortDescriptor::sorted(list, {byUnits.sortDescriptor(true)}).first(), row(other));
    byUnits.setLocalized(true);
    EXPECT_EQ(NSSortDescriptor::sorted(list, {byUnits.sortDescriptor(true)}).first(), row(one));
    byUnits.setComparator(NSObject::compare);
    EXPECT_EQ(NSSortDescriptor::sorted(list, {byUnits.sortDescriptor(true)}).first(), row(other));
}

TEST(KTArrayColumn, AComparatorIsGivenTheValuesOfAMember)
{
    Expense one(u"b"_s);
    Expense other(u"C"_s);
    QVariantList compared;
    KTArrayColumn column = KTArrayColumn::of<&Expense::title>({});
    column.setComparator([&compared](const QVariant &left, const QVariant &right) {
        compared = {left, right};
        return NSObject::compare(left, right);
    });
    EXPECT_EQ(
        NSSortDescriptor::sorted(QVariantList{row(other), row(one)}, {column.sortDescriptor(true)})
            .first(),
        row(other));
    EXPECT_TRUE(compared.contains(u"b"_s));
}
