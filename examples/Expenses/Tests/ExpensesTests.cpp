#include "ExpensesTests.h"

#include "Expense.h"
#include "ExpensesWindow.h"

#include <KTUtility/KTDoNotShowAlert>
#include <KTUtility/KTFormatterEdit>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTStatusHUDController>
#include <KTUtility/KTStatusHUDWindow>
#include <KTUtility/KTTranslations>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSUserDefaults>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QSplitter>
#include <QTableView>
#include <QTest>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {
/// The edits of the form, from above.
QList<KTFormatterEdit *> edits(const ExpensesWindow &window)
{
    return window.findChild<QSplitter *>()->widget(1)->findChildren<KTFormatterEdit *>();
}

QTableView *table(const ExpensesWindow &window)
{
    return window.findChild<QTableView *>();
}

QStringList shownTitles(const ExpensesWindow &window)
{
    QStringList titles;
    const QAbstractItemModel *const model = table(window)->model();
    for (int row = 0; row < model->rowCount(); ++row)
        titles += model->index(row, 0).data().toString();
    return titles;
}

void type(KTFormatterEdit *edit, const QString &text)
{
    edit->lineEdit()->setFocus();
    edit->lineEdit()->selectAll();
    edit->lineEdit()->insert(text);
    edit->commit();
}

/// Keeps the pictures, if somebody asks for them.
void keepPicture(const QPixmap &picture, const QString &name)
{
    const QString folder = qEnvironmentVariable("EXPENSES_PICTURES");
    if (!folder.isEmpty())
        QVERIFY(picture.save(folder + u'/' + name));
}
} // namespace

void ExpensesTests::initTestCase()
{
    ExpensesWindow::identifyProgram();
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(KTTranslations::install(u":/i18n/expenses"_s), u"de"_s);
}

void ExpensesTests::init()
{
    _folder = std::make_unique<QTemporaryDir>();
    qputenv("HOME", QFile::encodeName(_folder->path()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(file(u"data"_s)));
    KTDoNotShowAlert::clearDoNotShowList();
    _window = std::make_unique<ExpensesWindow>(file(u"expenses.plist"_s));
    _window->show();
    QVERIFY(QTest::qWaitForWindowActive(_window.get()));
}

void ExpensesTests::cleanup()
{
    _window.reset();
    KTStatusHUDController::defaultController()->setRunning(false);
}

Expense *ExpensesTests::addExpense(const QString &title, const QString &amount)
{
    auto *const expense = new Expense(_window.get());
    expense->title = title;
    if (!amount.isNull())
        expense->amount = NSDecimalNumber::decimalNumberWithString(amount);
    _window->expenses().addObject(QVariant::fromValue(expense));
    return expense;
}

void ExpensesTests::readsWhatPeopleType_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("money") << 1 << u"1 234,5"_s << u"1.234,50 €"_s;
    QTest::newRow("money in words") << 1 << u"12,50 EUR"_s << u"12,50 €"_s;
    QTest::newRow("money owed") << 1 << u"(5)"_s << u"-5,00 €"_s;
    QTest::newRow("a date in words") << 2 << u"5. März 2026"_s << u"05.03.2026"_s;
    QTest::newRow("a date of the standard") << 2 << u"2026-03-05"_s << u"05.03.2026"_s;
    QTest::newRow("a duration") << 3 << u"1:30"_s << u"1Std 30Min"_s;
    QTest::newRow("a duration in words") << 3 << u"anderthalb Stunden"_s << u"1Std 30Min"_s;
    QTest::newRow("a phone number") << 4 << u"089123456"_s << u"089 123456"_s;
}

void ExpensesTests::readsWhatPeopleType()
{
    QFETCH(int, row);
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    addExpense(u"Bahn"_s);
    KTFormatterEdit *const edit = edits(window()).at(row);
    type(edit, typed);
    edit->lineEdit()->clearFocus();
    QCOMPARE(edit->reason(), QString());
    QString text = table(window())->model()->index(0, row).data().toString();
    QCOMPARE(text.replace(QChar::Nbsp, u' '), shown);
}

