// Importing through the sheet of a main window.

#include "SheetSupport.h"

#include <KTUtility/NSApplication>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QProgressBar>
#include <QTableWidget>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using ImportSheetTests = HostSheetTest;

TEST_F(ImportSheetTests, TwoDialogsFollowAnImport)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, "Pet,Age\nCat,3\nDog,many\nHen,4\nOwl,5\nPig,6\nEel,7\n"
                            "Ant,8\nApe,9\nBat,1\nBee,2\nCow,3\nElk,4\n");
    importThrough(window, path(u"Pets.csv"_s));
    EXPECT_FALSE(window->importSheet()->isRunningAsDialog());
    QWidget *const summary = window->importSummary()->window();
    ASSERT_TRUE(summary->isVisible());
    EXPECT_TRUE(NSApplication::isSheet(summary));
    EXPECT_EQ(alertBox(), nullptr);
    EXPECT_EQ(summary->findChild<QLabel *>(u"titleLabel"_s)->text(),
              u"Stored 12 records in the library “Pets”."_s);
    const auto *const columns = summary->findChild<QTableWidget *>(u"columnsTable"_s);
    EXPECT_EQ(columns->item(1, 1)->text(), u"Number"_s);
    EXPECT_EQ(columns->item(1, 3)->text(), u"1"_s);
    const auto *const unread = summary->findChild<QTableWidget *>(u"unreadTable"_s);
    ASSERT_EQ(unread->rowCount(), 1);
    EXPECT_EQ(unread->item(0, 2)->text(), u"many"_s);
    QTest::keyClick(summary, Qt::Key_Return);
    EXPECT_FALSE(summary->isVisible());
    turn();
    QMessageBox *const question = alertBox();
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(question->text(), u"Show the library “Pets” now?"_s);
    EXPECT_EQ(librariesIn(window), QStringList({u"Pets"_s, u"Things"_s}));
    QTest::keyClick(question, Qt::Key_Return);
    turn();
    EXPECT_EQ(window->library()->definition().name, u"Pets"_s);
    EXPECT_EQ(countIn(window), u"12 records"_s);
    EXPECT_FALSE(window->continueRunningQueue());
}

TEST_F(ImportSheetTests, TheSummarySaysWhatColumnsDecide)
{
    MainWindowController *const window = openThings();
    tree.add(u"Dates.csv"_s, "When,What\n3/2/2016,Cat\n13/2/2016,Dog\n");
    importThrough(window, path(u"Dates.csv"_s));
    const auto *const columns =
        window->importSummary()->window()->findChild<QTableWidget *>(u"columnsTable"_s);
    EXPECT_EQ(columns->item(0, 5)->text(), u"day, month, year (1 of 2 values decide)"_s);
    EXPECT_EQ(columns->item(1, 5)->text(), QString());
}

TEST_F(ImportSheetTests, TheQuestionMayBeDenied)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, "Pet\nCat\n");
    importThrough(window, path(u"Pets.csv"_s));
    QTest::keyClick(window->importSummary()->window(), Qt::Key_Escape);
    turn();
    ASSERT_NE(alertBox(), nullptr);
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
    EXPECT_EQ(window->library()->definition().name, u"Things"_s);
    EXPECT_FALSE(window->continueRunningQueue());
}

TEST_F(ImportSheetTests, ALibraryIsReplacedUnderItsWindows)
{
    MainWindowController *const window = openThings();
    MainWindowController *const other = open();
    tree.add(u"New.csv"_s, "Name\nZoe\n");
    QWidget *const sheet = openImport(window);
    type(field(sheet, u"fileEdit"_s), path(u"New.csv"_s));
    type(field(sheet, u"nameEdit"_s), u"Things"_s);
    sheet->findChild<QCheckBox *>(u"replaceBox"_s)->setChecked(true);
    press(sheet, u"Import"_s);
    turn();
    EXPECT_EQ(column(window, 0), QStringList(u"Zoe"_s));
    EXPECT_EQ(column(other, 0), QStringList(u"Zoe"_s));
    // What is shown already need not be asked about.
    window->importSummary()->endDialog();
    turn();
    EXPECT_EQ(alertBox(), nullptr);
    EXPECT_FALSE(window->continueRunningQueue());
}

