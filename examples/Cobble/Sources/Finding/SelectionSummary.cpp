#include "SelectionSummary.h"

#include "Appearance/Counts.h"
#include "Open/OpenBundle.h"
#include "Text/PrintableText.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// How long changes of a selection may follow each other, in milliseconds.
constexpr int Delay = 50;
} // namespace

SelectionSummary::SelectionSummary(QTableView *table, RecordList *records, QLabel *label)
    : _table(table), _records(records), _label(label)
{
    _timer.setSingleShot(true);
    _timer.setInterval(Delay);
    QObject::connect(&_timer, &QTimer::timeout, this, &SelectionSummary::update);
    QObject::connect(records, &RecordList::selectionChanged, this, &SelectionSummary::updateSoon);
    QObject::connect(table->selectionModel(), &QItemSelectionModel::currentColumnChanged, this,
                     &SelectionSummary::updateSoon);
    QObject::connect(table->model(), &QAbstractItemModel::dataChanged, this,
                     &SelectionSummary::updateSoon);
    QObject::connect(&_worker, &SummaryWorker::done, this, &SelectionSummary::showSummary);
}

void SelectionSummary::setLibrary(const std::shared_ptr<OpenLibrary> &library)
{
    _library = library;
    update();
}

void SelectionSummary::update()
{
    _timer.stop();
    _worker.cancel();
    // One record has nothing to be summed.
    const bool areSeveral = _library && _records->selectedCount() > 1;
    show(areSeveral ? selectedText() : QString());
    const int column = _table->currentIndex().column();
    if (areSeveral && column >= 0 && column < _library->definition().fields.size())
        sumUp(column);
}

void SelectionSummary::show(const QString &text)
{
    _label->setText(text);
    _label->setVisible(!text.isEmpty());
}

QString SelectionSummary::selectedText() const
{
    const qsizetype count = _records->selectedCount();
    return tr("%1 selected", nullptr, Counts::plural(count)).arg(Counts::number(count));
}

void SelectionSummary::sumUp(qsizetype field)
{
    _field = field;
    auto ids = std::make_shared<RecordIds>(_records->selectedIds());
    std::sort(ids->begin(), ids->end());
    const SummaryWorker::Request request = {_library->definition(), field, ids};
    OpenBundle *const bundle = _library->bundle();
    if (qsizetype(ids->size()) > RecordArrangement::MostAtOnce) {
        _worker.start(bundle->bundle(), request);
        return;
    }
    bundle->read([&](LibraryStore &store) {
        const auto summed = SummaryWorker::summary(store, request, [] { return true; });
        if (summed)
            showSummary(*summed);
    });
}

void SelectionSummary::showSummary(const FieldSummary &summary)
{
    const QString text = summary.text(_library->reader(_field));
    if (text.isNull())
        return;
    const QString title =
        printableText(_library->definition().fields.at(_field).title().simplified());
    show(selectedText() + u" · " + tr("%1: %2").arg(title, text));
}
