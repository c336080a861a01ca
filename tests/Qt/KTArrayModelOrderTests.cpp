// How a table model tells of rows that come, go and move, and how it sorts.

#include <KTUtility/KTArrayModel>

#include <KTUtility/NSStringCompare>

#include <KTUtility/NSPredicate>

#include "ModelSupport.h"

#include <QItemSelectionModel>

#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {
class KTArrayModelOrderTests : public ModelTest
{
protected:
    KTArrayModelOrderTests() : ModelTest(8) {}

    KTArrayModel model{&controller, {{u"title"_s, u"Title"_s}, {u"amount"_s, u"Amount"_s}}};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    ModelListener listener{&model};
};

/// Persistent indexes stay with their objects, and go with them.
void expectKept(const QList<QPersistentModelIndex> &indexes, const QVariantList &before,
                const QVariantList &now)
{
    for (qsizetype row = 0; row < before.size(); ++row) {
        if (before.count(before.at(row)) != 1 || now.count(before.at(row)) > 1)
            continue;
        const QPersistentModelIndex &index = indexes.at(row);
        RC_ASSERT(index.isValid() == now.contains(before.at(row)));
        if (index.isValid())
            RC_ASSERT(now.at(index.row()) == before.at(row));
    }
}
} // namespace

TEST_F(KTArrayModelOrderTests, RowsComeGoAndMoveOneByOne)
{
    const struct
    {
        QString before;
        QString now;
        QStringList told;
    } table[] = {
        {u"abc"_s, u"abc"_s, {}},
        {u"abc"_s, u"abcd"_s, {u"inserted 3-3"_s}},
        {u"abc"_s, u"dabc"_s, {u"inserted 0-0"_s}},
        {u"abc"_s, u"ac"_s, {u"removed 1-1"_s}},
        {u"abcdef"_s, u"af"_s, {u"removed 1-4"_s}},
        {u"abcdef"_s, u"bdf"_s, {u"removed 4-4"_s, u"removed 2-2"_s, u"removed 0-0"_s}},
        {u"bdf"_s, u"abcdef"_s, {u"inserted 0-0"_s, u"inserted 2-2"_s, u"inserted 4-4"_s}},
        {u"abcd"_s, u"dabc"_s, {u"moved 3-3 before 0"_s}},
        {u"abcd"_s, u"bcda"_s, {u"moved 0-0 before 4"_s}},
        {u"abcdef"_s, u"efabcd"_s, {u"moved 4-5 before 0"_s}},
        {u"abcdef"_s, u"aebcfd"_s, {u"moved 4-4 before 1"_s, u"moved 4-4 before 6"_s}},
        {u"abcd"_s, u"ebd"_s, {u"removed 2-2"_s, u"removed 0-0"_s, u"inserted 0-0"_s}},
        {u"abcd"_s,
         u"dcgb"_s,
         {u"removed 0-0"_s, u"moved 1-1 before 3"_s, u"moved 0-0 before 3"_s, u"inserted 2-2"_s}},
        {u"aab"_s, u"ab"_s, {u"removed 1-1"_s}},
        {u"ab"_s, u"aab"_s, {u"inserted 1-1"_s}},
        {u"abab"_s, u"ab"_s, {u"removed 2-3"_s}},
        {u"abc"_s, u""_s, {u"removed 0-2"_s}},
        {u""_s, u"abc"_s, {u"inserted 0-2"_s}},
    };
    for (const auto &[before, now, told] : table) {
        show(before);
        listener.news();
        show(now);
        EXPECT_EQ(listener.news(), told) << before.toStdString() << " " << now.toStdString();
        EXPECT_EQ(listener.rows(), controller.arrangedObjects());
    }
}

TEST_F(KTArrayModelOrderTests, ManyChangesAreMadeAtOnce)
{
    while (records.size() < 400)
        add(u"many"_s, int(records.size()));
    showAll();
    listener.news();
    controller.setFilterPredicate(NSPredicate::predicateWithBlock(
        [](const QVariant &each) { return each.value<Expense *>()->amount().toInt() % 2 == 0; }));
    EXPECT_EQ(listener.news(), (QStringList{u"layout"_s, u"removed 200-399"_s}));
    controller.setFilterPredicate({});
    EXPECT_EQ(listener.news(), (QStringList{u"inserted 200-399"_s, u"layout"_s}));
    controller.setSortDescriptors({{u"amount"_s, false}});
    EXPECT_EQ(listener.news(), QStringList{u"layout"_s});
    EXPECT_EQ(listener.rows(), controller.arrangedObjects());
}