TEST_F(ImportSheetTests, OnlyColumnsThatAreNamedBringFilesFromElsewhere)
{
    MainWindowController *const window = openThings();
    const testing_support::FileTree elsewhere;
    elsewhere.add(u"key.png"_s);
    tree.add(u"Pets.csv"_s,
             "Pet,\"Photo, large\"\nCat," + elsewhere.path(u"key.png"_s).toUtf8() + "\n");
    const QDir media(bundle.mediaFolderPath());
    importThrough(window, path(u"Pets.csv"_s));
    EXPECT_TRUE(media.isEmpty());
    EXPECT_EQ(stored(1, 1, u"Pets"_s), elsewhere.path(u"key.png"_s));
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
    QWidget *const sheet = openImport(window);
    type(field(sheet, u"fileEdit"_s), path(u"Pets.csv"_s));
    type(field(sheet, u"mediaEdit"_s), u" \"Photo, large\", "_s);
    press(sheet, u"Import"_s);
    turn();
    EXPECT_EQ(window->importSheet()->problem(), QString());
    EXPECT_EQ(media.entryList(QDir::Files), QStringList(u"key.0.png"_s));
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
}

TEST_F(ImportSheetTests, OldPicturesStayIfTheNewOnesAreMissing)
{
    tree.add(u"a.png"_s);
    import(u"Pets.csv"_s, "Pet,Photo\nCat,a.png\n");
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, "Pet,Photo\nCat,a.png\nDog,b.png\n");
    QWidget *const sheet = openImport(window);
    type(field(sheet, u"fileEdit"_s), path(u"Pets.csv"_s));
    type(field(sheet, u"mediaEdit"_s), u"Photo"_s);
    sheet->findChild<QCheckBox *>(u"replaceBox"_s)->setChecked(true);
    press(sheet, u"Import"_s);
    turn();
    EXPECT_EQ(window->importSheet()->problem(),
              u"Nothing was stored: row 2: 'b.png': there is no such file."_s);
    EXPECT_EQ(QDir(bundle.mediaFolderPath()).entryList(QDir::Files), QStringList(u"a.0.png"_s));
    EXPECT_EQ(stored(1, 1, u"Pets"_s), u"cobblemedia://a.0.png"_s);
    window->importSheet()->endDialog();
    turn();
}

TEST_F(ImportSheetTests, WhatCannotBeImportedIsToldInTheSheet)
{
    MainWindowController *const window = openThings();
    QWidget *const sheet = openImport(window);
    press(sheet, u"Import"_s);
    EXPECT_EQ(window->importSheet()->problem(), u"Please choose a file."_s);
    for (const auto &[name, reason] :
         {std::pair(u"missing.csv"_s, u"No such file"_s), std::pair(u"."_s, u"is a folder"_s)}) {
        type(field(sheet, u"fileEdit"_s), path(name));
        press(sheet, u"Import"_s);
        EXPECT_TRUE(window->importSheet()->problem().contains(reason, Qt::CaseInsensitive))
            << window->importSheet()->problem().toStdString();
        EXPECT_TRUE(sheet->isVisible());
    }
    QTest::keyClick(sheet, Qt::Key_Escape);
    turn();
    EXPECT_FALSE(window->continueRunningQueue());
    // The next time it begins anew.
    sheet->findChild<QCheckBox *>(u"replaceBox"_s)->setChecked(true);
    field(sheet, u"nameEdit"_s)->setText(u"Things"_s);
    field(sheet, u"mediaEdit"_s)->setText(u"Photo"_s);
    openImport(window);
    EXPECT_EQ(window->importSheet()->problem(), QString());
    EXPECT_EQ(window->importSheet()->file(), QString());
    EXPECT_EQ(field(sheet, u"nameEdit"_s)->text(), QString());
    EXPECT_EQ(field(sheet, u"mediaEdit"_s)->text(), QString());
    EXPECT_FALSE(sheet->findChild<QCheckBox *>(u"replaceBox"_s)->isChecked());
    window->importSheet()->endDialog();
    turn();
}

