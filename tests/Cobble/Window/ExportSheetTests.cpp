// Exporting through the sheet of a main window.

#include "SheetSupport.h"

#include <QComboBox>
#include <QStatusBar>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;

class ExportSheetTests : public HostSheetTest
{
protected:
    static QStringList offered(const QWidget *sheet)
    {
        QStringList texts;
        const auto *const box = sheet->findChild<QComboBox *>(u"recordsBox"_s);
        for (int index = 0; index < box->count(); ++index)
            texts += box->itemText(index);
        return texts;
    }
    /// Opens the sheet, exports what a choice stands for, and reads the file's first column.
    QByteArray exported(MainWindowController *window, const QString &choice)
    {
        window->exportFile();
        turn();
        QWidget *const sheet = window->exportSheet()->window();
        sheet->findChild<QComboBox *>(u"recordsBox"_s)->setCurrentText(choice);
        const QString file = path(u"out%1.csv"_s.arg(++files));
        type(field(sheet, u"fileEdit"_s), file);
        press(sheet, u"Export"_s);
        turn();
        QByteArray names;
        for (const QByteArray &line : contentsOf(file).split('\n'))
            names += line.left(line.indexOf(',')) + ' ';
        return names;
    }

    int files = 0;
};

TEST_F(ExportSheetTests, ExportsWhatIsShown)
{
    MainWindowController *const window = openThings();
    window->exportFile();
    turn();
    QWidget *const sheet = window->exportSheet()->window();
    EXPECT_TRUE(field(sheet, u"fileEdit"_s)->text().endsWith(u"/Things.csv"));
    type(field(sheet, u"fileEdit"_s), path(u"out.csv"_s));
    press(sheet, u"Export"_s);
    turn();
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_TRUE(contentsOf(path(u"out.csv"_s)).contains("Ann,7,$5.50,3/4/2008,"));
    EXPECT_TRUE(
        window->mainWindow()->statusBar()->currentMessage().startsWith(u"Exported 4 records to "));
}

TEST_F(ExportSheetTests, WhatCannotBeExportedIsToldInTheSheet)
{
    MainWindowController *const window = openThings();
    window->exportFile();
    turn();
    QWidget *const sheet = window->exportSheet()->window();
    type(field(sheet, u"fileEdit"_s), path(u"out.zip"_s));
    press(sheet, u"Export"_s);
    EXPECT_TRUE(window->exportSheet()->problem().contains(u"no exporter for 'zip'"));
    type(field(sheet, u"fileEdit"_s), path(u"missing/out.csv"_s));
    press(sheet, u"Export"_s);
    EXPECT_TRUE(window->exportSheet()->problem().contains(u"missing/out.csv"));
    press(sheet, u"Cancel"_s);
    turn();
    EXPECT_FALSE(sheet->isVisible());
}

TEST_F(ExportSheetTests, AnExportCanBeCancelled)
{
    MainWindowController *const window = openThings();
    tree.add(u"out.csv"_s, "old");
    window->exportFile();
    turn();
    QWidget *const sheet = window->exportSheet()->window();
    window->exportSheet()->setLookInterval(0);
    field(sheet, u"fileEdit"_s)->setText(path(u"out.csv"_s));
    // It asks before it replaces a file.
    window->exportSheet()->go();
    EXPECT_EQ(window->exportSheet()->problem(),
              u"There is a file of that name. Export once more to replace it."_s);
    EXPECT_EQ(contentsOf(path(u"out.csv"_s)), "old");
    QMetaObject::invokeMethod(window->exportSheet(), &TransferSheet::cancel, Qt::QueuedConnection);
    window->exportSheet()->go();
    EXPECT_EQ(window->exportSheet()->problem(), u"Cancelled. The file was not written."_s);
    EXPECT_EQ(contentsOf(path(u"out.csv"_s)), "old");
    window->exportSheet()->endDialog();
    turn();
}

TEST_F(ExportSheetTests, AFileIsReplacedWhenThatIsAskedForTwice)
{
    MainWindowController *const window = openThings();
    tree.add(u"out.csv"_s, "old");
    window->exportFile();
    turn();
    QWidget *const sheet = window->exportSheet()->window();
    field(sheet, u"fileEdit"_s)->setText(path(u"out.csv"_s));
    press(sheet, u"Export"_s);
    EXPECT_EQ(contentsOf(path(u"out.csv"_s)), "old");
    press(sheet, u"Export"_s);
    turn();
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_TRUE(contentsOf(path(u"out.csv"_s)).startsWith("Name,Visits"));
}

TEST_F(ExportSheetTests, ShownAndSelectedRecordsAreExportedInTheirOrder)
{
    MainWindowController *const window = openThings();
    window->records()->setSort(1, Qt::DescendingOrder);
    search(window, u"n"_s);
    window->records()->setSelectionIndexes({0, 2});
    const QStringList shown = column(window, 0);
    ASSERT_EQ(shown.size(), 4);
    window->exportFile();
    turn();
    EXPECT_EQ(
        offered(window->exportSheet()->window()),
        QStringList({u"All of the library"_s, u"Those shown (4)"_s, u"Those selected (2)"_s}));
    window->exportSheet()->endDialog();
    turn();
    EXPECT_EQ(exported(window, u"All of the library"_s).left(9), "Name Ann ");
    EXPECT_TRUE(exported(window, u"Those shown (4)"_s)
                    .startsWith(QString(u"Name " + shown.first(2).join(u' ')).toUtf8()));
    EXPECT_EQ(exported(window, u"Those selected (2)"_s).trimmed(),
              "Name " + shown[0].toUtf8() + ' ' + shown[2].toUtf8());
}

TEST_F(ExportSheetTests, OnlyWhatDiffersFromAllIsOffered)
{
    MainWindowController *const window = openThings();
    window->records()->setSelectionIndexes({});
    window->exportFile();
    turn();
    EXPECT_EQ(offered(window->exportSheet()->window()), QStringList(u"All of the library"_s));
}