RC_GTEST_FIXTURE_PROP(KTArrayModelOrderTests, AnyArrangementComesFromAnyOther, ())
{
    const auto lists = *rc::gen::container<std::vector<std::vector<int>>>(
        4, rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 8)));
    for (const std::vector<int> &list : lists) {
        const QVariantList before = controller.arrangedObjects();
        QList<QPersistentModelIndex> indexes;
        for (int row = 0; row < model.rowCount(); ++row)
            indexes += model.index(row, 0);
        QString letters;
        for (const int each : list)
            letters += QChar(u'a' + each);
        show(letters);
        RC_ASSERT(listener.rows() == controller.arrangedObjects());
        RC_ASSERT(model.rowCount() == int(list.size()));
        RC_ASSERT(!listener.news().contains(u"reset"_s));
        expectKept(indexes, before, controller.arrangedObjects());
    }
}

RC_GTEST_FIXTURE_PROP(KTArrayModelOrderTests, AnyManyComeFromAnyOthers, ())
{
    while (records.size() < 150)
        add(u"many"_s, int(records.size()));
    for (int round = 0; round < 3; ++round) {
        const auto list = *rc::gen::container<std::vector<int>>(200, rc::gen::inRange(0, 150));
        const QVariantList before = controller.arrangedObjects();
        QList<QPersistentModelIndex> indexes;
        for (int row = 0; row < model.rowCount(); ++row)
            indexes += model.index(row, 0);
        QVariantList now;
        for (const int each : list)
            now += boxed(record(size_t(each)));
        controller.setContent(now);
        RC_ASSERT(listener.rows() == now);
        expectKept(indexes, before, now);
    }
}

TEST_F(KTArrayModelOrderTests, ValuesThatAreNoObjectsAreRowsAsWell)
{
    const QVariantMap one{{u"title"_s, u"one"_s}};
    const QVariantMap two{{u"title"_s, u"two"_s}};
    controller.setContent({one, two});
    EXPECT_EQ(model.index(1, 0).data(), u"two"_s);
    listener.news();
    controller.setContent({two, one, one});
    EXPECT_EQ(listener.news(), (QStringList{u"moved 0-0 before 2"_s, u"inserted 2-2"_s}));
    EXPECT_EQ(listener.rows(), controller.arrangedObjects());
}

TEST_F(KTArrayModelOrderTests, ObjectsThatAreDestroyedAreNotLookedAt)
{
    model.index(0, 0).data();
    const QVariantList left = all().mid(1);
    records.erase(records.begin());
    controller.setContent(left);
    EXPECT_EQ(model.rowCount(), 7);
    EXPECT_EQ(model.index(0, 0).data(), u"b"_s);
}

TEST_F(KTArrayModelOrderTests, TheRowOfADestroyedObjectIsRemoved)
{
    controller.setSelectionIndexes({2});
    records[1].reset();
    EXPECT_EQ(listener.news(), QStringList{u"removed 1-1"_s});
    EXPECT_EQ(listener.rows(), controller.arrangedObjects());
    records[0].reset();
    EXPECT_EQ(listener.news(), QStringList{u"removed 0-0"_s});
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{0});
    EXPECT_EQ(model.index(0, 0).data(), u"c"_s);
    records.clear();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(KTArrayModelOrderTests, NobodyReadsTheRowOfADestroyedObjectThatIsNotObserved)
{
    model.setObservedRows(0);
    QItemSelectionModel selection(&model);
    selection.setCurrentIndex(model.index(2, 0), QItemSelectionModel::SelectCurrent);
    QVariantList read;
    QObject::connect(&selection, &QItemSelectionModel::currentChanged,
                     [&](const QModelIndex &, const QModelIndex &previous) {
                         read += previous.data(KTArrayModel::ObjectRole);
                         read += previous.data();
                     });
    records[2].reset();
    EXPECT_EQ(read, QVariantList({QVariant(), u""_s}));
    EXPECT_EQ(model.rowCount(), 7);
    EXPECT_TRUE(selection.currentIndex().isValid());
}