TEST_F(ImportSheetTests, AnImportCanBeCancelled)
{
    MainWindowController *const window = openThings();
    QByteArray rows = "Number,Text\n";
    for (int row = 0; row < 500; ++row)
        rows += QByteArray::number(row) + ",text\n";
    tree.add(u"Long.csv"_s, rows);
    QWidget *const sheet = openImport(window);
    window->importSheet()->setLookInterval(0);
    field(sheet, u"fileEdit"_s)->setText(path(u"Long.csv"_s));
    bool wasWorking = false;
    // By its own button, while the rest is not to be touched.
    QMetaObject::invokeMethod(
        sheet,
        [&] {
            wasWorking = window->importSheet()->isWorking() &&
                         sheet->findChild<QProgressBar *>()->isVisible() &&
                         !button(sheet, u"Import"_s)->isEnabled() &&
                         application->bundle()->isBusy();
            press(sheet, u"Cancel"_s);
        },
        Qt::QueuedConnection);
    window->importSheet()->go();
    EXPECT_TRUE(wasWorking);
    EXPECT_EQ(window->importSheet()->problem(), u"Cancelled. Nothing was stored."_s);
    EXPECT_FALSE(application->bundle()->isBusy());
    EXPECT_TRUE(sheet->isVisible());
    application->bundle()->reload();
    EXPECT_EQ(librariesIn(window), QStringList(u"Things"_s));
    window->importSheet()->endDialog();
    turn();
}

TEST_F(ImportSheetTests, EscapeAndClosingCancelTheWorkFirst)
{
    MainWindowController *const window = openThings();
    QByteArray rows = "Number\n";
    for (int row = 0; row < 500; ++row)
        rows += QByteArray::number(row) + '\n';
    tree.add(u"Long.csv"_s, rows);
    const std::function<void(QWidget *)> ways[] = {
        [](QWidget *sheet) { QTest::keyClick(sheet, Qt::Key_Escape); },
        [](QWidget *sheet) { sheet->close(); },
    };
    for (const auto &way : ways) {
        QWidget *const sheet = openImport(window);
        window->importSheet()->setLookInterval(0);
        field(sheet, u"fileEdit"_s)->setText(path(u"Long.csv"_s));
        QMetaObject::invokeMethod(
            sheet, [&] { way(sheet); }, Qt::QueuedConnection);
        window->importSheet()->go();
        EXPECT_TRUE(sheet->isVisible());
        EXPECT_EQ(window->importSheet()->problem(), u"Cancelled. Nothing was stored."_s);
        way(sheet);
        turn();
        EXPECT_FALSE(sheet->isVisible());
    }
}

TEST_F(ImportSheetTests, OneWindowImportsAtATime)
{
    MainWindowController *const window = openThings();
    application->bundle()->setBusy(true);
    QWidget *const sheet = openImport(window);
    field(sheet, u"fileEdit"_s)->setText(path(u"Things.csv"_s));
    press(sheet, u"Import"_s);
    EXPECT_TRUE(window->importSheet()->problem().contains(u"Another window"));
    EXPECT_TRUE(application->bundle()->isBusy());
    application->bundle()->setBusy(false);
    window->importSheet()->endDialog();
    turn();
}

TEST_F(ImportSheetTests, HugeValuesAreShortInTheSummary)
{
    MainWindowController *const window = openThings();
    QByteArray rows = "Age\n";
    for (int row = 0; row < 20; ++row)
        rows += QByteArray::number(row) + '\n';
    tree.add(u"Pets.csv"_s, rows + QByteArray(1 << 20, 'x') + '\n');
    importThrough(window, path(u"Pets.csv"_s));
    const auto *const unread =
        window->importSummary()->window()->findChild<QTableWidget *>(u"unreadTable"_s);
    ASSERT_EQ(unread->rowCount(), 1);
    EXPECT_LT(unread->item(0, 2)->text().size(), 400);
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
}

namespace {
/// Waits until a sheet shows what its file would become.
void waitForPreview(ImportSheet *sheet)
{
    bool isShown = false;
    const auto connection =
        QObject::connect(sheet, &ImportSheet::previewed, sheet, [&isShown] { isShown = true; });
    sheet->showPreview();
    while (!isShown)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QObject::disconnect(connection);
}

void choose(QWidget *sheet, const QString &boxName, const QString &text)
{
    auto *const box = sheet->findChild<QComboBox *>(boxName);
    ASSERT_GE(box->findText(text), 0) << text.toStdString();
    box->setCurrentIndex(box->findText(text));
    Q_EMIT box->activated(box->currentIndex());
}
} // namespace

