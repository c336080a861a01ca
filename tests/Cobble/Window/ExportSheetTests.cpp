// Exporting through the sheet of a main window.

#include "SheetSupport.h"

#include <QStatusBar>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;

using ExportSheetTests = HostSheetTest;

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