TEST_F(KTArrayModelOrderTests, VeryManyObjectsMayBeDestroyedAtOnce)
{
    while (records.size() < 20'000)
        add(u"x"_s, int(records.size()));
    showAll();
    listener.news();
    for (size_t row = 0; row < 10'000; ++row)
        records[row].reset();
    // None of them is asked for anything.
    for (int row = 0; row < model.rowCount(); row += 100)
        EXPECT_TRUE(
            QStringList({QString(), u"x"_s}).contains(model.index(row, 0).data().toString()));
    turn();
    EXPECT_EQ(model.rowCount(), 10'000);
    EXPECT_FALSE(listener.news().contains(u"reset"_s));
    EXPECT_EQ(listener.rows(), controller.arrangedObjects());
}

TEST_F(KTArrayModelOrderTests, RowsMoveWhenTheControllerRearrangesByItself)
{
    controller.setAutomaticallyRearranges(true);
    model.sort(1);
    listener.news();
    record(0)->setAmount(4.5);
    turn();
    QStringList news = listener.news();
    news.removeIf([](const QString &each) { return each.startsWith(u"changed"_s); });
    EXPECT_EQ(news, QStringList{u"moved 0-0 before 4"_s});
    EXPECT_EQ(listener.rows(), controller.arrangedObjects());
    controller.setFilterPredicate(NSPredicate::where(
        [](const Expense &each) { return NSObject::compare(each.amount(), 3) > 0; }));
    listener.news();
    record(7)->setAmount(0);
    turn();
    EXPECT_EQ(model.rowCount(), 5);
    EXPECT_EQ(listener.rows(), controller.arrangedObjects());
    EXPECT_TRUE(listener.news().filter(u"reset"_s).isEmpty());
}

TEST_F(KTArrayModelOrderTests, WhoIsToldMayArrangeOthers)
{
    bool isFirst = true;
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model, [&] {
        if (std::exchange(isFirst, false))
            show(u"hgf"_s);
    });
    int ends = 0;
    QObject::connect(&model, &KTArrayModel::rearranged, [&] {
        ++ends;
        EXPECT_FALSE(model.isRearranging());
        EXPECT_EQ(listener.rows(), controller.arrangedObjects());
    });
    show(u"abe"_s);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(model.objectAt(0), boxed(record(7)));
    EXPECT_EQ(model.rowCount(), 3);
}

TEST_F(KTArrayModelOrderTests, WhatChangesMeanwhileIsToldAfterwards)
{
    model.index(0, 0).data();
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model,
                     [&] { record(0)->setTitle(u"A"_s); });
    listener.news();
    show(u"abc"_s);
    EXPECT_EQ(listener.news(), (QStringList{u"removed 3-7"_s, u"changed 0,0-2,1"_s}));
}

TEST_F(KTArrayModelOrderTests, AClickOnAHeaderSetsTheSortDescriptor)
{
    model.sort(1, Qt::DescendingOrder);
    ASSERT_EQ(controller.sortDescriptors().size(), 1);
    EXPECT_EQ(controller.sortDescriptors().first().key, u"amount"_s);
    EXPECT_FALSE(controller.sortDescriptors().first().ascending);
    EXPECT_EQ(model.objectAt(0), boxed(record(7)));
    EXPECT_EQ(model.sortColumn(), 1);
    model.sort(-1);
    EXPECT_TRUE(controller.sortDescriptors().isEmpty());
    EXPECT_EQ(model.objectAt(0), boxed(record(0)));
}

TEST_F(KTArrayModelOrderTests, AnOrderThatIsNoColumnsStays)
{
    controller.setSortDescriptors({{u"count"_s, false}});
    EXPECT_EQ(model.sortColumn(), -1);
    model.sort(-1);
    EXPECT_EQ(controller.sortDescriptors().size(), 1);
}

TEST_F(KTArrayModelOrderTests, TheSameOrderIsNotSetAgain)
{
    controller.setSortDescriptors({{u"title"_s, true}, {u"amount"_s, false}});
    EXPECT_EQ(model.sortColumn(), 0);
    model.sort(0, Qt::AscendingOrder);
    EXPECT_EQ(controller.sortDescriptors().size(), 2);
    model.sort(0, Qt::DescendingOrder);
    EXPECT_EQ(controller.sortDescriptors().size(), 1);
}

TEST_F(KTArrayModelOrderTests, TextsAreSortedForPeople)
{
    record(0)->setTitle(u"Zug"_s);
    record(1)->setTitle(u"äpfel"_s);
    record(2)->setTitle(u"Birnen"_s);
    show(u"abc"_s);
    model.sort(0);
    EXPECT_EQ(model.index(0, 0).data(), u"äpfel"_s);
    EXPECT_EQ(model.index(2, 0).data(), u"Zug"_s);
    model.setColumns({KTArrayColumn::of<&Expense::title>(u"Title"_s),
                      KTArrayColumn(u"title"_s, u"Title"_s).setComparator(NSObject::compare)});
    model.sort(0, Qt::DescendingOrder);
    EXPECT_EQ(model.sortColumn(), 0);
    EXPECT_EQ(model.index(0, 0).data(), u"Zug"_s);
    EXPECT_EQ(model.index(2, 0).data(), u"äpfel"_s);
    model.sort(1);
    EXPECT_EQ(model.sortColumn(), 1);
    EXPECT_EQ(model.index(0, 0).data(), u"Birnen"_s);
}

TEST_F(KTArrayModelOrderTests, WhatCannotBeSortedIsLogged)
{
    model.setColumns({{u"titel"_s, u"Title"_s}});
    const QString logged = testing_support::standardErrorOf([&] { model.sort(0); });
    EXPECT_TRUE(logged.contains(u"cannot be sorted"_s));
    EXPECT_EQ(model.rowCount(), 8);
}
