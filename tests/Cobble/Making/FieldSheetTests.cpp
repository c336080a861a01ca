#include "Making/FieldSheet.h"

#include "Cobble/Window/SheetSupport.h"
#include "Library/SQL.h"

#include <KTUtility/NSLocale>

#include <QAccessible>
#include <QComboBox>
#include <QPushButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {
const QStringList AllFields{u"Name"_s, u"Visits"_s, u"Paid"_s, u"Since"_s, u"Notes"_s};

class FieldSheetTests : public HostSheetTest
{
protected:
    FieldSheetTests() { NSLocale::setCurrentLocale(NSLocale(u"en_US"_s)); }
    ~FieldSheetTests() override
    {
        application.reset();
        NSLocale::resetCurrentLocale();
    }

    FieldSheet *openFields()
    {
        if (!window)
            window = openThings();
        window->mainWindow()->activateWindow();
        menuItem(window, "editFields:")->trigger();
        turn();
        FieldSheet *const sheet = sheetOf(window);
        EXPECT_NE(sheet, nullptr);
        return sheet;
    }
    static FieldSheet *sheetOf(MainWindowController *window)
    {
        for (FieldSheet *const sheet : window->mainWindow()->findChildren<FieldSheet *>()) {
            if (sheet->isVisible())
                return sheet;
        }
        return nullptr;
    }
    static QTableView *list(QWidget *sheet)
    {
        return sheet->findChild<QTableView *>(u"fieldList"_s);
    }
    static void go(QWidget *sheet, int row)
    {
        list(sheet)->setFocus();
        list(sheet)->setCurrentIndex(list(sheet)->model()->index(row, 0));
    }
    /// Types a name into the editor that is open.
    static void name(QWidget *sheet, const QString &text, int key = Qt::Key_Return)
    {
        QLineEdit *const editor = field(sheet, u"nameEdit"_s);
        ASSERT_NE(editor, nullptr);
        type(editor, text);
        QTest::keyClick(editor, Qt::Key(key));
        turn();
    }
    static void rename(QWidget *sheet, int row, const QString &text)
    {
        go(sheet, row);
        QTest::keyClick(list(sheet), Qt::Key_F2);
        name(sheet, text);
    }
    static void setType(QWidget *sheet, int row, const QString &letters)
    {
        go(sheet, row);
        auto *const types = sheet->findChild<QComboBox *>(u"typeBox"_s);
        types->setFocus();
        types->setCurrentIndex(types->findText(letters));
        Q_EMIT types->activated(types->currentIndex());
        turn();
    }
    static bool hasLooked(FieldSheet *sheet)
    {
        return QTest::qWaitFor([sheet] { return !sheet->isLooking(); });
    }
    /// What the sheet says will change, with the values below.
    static QStringList changes(QWidget *sheet)
    {
        QStringList texts;
        for (QTreeWidgetItemIterator each(sheet->findChild<QTreeWidget *>()); *each; ++each)
            texts += (*each)->text(0) + ((*each)->parent() ? u" | " + (*each)->text(1) : QString());
        return texts;
    }
    static QStringList names(QWidget *sheet)
    {
        QStringList names;
        for (int row = 0; row < list(sheet)->model()->rowCount(); ++row)
            names += list(sheet)->model()->index(row, 0).data().toString();
        return names;
    }
    static QAbstractButton *changeButton(QWidget *sheet)
    {
        return button(sheet, u"Change Fields"_s);
    }
    QStringList fields() const
    {
        QStringList titles;
        for (const LibraryField &each : window->library()->definition().fields)
            titles += each.title();
        return titles;
    }
    FieldType typeOf(qsizetype field) const
    {
        return window->library()->definition().fields.at(field).type;
    }
    /// What is stored, and how the records look in it.
    QStringList content() const
    {
        QStringList content = fields();
        for (int row = 0; row < window->model()->rowCount(); ++row) {
            for (int column = 0; column < window->model()->columnCount(); ++column)
                content += cell(window, row, column);
        }
        return content;
    }
    void undo()
    {
        window->undoChange();
        turn();
    }

    MainWindowController *window = nullptr;
};
} // namespace

