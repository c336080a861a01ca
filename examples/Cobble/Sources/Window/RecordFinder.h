#pragma once

#include "Filter/SmartLibraries.h"
#include "OpenLibrary.h"

#include <KTUtility/NSPredicate>

class FilterBar;
class MainWindow;
class NSArrayController;
class NothingFound;
class SelectionSummary;

/// What a main window finds records with, besides the words of its search: the filter bar, what is
/// said where nothing is found, and what the selected records come to.
///
/// \code
/// RecordFinder finder(window, &records);
/// connect(&finder, &RecordFinder::changed, this, [&] {
///     records.setFilterPredicate(finder.both(searched));
///     finder.showResult();
/// });
/// \endcode
class RecordFinder : public QObject
{
    Q_OBJECT

public:
    RecordFinder(MainWindow *window, NSArrayController *records);
    ~RecordFinder() override;

    /// The library whose records are shown; null for none. The filter goes.
    void setLibrary(const std::shared_ptr<OpenLibrary> &library);
    /// The records that the filter and another condition accept.
    NSPredicate both(const NSPredicate &searched) const;
    /// Says if nothing is found, and brings the selected record into sight.
    void showResult();

    /// Shows the filter bar, or takes it and its filter away.
    void setShowsFilter(bool shows);
    bool showsFilter() const;
    /// Shows the filter, the order and the columns of a smart library of the library. Fails if it no
    /// longer fits; its filter then stands in the bar, and filters nothing.
    Outcome<> showSmartLibrary(const SmartLibrary &smart);
    /// Whether that is what is shown.
    bool isSmart() const { return _isSmart; }
    /// Shows the whole library again.
    void leaveSmartLibrary();
    /// What is shown, without the words of the search.
    RecordQuery shownQuery() const;
    /// Takes search and filter away.
    void showAll();
    FilterBar *bar() const { return _bar; }
    NothingFound *nothingFound() const { return _nothing; }

Q_SIGNALS:
    /// The filter is another one.
    void changed();

private:
    QString missedText() const;
    void showColumns(const QList<qsizetype> &columns);

    MainWindow *_window;
    NSArrayController *_records;
    FilterBar *_bar;
    NothingFound *_nothing;
    std::unique_ptr<SelectionSummary> _summary;
    std::shared_ptr<OpenLibrary> _library;
    bool _isSmart = false;
};