void ExpensesTests::saysWhyATextIsRefused()
{
    Expense *const expense = addExpense(u"Bahn"_s, u"12.5"_s);
    KTFormatterEdit *const edit = edits(window()).at(1);
    type(edit, u"12 Äpfel"_s);
    QCOMPARE(edit->reason(), u"Der Text ist kein Betrag in EUR oder enthält noch etwas anderes."_s);
    QCOMPARE(expense->amount, NSDecimalNumber::decimalNumberWithString(u"12.5"_s));
}

void ExpensesTests::theTableEditsByTheSameFormatters()
{
    const Expense *const expense = addExpense(u"Bahn"_s);
    QAbstractItemModel *const model = table(window())->model();
    QVERIFY(model->setData(model->index(0, 1), u"99,90"_s));
    QCOMPARE(expense->amount, NSDecimalNumber::decimalNumberWithString(u"99.9"_s));
    QVERIFY(!model->setData(model->index(0, 1), u"viel"_s));
}

void ExpensesTests::theFormSetsAllThatIsSelected()
{
    const Expense *const first = addExpense(u"Bahn"_s, u"1"_s);
    const Expense *const second = addExpense(u"Bus"_s, u"2"_s);
    table(window())->selectAll();
    KTFormatterEdit *const edit = edits(window()).at(1);
    QCOMPARE(edit->lineEdit()->placeholderText(), u"Mehrere Werte"_s);
    type(edit, u"3"_s);
    QCOMPARE(first->amount, NSDecimalNumber(3));
    QCOMPARE(second->amount, NSDecimalNumber(3));
}

void ExpensesTests::searchesWithoutAccents()
{
    addExpense(u"Äpfel"_s);
    addExpense(u"Bahn"_s);
    auto *const search = window().findChild<QToolBar *>()->findChild<QLineEdit *>();
    QTest::keyClicks(search, u"apf"_s);
    QCOMPARE(shownTitles(window()), QStringList{u"Äpfel"_s});
    search->clear();
    QCOMPARE(shownTitles(window()).size(), 2);
}

void ExpensesTests::sortsAsPeopleDo()
{
    for (const QString &title : {u"Zug"_s, u"apfel"_s, u"Äpfel"_s, u"Bahn"_s})
        addExpense(title);
    table(window())->model()->sort(0);
    QCOMPARE(shownTitles(window()), QStringList({u"apfel"_s, u"Äpfel"_s, u"Bahn"_s, u"Zug"_s}));
}

void ExpensesTests::newExpensesHaveNamesOfTheirOwn()
{
    window().add();
    window().add();
    QCOMPARE(shownTitles(window()), QStringList({u"Ausgabe"_s, u"Ausgabe 1"_s}));
    QCOMPARE(window().expenses().selectionIndex(), 1);
}

void ExpensesTests::pressInAlert(const QString &button, bool silences)
{
    window().removeSelected();
    auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    QVERIFY(box);
    QCOMPARE(box->checkBox()->text(), u"Diese Meldung nicht mehr anzeigen"_s);
    keepPicture(box->grab(), u"expenses-alert.png"_s);
    box->checkBox()->setChecked(silences);
    const QList<QAbstractButton *> buttons = box->buttons();
    for (QAbstractButton *const each : buttons)
        if (each->text() == button)
            return each->click();
    QFAIL("There is no such button.");
}

void ExpensesTests::asksBeforeItDeletes()
{
    addExpense(u"Bahn"_s);
    addExpense(u"Bus"_s);
    pressInAlert(u"Behalten"_s);
    QCOMPARE(shownTitles(window()).size(), 2);
    pressInAlert(u"Löschen"_s);
    QCOMPARE(shownTitles(window()), QStringList{u"Bahn"_s});
}

void ExpensesTests::aSilencedQuestionIsAnsweredWithDelete()
{
    addExpense(u"Bahn"_s);
    addExpense(u"Bus"_s);
    // Only who deletes can silence it.
    pressInAlert(u"Behalten"_s, true);
    pressInAlert(u"Löschen"_s, true);
    window().expenses().setSelectionIndex(0);
    window().removeSelected();
    QCOMPARE(shownTitles(window()), QStringList());
}