TEST_F(FieldSheetTests, ShowsTheFieldsAndStoresNothingByItself)
{
    FieldSheet *const sheet = openFields();
    EXPECT_EQ(names(sheet), AllFields);
    EXPECT_EQ(list(sheet)->model()->index(2, 1).data().toString(), u"Currency"_s);
    EXPECT_EQ(list(sheet)->model()->index(2, 2).data().toString(), u"-$1,234.50"_s);
    EXPECT_FALSE(changeButton(sheet)->isEnabled());
    rename(sheet, 0, u"Who"_s);
    EXPECT_EQ(changes(sheet), QStringList(u"“Name” gets the name “Who”."_s));
    EXPECT_TRUE(changeButton(sheet)->isEnabled());
    const QPointer<FieldSheet> watched = sheet;
    QTest::keyClick(list(sheet), Qt::Key_Escape);
    turn();
    EXPECT_TRUE(watched.isNull());
    EXPECT_EQ(fields(), AllFields);
}

TEST_F(FieldSheetTests, AllChangesAreOneStep)
{
    FieldSheet *const sheet = openFields();
    const QStringList before = content();
    rename(sheet, 0, u"Who"_s);
    setType(sheet, 2, u"Number"_s);
    go(sheet, 4);
    press(sheet, u"Remove"_s);
    press(sheet, u"Add"_s);
    name(sheet, u"Size"_s);
    go(sheet, 3);
    QTest::keyClick(list(sheet), Qt::Key_Up, Qt::AltModifier);
    ASSERT_TRUE(hasLooked(sheet));
    EXPECT_EQ(
        changes(sheet),
        QStringList({u"“Name” gets the name “Who”."_s,
                     u"“Paid” gets the type Number. All values can be read."_s, u"“Size” is new."_s,
                     u"“Notes” is removed. 2 records have a value there."_s,
                     u"The fields get another order."_s}));
    QTest::mouseClick(changeButton(sheet), Qt::LeftButton);
    turn();
    EXPECT_EQ(sheetOf(window), nullptr);
    EXPECT_EQ(fields(), QStringList({u"Who"_s, u"Visits"_s, u"Since"_s, u"Paid"_s, u"Size"_s}));
    EXPECT_EQ(typeOf(3), FieldType::Number);
    EXPECT_EQ(cell(window, 3, 3), u"-40"_s);
    const QStringList after = content();
    EXPECT_TRUE(window->validateMenuItem(menuItem(window, "undoChange:")));
    EXPECT_EQ(menuItem(window, "undoChange:")->text(), u"&Undo Change Fields of “Things”"_s);
    undo();
    EXPECT_EQ(content(), before);
    window->redoChange();
    turn();
    EXPECT_EQ(content(), after);
}

TEST_F(FieldSheetTests, ATypeThatCannotReadValuesListsThem)
{
    FieldSheet *const sheet = openFields();
    setType(sheet, 0, u"Number"_s);
    ASSERT_TRUE(hasLooked(sheet));
    const QStringList shown = changes(sheet);
    ASSERT_EQ(shown.size(), 5);
    EXPECT_EQ(shown.at(0),
              u"“Name” gets the type Number. 4 values cannot be read and will be emptied."_s);
    EXPECT_TRUE(shown.at(2).startsWith(u"Record 2: “Bjørn” | "_s)) << shown.at(2).toStdString();
    EXPECT_GT(shown.at(2).size(), 25);
    QTest::keyClick(list(sheet), Qt::Key_Return);
    turn();
    EXPECT_EQ(typeOf(0), FieldType::Number);
    EXPECT_EQ(column(window, 0), QStringList({{}, {}, {}, {}}));
    undo();
    EXPECT_EQ(column(window, 0), QStringList({u"Ann"_s, u"Bjørn"_s, u"Céline"_s, u"Ann"_s}));
}

TEST_F(FieldSheetTests, TheTypeThatItHadIsNoChange)
{
    FieldSheet *const sheet = openFields();
    setType(sheet, 0, u"Date"_s);
    setType(sheet, 0, u"Text"_s);
    EXPECT_EQ(changes(sheet), QStringList());
    EXPECT_FALSE(changeButton(sheet)->isEnabled());
}

TEST_F(FieldSheetTests, NamesThatAreTakenOrNoneAreRefused)
{
    FieldSheet *const sheet = openFields();
    const struct
    {
        QString name;
        QString problem;
    } rows[] = {{u" paid"_s, u"There is a field of that name."_s},
                {u" "_s, u"A field needs a name."_s},
                {u"Who"_s, QString()}};
    for (const auto &row : rows) {
        rename(sheet, 3, row.name);
        EXPECT_EQ(sheet->problem(), row.problem);
        go(sheet, 0);
        if (row.problem.isNull())
            continue;
        QTest::keyClick(list(sheet), Qt::Key_Return);
        turn();
        EXPECT_EQ(sheetOf(window), sheet);
        EXPECT_EQ(list(sheet)->currentIndex().row(), 3);
        EXPECT_EQ(list(sheet)->accessibleDescription(), row.problem);
    }
    EXPECT_EQ(fields(), AllFields);
    sheet->accept();
    turn();
    EXPECT_EQ(fields().at(3), u"Who"_s);
}

