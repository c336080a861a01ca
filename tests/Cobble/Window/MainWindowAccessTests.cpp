// What the windows are for those who use them by keyboard, by ear, on small screens, and in other
// directions of writing.

#include "SheetSupport.h"

#include "Editing/TextInput.h"
#include "Window/FieldDelegate.h"

#include "Appearance/Icons.h"
#include "Appearance/ProblemLabel.h"

#include <KTUtility/NSLocale>

#include <QAccessible>
#include <QHeaderView>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {
/// Tells how it draws.
class ReadableDelegate : public FieldDelegate
{
public:
    using FieldDelegate::initStyleOption;
};
} // namespace

class MainWindowAccessTests : public HostSheetTest
{
protected:
    ~MainWindowAccessTests() override
    {
        application.reset();
        NSLocale::resetCurrentLocale();
    }

    /// The widgets that can have the keyboard and have no name to be read out.
    static QStringList namelessIn(QWidget *window)
    {
        QStringList nameless;
        for (QWidget *const each : window->findChildren<QWidget *>()) {
            const bool takesKeys = each->focusPolicy() & Qt::TabFocus && !each->focusProxy();
            QAccessibleInterface *const spoken = QAccessible::queryAccessibleInterface(each);
            if (takesKeys && (!spoken || spoken->text(QAccessible::Name).isEmpty()))
                nameless += QString::fromLatin1(each->metaObject()->className()) + u' ' +
                            each->objectName();
        }
        return nameless;
    }
    /// The widgets that Tab goes through, from one of them on.
    static QList<QWidget *> tabOrder(QWidget *from)
    {
        QList<QWidget *> order;
        QWidget *each = from;
        do {
            const bool takesKeys = each->focusPolicy() & Qt::TabFocus && !each->focusProxy();
            if (takesKeys && each->isVisibleTo(each->window()) && each->isEnabled())
                order += each;
            each = each->nextInFocusChain();
        } while (each != from);
        return order;
    }
    void importPicture()
    {
        QImage image(30, 10, QImage::Format_RGB32);
        image.fill(Qt::green);
        ASSERT_TRUE(image.save(tree.path(u"a.png"_s)));
        import(u"Pictures.csv"_s, "Name,Picture\nA," + tree.path(u"a.png"_s).toUtf8() + "\nB,\n");
    }
};

TEST_F(MainWindowAccessTests, EverythingThatTakesKeysHasAName)
{
    importPicture();
    MainWindowController *const window = openThings();
    for (const QString &library : {u"Pictures"_s, u"Things"_s}) {
        window->showLibrary(library);
        EXPECT_EQ(namelessIn(window->mainWindow()), QStringList()) << library.toStdString();
    }
    EXPECT_EQ(namelessIn(openImport(window)), QStringList());
    importThrough(window, path(u"Things.csv"_s));
    EXPECT_EQ(namelessIn(window->importSummary()->window()), QStringList());
    window->importSummary()->endDialog();
    turn();
    // It asks whether to show what was imported.
    ASSERT_NE(alertBox(), nullptr);
    EXPECT_EQ(namelessIn(alertBox()), QStringList());
    press(alertBox(), u"Not Now"_s);
    turn();
    window->exportFile();
    turn();
    EXPECT_EQ(namelessIn(window->exportSheet()->window()), QStringList());
    window->exportSheet()->cancel();
}

TEST_F(MainWindowAccessTests, TabGoesAsOneReads)
{
    MainWindowController *const window = openThings();
    MainWindow *const shown = window->mainWindow();
    const QList<QWidget *> order = tabOrder(shown->search());
    ASSERT_GE(order.size(), 4);
    EXPECT_EQ(order.at(0), shown->search());
    EXPECT_EQ(order.at(1), shown->libraries());
    EXPECT_EQ(order.at(2), shown->table());
    for (qsizetype field = 0; field < 5; ++field)
        EXPECT_EQ(order.value(3 + field), editor(window, field)->input()) << field;
}

TEST_F(MainWindowAccessTests, EscapeEndsASearch)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->activateWindow();
    window->mainWindow()->search()->setFocus();
    turn();
    search(window, u"tall"_s);
    EXPECT_EQ(countIn(window), u"1 of 4 records"_s);
    QTest::keyClick(window->mainWindow()->search(), Qt::Key_Escape);
    window->search();
    EXPECT_EQ(window->mainWindow()->search()->text(), QString());
    EXPECT_EQ(countIn(window), u"4 records"_s);
}

TEST_F(MainWindowAccessTests, TheSearchFieldCannotBeHidden)
{
    MainWindowController *const window = openThings();
    MainWindow *const shown = window->mainWindow();
    EXPECT_EQ(shown->contextMenuPolicy(), Qt::PreventContextMenu);
    for (QToolBar *const bar : shown->findChildren<QToolBar *>())
        EXPECT_FALSE(bar->toggleViewAction()->isVisible());
    const std::unique_ptr<QMenu> menu(shown->createPopupMenu());
    EXPECT_TRUE(!menu || menu->actions().isEmpty() || !menu->actions().first()->isVisible());
}

