#include "MainWindow.h"

#include "Appearance/Icons.h"
#include "DetailPane.h"
#include "FieldDelegate.h"
#include "Finding/FilterBar.h"
#include "RecordTableModel.h"
#include "RecordTableView.h"

#include <KTUtility/KTFocusRingScrollView>

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int WidestColumn = 240;
} // namespace

MainWindow::MainWindow(RecordList *records, RecordTableModel *model)
{
    // What is made first has the keyboard first: from above to below, as one reads.
    makeSearch();
    auto *const beside = new QSplitter;
    beside->addWidget(makeLibraries());
    beside->addWidget(makePages(records, model));
    beside->setStretchFactor(1, 1);
    beside->setSizes({180, 820});
    beside->setObjectName(u"librariesSplitter"_s);
    setCentralWidget(beside);
    makeCount();
    // The bar is the only way to see what is searched for.
    setContextMenuPolicy(Qt::PreventContextMenu);
    _table->setFocus();
    resize(1000, 700);
}

/// The records above the form for one of them, and behind them a notice in their place.
QWidget *MainWindow::makePages(RecordList *records, RecordTableModel *model)
{
    auto *const both = new QSplitter(Qt::Vertical);
    both->addWidget(makeRecords(model));
    both->addWidget(makeDetail(records));
    both->setStretchFactor(0, 1);
    both->setSizes({400, 240});
    both->setObjectName(u"formSplitter"_s);
    _notice = new QLabel;
    _notice->setTextFormat(Qt::PlainText);
    _notice->setAlignment(Qt::AlignCenter);
    _notice->setWordWrap(true);
    _pages = new QStackedWidget;
    _pages->addWidget(makeFiltered(both));
    _pages->addWidget(makeNotice());
    return _pages;
}

/// The notice with a button below it, for those who have nothing yet.
QWidget *MainWindow::makeNotice()
{
    _importButton = new QPushButton(tr("Import…"));
    _importButton->setIcon(Icons::named(u"document-import"_s));
    _importButton->hide();
    auto *const page = new QWidget;
    auto *const layout = new QVBoxLayout(page);
    layout->addStretch();
    layout->addWidget(_notice);
    layout->addWidget(_importButton, 0, Qt::AlignHCenter);
    layout->addStretch();
    return page;
}

/// The filter above what it filters.
QWidget *MainWindow::makeFiltered(QWidget *records)
{
    auto *const page = new QWidget;
    auto *const layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    _filterBar = new FilterBar;
    layout->addWidget(_filterBar);
    layout->addWidget(records, 1);
    return page;
}

QWidget *MainWindow::makeLibraries()
{
    _libraries = new QListWidget;
    _libraries->setIconSize(QSize(16, 16));
    _libraries->setAccessibleName(tr("Libraries"));
    return _libraries;
}

QWidget *MainWindow::makeRecords(RecordTableModel *model)
{
    _table = new RecordTableView;
    _table->setAccessibleName(tr("Records"));
    _table->setModel(model);
    _cells = new FieldDelegate(_table);
    _table->setItemDelegate(_cells);
    QObject::connect(_cells, &FieldDelegate::left, _table, &RecordTableView::goOn);
    _table->setSelectionBehavior(QAbstractItemView::SelectRows);
    _table->setAlternatingRowColors(true);
    _table->setWordWrap(false);
    _table->setTabKeyNavigation(false);
    _table->verticalHeader()->hide();
    _table->verticalHeader()->setDefaultSectionSize(_table->fontMetrics().height() + 8);
    _table->horizontalHeader()->setHighlightSections(false);
    _table->horizontalHeader()->setSectionsMovable(true);
    _table->horizontalHeader()->setSortIndicatorClearable(true);
    _table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    // Whether all rows of a column are selected takes long to find out; a title that is no bolder
    // for it needs not know.
    _table->horizontalHeader()->setSelectionModel(new QItemSelectionModel(model, _table));
    _table->setSortingEnabled(true);
    return _table;
}

QWidget *MainWindow::makeDetail(RecordList *records)
{
    // The ring lies around the view.
    auto *const margin = new QWidget;
    auto *const layout = new QVBoxLayout(margin);
    layout->setContentsMargins(4, 4, 4, 4);
    auto *const scroller = new KTFocusRingScrollView(margin);
    layout->addWidget(scroller);
    scroller->setWidgetResizable(true);
    scroller->setAccessibleName(tr("Record"));
    scroller->setFocusPolicy(Qt::NoFocus);
    _detail = new DetailPane(records->detail());
    scroller->setWidget(_detail);
    return margin;
}

void MainWindow::makeSearch()
{
    auto *const bar = addToolBar(tr("Search"));
    bar->setObjectName(u"searchBar"_s);
    bar->setMovable(false);
    bar->toggleViewAction()->setVisible(false);
    auto *const spacer = new QWidget;
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(spacer);
    _search = new QLineEdit;
    _search->setPlaceholderText(tr("Search"));
    _search->setAccessibleName(tr("Search"));
    _search->setClearButtonEnabled(true);
    _search->setMaximumWidth(280);
    bar->addWidget(_search);
    auto *const clearing = new QShortcut(Qt::Key_Escape, _search);
    clearing->setContext(Qt::WidgetShortcut);
    QObject::connect(clearing, &QShortcut::activated, _search, &QLineEdit::clear);
}

void MainWindow::makeCount()
{
    _count = new QLabel;
    _count->setTextFormat(Qt::PlainText);
    _summary = new QLabel;
    _summary->setTextFormat(Qt::PlainText);
    _summary->setTextInteractionFlags(Qt::TextSelectableByMouse);
    statusBar()->addPermanentWidget(_summary);
    statusBar()->addPermanentWidget(_count);
}

void MainWindow::addContextMenus()
{
    for (const QString &name :
         {u"newLibrary:"_s, u"renameLibrary:"_s, u"editFields:"_s, u"removeLibrary:"_s})
        _libraries->addAction(findChild<QAction *>(name));
    for (const QString &name : {u"newField:"_s, u"editFields:"_s})
        _table->horizontalHeader()->addAction(findChild<QAction *>(name));
    _table->horizontalHeader()->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void MainWindow::setNotice(const QString &text, bool offersImport)
{
    // Else it would go to the search field, and what was typed there would be undone with it.
    const bool hasKeyboard = _pages->isAncestorOf(focusWidget());
    const std::pair shown(_pages->currentIndex(), _importButton->isHidden());
    _notice->setText(text);
    _importButton->setVisible(offersImport);
    _pages->setCurrentIndex(text.isNull() ? 0 : 1);
    QWidget *const first = offersImport ? static_cast<QWidget *>(_importButton) : _libraries;
    if (hasKeyboard && shown != std::pair(_pages->currentIndex(), !offersImport))
        (text.isNull() ? _table : first)->setFocus(Qt::OtherFocusReason);
}

void MainWindow::fitColumns()
{
    _table->resizeColumnsToContents();
    for (int column = 0; column < _table->model()->columnCount(); ++column)
        _table->setColumnWidth(column, qMin(_table->columnWidth(column), WidestColumn));
}
