// The selections of a view and of an array controller, and a view that a model is attached to.

#include <KTUtility/KTArraySelection>

#include <KTUtility/KTFormatterDelegate>

#include "ModelSupport.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QListView>
#include <QSignalSpy>
#include <QTableView>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {
class KTArraySelectionTests : public ModelTest
{
protected:
    KTArraySelectionTests() : ModelTest(6) {}

    QList<qsizetype> selectedRows() const
    {
        QList<qsizetype> rows;
        for (const QModelIndex &index : selection.selectedRows())
            rows += index.row();
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    void select(int row, QItemSelectionModel::SelectionFlags how)
    {
        selection.select(model.index(row, 0), how | QItemSelectionModel::Rows);
    }

    KTArrayModel model{&controller, {{u"title"_s, u"Title"_s}, {u"amount"_s, u"Amount"_s}}};
    QItemSelectionModel selection{&model};
};

class AttachedViewTests : public ModelTest
{
protected:
    AttachedViewTests() : ModelTest(40)
    {
        table.resize(300, 200);
        model.attach(&table);
        table.show();
        turn();
    }

    KTArrayModel model{&controller, {{u"title"_s, u"Title"_s}, {u"amount"_s, u"Amount"_s}}};
    QTableView table;
};
} // namespace

TEST_F(KTArraySelectionTests, BeginsWithWhatTheControllerHasSelected)
{
    controller.setSelectionIndexes({1, 2, 5});
    const KTArraySelection joined(&model, &selection);
    EXPECT_EQ(selectedRows(), QList<qsizetype>({1, 2, 5}));
    EXPECT_EQ(selection.currentIndex().row(), 1);
}

TEST_F(KTArraySelectionTests, EitherFollowsTheOther)
{
    const KTArraySelection joined(&model, &selection);
    select(3, QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{3});
    select(1, QItemSelectionModel::Select);
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>({1, 3}));
    controller.setSelectionIndexes({0, 4});
    EXPECT_EQ(selectedRows(), QList<qsizetype>({0, 4}));
    controller.setSelectionIndexes({});
    EXPECT_EQ(selectedRows(), QList<qsizetype>());
    selection.select(QItemSelection(model.index(0, 0), model.index(5, 1)),
                     QItemSelectionModel::Select);
    EXPECT_EQ(controller.selectedObjects(), all());
}