TEST_F(MainWindowAccessTests, TheCurrentCellIsSeenInASelectedRow)
{
    MainWindowController *const window = openThings();
    RecordTableView *const table = window->mainWindow()->table();
    window->mainWindow()->activateWindow();
    table->setFocus();
    turn();
    const auto cellAt = [&](int column) {
        return table->viewport()->grab(table->visualRect(window->model()->index(0, column)));
    };
    table->selectionModel()->setCurrentIndex(window->model()->index(0, 0),
                                             QItemSelectionModel::NoUpdate);
    const QImage other = cellAt(1).toImage();
    table->selectionModel()->setCurrentIndex(window->model()->index(0, 1),
                                             QItemSelectionModel::NoUpdate);
    const QImage current = cellAt(1).toImage();
    EXPECT_NE(current, other);
    EXPECT_GE(ProblemLabel::contrast(current.pixelColor(current.width() / 2, 1),
                                     other.pixelColor(other.width() / 2, 1)),
              3);
}

TEST_F(MainWindowAccessTests, InputsOfOneLineLookTheSame)
{
    MainWindowController *const window = openThings();
    MainWindow *const shown = window->mainWindow();
    shown->activateWindow();
    QWidget *const text = editor(window, 0)->input();
    ASSERT_NE(qobject_cast<TextInput *>(text), nullptr);
    EXPECT_EQ(text->height(), editor(window, 1)->input()->sizeHint().height());
    // The frame of the one that has the keyboard.
    shown->search()->setFocus();
    turn();
    const QImage without = text->grab().toImage();
    text->setFocus();
    turn();
    const QImage with = text->grab().toImage();
    EXPECT_NE(with.pixelColor(with.width() / 2, 0), without.pixelColor(with.width() / 2, 0));
}

TEST_F(MainWindowAccessTests, FitsOnASmallScreenInEveryLanguage)
{
    import(u"Things.csv"_s, Things);
    for (const char16_t *const locale : {u"en_US", u"de_DE", u"fr_FR", u"ja_JP", u"ar_EG"}) {
        application.reset();
        NSLocale::setCurrentLocale(NSLocale(QString::fromUtf16(locale)));
        MainWindow *const shown = open()->mainWindow();
        const QSize least = shown->minimumSizeHint();
        EXPECT_LE(least.width(), 960);
        EXPECT_LE(least.height(), 568);
        EXPECT_TRUE(shown->screen()->availableGeometry().contains(shown->geometry()));
    }
}

TEST_F(MainWindowAccessTests, TelephoneNumbersBeginAtTheLeftEverywhere)
{
    import(u"Phones.csv"_s, "Phone\n(555) 555-0191\n(555) 555-0123\n");
    NSLocale::setCurrentLocale(NSLocale(u"ar_EG"_s));
    MainWindowController *const window = open();
    const auto *const delegate =
        qobject_cast<QStyledItemDelegate *>(window->mainWindow()->table()->itemDelegate());
    const QString shown = delegate->displayText(u"(555) 1"_s, QLocale());
    EXPECT_EQ(shown, QString(u"\u2068(555) 1\u2069"_s));
    EXPECT_EQ(delegate->displayText(QString(), QLocale()), QString());
}

TEST_F(MainWindowAccessTests, HelpIsAKeyAway)
{
    MainWindowController *const window = openThings();
    QAction *const help = menuItem(window, "showHelp:");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->shortcut(), QKeySequence(Qt::Key_F1));
    help->trigger();
    turn();
    const auto helpWindow = [] {
        for (QWidget *const each : QApplication::topLevelWidgets()) {
            if (each->isVisible() && each->inherits("HelpWindow"))
                return each->windowTitle();
        }
        return QString();
    };
    EXPECT_EQ(helpWindow(), u"Cobble Help"_s);
    menuItem(window, "showShortcuts:")->trigger();
    turn();
    EXPECT_EQ(helpWindow(), u"Keyboard Shortcuts"_s);
}

TEST_F(MainWindowAccessTests, MenuItemsHaveIconsAndLettersOfTheirOwn)
{
    import(u"Things.csv"_s, Things);
    for (const char16_t *const locale : {u"en_US", u"de_DE", u"fr_FR", u"ja_JP"}) {
        application.reset();
        NSLocale::setCurrentLocale(NSLocale(QString::fromUtf16(locale)));
        MainWindowController *const window = open();
        EXPECT_FALSE(menuItem(window, "importFile:")->icon().isNull());
        QList<QList<QAction *>> menus{window->mainWindow()->menuBar()->actions()};
        for (const QAction *const menu : menus.first())
            menus += menu->menu()->actions();
        for (const QList<QAction *> &items : menus) {
            QStringList letters;
            for (const QAction *const item : items) {
                const QString letter = QKeySequence::mnemonic(item->text()).toString();
                if (!letter.isEmpty())
                    letters += letter;
            }
            EXPECT_EQ(letters.removeDuplicates(), 0) << letters.join(u' ').toStdString();
        }
    }
}

TEST_F(MainWindowAccessTests, NegativeNumbersCanBeReadInLightAndDark)
{
    MainWindowController *const window = openThings();
    const auto shown = [&](const QColor &base) {
        QStyleOptionViewItem option;
        option.palette.setColor(QPalette::Base, base);
        ReadableDelegate().initStyleOption(&option, window->model()->index(1, 1));
        return option.palette.color(QPalette::Text);
    };
    ASSERT_TRUE(window->model()->index(1, 1).data(Qt::ForegroundRole).isValid());
    for (const QColor &base : {QColor(Qt::white), QColor(27, 30, 32), QColor(Qt::black)})
        EXPECT_GE(ProblemLabel::contrast(shown(base), base), ProblemLabel::LeastContrast);
}
