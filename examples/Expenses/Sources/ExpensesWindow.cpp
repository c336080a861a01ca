#include "ExpensesWindow.h"

#include "Expense.h"
#include "ExpenseFile.h"

#include <KTUtility/KTApplication>
#include <KTUtility/KTBoundCheckBox>
#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTDoNotShowAlert>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTFormatterEdit>
#include <KTUtility/KTLogger>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/KTStatusHUDController>
#include <KTUtility/NSArray_KTUniqueNames>
#include <KTUtility/NSUserDefaults>
#include <KTUtility/NSWindow>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFormLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QSaveFile>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {
const QString WindowKey = u"window"_s;
const QString ExportersKey = u"enabledExporters"_s;

/// A formatter that reads what people commonly type.
template<typename Formatter>
std::shared_ptr<Formatter> formatter()
{
    auto made = std::make_shared<Formatter>();
    made->setReadsCommonForms(true);
    return made;
}

QList<KTArrayColumn> columns()
{
    const auto phones = formatter<KTPhoneNumberFormatter>();
    phones->setFormatIndex(2); // those of Germany
    QList<KTArrayColumn> columns{
        {u"title"_s, ExpensesWindow::tr("Title")},
        {u"amount"_s, ExpensesWindow::tr("Amount"), formatter<KTCurrencyFormatter>()},
        {u"date"_s, ExpensesWindow::tr("Date"), formatter<KTDateTimeFormatter>()},
        {u"seconds"_s, ExpensesWindow::tr("Time"), formatter<KTDurationFormatter>()},
        {u"phone"_s, ExpensesWindow::tr("Phone"), phones},
        {u"isPaid"_s, ExpensesWindow::tr("Paid")}};
    for (KTArrayColumn &column : columns)
        column.setEditable(true);
    columns.last().setCheckable(true);
    return columns;
}
} // namespace

void ExpensesWindow::identifyProgram()
{
    KTApplication::setIdentity(
        {.identifier = u"org.example.expenses"_s,
         .plugInFolders = {QCoreApplication::applicationDirPath() + u"/PlugIns"_s}});
}

ExpensesWindow::ExpensesWindow(const QString &file) : _file(file), _model(&_expenses, columns())
{
    setWindowTitle(tr("Expenses"));
    auto *const table = new QTableView;
    _model.attach(table);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->verticalHeader()->hide();
    auto *const splitter = new QSplitter;
    splitter->addWidget(table);
    splitter->addWidget(form());
    setCentralWidget(splitter);
    auto *const search = new QLineEdit;
    search->setPlaceholderText(tr("Search"));
    search->setClearButtonEnabled(true);
    connect(search, &QLineEdit::textChanged, this, &ExpensesWindow::search);
    addToolBar(tr("Search"))->addWidget(search);
    connect(&_model, &KTArrayModel::rejected, this,
            [this](const QModelIndex &, const QString &why) { statusBar()->showMessage(why); });
    makeMenus();
    loadPlugIns();
    _expenses.setContent(ExpenseFile::read(file, this));
    KTLog(LogExpenses, 4, u"read %d expenses from %@", _expenses.content().size(), file);
    restoreGeometry(NSUserDefaults::standardUserDefaults()->dataForKey(WindowKey));
}

QWidget *ExpensesWindow::form()
{
    auto *const form = new QWidget;
    auto *const layout = new QFormLayout(form);
    for (const KTArrayColumn &column : _model.columns().first(_model.columnCount() - 1)) {
        auto *const edit = new KTFormatterEdit(column.formatter());
        edit->bindTo(&_expenses, u"selection."_s + column.keyPath());
        layout->addRow(column.title(), edit);
    }
    auto *const paid = new KTBoundCheckBox(tr("Paid"));
    paid->bindTo(&_expenses, u"selection.isPaid");
    layout->addRow(paid);
    return form;
}

void ExpensesWindow::makeMenus()
{
    QMenu *const file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&New Expense"), QKeySequence::New, this, &ExpensesWindow::add);
    file->addAction(tr("&Delete…"), QKeySequence(Qt::CTRL | Qt::Key_Backspace), this,
                    &ExpensesWindow::removeSelected);
    file->addAction(tr("&Save"), QKeySequence::Save, this, &ExpensesWindow::save);
    file->addAction(tr("&Export…"), QKeySequence(Qt::CTRL | Qt::Key_E), this,
                    &ExpensesWindow::chooseExport);
    file->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
    QMenu *const logging = menuBar()->addMenu(tr("&Help"))->addMenu(tr("&Log"));
    KTLogger::sharedLogger()->populateComponentLoggingMenu(logging->menuAction());
}

