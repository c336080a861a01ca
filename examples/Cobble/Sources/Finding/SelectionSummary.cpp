#include "SelectionSummary.h"

#include "Appearance/Counts.h"
#include "FieldSummary.h"
#include "Text/PrintableText.h"

#include <KTUtility/NSArrayController>
#include <KTUtility/NSKeyValueCoding>

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

void SelectionSummary::setFields(const RecordFilter::Fields &fields)
{
    _fields = fields;
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
    if (!_fields || count < 2)
        return {};
    const QString selected =
        tr("%1 selected", nullptr, Counts::plural(count)).arg(Counts::number(count));
    const int column = _table->currentIndex().column();
    const bool hasField = column >= 0 && column < _fields->count();
    const QString summary = hasField ? summaryOf(_records->selectedObjects(), column) : QString();
    return summary.isNull() ? selected : QString(selected + u" · " + summary);
}

QString SelectionSummary::summaryOf(const QVariantList &selected, int column) const
{
    const QString key = _fields->field(column).columnName;
    FieldSummary summary;
    for (const QVariant &record : selected)
        summary.add(NSKeyValueCoding::valueForKey(record, key));
    const QString text = summary.text(_fields->reader(column));
    const QString title = printableText(_fields->field(column).title().simplified());
    return text.isNull() ? QString() : tr("%1: %2").arg(title, text);
}
