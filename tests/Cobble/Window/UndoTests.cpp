// Undo and redo in the main window.

#include "SheetSupport.h"

#include <KTUtility/NSMenuItem>

#include <QPlainTextEdit>
#include <QStatusBar>

#include <utility>

using namespace Qt::StringLiterals;

class UndoTests : public HostSheetTest
{
protected:
    static void undo(MainWindowController *window) { menuItem(window, "undoChange:")->trigger(); }
    static void redo(MainWindowController *window) { menuItem(window, "redoChange:")->trigger(); }
    /// What the menu calls the next step, as it is when it opens.
    static QString title(MainWindowController *window, const char *action)
    {
        QAction *const item = menuItem(window, action);
        return window->validateMenuItem(item) ? item->text().remove(u'&') : QString();
    }
    static void set(MainWindowController *window, qsizetype field, const QString &text)
    {
        type(editor(window, field)->input(), text);
        QTest::keyClick(editor(window, field)->input(), Qt::Key_Return);
    }
    static QString message(MainWindowController *window)
    {
        return window->mainWindow()->statusBar()->currentMessage();
    }
    static QString textIn(const QWidget *field)
    {
        const auto *const line = qobject_cast<const QLineEdit *>(field);
        return line ? line->text() : qobject_cast<const QPlainTextEdit *>(field)->toPlainText();
    }
    MainWindowController *openMany(int count)
    {
        QByteArray rows = "Name,Email\n";
        for (int number = 0; number < count; ++number)
            rows += "Somebody " + QByteArray::number(number) + ",a\n";
        import(u"Many.csv"_s, rows);
        return open();
    }
    std::unique_ptr<LibraryStore> otherProgram() const
    {
        return *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    }
};

TEST_F(UndoTests, NothingIsThereToUndoAtFirst)
{
    MainWindowController *const window = openThings();
    EXPECT_EQ(title(window, "undoChange:"), QString());
    EXPECT_EQ(title(window, "redoChange:"), QString());
    window->undoChange();
    window->redoChange();
    EXPECT_EQ(countIn(window), u"4 records"_s);
}

TEST_F(UndoTests, EditsInTheFormComeBack)
{
    MainWindowController *const window = openThings();
    set(window, 1, u"8"_s);
    set(window, 1, u"9"_s);
    EXPECT_EQ(title(window, "undoChange:"), u"Undo Change of “Visits”"_s);
    undo(window);
    EXPECT_EQ(cell(window, 0, 1), u"8"_s);
    EXPECT_EQ(editor(window, 1)->text(), u"8"_s);
    undo(window);
    EXPECT_EQ(stored(1, 1), u"7"_s);
    EXPECT_EQ(title(window, "undoChange:"), QString());
    EXPECT_EQ(title(window, "redoChange:"), u"Redo Change of “Visits”"_s);
    redo(window);
    redo(window);
    EXPECT_EQ(cell(window, 0, 1), u"9"_s);
    EXPECT_EQ(stored(1, 1), u"9"_s);
}

TEST_F(UndoTests, EditsInTheTableComeBack)
{
    MainWindowController *const window = openThings();
    ASSERT_TRUE(window->model()->take(u"Eve"_s, window->model()->index(1, 0)));
    EXPECT_EQ(title(window, "undoChange:"), u"Undo Change of “Name”"_s);
    undo(window);
    EXPECT_EQ(column(window, 0), QStringList({u"Ann"_s, u"Bjørn"_s, u"Céline"_s, u"Ann"_s}));
    // What has changed is selected.
    EXPECT_EQ(window->records()->selectionIndex(), 1);
}