TEST_F(ImportSheetTests, ShowsWhatTheFileWouldBecome)
{
    MainWindowController *const window = openThings();
    QByteArray rows = "Stra\xdf"
                      "e;Betrag\n";
    for (int row = 1; row <= 300; ++row)
        rows += "K\xf6nigsallee, sch\xf6n;" + (row == 7 ? QByteArray("Kuh") : "1.234,5") + '\n';
    tree.add(u"Orte.csv"_s, rows);
    QWidget *const sheet = openImport(window);
    field(sheet, u"fileEdit"_s)->setText(path(u"Orte.csv"_s));
    waitForPreview(window->importSheet());
    const auto *const table = sheet->findChild<QTableWidget *>(u"previewTable"_s);
    ASSERT_EQ(table->columnCount(), 2);
    EXPECT_EQ(table->rowCount(), 50);
    EXPECT_EQ(table->horizontalHeaderItem(0)->text(), u"Straße\nText"_s);
    EXPECT_EQ(table->item(0, 1)->text(), u"1,235"_s);
    EXPECT_EQ(sheet->findChild<QLabel *>(u"formLabel"_s)->text(),
              u"Rows: 300, separated by semicolons, windows-1252"_s);
    const auto *const rejected = sheet->findChild<QTableWidget *>(u"rejectedTable"_s);
    ASSERT_EQ(rejected->rowCount(), 1);
    EXPECT_EQ(rejected->item(0, 0)->text(), u"7"_s);
    EXPECT_EQ(rejected->item(0, 1)->text(), u"Betrag"_s);
    EXPECT_EQ(rejected->item(0, 2)->text(), u"Kuh"_s);
    // Nothing is stored by looking.
    application->bundle()->reload();
    EXPECT_EQ(librariesIn(window), QStringList(u"Things"_s));
    window->importSheet()->endDialog();
    turn();
}

TEST_F(ImportSheetTests, WhatIsChosenIsStored)
{
    MainWindowController *const window = openThings();
    tree.add(u"Dates.csv"_s, "1;3.4.2008;secret\n2;4.5.2008;secret\n");
    QWidget *const sheet = openImport(window);
    field(sheet, u"fileEdit"_s)->setText(path(u"Dates.csv"_s));
    waitForPreview(window->importSheet());
    EXPECT_EQ(sheet->findChild<QTableWidget *>(u"previewTable"_s)->rowCount(), 1);
    sheet->findChild<QCheckBox *>(u"headersBox"_s)->click();
    choose(sheet, u"separatorBox"_s, u"Semicolon"_s);
    choose(sheet, u"encodingBox"_s, u"UTF-8"_s);
    waitForPreview(window->importSheet());
    EXPECT_EQ(sheet->findChild<QTableWidget *>(u"previewTable"_s)->rowCount(), 2);
    choose(sheet, u"columnBox"_s, u"Column 3"_s);
    sheet->findChild<QCheckBox *>(u"storedBox"_s)->click();
    choose(sheet, u"columnBox"_s, u"Column 2"_s);
    choose(sheet, u"conventionBox"_s, u"Month, day, year"_s);
    type(field(sheet, u"headerEdit"_s), u"When"_s);
    QTest::keyClick(field(sheet, u"headerEdit"_s), Qt::Key_Tab);
    press(sheet, u"Import"_s);
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
    const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    const Library library = *store->libraryNamed(u"Dates"_s);
    ASSERT_EQ(library.fields.size(), 2);
    EXPECT_EQ(library.fields.at(1).header, u"When"_s);
    RecordCursor records = store->records(library);
    ASSERT_TRUE(records.next());
    EXPECT_EQ(records.value(1).toDateTime().toLocalTime().date(), QDate(2008, 3, 4));
}

TEST_F(ImportSheetTests, ThePreviewTellsWhyThereIsNone)
{
    MainWindowController *const window = openThings();
    QWidget *const sheet = openImport(window);
    field(sheet, u"fileEdit"_s)->setText(path(u"missing.csv"_s));
    waitForPreview(window->importSheet());
    EXPECT_EQ(sheet->findChild<QLabel *>(u"formLabel"_s)->text(), u"No such file or directory"_s);
    EXPECT_EQ(sheet->findChild<QTableWidget *>(u"previewTable"_s)->columnCount(), 0);
    // There is no column to choose for, also after an import that has failed.
    press(sheet, u"Import"_s);
    EXPECT_FALSE(sheet->findChild<QComboBox *>(u"typeBox"_s)->isEnabled());
    EXPECT_TRUE(sheet->findChild<QComboBox *>(u"encodingBox"_s)->isEnabled());
    window->importSheet()->endDialog();
    turn();
}

