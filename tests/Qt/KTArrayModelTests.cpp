// What a table model over an array controller shows, and how its cells are edited.

#include <KTUtility/KTArrayModel>

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSSelectionMarker>

#include "ModelSupport.h"

#include <QBrush>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {
class KTArrayModelTests : public ModelTest
{
protected:
    KTArrayModelTests()
    {
        prices->setDecimalPlaces(2);
        model.setColumns(
            {{u"title"_s, u"Title"_s},
             KTArrayColumn(u"amount"_s, u"Amount"_s, prices).setEditable(true),
             KTArrayColumn(u"isPaid"_s, u"Paid"_s).setCheckable(true).setEditable(true),
             KTArrayColumn(u"count"_s, u"Count"_s).setEditable(true)});
        QObject::connect(&model, &KTArrayModel::rejected,
                         [this](const QModelIndex &at, const QString &why) {
                             rejections += u"%1,%2: %3"_s.arg(at.row()).arg(at.column()).arg(why);
                         });
    }

    QVariant cell(int row, int column, int role = Qt::DisplayRole) const
    {
        return model.index(row, column).data(role);
    }
    bool type(int row, int column, const QVariant &value, int role = Qt::EditRole)
    {
        return model.setData(model.index(row, column), value, role);
    }

    std::shared_ptr<KTNumberFormatter> prices = std::make_shared<KTNumberFormatter>();
    KTArrayModel model{&controller};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    ModelListener listener{&model};
    QStringList rejections;
};

/// Raises whatever it is asked.
class FailingFormatter : public NSFormatter
{
public:
    QString stringForObjectValue(const QVariant &) const override { throw 5; }
    std::optional<NSAttributedString>
    attributedStringForObjectValue(const QVariant &, const QTextCharFormat &) const override
    {
        throw 5;
    }
    bool getObjectValue(QVariant *, const QString &, QString *) const override { throw 5; }
};
} // namespace

TEST_F(KTArrayModelTests, AFormatterThatRaisesShowsNothingAndReadsNothing)
{
    const auto formatter = std::make_shared<FailingFormatter>();
    const QString log = testing_support::standardErrorOf([&] {
        model.setColumns({KTArrayColumn(u"amount"_s, u"Amount"_s, formatter).setEditable(true)});
        EXPECT_EQ(cell(0, 0).toString(), QString());
        EXPECT_EQ(cell(0, 0, Qt::EditRole).toString(), QString());
        EXPECT_FALSE(cell(0, 0, Qt::ForegroundRole).isValid());
        EXPECT_FALSE(type(0, 0, u"5"_s));
    });
    EXPECT_EQ(rejections.size(), 1);
    EXPECT_TRUE(log.contains(u"*** exception in a formatter: unknown exception"))
        << log.toStdString();
}

TEST_F(KTArrayModelTests, IsATableOfTheArrangedObjects)
{
    EXPECT_EQ(model.rowCount(), 5);
    EXPECT_EQ(model.columnCount(), 4);
    EXPECT_EQ(model.rowCount(model.index(0, 0)), 0);
    EXPECT_EQ(model.columnCount(model.index(0, 0)), 0);
    EXPECT_EQ(model.objectAt(1), boxed(record(1)));
    EXPECT_TRUE(model.objectAt(5).isNull());
    EXPECT_EQ(model.rowOf(boxed(record(4))), 4);
    EXPECT_EQ(model.rowOf(u"nobody"_s), -1);
}

TEST_F(KTArrayModelTests, ShowsValuesByTheirFormatters)
{
    record(0)->setAmount(-1234.5);
    EXPECT_EQ(cell(0, 0), u"a"_s);
    EXPECT_EQ(cell(0, 1), u"-1,234.50"_s);
    EXPECT_EQ(cell(0, 1, Qt::EditRole), u"-1234.5"_s);
    EXPECT_EQ(cell(0, 1, KTArrayModel::ValueRole), -1234.5);
    EXPECT_EQ(cell(0, 1, KTArrayModel::ObjectRole), boxed(record(0)));
    EXPECT_EQ(cell(0, 1, KTArrayModel::FormatterRole).value<std::shared_ptr<const NSFormatter>>(),
              prices);
    // Without a formatter, views show it in their locale.
    EXPECT_EQ(cell(0, 3), 0);
    EXPECT_EQ(cell(0, 3, Qt::EditRole), u"0"_s);
    EXPECT_EQ(model.data(QModelIndex(), Qt::DisplayRole), QVariant());
    EXPECT_EQ(cell(0, 0, Qt::DecorationRole), QVariant());
}