TEST_F(UndoTests, DeletedRecordsComeBackToTheirPlaceAndAreSelected)
{
    MainWindowController *const window = openThings();
    window->records()->setSelectionIndexes({0, 2});
    window->deleteRecords();
    EXPECT_EQ(column(window, 0), QStringList({u"Bjørn"_s, u"Ann"_s}));
    EXPECT_EQ(title(window, "undoChange:"), u"Undo Delete 2 Records"_s);
    undo(window);
    EXPECT_EQ(column(window, 0), QStringList({u"Ann"_s, u"Bjørn"_s, u"Céline"_s, u"Ann"_s}));
    EXPECT_EQ(window->records()->selectedCount(), 2);
    EXPECT_EQ(stored(1, 4), u"first\nsecond"_s);
    redo(window);
    EXPECT_EQ(countIn(window), u"2 records"_s);
    undo(window);
    EXPECT_EQ(countIn(window), u"4 records"_s);
}

TEST_F(UndoTests, ASearchThatHidesWhatComesBackIsCleared)
{
    MainWindowController *const window = openThings();
    window->records()->setSelectionIndex(0);
    window->deleteRecords();
    search(window, u"tall"_s);
    EXPECT_EQ(countIn(window), u"1 of 3 records"_s);
    undo(window);
    EXPECT_EQ(countIn(window), u"4 records"_s);
    EXPECT_EQ(window->mainWindow()->search()->text(), QString());
    EXPECT_EQ(window->records()->selectionIndex(), 0);
}

TEST_F(UndoTests, WhatComesBackIsScrolledTo)
{
    MainWindowController *const window = openMany(500);
    window->records()->setSelectionIndex(450);
    window->deleteRecords();
    QTableView *const table = window->mainWindow()->table();
    table->scrollToTop();
    undo(window);
    EXPECT_TRUE(
        table->viewport()->rect().intersects(table->visualRect(window->model()->index(450, 0))));
}

TEST_F(UndoTests, StepsAreUndoneAcrossLibraries)
{
    import(u"Animals.csv"_s, "Name\nCat\n");
    MainWindowController *const window = openThings();
    window->showLibrary(u"Things"_s);
    set(window, 1, u"8"_s);
    window->showLibrary(u"Animals"_s);
    set(window, 0, u"Dog"_s);
    window->deleteRecords();
    undo(window);
    undo(window);
    EXPECT_EQ(column(window, 0), QStringList(u"Cat"_s));
    undo(window);
    EXPECT_EQ(window->library()->definition().name, u"Things"_s);
    EXPECT_EQ(cell(window, 0, 1), u"7"_s);
    redo(window);
    redo(window);
    EXPECT_EQ(window->library()->definition().name, u"Animals"_s);
    EXPECT_EQ(column(window, 0), QStringList(u"Dog"_s));
}

TEST_F(UndoTests, AnImportIsAStep)
{
    MainWindowController *const window = openThings();
    tree.add(u"Animals.csv"_s, "Name\nCat\n");
    importThrough(window, path(u"Animals.csv"_s));
    ASSERT_TRUE(QTest::qWaitFor([&] {
        return librariesIn(window).size() == 2 && window->importSummary()->isRunningAsDialog();
    }));
    QTest::keyClick(window->importSummary()->window(), Qt::Key_Escape);
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
    EXPECT_EQ(title(window, "undoChange:"), u"Undo Import of “Animals”"_s);
    undo(window);
    EXPECT_EQ(librariesIn(window), QStringList(u"Things"_s));
    redo(window);
    EXPECT_EQ(librariesIn(window), QStringList({u"Animals"_s, u"Things"_s}));
}

TEST_F(UndoTests, ALibraryThatGoesIsNoLongerShown)
{
    MainWindowController *const window = openThings();
    window->showLibrary(u"Things"_s);
    const auto made =
        application->bundle()->change({StepKinds::RemoveLibrary, {}}, [&](StepRecorder &step) {
            return step.removeLibrary(*application->bundle()->store()->libraryNamed(u"Things"_s));
        });
    ASSERT_TRUE(made);
    application->bundle()->reload();
    EXPECT_TRUE(librariesIn(window).isEmpty());
    EXPECT_EQ(window->library(), nullptr);
    const auto step = application->bundle()->lastStep();
    ASSERT_TRUE(application->bundle()->play(step->number, StepPlayer::Direction::Undo));
    EXPECT_EQ(librariesIn(window), QStringList(u"Things"_s));
}

