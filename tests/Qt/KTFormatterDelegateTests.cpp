// Cells that are shown and edited by formatters.

#include <KTUtility/KTFormatterDelegate>

#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTFormatterEdit>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/NSDecimalNumber>

#include "ModelSupport.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
class KTFormatterDelegateTests : public ModelTest
{
protected:
    KTFormatterDelegateTests() : ModelTest(3)
    {
        table.resize(400, 300);
        model.attach(&table);
        table.show();
        table.activateWindow();
        turn();
    }

    /// The editor of a cell, opened.
    KTFormatterEdit *edit(int row, int column, QAbstractItemView *view = nullptr)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QAbstractItemView *const shown = view ? view : &table;
        const QModelIndex index = shown->model()->index(row, column);
        shown->setCurrentIndex(index);
        shown->edit(index);
        return shown->viewport()->findChild<KTFormatterEdit *>();
    }
    static void type(KTFormatterEdit *editor, const QString &text, int key)
    {
        editor->lineEdit()->selectAll();
        QTest::keyClicks(editor->lineEdit(), text);
        if (key)
            QTest::keyClick(editor->lineEdit(), Qt::Key(key));
        turn();
    }
    bool isEditing() const
    {
        turn();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return table.viewport()->findChild<KTFormatterEdit *>() != nullptr;
    }

    std::shared_ptr<KTNumberFormatter> prices = std::make_shared<KTNumberFormatter>();
    KTArrayModel model{&controller,
                       {KTArrayColumn(u"title"_s, u"Title"_s).setEditable(true),
                        KTArrayColumn(u"amount"_s, u"Amount"_s, prices).setEditable(true),
                        KTArrayColumn(u"count"_s, u"Count"_s).setEditable(true)}};
    QTableView table;
};
} // namespace

TEST_F(KTFormatterDelegateTests, EditsWithTheFormatterOfTheColumn)
{
    KTFormatterEdit *const editor = edit(0, 1);
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->formatter(), prices);
    EXPECT_EQ(editor->text(), u"1"_s);
    EXPECT_EQ(editor->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(editor->accessibleName(), u"Amount"_s);
    type(editor, u"(2.5)"_s, Qt::Key_Return);
    EXPECT_TRUE(NSObject::isEqual(record(0)->amount(), -2.5));
    EXPECT_FALSE(isEditing());
}

TEST_F(KTFormatterDelegateTests, TextsAreEditedAsTheyAre)
{
    type(edit(1, 0), u"Bread"_s, Qt::Key_Return);
    EXPECT_EQ(record(1)->title(), u"Bread"_s);
    type(edit(1, 2), u"12"_s, Qt::Key_Return);
    EXPECT_EQ(record(1)->count(), 12);
    EXPECT_FALSE(isEditing());
}

TEST_F(KTFormatterDelegateTests, WhatCannotBeReadKeepsTheEditorOpen)
{
    KTFormatterEdit *const editor = edit(0, 1);
    const int height = editor->height();
    type(editor, u"1.2.3"_s, Qt::Key_Return);
    ASSERT_TRUE(isEditing());
    EXPECT_FALSE(editor->reason().isEmpty());
    EXPECT_GT(editor->height(), height);
    type(editor, u"1.2.4"_s, Qt::Key_Tab);
    ASSERT_TRUE(isEditing());
    EXPECT_EQ(record(0)->amount(), 1);
    QTest::keyClick(editor->lineEdit(), Qt::Key_Backspace);
    QTest::keyClick(editor->lineEdit(), Qt::Key_Backspace);
    EXPECT_EQ(editor->height(), height);
    QTest::keyClick(editor->lineEdit(), Qt::Key_Return);
    EXPECT_TRUE(NSObject::isEqual(record(0)->amount(), 1.2));
    EXPECT_FALSE(isEditing());
}

TEST_F(KTFormatterDelegateTests, WhatTheModelDoesNotTakeKeepsTheEditorOpen)
{
    QStringList rejections;
    QObject::connect(&model, &KTArrayModel::rejected,
                     [&](const QModelIndex &, const QString &why) { rejections += why; });
    KTFormatterEdit *const editor = edit(0, 1);
    type(editor, u"2000000"_s, Qt::Key_Return);
    ASSERT_TRUE(isEditing());
    EXPECT_EQ(editor->text(), u"2000000"_s);
    EXPECT_EQ(editor->reason(), u"The book refuses."_s);
    EXPECT_EQ(rejections, QStringList{u"The book refuses."_s});
    QTest::keyClick(editor->lineEdit(), Qt::Key_Escape);
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(record(0)->amount(), 1);
}