TEST_F(KTArrayModelTests, NegativeNumbersAreRed)
{
    record(0)->setAmount(-1);
    EXPECT_EQ(cell(0, 1, Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::red));
    EXPECT_FALSE(cell(1, 1, Qt::ForegroundRole).isValid());
    prices->setHighlightNegative(false);
    EXPECT_FALSE(cell(0, 1, Qt::ForegroundRole).isValid());
}

TEST_F(KTArrayModelTests, NumbersStandOnTheRight)
{
    EXPECT_EQ(cell(0, 0, Qt::TextAlignmentRole).toInt(), Qt::AlignLeft | Qt::AlignVCenter);
    EXPECT_EQ(cell(0, 1, Qt::TextAlignmentRole).toInt(), Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
              Qt::AlignRight | Qt::AlignVCenter);
    model.setColumns({KTArrayColumn(u"title"_s, u"T"_s).setAlignment(Qt::AlignCenter)});
    EXPECT_EQ(cell(0, 0, Qt::TextAlignmentRole).toInt(), Qt::AlignCenter);
}

TEST_F(KTArrayModelTests, HeadersAreTheTitles)
{
    EXPECT_EQ(model.headerData(0, Qt::Horizontal), u"Title"_s);
    EXPECT_EQ(model.headerData(3, Qt::Horizontal), u"Count"_s);
    EXPECT_EQ(model.headerData(9, Qt::Horizontal), 10);
    EXPECT_EQ(model.headerData(0, Qt::Vertical), 1);
    EXPECT_FALSE(model.headerData(0, Qt::Horizontal, Qt::DecorationRole).isValid());
}

