// Typing into the cells of the table.

#include "Window/FieldDelegate.h"

#include "WindowSupport.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

class FieldDelegateTests : public HostWindowTest
{
protected:
    MainWindowController *openAt(int row, int column)
    {
        MainWindowController *const window = openThings();
        window->mainWindow()->activateWindow();
        turn();
        window->mainWindow()->table()->setFocus();
        window->mainWindow()->table()->selectionModel()->setCurrentIndex(
            window->model()->index(row, column),
            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        return window;
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        turn();
    }
    static QModelIndex current(MainWindowController *window)
    {
        return window->mainWindow()->table()->currentIndex();
    }
    static bool isTyping()
    {
        return qobject_cast<QLineEdit *>(QApplication::focusWidget()) ||
               qobject_cast<QPlainTextEdit *>(QApplication::focusWidget());
    }
};

TEST_F(FieldDelegateTests, LettersGoToTheRecordThatBeginsWithThem)
{
    MainWindowController *const window = openAt(0, 0);
    QTest::keyClicks(window->mainWindow()->table(), u"b"_s);
    EXPECT_FALSE(isTyping());
    EXPECT_EQ(current(window).row(), 1);
    press(Qt::Key_Return);
    EXPECT_TRUE(isTyping());
    press(Qt::Key_Escape);
    EXPECT_EQ(column(window, 0), QStringList({u"Ann"_s, u"Bjørn"_s, u"Céline"_s, u"Ann"_s}));
    EXPECT_EQ(stored(2, 0), u"Bjørn"_s);
}

TEST_F(FieldDelegateTests, ReturnAndF2EditTheCell)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2}) {
        openAt(1, 1);
        EXPECT_FALSE(isTyping());
        press(key);
        EXPECT_TRUE(isTyping()) << key;
        application.reset();
    }
}

TEST_F(FieldDelegateTests, ReturnStoresAndGoesDown)
{
    MainWindowController *const window = openAt(1, 1);
    press(Qt::Key_Return);
    type(QApplication::focusWidget(), u"20"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(stored(2, 1), u"20"_s);
    EXPECT_EQ(current(window), window->model()->index(2, 1));
    EXPECT_FALSE(isTyping());
    EXPECT_EQ(QApplication::focusWidget(), window->mainWindow()->table());
    // At the end it stays.
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_EQ(current(window), window->model()->index(3, 1));
}

TEST_F(FieldDelegateTests, TabStoresAndEditsTheNextField)
{
    MainWindowController *const window = openAt(1, 0);
    press(Qt::Key_F2);
    type(QApplication::focusWidget(), u"Bo"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(stored(2, 0), u"Bo"_s);
    EXPECT_EQ(current(window), window->model()->index(1, 1));
    EXPECT_TRUE(isTyping());
    type(QApplication::focusWidget(), u"21"_s);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stored(2, 1), u"21"_s);
    EXPECT_EQ(current(window), window->model()->index(1, 0));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(current(window), window->model()->index(0, 4));
}

TEST_F(FieldDelegateTests, TabStaysWhereSomethingWasRejected)
{
    MainWindowController *const window = openAt(1, 1);
    press(Qt::Key_F2);
    type(QApplication::focusWidget(), u"many"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(current(window), window->model()->index(1, 1));
    EXPECT_TRUE(isTyping());
    EXPECT_FALSE(QApplication::focusWidget()->accessibleDescription().isEmpty());
    press(Qt::Key_Escape);
    EXPECT_FALSE(isTyping());
    EXPECT_EQ(stored(2, 1), u"-12"_s);
}

TEST_F(FieldDelegateTests, TextsMayHaveMoreLines)
{
    MainWindowController *const window = openAt(0, 0);
    press(Qt::Key_F2);
    QWidget *const input = QApplication::focusWidget();
    const int height = input->height();
    type(input, u"one"_s);
    press(Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(input, u"two"_s);
    EXPECT_GT(input->height(), height);
    press(Qt::Key_Return);
    EXPECT_EQ(stored(1, 0), u"one\ntwo"_s);
    EXPECT_EQ(current(window).row(), 1);
}

TEST_F(FieldDelegateTests, AMenuOverAnEditorLeavesItOpen)
{
    MainWindowController *const window = openAt(0, 1);
    press(Qt::Key_F2);
    const QPointer<QWidget> input = QApplication::focusWidget();
    type(input, u"8"_s);
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(input, &menu);
    EXPECT_EQ(stored(1, 1), u"7"_s);
    ASSERT_FALSE(input.isNull());
    window->mainWindow()->search()->setFocus();
    turn();
    EXPECT_EQ(stored(1, 1), u"8"_s);
    EXPECT_TRUE(input.isNull());
}