void ExpensesWindow::search(const QString &text)
{
    _expenses.setFilterPredicate(
        text.isEmpty() ? NSPredicate()
                       : NSPredicate::predicateWithFormat(
                             u"title CONTAINS[cd] %@ OR phone CONTAINS[cd] %@", {text, text}));
}

void ExpensesWindow::add()
{
    auto *const expense = new Expense(this);
    expense->title =
        KTAdditions::uniqueStringWithBase(_expenses.content(), tr("Expense"), u"title");
    expense->date = QDateTime::currentDateTime();
    _expenses.addObject(QVariant::fromValue(expense));
}

void ExpensesWindow::removeSelected()
{
    if (_expenses.selectionIndex() < 0)
        return;
    const KTDoNotShowAlert::Alert alert{
        .title = tr("Delete the selected expenses?"),
        .defaultButton = tr("Delete"),
        .alternateButton = tr("Keep"),
        .window = this,
        .msg = tr("This cannot be undone."),
        .suppressionKey = u"removeExpenses"_s,
        .silencedBy = KTDoNotShowAlert::SilencedBy::DefaultButton,
    };
    KTDoNotShowAlert::ask(alert, this, [this](NSAlertReturnCode code) {
        if (code != NSAlertDefaultReturn)
            return;
        for (const QVariant &expense : _expenses.selectedObjects())
            delete expense.value<Expense *>(); // which leaves the controller by itself
    });
}

bool ExpensesWindow::save()
{
    const bool isWritten = ExpenseFile::write(_expenses.content(), _file);
    KTLog(LogExpenses, 4, u"wrote %@: %d", _file, isWritten);
    report(isWritten ? tr("Expenses saved: %n", nullptr, int(_expenses.content().size()))
                     : tr("The expenses could not be saved."));
    return isWritten;
}

void ExpensesWindow::report(const QString &text) const
{
    KTStatusHUDController::defaultController()->showStatusWindowWithString(
        text, NSWindow::frame(this), false);
}

// --- Exporting

void ExpensesWindow::loadPlugIns()
{
    _plugIns.setProtocol(NSProtocol::of<ExpenseExporter>());
    _plugIns.setSearchFolder(u"Exporters"_s);
    _plugIns.setEnabledKey(ExportersKey);
    _plugIns.pluginDefaultsRegisterDefaults(
        {{ExportersKey, QVariantList{u"org.example.expenses.csv"_s}}});
    _plugIns.registerPlugins();
    _plugIns.loadAllPlugins();
}

QList<ExpenseExporter *> ExpensesWindow::exporters() const
{
    QList<ExpenseExporter *> found;
    for (QObject *const plugIn : _plugIns.allLoadedPlugins())
        found += qobject_cast<ExpenseExporter *>(plugIn);
    return found;
}

void ExpensesWindow::chooseExport()
{
    QStringList filters;
    for (const ExpenseExporter *const exporter : exporters())
        filters += u"%1 (*.%2)"_s.arg(exporter->fileType().toUpper(), exporter->fileType());
    const QString file =
        QFileDialog::getSaveFileName(this, tr("Export"), {}, filters.join(u";;"_s));
    if (!file.isNull())
        exportTo(file);
}

bool ExpensesWindow::exportTo(const QString &file)
{
    for (const ExpenseExporter *const exporter : exporters()) {
        if (exporter->fileType() != file.section(u'.', -1))
            continue;
        QSaveFile written(file);
        if (written.open(QIODevice::WriteOnly))
            written.write(exporter->exported(_model));
        return written.commit();
    }
    report(tr("There is no exporter for this kind of file."));
    return false;
}

void ExpensesWindow::closeEvent(QCloseEvent *event)
{
    if (QWidget *const editor = focusWidget())
        editor->clearFocus(); // a cell takes what is typed
    NSUserDefaults::standardUserDefaults()->setObject(saveGeometry(), WindowKey);
    const bool isDone = _expenses.commitEditing() && save();
    event->setAccepted(isDone);
}