void ExpensesTests::readsBackWhatItSaved()
{
    Expense *const expense = addExpense(u"Bahn"_s, u"12.50"_s);
    expense->date = QDateTime(QDate(2026, 3, 5), QTime(12, 0));
    expense->seconds = 5400;
    expense->isPaid = true;
    addExpense(u"Bus"_s);
    QVERIFY(window().save());
    ExpensesWindow again(file(u"expenses.plist"_s));
    QCOMPARE(shownTitles(again), QStringList({u"Bahn"_s, u"Bus"_s}));
    const auto *const first = again.expenses().content().at(0).value<Expense *>();
    QCOMPARE(first->amount, NSDecimalNumber::decimalNumberWithString(u"12.5"_s));
    QCOMPARE(first->date, expense->date);
    QCOMPARE(first->seconds, expense->seconds);
    QVERIFY(first->isPaid);
    const auto *const second = again.expenses().content().at(1).value<Expense *>();
    QVERIFY(!second->amount && !second->seconds && !second->date && !second->isPaid);
}

void ExpensesTests::logsUnderItsOwnComponent()
{
    const KTLogCapture capture(LogExpenses);
    QVERIFY(window().save());
    QCOMPARE(capture.messages(), QStringList{u"wrote %1: 1"_s.arg(file(u"expenses.plist"_s))});
}

void ExpensesTests::exportsByAPlugIn()
{
    addExpense(u"Bahn; zweiter \"Teil\""_s, u"1234.5"_s);
    const QString path = file(u"expenses.csv"_s);
    QVERIFY(window().exportTo(path));
    QFile written(path);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QString text = QString::fromUtf8(written.readAll());
    QCOMPARE(text.replace(QChar::Nbsp, u' '),
             u"Titel,Betrag,Datum,Dauer,Telefon,Bezahlt\r\n"
             "\"Bahn; zweiter \"\"Teil\"\"\",\"1.234,50 €\",,,,\r\n"_s);
    QVERIFY(!window().exportTo(file(u"expenses.unknown"_s)));
}

void ExpensesTests::closingTakesWhatIsTyped()
{
    addExpense(u"Bahn"_s);
    QLineEdit *const line = edits(window()).at(1)->lineEdit();
    line->setFocus();
    QTest::keyClicks(line, u"viel"_s);
    QVERIFY(!window().close());
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, u"99"_s);
    QVERIFY(window().close());
    ExpensesWindow again(file(u"expenses.plist"_s));
    QCOMPARE(again.expenses().content().at(0).value<Expense *>()->amount, NSDecimalNumber(99));
}

void ExpensesTests::keepsItsSettings()
{
    window().resize(777, 444);
    window().close();
    QVERIFY(!NSUserDefaults::standardUserDefaults()->dataForKey(u"window"_s).isEmpty());
    QCOMPARE(ExpensesWindow(file(u"expenses.plist"_s)).size(), QSize(777, 444));
}

void ExpensesTests::addSample()
{
    const QList<std::array<const char *, 6>> sample{
        {"Äpfel und Brot", "-12.5", "5.3.2026", "", "", "1"},
        {"Bahn nach Köln", "79.9", "2026-03-09", "1:30", "0221 123456", "1"},
        {"Hotel", "1234", "9. März 2026", "2 Tage", "+49 221 987654", ""},
        {"Taxi", "23.4", "11.3.26", "25 Minuten", "089123456", ""}};
    QAbstractItemModel *const model = table(window())->model();
    for (const auto &texts : sample) {
        addExpense(QString::fromUtf8(texts[0]), QString::fromUtf8(texts[1]));
        const int row = model->rowCount() - 1;
        for (int column = 2; column < 5; ++column)
            if (*texts[size_t(column)])
                QVERIFY(model->setData(model->index(row, column),
                                       QString::fromUtf8(texts[size_t(column)])));
        model->setData(model->index(row, 5), *texts[5] ? Qt::Checked : Qt::Unchecked,
                       Qt::CheckStateRole);
    }
}

void ExpensesTests::drawsItsPictures()
{
    addSample();
    window().resize(900, 340);
    window().expenses().setSelectionIndex(1);
    QTest::qWait(0);
    const QAbstractItemModel *const model = table(window())->model();
    QCOMPARE(model->index(0, 1).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
    keepPicture(window().grab(), u"expenses.png"_s);
    type(edits(window()).at(1), u"viel"_s);
    QVERIFY(!edits(window()).at(1)->reason().isEmpty());
    QTest::qWait(0);
    keepPicture(window().grab(), u"expenses-refused.png"_s);
}

QTEST_MAIN(ExpensesTests)
