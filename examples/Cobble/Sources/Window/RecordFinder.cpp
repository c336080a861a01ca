#include "RecordFinder.h"

#include "Finding/FilterBar.h"
#include "Finding/NothingFound.h"
#include "Finding/SelectionSummary.h"
#include "MainWindow.h"
#include "RecordTableView.h"
#include "Text/PrintableText.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>

#include <utility>

namespace {
constexpr qsizetype LongestQuote = 60;
} // namespace

RecordFinder::RecordFinder(MainWindow *window, RecordList *records)
    : _window(window)
    , _records(records)
    , _bar(window->filterBar())
    , _nothing(new NothingFound(window->table()))
    , _summary(std::make_unique<SelectionSummary>(window->table(), records, window->summary()))
{
    _bar->hide();
    QObject::connect(_bar, &FilterBar::filterChanged, this, &RecordFinder::changed);
    QObject::connect(records, &RecordList::failed, this, &RecordFinder::refuse);
    QObject::connect(_bar, &FilterBar::closeRequested, this, [this] {
        setShowsFilter(false);
        _window->table()->setFocus(Qt::OtherFocusReason);
    });
    QObject::connect(_nothing->showAllButton(), &QPushButton::clicked, this, [this] {
        showAll();
        _window->table()->setFocus(Qt::OtherFocusReason);
    });
}

RecordFinder::~RecordFinder() = default;

void RecordFinder::setLibrary(const std::shared_ptr<OpenLibrary> &library)
{
    _library = library;
    _isSmart = false;
    forgetFilter();
    showColumns({});
    const QSignalBlocker blocker(_bar);
    const auto fields = library ? std::make_shared<FilterFields>(library->definition()) : nullptr;
    _bar->setFields(fields);
    if (library)
        takeKept(fields);
    _nothing->setText(QString());
    _summary->setLibrary(library);
}

/// The records have none now.
void RecordFinder::forgetFilter()
{
    _isUntried = false;
    _applied = Applied();
    _refusal = QString();
}

// --- When a library is opened anew --------------------------------------------------------------

QString RecordFinder::columnName(qsizetype column) const
{
    return column >= 0 ? _library->definition().fields.at(column).columnName : QString();
}

/// \return −1 if there is none.
qsizetype RecordFinder::columnNamed(const QString &name) const
{
    return columnNames().indexOf(name);
}

QStringList RecordFinder::columnNames() const
{
    QStringList names;
    for (const LibraryField &field : _library->definition().fields)
        names += field.columnName;
    return names;
}

void RecordFinder::keep()
{
    if (!_library)
        return;
    const RecordQuery query = shownQuery();
    const RecordOrder order = query.order.value(0, {-1, true});
    _kept = Kept{_library->definition().tableName, query.filter, {}, {}, {}, _isSmart};
    for (const qsizetype column : query.columns)
        _kept->columns += columnName(column);
    _kept->sortedBy = columnName(order.field);
    _kept->order = order.isAscending ? Qt::AscendingOrder : Qt::DescendingOrder;
}

/// The filter, if the library is the one that was shown.
void RecordFinder::takeKept(const RecordFilter::Fields &fields)
{
    if (_kept && _kept->tableName != _library->definition().tableName)
        _kept.reset();
    if (!_kept)
        return;
    _isSmart = _kept->isSmart;
    _bar->setFilter(_kept->filter.withFields(fields));
}

void RecordFinder::showKept()
{
    const std::optional<Kept> kept = std::exchange(_kept, std::nullopt);
    if (!kept || !_library)
        return;
    QList<qsizetype> columns;
    for (const QString &name : kept->columns) {
        if (const qsizetype column = columnNamed(name); column >= 0)
            columns += column;
    }
    showColumns(columns);
    _window->table()->sortByColumn(int(columnNamed(kept->sortedBy)), kept->order);
}

// --- Filtering ----------------------------------------------------------------------------------