TEST_F(UndoTests, ARenamedLibraryStaysShown)
{
    MainWindowController *const window = openThings();
    OpenBundle *const opened = application->bundle();
    ASSERT_TRUE(
        opened->change({StepKinds::RenameLibrary, {}}, [&](StepRecorder &step) -> Outcome<> {
            const auto renamed =
                step.renameLibrary(*opened->store()->libraryNamed(u"Things"_s), u"Other"_s);
            return renamed ? Outcome<>() : renamed.failure();
        }));
    ASSERT_TRUE(opened->play(opened->lastStep()->number, StepPlayer::Direction::Undo));
    ASSERT_TRUE(window->library());
    EXPECT_EQ(window->library()->definition().name, u"Things"_s);
    EXPECT_EQ(countIn(window), u"4 records"_s);
}

TEST_F(UndoTests, EachWindowUndoesItsOwnStepsAndShowsThoseOfOthers)
{
    MainWindowController *const first = openThings();
    MainWindowController *const second = open();
    set(first, 1, u"8"_s);
    second->records()->setSelectionIndex(1);
    set(second, 1, u"9"_s);
    EXPECT_EQ(column(first, 1).first(2), QStringList({u"8"_s, u"9"_s}));
    undo(first);
    EXPECT_EQ(column(second, 1).first(2), QStringList({u"7"_s, u"9"_s}));
    EXPECT_EQ(title(first, "undoChange:"), QString());
    second->records()->setSelectionIndexes({0});
    second->deleteRecords();
    EXPECT_EQ(countIn(first), u"3 records"_s);
    undo(second);
    EXPECT_EQ(countIn(first), u"4 records"_s);
    undo(second);
    EXPECT_EQ(column(first, 1).first(2), QStringList({u"7"_s, u"-12"_s}));
}

TEST_F(UndoTests, WhatOthersHaveChangedSinceIsToldOfAndStays)
{
    MainWindowController *const first = openThings();
    MainWindowController *const second = open();
    set(first, 1, u"8"_s);
    set(second, 1, u"9"_s);
    undo(first);
    EXPECT_TRUE(message(first).contains(u"it was changed since"_s)) << message(first).toStdString();
    EXPECT_EQ(stored(1, 1), u"9"_s);
    // It never will be undone.
    EXPECT_EQ(title(first, "undoChange:"), QString());
}

TEST_F(UndoTests, AStepStaysWhileAnotherProgramIsInTheWay)
{
    MainWindowController *const window = openThings();
    set(window, 1, u"8"_s);
    const auto other = otherProgram();
    ASSERT_TRUE(other->beginChange());
    undo(window);
    EXPECT_TRUE(message(window).contains(u"locked"_s)) << message(window).toStdString();
    other->rollback();
    undo(window);
    EXPECT_EQ(stored(1, 1), u"7"_s);
}

TEST_F(UndoTests, AnotherProgramUndoes)
{
    MainWindowController *const window = openThings();
    set(window, 1, u"8"_s);
    {
        const auto other = otherProgram();
        ChangeJournal journal(*other);
        ASSERT_TRUE(journal.undo((*journal.last())->number));
    }
    undo(window);
    EXPECT_TRUE(message(window).contains(u"another program"_s)) << message(window).toStdString();
    turn();
    EXPECT_EQ(cell(window, 0, 1), u"7"_s);
    undo(window);
    EXPECT_EQ(message(window), u"it was undone already"_s);
}

