#include "Importing/ColumnEditor.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;
using testing_support::FileTree;

namespace {
class ColumnEditorTests : public testing_support::WindowedTest
{
protected:
    ColumnEditorTests()
        : editor({&table, &column, &isStored, &header, &type, &convention, &currency})
        , changes(&editor, &ColumnEditor::changed)
    {
        testing_support::useFreshHome();
        request.path = tree.path(u"a.csv"_s);
        request.libraryName = u"A"_s;
        request.bundle = KTDatabaseBundle(tree.path(u"b.cobbledb"_s));
        tree.add(u"a.csv"_s,
                 "Name,When,Paid,Took\nAnn,3/4/2008,$5.50,1:30:00\nBob,4/5/2008,$7,0:20:00\n");
        show();
    }

    /// As the sheet does whenever something is chosen.
    void show()
    {
        request.columns = editor.choices();
        const Outcome<ImportPreview> preview = ImportPreview::of(request);
        ASSERT_TRUE(preview) << preview.reason().toStdString();
        editor.show(*preview);
    }
    void choose(QComboBox &box, const QString &text)
    {
        const int index = box.findText(text);
        ASSERT_GE(index, 0) << text.toStdString();
        box.setCurrentIndex(index);
        Q_EMIT box.activated(index);
    }
    QString cell(int row, int tableColumn) const { return table.item(row, tableColumn)->text(); }

    FileTree tree;
    ImportRequest request;
    QTableWidget table;
    QComboBox column;
    QCheckBox isStored;
    QLineEdit header;
    QComboBox type;
    QComboBox convention;
    QComboBox currency;
    ColumnEditor editor;
    QSignalSpy changes;
};
} // namespace

TEST_F(ColumnEditorTests, ShowsRowsAndTheTypesThatWereFound)
{
    EXPECT_EQ(table.columnCount(), 4);
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.horizontalHeaderItem(1)->text(), u"When\nDate"_s);
    EXPECT_EQ(cell(0, 2), u"$5.50"_s);
    EXPECT_EQ(column.count(), 4);
    EXPECT_EQ(type.currentText(), u"Automatic (Text)"_s);
    EXPECT_FALSE(convention.isEnabled());
    column.setCurrentIndex(1);
    EXPECT_EQ(type.currentText(), u"Automatic (Date)"_s);
    EXPECT_TRUE(convention.isEnabled());
    EXPECT_FALSE(currency.isEnabled());
    EXPECT_EQ(table.currentColumn(), 1);
    column.setCurrentIndex(2);
    EXPECT_TRUE(currency.isEnabled());
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(ColumnEditorTests, AClickChoosesTheColumn)
{
    table.setCurrentCell(1, 2);
    EXPECT_EQ(column.currentIndex(), 2);
    Q_EMIT table.horizontalHeader()->sectionClicked(1);
    EXPECT_EQ(column.currentIndex(), 1);
}

TEST_F(ColumnEditorTests, TheOrderOfDatesIsChosen)
{
    column.setCurrentIndex(1);
    EXPECT_EQ(cell(0, 1), u"3/4/2008"_s);
    choose(convention, u"Day, month, year"_s);
    EXPECT_EQ(editor.choices().value(1).conventions.order, u"dmy"_s);
    EXPECT_EQ(changes.count(), 1);
    show();
    EXPECT_EQ(cell(0, 1), u"4/3/2008"_s);
    EXPECT_EQ(convention.currentText(), u"Day, month, year"_s);
    choose(convention, u"As found"_s);
    EXPECT_FALSE(editor.choices().value(1).conventions.isAny());
}

TEST_F(ColumnEditorTests, TypeAndCurrencyAreChosen)
{
    column.setCurrentIndex(2);
    choose(currency, u"JPY"_s);
    show();
    EXPECT_EQ(table.horizontalHeaderItem(2)->text(), u"Paid\nCurrency (JPY)"_s);
    choose(type, u"Text"_s);
    show();
    EXPECT_EQ(table.horizontalHeaderItem(2)->text(), u"Paid\nText"_s);
    EXPECT_EQ(type.currentText(), u"Text"_s);
    EXPECT_FALSE(currency.isEnabled());
    EXPECT_EQ(type.itemText(0), u"Automatic"_s);
    type.setCurrentIndex(0);
    Q_EMIT type.activated(0);
    EXPECT_FALSE(editor.choices().value(2).type.has_value());
}

TEST_F(ColumnEditorTests, ColumnsAreLeftOutAndTakenAgain)
{
    column.setCurrentIndex(1);
    isStored.click();
    show();
    EXPECT_EQ(table.columnCount(), 3);
    EXPECT_EQ(table.horizontalHeaderItem(1)->text(), u"Paid\nCurrency (USD)"_s);
    EXPECT_EQ(column.currentIndex(), 1);
    EXPECT_EQ(column.count(), 4);
    EXPECT_FALSE(type.isEnabled());
    EXPECT_TRUE(isStored.isEnabled());
    isStored.click();
    show();
    EXPECT_EQ(table.columnCount(), 4);
    EXPECT_TRUE(type.isEnabled());
}

TEST_F(ColumnEditorTests, ColumnsGetOtherHeaders)
{
    column.setCurrentIndex(0);
    QTest::keyClicks(&header, u"s"_s);
    EXPECT_EQ(editor.choices().value(0).header.value_or(QString()), u"Names"_s);
    show();
    EXPECT_EQ(table.horizontalHeaderItem(0)->text(), u"Names\nText"_s);
    EXPECT_EQ(column.itemText(0), u"Name"_s);
    EXPECT_EQ(changes.count(), 1);
    header.selectAll();
    QTest::keyClick(&header, Qt::Key_Delete);
    EXPECT_FALSE(editor.choices().value(0).header.has_value());
}

TEST_F(ColumnEditorTests, NothingIsChosenOfNothing)
{
    editor.clear();
    EXPECT_EQ(table.columnCount(), 0);
    EXPECT_EQ(column.count(), 0);
    EXPECT_TRUE(editor.choices().isEmpty());
    for (const QWidget *const part :
         {static_cast<QWidget *>(&column), static_cast<QWidget *>(&isStored),
          static_cast<QWidget *>(&header), static_cast<QWidget *>(&type),
          static_cast<QWidget *>(&convention), static_cast<QWidget *>(&currency)})
        EXPECT_FALSE(part->isEnabled());
}
