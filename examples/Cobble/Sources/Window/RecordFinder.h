#pragma once

#include "Filter/SmartLibraries.h"
#include "Open/RecordList.h"

class FilterBar;
class MainWindow;
class NothingFound;
class SelectionSummary;

/// What a main window finds records with, besides the words of its search: the filter bar, what is
/// said where nothing is found, and what the selected records come to.
///
/// \code
/// RecordFinder finder(window, &records);
/// connect(&finder, &RecordFinder::changed, this, [&] {
///     finder.apply();
///     finder.showResult();
/// });
/// \endcode
class RecordFinder : public QObject
{
    Q_OBJECT

public:
    RecordFinder(MainWindow *window, RecordList *records);
    ~RecordFinder() override;

    /// Keeps how the library is shown, for when the same table is shown next: before its columns go.
    void keep();
    /// The library whose records are shown; null for none. The filter goes, unless it was kept.
    void setLibrary(const std::shared_ptr<OpenLibrary> &library);
    /// Shows the columns and the order that were kept, once the table has its columns.
    void showKept();
    /// Has the records filtered as the bar says; a filter that cannot be used finds none.
    void apply();
    /// Says if nothing is found.
    void showResult();

    /// Shows the filter bar, or takes it and its filter away.
    void setShowsFilter(bool shows);
    bool showsFilter() const;
    /// Shows the filter, the order and the columns of a smart library of the library. Fails if it no
    /// longer fits; its filter then stands in the bar, and finds nothing if it is what does not fit.
    Outcome<> showSmartLibrary(const SmartLibrary &smart);
    /// Whether that is what is shown.
    bool isSmart() const { return _isSmart; }
    /// Has what is shown be the smart library that it was just saved as.
    void enterSmartLibrary() { _isSmart = true; }
    /// What is shown, without the words of the search.
    RecordQuery shownQuery() const;
    /// Takes search and filter away.
    void showAll();
    FilterBar *bar() const { return _bar; }
    NothingFound *nothingFound() const { return _nothing; }

Q_SIGNALS:
    /// The filter is another one.
    void changed();
    /// The whole library of a smart one is shown again.
    void leftSmartLibrary();

private:
    /// How a library was shown: by the names of its columns.
    struct Kept
    {
        QString tableName;
        RecordFilter filter;
        QStringList columns;
        QString sortedBy;
        Qt::SortOrder order = Qt::AscendingOrder;
        bool isSmart = false;
    };
    /// What tells a filter from another one.
    struct Applied
    {
        std::optional<FilterNode> root;
        FilterNotation notation = FilterNotation::Typed;
        QString problem;

        friend bool operator==(const Applied &, const Applied &) = default;
    };

    RecordFilter forThread() const;
    void refuse(const QString &reason);
    void forgetFilter();
    QStringList columnNames() const;
    QString columnName(qsizetype column) const;
    qsizetype columnNamed(const QString &name) const;
    void takeKept(const RecordFilter::Fields &fields);
    QString missedText() const;
    QString unfitText() const;
    void showColumns(const QList<qsizetype> &columns);

    MainWindow *_window;
    RecordList *_records;
    FilterBar *_bar;
    NothingFound *_nothing;
    std::unique_ptr<SelectionSummary> _summary;
    std::shared_ptr<OpenLibrary> _library;
    bool _isSmart = false;
    std::optional<Kept> _kept;
    /// The filter that the records have; nothing if it is to be tried again.
    std::optional<Applied> _applied;
    /// Whether nobody knows yet if it can be used.
    bool _isUntried = false;
    /// Why it cannot be used; nil if it can.
    QString _refusal;
};
