#include "SelectionSummary.h"

#include "Appearance/Counts.h"
#include "FieldSummary.h"
#include "ShortText.h"
#include "Text/PrintableText.h"

#include <KTUtility/NSArrayController>

#include <QItemSelectionModel>
#include <QLabel>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {
/// How long changes of a selection may follow each other, in milliseconds.
constexpr int Delay = 50;
} // namespace

SelectionSummary::SelectionSummary(QTableView *table, NSArrayController *records, QLabel *label)
    : _table(table), _records(records), _label(label)
{
    _timer.setSingleShot(true);
    _timer.setInterval(Delay);
    QObject::connect(&_timer, &QTimer::timeout, this, &SelectionSummary::update);
    QObject::connect(records, &NSArrayController::selectionChanged, this,
                     &SelectionSummary::updateSoon);
    QObject::connect(table->selectionModel(), &QItemSelectionModel::currentColumnChanged, this,
                     &SelectionSummary::updateSoon);
    QObject::connect(table->model(), &QAbstractItemModel::dataChanged, this,
                     &SelectionSummary::updateSoon);
}

void SelectionSummary::setLibrary(const std::shared_ptr<OpenLibrary> &library)
{
    _library = library;
    update();
}

void SelectionSummary::update()
{
    _timer.stop();
    const QString text = this->text();
    _label->setText(text);
    _label->setVisible(!text.isEmpty());
}

/// One record has nothing to be summed.
QString SelectionSummary::text() const
{
    const qsizetype count = _records->selectionIndexes().size();
    if (!_library || count < 2)
        return {};
    const QString selected =
        tr("%1 selected", nullptr, Counts::plural(count)).arg(Counts::number(count));
    const int column = _table->currentIndex().column();
    const bool hasField = column >= 0 && column < _library->definition().fields.size();
    const QString summary = hasField ? summaryOf(_records->selectedObjects(), column) : QString();
    return summary.isNull() ? selected : QString(selected + u" · " + summary);
}

QString SelectionSummary::summaryOf(const QVariantList &selected, int column) const
{
    FieldSummary summary;
    for (const QVariant &record : selected)
        summary.add(_library->value(*record.value<StoredRecord *>(), column));
    const QString text = summary.text(_library->reader(column));
    const QString title =
        printableText(ShortText::firstLine(_library->definition().fields.at(column).title()));
    return text.isNull() ? QString() : tr("%1: %2").arg(title, text);
}