TEST_F(UndoTests, MediaComeBackWithTheirBytes)
{
    tree.add(u"a.png"_s, "the picture");
    import(u"Pictures.csv"_s, "Name,Picture\nA," + tree.path(u"a.png"_s).toUtf8() + "\nC,\n");
    MainWindowController *const window = open();
    window->records()->setSelectionIndex(0);
    window->deleteRecords();
    const QString file = bundle.mediaFolderPath() + u"/a.0.png";
    EXPECT_TRUE(QFile::exists(file));
    undo(window);
    EXPECT_EQ(stored(1, 1, u"Pictures"_s), u"cobblemedia://a.0.png"_s);
    EXPECT_EQ(testing_support::contentsOf(file), "the picture");
}

TEST_F(UndoTests, MediaOfForgottenStepsGoUnlessOthersHaveThem)
{
    tree.add(u"a.png"_s, "a");
    tree.add(u"b.png"_s, "b");
    import(u"Pictures.csv"_s, "Name,Picture\nA," + tree.path(u"a.png"_s).toUtf8() + "\nB," +
                                  tree.path(u"b.png"_s).toUtf8() + "\nC,\n");
    MainWindowController *const window = open();
    OpenBundle *const opened = application->bundle();
    const auto set = [&](qint64 id, const QString &url) {
        return opened->change({StepKinds::Edit, {}}, [&](StepRecorder &step) {
            return step.update(window->library()->definition(), id, 1, url);
        });
    };
    // A step that is undone is forgotten by the next one.
    testing_support::writeFile(bundle.mediaFolderPath() + u"/new.0.png", "new");
    ASSERT_TRUE(set(3, u"cobblemedia://new.0.png"_s));
    ASSERT_TRUE(opened->play(opened->lastStep()->number, StepPlayer::Direction::Undo));
    EXPECT_TRUE(bundle.isFileNameInMediaFolder(u"new.0.png"_s));
    ASSERT_TRUE(set(3, u"cobblemedia://b.0.png"_s));
    EXPECT_FALSE(bundle.isFileNameInMediaFolder(u"new.0.png"_s));
    EXPECT_TRUE(bundle.isFileNameInMediaFolder(u"a.0.png"_s));
    EXPECT_TRUE(bundle.isFileNameInMediaFolder(u"b.0.png"_s));
}

// --- Many records -------------------------------------------------------------------------------

TEST_F(UndoTests, ManyRecordsGetAValueAfterAQuestion)
{
    MainWindowController *const window = openMany(30);
    window->mainWindow()->table()->selectAll();
    set(window, 1, u"same"_s);
    turn();
    ASSERT_NE(alertBox(), nullptr);
    EXPECT_EQ(alertBox()->text(), u"Set “Email” of 30 records?"_s);
    EXPECT_EQ(stored(1, 1, u"Many"_s), u"a"_s);
    // Keys that were pressed once too often ask no second time.
    QTest::keyClick(editor(window, 1)->input(), Qt::Key_Return);
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
    EXPECT_EQ(alertBox(), nullptr);
    EXPECT_EQ(stored(30, 1, u"Many"_s), u"a"_s);
    EXPECT_EQ(editor(window, 1)->text(), u"a"_s);
    set(window, 1, u"same"_s);
    turn();
    press(alertBox(), u"Set"_s);
    turn();
    EXPECT_EQ(column(window, 1), QStringList(30, u"same"_s));
    EXPECT_EQ(title(window, "undoChange:"), u"Undo Change of “Email”"_s);
    undo(window);
    EXPECT_EQ(column(window, 1), QStringList(30, u"a"_s));
    EXPECT_EQ(stored(30, 1, u"Many"_s), u"a"_s);
}

TEST_F(UndoTests, SomeRecordsGetAValueAtOnce)
{
    MainWindowController *const window = openMany(20);
    window->mainWindow()->table()->selectAll();
    set(window, 1, u"same"_s);
    turn();
    EXPECT_EQ(alertBox(), nullptr);
    EXPECT_EQ(stored(20, 1, u"Many"_s), u"same"_s);
}