TEST_F(KTArrayModelTests, TruthValuesAreCheckBoxes)
{
    EXPECT_EQ(cell(0, 2), QVariant());
    EXPECT_EQ(cell(0, 2, Qt::CheckStateRole).toInt(), Qt::Unchecked);
    EXPECT_TRUE(type(0, 2, Qt::Checked, Qt::CheckStateRole));
    EXPECT_TRUE(record(0)->isPaid());
    EXPECT_EQ(cell(0, 2, Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_TRUE(model.flags(model.index(0, 2)) & Qt::ItemIsUserCheckable);
    EXPECT_FALSE(model.flags(model.index(0, 2)) & Qt::ItemIsEditable);
    EXPECT_FALSE(type(0, 1, Qt::Checked, Qt::CheckStateRole));
    EXPECT_FALSE(cell(0, 1, Qt::CheckStateRole).isValid());
}

TEST_F(KTArrayModelTests, PlaceholdersStandForNilAndMarkers)
{
    model.setColumns({KTArrayColumn(u"amount"_s, u"Amount"_s, prices)
                          .setEditable(true)
                          .setPlaceholders({.nullPlaceholder = u"none"_s}),
                      KTArrayColumn(u"amount"_s, u"Amount"_s).setCheckable(true)});
    const struct
    {
        QVariant value;
        QString shown;
        bool isEditable;
        Qt::CheckState state;
    } table[] = {
        {{}, u"none"_s, true, Qt::Unchecked},
        {NSMultipleValuesMarker(), u"Multiple values"_s, true, Qt::PartiallyChecked},
        {NSNoSelectionMarker(), u"Nothing is selected"_s, false, Qt::Unchecked},
        {NSNotApplicableMarker(), u"Not applicable"_s, false, Qt::Unchecked},
        {2, u"2.00"_s, true, Qt::Checked},
    };
    for (const auto &[value, shown, isEditable, state] : table) {
        record(0)->setAmount(value);
        EXPECT_EQ(cell(0, 0), shown);
        EXPECT_EQ(bool(model.flags(model.index(0, 0)) & Qt::ItemIsEditable), isEditable);
        EXPECT_EQ(cell(0, 0, Qt::EditRole), value == 2 ? u"2"_s : u""_s);
        EXPECT_EQ(cell(0, 0, Qt::ForegroundRole).isValid(), value != 2);
        EXPECT_EQ(cell(0, 1, Qt::CheckStateRole).toInt(), state);
    }
}

TEST_F(KTArrayModelTests, TextsAreReadByTheFormatter)
{
    EXPECT_TRUE(type(0, 1, u"(12.345)"_s));
    EXPECT_EQ(record(0)->amount(),
              QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(u"-12.345")));
    EXPECT_TRUE(type(0, 1, u" "_s));
    EXPECT_TRUE(record(0)->amount().isNull());
    // A value needs no reading.
    EXPECT_TRUE(type(0, 1, 7));
    EXPECT_EQ(record(0)->amount(), 7);
    EXPECT_TRUE(type(0, 1, u"8"_s, KTArrayModel::ValueRole));
    EXPECT_EQ(record(0)->amount(), u"8"_s);
    EXPECT_TRUE(type(0, 3, u"12"_s));
    EXPECT_EQ(record(0)->count(), 12);
    EXPECT_EQ(rejections, QStringList());
}

TEST_F(KTArrayModelTests, WhatWasNotChangedIsNotSet)
{
    record(0)->setAmount(1.25);
    record(0)->sets = 0;
    EXPECT_TRUE(type(0, 1, u"1.25"_s));
    EXPECT_EQ(record(0)->sets, 0);
}

TEST_F(KTArrayModelTests, RejectsWithReason)
{
    EXPECT_FALSE(type(0, 1, u"twelve"_s));
    EXPECT_FALSE(type(1, 1, u"1000001"_s));
    EXPECT_FALSE(type(2, 3, QVariant(), KTArrayModel::ValueRole));
    EXPECT_EQ(record(0)->amount(), 1);
    ASSERT_EQ(rejections.size(), 3);
    EXPECT_EQ(rejections.at(0), u"0,1: The text is no number, or has something else in it."_s);
    EXPECT_EQ(rejections.at(1), u"1,1: The book refuses."_s);
    EXPECT_EQ(rejections.at(2), u"2,3: A value is needed here."_s);
}

TEST_F(KTArrayModelTests, WhatCannotBeEditedIsNotSet)
{
    EXPECT_FALSE(model.flags(model.index(0, 0)) & Qt::ItemIsEditable);
    EXPECT_FALSE(type(0, 0, u"other"_s));
    EXPECT_FALSE(type(0, 1, 5, Qt::DecorationRole));
    EXPECT_FALSE(model.setData(QModelIndex(), 1));
    controller.setContent({QVariantMap{{u"amount"_s, 3}}});
    EXPECT_EQ(cell(0, 1), u"3.00"_s);
    EXPECT_FALSE(type(0, 1, 5));
    EXPECT_EQ(rejections, QStringList());
}

TEST_F(KTArrayModelTests, AChangeIsToldForItsCellAlone)
{
    cell(1, 0);
    listener.news();
    record(1)->setTitle(u"other"_s);
    EXPECT_EQ(listener.news(), QStringList{u"changed 1,0-1,0"_s});
    record(1)->setAmount(3);
    EXPECT_EQ(listener.news(), QStringList{u"changed 1,1-1,1"_s});
    EXPECT_TRUE(type(1, 1, u"4"_s));
    EXPECT_EQ(listener.news(), QStringList{u"changed 1,1-1,1"_s});
}

TEST_F(KTArrayModelTests, ChangesFollowTheRow)
{
    cell(1, 0);
    show(u"edcba"_s);
    listener.news();
    record(1)->setTitle(u"other"_s);
    EXPECT_EQ(listener.news(), QStringList{u"changed 3,0-3,0"_s});
    show(u"edca"_s);
    listener.news();
    record(1)->setTitle(u"another"_s);
    EXPECT_EQ(listener.news(), QStringList());
}

TEST_F(KTArrayModelTests, WhatIsEditedUnseenIsToldAsWell)
{
    ASSERT_TRUE(type(4, 3, 9));
    EXPECT_TRUE(listener.news().contains(u"changed 4,3-4,3"_s));
}

TEST_F(KTArrayModelTests, KeyPathsAreFollowed)
{
    model.setColumns({{u"next.title"_s, u"Next"_s}});
    record(0)->setNext(record(1));
    EXPECT_EQ(cell(0, 0), u"b"_s);
    EXPECT_EQ(cell(1, 0), u""_s);
    listener.news();
    record(1)->setTitle(u"B"_s);
    EXPECT_EQ(listener.news(), QStringList{u"changed 0,0-0,0"_s});
    record(0)->setNext(record(2));
    EXPECT_EQ(listener.news(), QStringList{u"changed 0,0-0,0"_s});
    EXPECT_EQ(cell(0, 0), u"c"_s);
}

TEST_F(KTArrayModelTests, AKeyThatObjectsLackIsLoggedOnce)
{
    const QString logged = testing_support::standardErrorOf([&] {
        model.setColumns({{u"titel"_s, u"Title"_s}});
        EXPECT_EQ(cell(0, 0), u""_s);
        EXPECT_EQ(cell(1, 0), u""_s);
    });
    EXPECT_EQ(logged.count(u"A column shows nothing"_s), 1);
    EXPECT_TRUE(logged.contains(u"titel"_s));
}

TEST_F(KTArrayModelTests, ColumnsAreReplaced)
{
    model.setColumns({{u"title"_s, u"Title"_s}});
    EXPECT_EQ(model.columnCount(), 1);
    model.setColumns({});
    EXPECT_EQ(model.columnCount(), 0);
    EXPECT_EQ(model.rowCount(), 5);
    model.setColumns({{u"count"_s, u"Count"_s}, {u"title"_s, u"Title"_s}});
    EXPECT_EQ(cell(0, 1), u"a"_s);
    EXPECT_FALSE(listener.news().contains(u"reset"_s));
}

TEST_F(KTArrayModelTests, ColumnsByMember)
{
    model.setColumns({KTArrayColumn::of<&Expense::title>(u"Title"_s).setBy<&Expense::setTitle>(),
                      KTArrayColumn::of<&Expense::note>(u"Note"_s).setEditable(true),
                      KTArrayColumn::of<&Expense::limit>(u"Limit"_s).setBy<&Expense::setLimit>(),
                      KTArrayColumn::of<&Expense::count>(u"Count"_s)});
    EXPECT_EQ(cell(0, 0), u"a"_s);
    EXPECT_EQ(cell(0, 1), u""_s);
    EXPECT_TRUE(type(0, 0, u"A"_s) && type(0, 1, u"dear"_s) && type(0, 2, 5));
    EXPECT_EQ(record(0)->title(), u"A"_s);
    EXPECT_EQ(record(0)->note, u"dear"_s);
    EXPECT_EQ(record(0)->limit(), 5);
    EXPECT_TRUE(type(0, 2, QVariant(), KTArrayModel::ValueRole));
    EXPECT_EQ(record(0)->limit(), std::nullopt);
    EXPECT_FALSE(type(0, 3, 5));
    EXPECT_FALSE(type(0, 2, u"many"_s));
    EXPECT_EQ(rejections, QStringList{u"0,2: This value cannot be stored here."_s});
    // Objects of other classes have no such member.
    controller.setContent({QVariant::fromValue<QObject *>(&model)});
    EXPECT_EQ(cell(0, 0), u""_s);
}

TEST_F(KTArrayModelTests, ColumnsByMemberFollowEverySignalOfTheirObject)
{
    model.setColumns({KTArrayColumn::of<&Expense::title>(u"Title"_s),
                      KTArrayColumn::of<&Expense::note>(u"Note"_s)});
    cell(2, 0);
    listener.news();
    record(2)->setTitle(u"C"_s);
    EXPECT_EQ(listener.news(), QStringList{u"changed 2,0-2,1"_s});
}

TEST_F(KTArrayModelTests, IsEmptyWithoutController)
{
    auto gone = std::make_unique<NSArrayController>();
    gone->setContent(all());
    KTArrayModel other(gone.get(), {{u"title"_s, u"Title"_s}});
    const KTArrayModel none(nullptr, {{u"title"_s, u"Title"_s}});
    EXPECT_EQ(none.rowCount(), 0);
    EXPECT_EQ(other.rowCount(), 5);
    gone.reset();
    EXPECT_EQ(other.rowCount(), 0);
    EXPECT_EQ(other.controller(), nullptr);
    other.sort(0);
    EXPECT_EQ(other.sortColumn(), -1);
}

TEST_F(KTArrayModelTests, TheExampleOfTheHeader)
{
    const auto money = std::make_shared<KTCurrencyFormatter>();
    KTArrayModel expenses(&controller,
                          {{u"title"_s, u"Title"_s},
                           KTArrayColumn(u"amount"_s, u"Amount"_s, money).setEditable(true)});
    QString shown;
    QObject::connect(&expenses, &KTArrayModel::rejected,
                     [&](const QModelIndex &, const QString &why) { shown = why; });
    EXPECT_EQ(expenses.index(1, 1).data(), u"$2.00"_s);
    EXPECT_FALSE(expenses.setData(expenses.index(1, 1), u"much"_s));
    EXPECT_FALSE(shown.isEmpty());
}

TEST_F(KTArrayModelTests, MayBeDestroyedByWhoeverIsToldOfAValue)
{
    for (const bool raises : {false, true}) {
        auto *const own = new KTArrayModel(&controller);
        const QPointer<KTArrayModel> alive = own;
        own->setColumns({KTArrayColumn(u"count"_s, u"Count"_s).setEditable(true)});
        const auto connection =
            QObject::connect(record(2), &Expense::countChanged, &controller, [own, raises] {
                delete own;
                if (raises)
                    throw NSException(NSRangeException, u"Too late"_s);
            });
        EXPECT_EQ(own->setData(own->index(2, 0), 7), !raises);
        EXPECT_FALSE(alive);
        EXPECT_EQ(record(2)->count(), 7);
        QObject::disconnect(connection);
    }
}