TEST_F(FieldSheetTests, EscapeEndsTheNameAndThenTheSheet)
{
    FieldSheet *const sheet = openFields();
    go(sheet, 0);
    press(sheet, u"Rename"_s);
    name(sheet, u"Who"_s, Qt::Key_Escape);
    ASSERT_EQ(sheetOf(window), sheet);
    EXPECT_EQ(names(sheet), AllFields);
    QTest::keyClick(list(sheet), Qt::Key_Escape);
    turn();
    EXPECT_EQ(sheetOf(window), nullptr);
}

TEST_F(FieldSheetTests, ANameThatIsStillTypedCounts)
{
    FieldSheet *const sheet = openFields();
    go(sheet, 0);
    press(sheet, u"Rename"_s);
    type(field(sheet, u"nameEdit"_s), u"Who"_s);
    sheet->accept();
    turn();
    EXPECT_EQ(fields().first(), u"Who"_s);
}

TEST_F(FieldSheetTests, FieldsMoveToTheEndsAndNoFurther)
{
    FieldSheet *const sheet = openFields();
    go(sheet, 1);
    for (int times = 0; times < 3; ++times)
        QTest::keyClick(list(sheet), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(list(sheet)->currentIndex().row(), 0);
    EXPECT_FALSE(button(sheet, u"Move Up"_s)->isEnabled());
    go(sheet, 3);
    press(sheet, u"Move Down"_s);
    EXPECT_FALSE(button(sheet, u"Move Down"_s)->isEnabled());
    EXPECT_EQ(names(sheet),
              QStringList({u"Visits"_s, u"Name"_s, u"Paid"_s, u"Notes"_s, u"Since"_s}));
    const QStringList moved = names(sheet);
    sheet->accept();
    turn();
    EXPECT_EQ(fields(), moved);
}

TEST_F(FieldSheetTests, TheLastFieldStays)
{
    FieldSheet *const sheet = openFields();
    go(sheet, 0);
    for (int times = 0; times < 7; ++times)
        QTest::keyClick(list(sheet), Qt::Key_Delete);
    EXPECT_EQ(names(sheet), QStringList(u"Notes"_s));
    EXPECT_FALSE(button(sheet, u"Remove"_s)->isEnabled());
}

TEST_F(FieldSheetTests, SaysWhyItCannotBeDone)
{
    FieldSheet *const sheet = openFields();
    setType(sheet, 0, u"Number"_s);
    ASSERT_TRUE(hasLooked(sheet));
    // Another program changes a record, and then the fields.
    const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    Library things = *store->libraryNamed(u"Things"_s);
    ASSERT_TRUE(store->update(things, 1, 0, u"12"_s));
    sheet->accept();
    EXPECT_TRUE(sheet->problem().startsWith(u"Another program has changed the database"_s));
    ASSERT_TRUE(hasLooked(sheet));
    EXPECT_EQ(changes(sheet).first(),
              u"“Name” gets the type Number. 3 values cannot be read and will be emptied."_s);
    EXPECT_TRUE(sheet->problem().startsWith(u"Another program has changed the database"_s));
    turn();
    const auto renamed = ChangeJournal(*store).make({StepKinds::RenameField, {}}, [&](auto &step) {
        const Outcome<Library> changed = step.renameField(things, 1, u"Times"_s);
        return changed ? Outcome<>() : changed.failure();
    });
    ASSERT_TRUE(renamed) << renamed.reason().toStdString();
    sheet->accept();
    ASSERT_TRUE(hasLooked(sheet));
    turn();
    sheet->accept();
    EXPECT_EQ(sheet->problem(), u"The library was changed meanwhile."_s);
    EXPECT_EQ(stored(2, 0), u"Bjørn"_s);
    EXPECT_EQ(sheetOf(window), sheet);
}

TEST_F(FieldSheetTests, WaitsForAnotherProgramThatWrites)
{
    FieldSheet *const sheet = openFields();
    rename(sheet, 0, u"Who"_s);
    const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ASSERT_TRUE(store->begin());
    sheet->accept();
    EXPECT_FALSE(sheet->problem().isEmpty());
    EXPECT_EQ(sheetOf(window), sheet);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    store->rollback();
    sheet->accept();
    turn();
    EXPECT_EQ(sheetOf(window), nullptr);
    EXPECT_EQ(fields().first(), u"Who"_s);
}

TEST_F(FieldSheetTests, AStrangersFieldsAreShownHarmlessly)
{
    window = openThings();
    const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    const Library things = *store->libraryNamed(u"Things"_s);
    const auto made = ChangeJournal(*store).make({StepKinds::RenameField, {}}, [&](auto &step) {
        Outcome<Library> changed = step.renameField(things, 0, u"Paid"_s);
        changed = step.renameField(*changed, 1, u"a\nb\u202e"_s + QString(100'000, u'x'));
        changed = step.renameField(*changed, 3, u"   "_s);
        return changed ? Outcome<>() : changed.failure();
    });
    ASSERT_TRUE(made);
    application->bundle()->reload();
    turn();
    FieldSheet *const sheet = openFields();
    for (const QString &name : names(sheet)) {
        EXPECT_LT(name.size(), 400);
        EXPECT_FALSE(name.contains(u'\u202e') || name.contains(u'\n'));
        EXPECT_FALSE(name.trimmed().isEmpty());
    }
    // What nobody has typed may stay as it is.
    go(sheet, 1);
    press(sheet, u"Rename"_s);
    QTest::keyClick(field(sheet, u"nameEdit"_s), Qt::Key_Return);
    turn();
    EXPECT_EQ(changes(sheet), QStringList());
    go(sheet, 4);
    press(sheet, u"Move Up"_s);
    sheet->accept();
    turn();
    EXPECT_EQ(fields().at(3), u"Notes"_s);
}

TEST_F(FieldSheetTests, SettingsAreThoseOfTheSelectedField)
{
    FieldSheet *const sheet = openFields();
    go(sheet, 2);
    auto *const currency = sheet->findChild<QComboBox *>(u"currencyType"_s);
    ASSERT_NE(currency, nullptr);
    currency->setCurrentText(u"JPY"_s);
    Q_EMIT currency->textActivated(u"JPY"_s);
    EXPECT_EQ(changes(sheet), QStringList(u"“Paid” is shown in another way."_s));
    go(sheet, 4);
    EXPECT_EQ(sheet->findChild<QComboBox *>(u"currencyType"_s), nullptr);
    sheet->accept();
    turn();
    EXPECT_TRUE(cell(window, 0, 2).startsWith(u'¥')) << cell(window, 0, 2).toStdString();
}

TEST_F(FieldSheetTests, CanBeUsedByKeyboardAndByEar)
{
    FieldSheet *const sheet = openFields();
    go(sheet, 2);
    turn();
    QStringList letters;
    for (const QWidget *const each : sheet->findChildren<QWidget *>()) {
        const QVariant text = each->property("text");
        const bool isLabelled =
            qobject_cast<const QAbstractButton *>(each) || each->inherits("QLabel");
        const QString letter = QKeySequence::mnemonic(text.toString()).toString();
        if (isLabelled && each->isVisible() && !letter.isEmpty())
            letters += letter;
    }
    EXPECT_GE(letters.size(), 7);
    EXPECT_EQ(letters.removeDuplicates(), 0) << letters.join(u' ').toStdString();
    QList<QWidget *> order;
    QWidget *each = list(sheet);
    do {
        const bool takesKeys = each->focusPolicy() & Qt::TabFocus && !each->focusProxy();
        if (takesKeys && each->isVisible() && each->isEnabled())
            order += each;
        each = each->nextInFocusChain();
    } while (each != list(sheet));
    for (QWidget *const input : order)
        EXPECT_FALSE(
            QAccessible::queryAccessibleInterface(input)->text(QAccessible::Name).isEmpty());
    EXPECT_EQ(order.value(1), button(sheet, u"Add"_s));
    const qsizetype types = order.indexOf(sheet->findChild<QWidget *>(u"typeBox"_s));
    EXPECT_GT(types, order.indexOf(button(sheet, u"Move Down"_s)));
    EXPECT_EQ(order.value(types + 1), sheet->findChild<QWidget *>(u"currencyType"_s));
    EXPECT_GT(order.indexOf(sheet->findChild<QWidget *>(u"changesTree"_s)), types + 1);
}