TEST_F(UndoTests, OtherRecordsDoNotGetWhatWasMeantForThese)
{
    MainWindowController *const window = openMany(30);
    window->mainWindow()->table()->selectAll();
    set(window, 1, u"same"_s);
    turn();
    ASSERT_NE(alertBox(), nullptr);
    window->records()->setSelectionIndexes({0, 1});
    press(alertBox(), u"Set"_s);
    turn();
    EXPECT_EQ(stored(1, 1, u"Many"_s), u"a"_s);
}

// --- Keys ---------------------------------------------------------------------------------------

TEST_F(UndoTests, TheTableHasItsKeys)
{
    MainWindowController *const window = openThings();
    QTableView *const table = window->mainWindow()->table();
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Delete);
    EXPECT_EQ(countIn(window), u"3 records"_s);
    QTest::keyClick(table, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(countIn(window), u"4 records"_s);
    QTest::keyClick(table, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(countIn(window), u"3 records"_s);
    QTest::keyClick(table, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(countIn(window), u"3 records"_s);
}

TEST_F(UndoTests, AFieldWhoseTextWasStoredLeavesUndoToTheWindow)
{
    MainWindowController *const window = openThings();
    for (const qsizetype field : {1, 4}) {
        const QString before = stored(1, field);
        set(window, field, u"8"_s);
        EXPECT_EQ(stored(1, field), u"8"_s);
        QTest::keyClick(editor(window, field)->input(), Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(stored(1, field), before);
        QTest::keyClick(editor(window, field)->input(), Qt::Key_Z,
                        Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(stored(1, field), u"8"_s);
    }
}

TEST_F(UndoTests, TextFieldsHaveTheirKeys)
{
    MainWindowController *const window = openThings();
    window->records()->setSelectionIndex(1);
    window->deleteRecords();
    QTableView *const table = window->mainWindow()->table();
    const QList<std::function<QWidget *()>> fields = {
        [&] { return window->mainWindow()->search(); },
        [&] { return editor(window, 1)->input(); },
        [&] { return editor(window, 4)->input(); },
        [&]() -> QWidget * {
            table->edit(window->model()->index(0, 0));
            return QApplication::focusWidget();
        },
    };
    for (const auto &find : fields) {
        QWidget *const field = find();
        ASSERT_NE(field, nullptr);
        field->setFocus();
        type(field, u"5 five"_s);
        QTest::keyClick(field, Qt::Key_Backspace, Qt::ControlModifier);
        EXPECT_EQ(textIn(field).trimmed(), u"5"_s) << field->metaObject()->className();
        QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(textIn(field), u"5 five"_s) << field->metaObject()->className();
        QTest::keyClick(field, Qt::Key_Home);
        QTest::keyClick(field, Qt::Key_Delete);
        EXPECT_EQ(textIn(field), u" five"_s) << field->metaObject()->className();
        QTest::keyClick(field, Qt::Key_End, Qt::ControlModifier);
        // Also when there is nothing left to take back.
        for (int count = 0; count < 10; ++count)
            QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(window->library()->recordCount(), 3);
        QTest::keyClick(field, Qt::Key_Escape);
    }
}

TEST_F(UndoTests, AnImportIsUndoneAndNotThatOfAnotherProgramBehindIt)
{
    MainWindowController *const window = openThings();
    tree.add(u"Animals.csv"_s, "Name\nCat\n");
    bool isFirst = true;
    // It has waited for this one.
    QObject::connect(application->bundle(), &OpenBundle::librariesChanged, window, [&] {
        if (std::exchange(isFirst, false))
            import(u"Zoo.csv"_s, "Name\nElk\n");
    });
    importThrough(window, path(u"Animals.csv"_s));
    EXPECT_FALSE(isFirst);
    EXPECT_EQ(title(window, "undoChange:"), u"Undo Import of “Animals”"_s);
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
}