namespace {
/// Leaves out a column by its header in the file.
void leaveOut(QWidget *sheet, const QString &header)
{
    choose(sheet, u"columnBox"_s, header);
    sheet->findChild<QCheckBox *>(u"storedBox"_s)->click();
}

QStringList shownHeaders(QWidget *sheet)
{
    const auto *const table = sheet->findChild<QTableWidget *>(u"previewTable"_s);
    QStringList headers;
    for (int column = 0; column < table->columnCount(); ++column)
        headers += table->horizontalHeaderItem(column)->text().section(u'\n', 0, 0);
    return headers;
}
} // namespace

TEST_F(ImportSheetTests, ChoicesOutliveAPreviewThatFails)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, "Pet,Secret,Photo\nCat,x,\n");
    QWidget *const sheet = openImport(window);
    field(sheet, u"fileEdit"_s)->setText(path(u"Pets.csv"_s));
    waitForPreview(window->importSheet());
    leaveOut(sheet, u"Secret"_s);
    field(sheet, u"mediaEdit"_s)->setText(u"Pho"_s);
    waitForPreview(window->importSheet());
    EXPECT_EQ(shownHeaders(sheet), QStringList());
    EXPECT_EQ(sheet->findChild<QLabel *>(u"formLabel"_s)->text(), u"there is no column 'Pho'"_s);
    // It can be taken again, and left out again.
    EXPECT_TRUE(sheet->findChild<QCheckBox *>(u"storedBox"_s)->isEnabled());
    EXPECT_FALSE(sheet->findChild<QCheckBox *>(u"storedBox"_s)->isChecked());
    field(sheet, u"mediaEdit"_s)->setText(u"Photo"_s);
    waitForPreview(window->importSheet());
    EXPECT_EQ(shownHeaders(sheet), QStringList({u"Pet"_s, u"Photo"_s}));
    // Another file has other columns.
    tree.add(u"Other.csv"_s, "Pet,Age,Photo\nCat,1,\n");
    field(sheet, u"fileEdit"_s)->setText(path(u"Other.csv"_s));
    waitForPreview(window->importSheet());
    EXPECT_EQ(shownHeaders(sheet), QStringList({u"Pet"_s, u"Age"_s, u"Photo"_s}));
    window->importSheet()->endDialog();
    turn();
}

TEST_F(ImportSheetTests, AllColumnsMayBeLeftOutForAWhile)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, "Pet\nCat\n");
    QWidget *const sheet = openImport(window);
    field(sheet, u"fileEdit"_s)->setText(path(u"Pets.csv"_s));
    waitForPreview(window->importSheet());
    leaveOut(sheet, u"Pet"_s);
    waitForPreview(window->importSheet());
    EXPECT_EQ(sheet->findChild<QLabel *>(u"formLabel"_s)->text(), u"no column is left"_s);
    sheet->findChild<QCheckBox *>(u"storedBox"_s)->click();
    waitForPreview(window->importSheet());
    EXPECT_EQ(shownHeaders(sheet), QStringList(u"Pet"_s));
    window->importSheet()->endDialog();
    turn();
}

TEST_F(ImportSheetTests, ChoicesDoNotPassToOtherColumns)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, "Pet;A,X;Secret\nCat;1,2;3\n");
    QWidget *const sheet = openImport(window);
    field(sheet, u"fileEdit"_s)->setText(path(u"Pets.csv"_s));
    choose(sheet, u"separatorBox"_s, u"Comma"_s);
    waitForPreview(window->importSheet());
    leaveOut(sheet, u"X;Secret"_s);
    // Before the other columns are shown, nobody knows what is meant.
    choose(sheet, u"separatorBox"_s, u"Semicolon"_s);
    press(sheet, u"Import"_s);
    turn();
    EXPECT_TRUE(window->importSheet()->problem().startsWith(u"The file has other columns"))
        << window->importSheet()->problem().toStdString();
    waitForPreview(window->importSheet());
    EXPECT_EQ(shownHeaders(sheet), QStringList({u"Pet"_s, u"A,X"_s, u"Secret"_s}));
    leaveOut(sheet, u"Secret"_s);
    // These are the same columns.
    sheet->findChild<QCheckBox *>(u"headersBox"_s)->click();
    waitForPreview(window->importSheet());
    EXPECT_EQ(shownHeaders(sheet), QStringList({u"Column 1"_s, u"Column 2"_s}));
    sheet->findChild<QCheckBox *>(u"headersBox"_s)->click();
    waitForPreview(window->importSheet());
    EXPECT_EQ(shownHeaders(sheet), QStringList({u"Pet"_s, u"A,X"_s}));
    press(sheet, u"Import"_s);
    turn();
    EXPECT_EQ(window->importSheet()->problem(), QString());
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
}