/// The bar's filter with readers of its own, since records may be looked at in a thread.
RecordFilter RecordFinder::forThread() const
{
    return _bar->filter().withFields(std::make_shared<FilterFields>(_library->definition()));
}

void RecordFinder::apply()
{
    if (!_library)
        return;
    const Applied wanted{_bar->filter().root(), _bar->filter().notation(),
                         _bar->filter().outcome().reason()};
    if (_applied == wanted)
        return;
    _applied = wanted;
    const RecordFilter filter = forThread();
    _refusal = filter.outcome().reason();
    _isUntried = filter.root().has_value();
    _records->setFilter(filter.predicate(), filter.isSlow());
}

/// Of a filter that could not say which records it accepts, none are shown: those that were shown
/// before may be all. It is tried again with the next search.
void RecordFinder::refuse(const QString &reason)
{
    if (!std::exchange(_isUntried, false))
        return;
    _applied.reset();
    _refusal = reason;
    _records->setFilter(NSPredicate::predicateWithValue(false));
    showResult();
}

/// What was looked for, if nothing was found; nil otherwise.
QString RecordFinder::missedText() const
{
    const QString searched =
        printableText(_window->search()->text().simplified().left(LongestQuote));
    const bool isFiltered = !_bar->filter().predicate().isNil();
    if (!_library || _records->isArranging() || _records->count() > 0)
        return {};
    if (!_refusal.isNull())
        return unfitText();
    if (!searched.isEmpty())
        return isFiltered ? tr("No record fits “%1” and the filter.").arg(searched)
                          : tr("No record fits “%1”.").arg(searched);
    return isFiltered ? tr("No record fits the filter.") : QString();
}

QString RecordFinder::unfitText() const
{
    return tr("The filter cannot be used: %1").arg(printableText(_refusal));
}

void RecordFinder::showResult()
{
    _isUntried = _isUntried && _records->isArranging();
    _nothing->setText(missedText());
    _summary->updateSoon();
}

bool RecordFinder::showsFilter() const
{
    return !_bar->isHidden();
}

void RecordFinder::setShowsFilter(bool shows)
{
    _bar->setVisible(shows);
    if (shows) {
        _bar->beginEditing();
        return;
    }
    _bar->setText(QString());
    if (!std::exchange(_isSmart, false))
        return;
    showColumns({});
    Q_EMIT leftSmartLibrary();
}

Outcome<> RecordFinder::showSmartLibrary(const SmartLibrary &smart)
{
    const auto fields = std::make_shared<FilterFields>(_library->definition());
    const Outcome<RecordQuery> query = SmartLibraries::queryOf(smart, fields);
    showAll();
    _isSmart = true;
    showColumns({});
    _bar->show();
    _bar->setFilter(RecordFilter::read(smart.filter, fields, FilterNotation::Portable));
    if (!query)
        return query.failure();
    showColumns(query->columns);
    const RecordOrder order = query->order.value(0, {-1, true});
    _window->table()->sortByColumn(int(order.field),
                                   order.isAscending ? Qt::AscendingOrder : Qt::DescendingOrder);
    return {};
}

/// Hides the other columns; none hides none.
void RecordFinder::showColumns(const QList<qsizetype> &columns)
{
    for (int column = 0; column < _window->table()->model()->columnCount(); ++column)
        _window->table()->setColumnHidden(column, !columns.isEmpty() && !columns.contains(column));
}

RecordQuery RecordFinder::shownQuery() const
{
    RecordQuery query;
    query.filter = _bar->filter();
    const QHeaderView *const header = _window->table()->horizontalHeader();
    if (header->sortIndicatorSection() >= 0)
        query.order = {
            {header->sortIndicatorSection(), header->sortIndicatorOrder() == Qt::AscendingOrder}};
    for (int column = 0; header->hiddenSectionCount() > 0 && column < header->count(); ++column) {
        if (!header->isSectionHidden(column))
            query.columns += column;
    }
    return query;
}

void RecordFinder::showAll()
{
    _window->search()->clear();
    _bar->setText(QString());
}
