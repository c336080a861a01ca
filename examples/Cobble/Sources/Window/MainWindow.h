#pragma once

#include <QMainWindow>

class DetailPane;
class FieldDelegate;
class FilterBar;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;
class RecordList;
class RecordTableModel;
class RecordTableView;

/// What a main window is made of: the list of libraries, the table of records, the form for what is
/// selected in it, the search field and the count. What they do is MainWindowController's business.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(RecordList *records, RecordTableModel *model);

    QListWidget *libraries() const { return _libraries; }
    RecordTableView *table() const { return _table; }
    /// What is typed into the table.
    FieldDelegate *cells() const { return _cells; }
    DetailPane *detail() const { return _detail; }
    QLineEdit *search() const { return _search; }
    FilterBar *filterBar() const { return _filterBar; }
    QLabel *count() const { return _count; }
    /// What the selected records come to, beside the count.
    QLabel *summary() const { return _summary; }

    /// Imports something where there is nothing yet.
    QPushButton *importButton() const { return _importButton; }

    /// Gives the list of libraries and the titles of the fields those items of the menus that are
    /// about them.
    void addContextMenus();

    /// Shows a text in place of the records; nil shows the records.
    /// \param offersImport with the button below it.
    void setNotice(const QString &text, bool offersImport = false);
    /// Makes the columns as wide as their texts, within reason.
    void fitColumns();

private:
    QWidget *makePages(RecordList *records, RecordTableModel *model);
    QWidget *makeLibraries();
    QWidget *makeFiltered(QWidget *records);
    QWidget *makeRecords(RecordTableModel *model);
    QWidget *makeDetail(RecordList *records);
    void makeSearch();
    void makeCount();
    QWidget *makeNotice();

    QListWidget *_libraries = nullptr;
    RecordTableView *_table = nullptr;
    FieldDelegate *_cells = nullptr;
    DetailPane *_detail = nullptr;
    QLineEdit *_search = nullptr;
    FilterBar *_filterBar = nullptr;
    QLabel *_count = nullptr;
    QLabel *_summary = nullptr;
    QLabel *_notice = nullptr;
    QPushButton *_importButton = nullptr;
    QStackedWidget *_pages = nullptr;
};