TEST_F(ImportSheetTests, SaysWhatSeparatesFields)
{
    MainWindowController *const window = openThings();
    tree.add(u"a.csv"_s, "a\n1\n");
    QWidget *const sheet = openImport(window);
    field(sheet, u"fileEdit"_s)->setText(path(u"a.csv"_s));
    for (const auto &[title, text] :
         {std::pair(u"Comma"_s, u"commas"_s), std::pair(u"Semicolon"_s, u"semicolons"_s),
          std::pair(u"Tab"_s, u"tabs"_s), std::pair(u"Bar |"_s, u"bars"_s),
          std::pair(u"Space"_s, u"spaces"_s)}) {
        choose(sheet, u"separatorBox"_s, title);
        waitForPreview(window->importSheet());
        EXPECT_EQ(sheet->findChild<QLabel *>(u"formLabel"_s)->text(),
                  u"Rows: 1, separated by %1, UTF-8"_s.arg(text));
    }
    window->importSheet()->endDialog();
    turn();
}

TEST_F(ImportSheetTests, APipeIsNotWaitedFor)
{
    MainWindowController *const window = openThings();
    ASSERT_EQ(::mkfifo(path(u"pipe.csv"_s).toLocal8Bit().constData(), 0600), 0);
    QWidget *const sheet = openImport(window);
    field(sheet, u"fileEdit"_s)->setText(path(u"pipe.csv"_s));
    press(sheet, u"Import"_s);
    turn();
    EXPECT_TRUE(window->importSheet()->problem().contains(u"is a pipe or a device"));
    window->importSheet()->endDialog();
    turn();
}

TEST_F(ImportSheetTests, ManyValuesThatAreNotReadAreCounted)
{
    MainWindowController *const window = openThings();
    tree.add(u"Dates.csv"_s, "When\n" + QByteArray("x\n").repeated(10'007));
    QWidget *const sheet = openImport(window);
    field(sheet, u"fileEdit"_s)->setText(path(u"Dates.csv"_s));
    waitForPreview(window->importSheet());
    choose(sheet, u"columnBox"_s, u"When"_s);
    choose(sheet, u"typeBox"_s, u"Date"_s);
    waitForPreview(window->importSheet());
    EXPECT_TRUE(sheet->findChild<QLabel *>(u"rejectedLabel"_s)->text().endsWith(u"10,007"));
    press(sheet, u"Import"_s);
    turn();
    const auto *const unread =
        window->importSummary()->window()->findChild<QTableWidget *>(u"unreadTable"_s);
    EXPECT_EQ(unread->item(unread->rowCount() - 1, 2)->text(), u"9,007 more"_s);
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
}

TEST_F(ImportSheetTests, FitsSmallScreensAndNamesItsParts)
{
    MainWindowController *const window = openThings();
    QWidget *const sheet = openImport(window);
    EXPECT_LE(sheet->minimumSizeHint().width(), 960);
    EXPECT_LE(sheet->minimumSizeHint().height(), 600);
    EXPECT_LE(sheet->width(), 960);
    EXPECT_LE(sheet->height(), 600);
    for (QWidget *const part : sheet->findChildren<QWidget *>()) {
        const bool isNamed = !part->accessibleName().isEmpty();
        if (qobject_cast<QTableWidget *>(part) || qobject_cast<QProgressBar *>(part)) {
            EXPECT_TRUE(isNamed) << part->objectName().toStdString();
        }
    }
    QStringList letters;
    for (const QLabel *const label : sheet->findChildren<QLabel *>()) {
        if (label->text().contains(u'&'))
            letters += label->text().section(u'&', 1).left(1).toLower();
    }
    for (const QAbstractButton *const each : sheet->findChildren<QAbstractButton *>()) {
        if (each->text().contains(u'&'))
            letters += each->text().section(u'&', 1).left(1).toLower();
    }
    EXPECT_EQ(QSet<QString>(letters.begin(), letters.end()).size(), letters.size())
        << letters.join(u' ').toStdString();
    window->importSheet()->endDialog();
    turn();
}