TEST_F(KTArraySelectionTests, EachIsSetOnce)
{
    const KTArraySelection joined(&model, &selection);
    const QSignalSpy inController(&controller, &NSArrayController::selectionChanged);
    const QSignalSpy inView(&selection, &QItemSelectionModel::selectionChanged);
    select(3, QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(inController.count(), 1);
    EXPECT_EQ(inView.count(), 1);
    controller.setSelectionIndexes({2});
    EXPECT_EQ(inController.count(), 2);
    EXPECT_EQ(inView.count(), 2);
    controller.setSelectionIndexes({2});
    EXPECT_EQ(inView.count(), 2);
}

TEST_F(KTArraySelectionTests, WhatIsSelectedStaysSoWhereverItGoes)
{
    const KTArraySelection joined(&model, &selection);
    controller.setSelectionIndexes({1, 4});
    const QVariantList selected = controller.selectedObjects();
    QStringList seen;
    QObject::connect(&controller, &NSArrayController::selectionChanged, [&] {
        EXPECT_TRUE(controller.selectedObjects() == selected ||
                    controller.selectedObjects() == QVariantList({selected.at(1), selected.at(0)}));
        seen += u"seen"_s;
    });
    const struct
    {
        QString shown;
        QList<qsizetype> rows;
    } table[] = {
        {u"fedcba"_s, {1, 4}}, {u"eb"_s, {0, 1}}, {u"abcdef"_s, {1, 4}}, {u"bcdeaf"_s, {0, 3}}};
    for (const auto &[shown, rows] : table) {
        show(shown);
        EXPECT_EQ(selectedRows(), rows) << shown.toStdString();
        EXPECT_EQ(controller.selectionIndexes(), rows);
    }
    EXPECT_FALSE(seen.isEmpty());
}

TEST_F(KTArraySelectionTests, WhatIsGoneIsNotSelected)
{
    const KTArraySelection joined(&model, &selection);
    controller.setSelectionIndexes({1, 4});
    show(u"acdef"_s);
    EXPECT_EQ(controller.selectedObjects(), QVariantList{boxed(record(4))});
    EXPECT_EQ(selectedRows(), QList<qsizetype>{3});
    show(u"abc"_s);
    EXPECT_TRUE(controller.selectedObjects().isEmpty());
    EXPECT_TRUE(selectedRows().isEmpty());
}

TEST_F(KTArraySelectionTests, WhoIsToldMaySelectSomethingElse)
{
    const KTArraySelection joined(&model, &selection);
    QObject::connect(&controller, &NSArrayController::selectionChanged, &controller, [&] {
        if (controller.selectionIndex() == 3)
            controller.setSelectionIndexes({5});
    });
    select(3, QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{5});
    EXPECT_EQ(selectedRows(), QList<qsizetype>{5});
}

TEST_F(KTArraySelectionTests, TheCurrentCellStaysInASelectedRow)
{
    const KTArraySelection joined(&model, &selection);
    selection.setCurrentIndex(model.index(2, 1), QItemSelectionModel::NoUpdate);
    controller.setSelectionIndexes({1, 2});
    EXPECT_EQ(selection.currentIndex(), model.index(2, 1));
    controller.setSelectionIndexes({4});
    EXPECT_EQ(selection.currentIndex(), model.index(4, 0));
}

TEST_F(AttachedViewTests, IsReadyToUse)
{
    EXPECT_EQ(table.model(), &model);
    EXPECT_EQ(table.selectionBehavior(), QAbstractItemView::SelectRows);
    EXPECT_NE(qobject_cast<KTFormatterDelegate *>(table.itemDelegate()), nullptr);
    EXPECT_TRUE(table.isSortingEnabled());
    table.selectRow(2);
    EXPECT_EQ(controller.selectionIndex(), 2);
}

TEST_F(AttachedViewTests, TheMarkInTheHeaderIsTheControllersOrder)
{
    QHeaderView *const header = table.horizontalHeader();
    EXPECT_EQ(header->sortIndicatorSection(), -1);
    controller.setSortDescriptors({{u"amount"_s, false}});
    EXPECT_EQ(header->sortIndicatorSection(), 1);
    EXPECT_EQ(header->sortIndicatorOrder(), Qt::DescendingOrder);
    header->setSortIndicator(0, Qt::AscendingOrder);
    EXPECT_EQ(controller.sortDescriptors().first().key, u"title"_s);
    controller.setSortDescriptors({});
    EXPECT_EQ(header->sortIndicatorSection(), -1);
}

TEST_F(AttachedViewTests, AnOrderThatIsThereStays)
{
    controller.setSortDescriptors({{u"amount"_s, false}, {u"title"_s, true}});
    QTableView other;
    model.attach(&other);
    EXPECT_EQ(controller.sortDescriptors().size(), 2);
    EXPECT_EQ(other.horizontalHeader()->sortIndicatorSection(), 1);
    EXPECT_EQ(other.horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(AttachedViewTests, TreesAndListsAsWell)
{
    QTreeView tree;
    QListView list;
    model.attach(&tree);
    model.attach(&list);
    controller.setSelectionIndexes({3});
    controller.setSortDescriptors({{u"amount"_s, false}});
    EXPECT_EQ(tree.header()->sortIndicatorSection(), 1);
    EXPECT_FALSE(tree.rootIsDecorated());
    EXPECT_EQ(tree.selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(list.selectionModel()->selectedRows().first().row(), 36);
}

TEST_F(AttachedViewTests, AttachedTwiceItIsSoOnce)
{
    model.attach(&table);
    const QSignalSpy selected(&controller, &NSArrayController::selectionChanged);
    table.selectRow(2);
    EXPECT_EQ(selected.count(), 1);
    EXPECT_EQ(controller.selectionIndex(), 2);
}

TEST_F(AttachedViewTests, OnlyWhatIsShownIsObserved)
{
    const auto isObserved = [](const Expense *expense) {
        return expense->receivers(SIGNAL(titleChanged())) > 0;
    };
    EXPECT_TRUE(isObserved(record(0)));
    EXPECT_FALSE(isObserved(record(39)));
    table.scrollToBottom();
    turn();
    EXPECT_TRUE(isObserved(record(39)));
}

TEST_F(AttachedViewTests, WhatIsShownStaysObservedWhenAllIsRead)
{
    while (records.size() < 3000)
        add(u"many"_s, 1);
    showAll();
    turn();
    model.setObservedRows(20);
    for (int row = 0; row < model.rowCount(); ++row)
        model.index(row, 0).data();
    turn();
    turn();
    QSignalSpy told(&model, &QAbstractItemModel::dataChanged);
    record(1)->setTitle(u"seen"_s);
    EXPECT_EQ(told.count(), 1);
    const auto observed = std::ranges::count_if(
        records, [](const auto &each) { return each->receivers(SIGNAL(titleChanged())) > 0; });
    EXPECT_LT(observed, 300);
    EXPECT_EQ(model.observedRows(), 20);
    // Nothing is left to be done: it does not go on for ever.
    told.clear();
    turn();
    EXPECT_EQ(told.count(), 0);
}

TEST_F(AttachedViewTests, AllThatIsAskedForMayBeObserved)
{
    while (records.size() < 3000)
        add(u"many"_s, 1);
    model.setObservedRows(-1);
    showAll();
    for (int row = 0; row < model.rowCount(); ++row)
        model.index(row, 0).data();
    QSignalSpy told(&model, &QAbstractItemModel::dataChanged);
    record(1500)->setTitle(u"seen"_s);
    EXPECT_EQ(told.count(), 1);
}

TEST_F(AttachedViewTests, TheViewOutlivesTheModel)
{
    auto brief =
        std::make_unique<KTArrayModel>(&controller, QList<KTArrayColumn>{{u"title"_s, u"T"_s}});
    QTableView other;
    brief->attach(&other);
    brief.reset();
    controller.setSortDescriptors({{u"amount"_s, false}});
    controller.setSelectionIndexes({1});
    EXPECT_EQ(other.model(), nullptr);
}