TEST_F(KTFormatterDelegateTests, LeavingTakesWhatCanBeRead)
{
    type(edit(0, 1), u"77"_s, 0);
    table.setFocus();
    turn();
    EXPECT_TRUE(NSObject::isEqual(record(0)->amount(), 77));
    EXPECT_FALSE(isEditing());
    type(edit(1, 1), u"7x"_s, 0);
    table.setFocus();
    turn();
    EXPECT_EQ(record(1)->amount(), 2);
    EXPECT_FALSE(isEditing());
}

TEST_F(KTFormatterDelegateTests, WhatIsGivenUpByLeavingIsTold)
{
    QSignalSpy rejected(&model, &KTArrayModel::rejected);
    type(edit(1, 1), u"7x"_s, 0);
    table.setFocus();
    EXPECT_FALSE(isEditing());
    ASSERT_EQ(rejected.count(), 1);
    EXPECT_EQ(rejected.first().at(0).toModelIndex(), model.index(1, 1));
    EXPECT_FALSE(rejected.first().at(1).toString().isEmpty());
}

TEST_F(KTFormatterDelegateTests, AnEditorStaysWithItsObject)
{
    KTFormatterEdit *const editor = edit(0, 1);
    type(editor, u"77"_s, 0);
    record(0)->setTitle(u"other"_s);
    record(0)->setAmount(5);
    EXPECT_EQ(editor->text(), u"77"_s);
    show(u"cba"_s);
    ASSERT_TRUE(isEditing());
    QTest::keyClick(editor->lineEdit(), Qt::Key_Return);
    EXPECT_TRUE(NSObject::isEqual(record(0)->amount(), 77));
    EXPECT_EQ(record(2)->amount(), 3);
}

TEST_F(KTFormatterDelegateTests, TheReasonOfTheLastRowIsInTheTable)
{
    table.resize(400, table.horizontalHeader()->height() + 3 * table.rowHeight(0) + 4);
    turn();
    KTFormatterEdit *const editor = edit(2, 1);
    type(editor, u"1.2.3"_s, Qt::Key_Return);
    EXPECT_TRUE(table.viewport()->rect().contains(editor->geometry().bottomLeft()));
}

TEST_F(KTFormatterDelegateTests, OtherModelsAreToldTheFormatters)
{
    QStandardItemModel items(2, 2);
    items.setData(items.index(0, 0), -5400);
    items.setData(items.index(0, 1), u"plain"_s);
    QTableView view;
    auto *const delegate = new KTFormatterDelegate(&view);
    const auto numbers = std::make_shared<KTNumberFormatter>();
    numbers->setDecimalPlaces(1);
    delegate->setFormatter(0, numbers);
    view.setModel(&items);
    view.setItemDelegate(delegate);
    view.show();
    struct Shown : KTFormatterDelegate
    {
        using KTFormatterDelegate::initStyleOption;
    };
    QStyleOptionViewItem option;
    (delegate->*&Shown::initStyleOption)(&option, items.index(0, 0));
    EXPECT_EQ(option.text, u"-5,400.0"_s);
    EXPECT_EQ(option.palette.color(QPalette::Text), QColor(Qt::red));
    EXPECT_EQ(delegate->formatterFor(items.index(0, 0)), numbers);
    EXPECT_EQ(delegate->formatterFor(items.index(0, 1)), nullptr);
    type(edit(0, 0, &view), u"12.5"_s, Qt::Key_Return);
    EXPECT_TRUE(NSObject::isEqual(items.index(0, 0).data(Qt::EditRole), 12.5));
    view.edit(items.index(0, 1));
    EXPECT_NE(view.viewport()->findChild<QLineEdit *>(), nullptr);
    delegate->setFormatter(0, nullptr);
    EXPECT_EQ(delegate->formatterFor(items.index(0, 0)), nullptr);
}
