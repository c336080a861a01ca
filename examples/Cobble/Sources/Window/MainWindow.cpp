#include "MainWindow.h"

#include "DetailPane.h"
#include "FieldDelegate.h"
#include "RecordTableModel.h"
#include "RecordTableView.h"

#include <KTUtility/KTFocusRingScrollView>

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int WidestColumn = 240;
constexpr int RowsLookedAt = 100;
} // namespace

MainWindow::MainWindow(NSArrayController *records, RecordTableModel *model)
{
    auto *const beside = new QSplitter;
    beside->addWidget(makeLibraries());
    beside->addWidget(makePages(records, model));
    beside->setStretchFactor(1, 1);
    beside->setSizes({180, 820});
    setCentralWidget(beside);
    makeSearch();
    makeCount();
    resize(1000, 700);
}

/// The records above the form for one of them, and behind them a notice in their place.
QWidget *MainWindow::makePages(NSArrayController *records, RecordTableModel *model)
{
    auto *const both = new QSplitter(Qt::Vertical);
    both->addWidget(makeRecords(model));
    both->addWidget(makeDetail(records));
    both->setStretchFactor(0, 1);
    both->setSizes({400, 240});
    _notice = new QLabel;
    _notice->setTextFormat(Qt::PlainText);
    _notice->setAlignment(Qt::AlignCenter);
    _notice->setWordWrap(true);
    _pages = new QStackedWidget;
    _pages->addWidget(both);
    _pages->addWidget(_notice);
    return _pages;
}

QWidget *MainWindow::makeLibraries()
{
    _libraries = new QListWidget;
    _libraries->setAccessibleName(tr("Libraries"));
    return _libraries;
}

QWidget *MainWindow::makeRecords(RecordTableModel *model)
{
    _table = new RecordTableView;
    _table->setAccessibleName(tr("Records"));
    _table->setModel(model);
    _table->setItemDelegate(new FieldDelegate(_table));
    _table->setSelectionBehavior(QAbstractItemView::SelectRows);
    _table->setAlternatingRowColors(true);
    _table->setWordWrap(false);
    _table->setTabKeyNavigation(false);
    _table->verticalHeader()->hide();
    _table->verticalHeader()->setDefaultSectionSize(_table->fontMetrics().height() + 8);
    _table->horizontalHeader()->setSortIndicatorClearable(true);
    _table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    _table->horizontalHeader()->setResizeContentsPrecision(RowsLookedAt);
    _table->setSortingEnabled(true);
    return _table;
}

QWidget *MainWindow::makeDetail(NSArrayController *records)
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
    _detail = new DetailPane(records);
    scroller->setWidget(_detail);
    return margin;
}

void MainWindow::makeSearch()
{
    auto *const bar = addToolBar(tr("Search"));
    bar->setObjectName(u"searchBar"_s);
    bar->setMovable(false);
    auto *const spacer = new QWidget;
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(spacer);
    _search = new QLineEdit;
    _search->setPlaceholderText(tr("Search"));
    _search->setAccessibleName(tr("Search"));
    _search->setClearButtonEnabled(true);
    _search->setMaximumWidth(280);
    bar->addWidget(_search);
}

void MainWindow::makeCount()
{
    _count = new QLabel;
    _count->setTextFormat(Qt::PlainText);
    statusBar()->addPermanentWidget(_count);
}

void MainWindow::setNotice(const QString &text)
{
    _notice->setText(text);
    _pages->setCurrentIndex(text.isNull() ? 0 : 1);
}

void MainWindow::fitColumns()
{
    _table->resizeColumnsToContents();
    for (int column = 0; column < _table->model()->columnCount(); ++column)
        _table->setColumnWidth(column, qMin(_table->columnWidth(column), WidestColumn));
}
