#include "ImportSummary.h"

#include "Appearance/Counts.h"
#include "Appearance/IsolatedText.h"
#include "Fields/FieldTypeTitles.h"
#include "Text/ShortText.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {
void beginTable(QTableWidget *table, const QStringList &titles)
{
    table->clear();
    table->setRowCount(0);
    table->setColumnCount(int(titles.size()));
    table->setHorizontalHeaderLabels(titles);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
}

void addRow(QTableWidget *table, const QStringList &texts)
{
    const int row = table->rowCount();
    table->insertRow(row);
    for (int column = 0; column < texts.size(); ++column)
        table->setItem(row, column, new QTableWidgetItem(IsolatedText::of(texts.at(column))));
}

/// "day, month, year (1 of 12 values decide)"; empty if nothing had to be decided.
QString decisionsText(const ImportValues::Column &column)
{
    QStringList texts;
    for (const ColumnDecision &decision : {column.decision, column.currency, column.unused}) {
        QStringList reasons{decision.since, decision.contradicting};
        reasons.removeAll(QString());
        if (decision.isNeeded())
            texts += ImportSummary::tr("%1 (%2)").arg(decision.readAs, reasons.join(u"; "_s));
    }
    return texts.join(u", "_s);
}

QString titleOf(const ImportColumn &column)
{
    return column.header.isEmpty() ? column.label : column.header;
}
} // namespace

ImportSummary::ImportSummary() : KTDialogController(u":/Cobble/ImportSummary.ui"_s) {}

void ImportSummary::windowDidLoad()
{
    KTDialogController::windowDidLoad();
    QObject::connect(outlet<QPushButton>(u"closeButton"_s), &QPushButton::clicked, this,
                     [this] { endDialog(); });
}

void ImportSummary::configDialog()
{
    KTDialogController::configDialog();
    const auto result = windowDataSourceObjectForKey(ImportSheet::ResultKey).value<ImportResult>();
    outlet<QLabel>(u"titleLabel"_s)
        ->setText(tr("Stored %1 record(s) in the library “%2”.", nullptr,
                     Counts::plural(result.stored.recordCount))
                      .arg(Counts::number(result.stored.recordCount), result.stored.library.name));
    showColumns(result);
    showUnread(result);
}

void ImportSummary::showColumns(const ImportResult &result)
{
    auto *const table = outlet<QTableWidget>(u"columnsTable"_s);
    beginTable(table, {tr("Column"), tr("Type"), tr("Read"), tr("Kept as typed"), tr("Empty"),
                       tr("Read as")});
    const QList<ImportValues::Column> &columns = result.stored.values.columns;
    for (qsizetype column = 0; column < columns.size(); ++column) {
        const ImportValues::Column &counts = columns.at(column);
        addRow(table, {titleOf(result.schema.columns.at(column)),
                       FieldTypeTitles::titleOf(counts.type, counts.currencyType),
                       Counts::number(counts.read), Counts::number(counts.unread),
                       Counts::number(counts.empty), decisionsText(counts)});
    }
    table->resizeColumnsToContents();
}

void ImportSummary::showUnread(const ImportResult &result)
{
    const ImportValues &values = result.stored.values;
    const QList<ImportValues::Unread> unread = values.unread.mid(0, MostShown);
    auto *const table = outlet<QTableWidget>(u"unreadTable"_s);
    beginTable(table, {tr("Row"), tr("Column"), tr("Value"), tr("Why")});
    for (const ImportValues::Unread &value : unread)
        addRow(table, {Counts::number(value.row), titleOf(result.schema.columns.at(value.column)),
                       ShortText::firstLine(value.text), value.reason});
    if (const qint64 others = values.unreadCount() - unread.size(); others > 0)
        addRow(table, {u"…"_s, QString(), tr("%1 more").arg(Counts::number(others)), QString()});
    table->resizeColumnsToContents();
    table->setVisible(!unread.isEmpty());
    outlet<QLabel>(u"unreadLabel"_s)->setVisible(!unread.isEmpty());
}
