#include "ImportSummary.h"

#include "ShortText.h"
#include "Text/AlignedTable.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

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
        table->setItem(row, column, new QTableWidgetItem(texts.at(column)));
}

QString titleOf(const ImportColumn &column)
{
    return column.header.isEmpty() ? column.label : column.header;
}
} // namespace

ImportSummary::ImportSummary() : KTDialogController(QStringLiteral(":/Cobble/ImportSummary.ui")) {}

void ImportSummary::windowDidLoad()
{
    KTDialogController::windowDidLoad();
    QObject::connect(outlet<QPushButton>(QStringLiteral("closeButton")), &QPushButton::clicked,
                     this, [this] { endDialog(); });
}

void ImportSummary::configDialog()
{
    KTDialogController::configDialog();
    const auto result = windowDataSourceObjectForKey(ImportSheet::ResultKey).value<ImportResult>();
    outlet<QLabel>(QStringLiteral("titleLabel"))
        ->setText(
            QStringLiteral("Stored %1 in the library “%2”.")
                .arg(recordCountText(result.outcome.recordCount), result.outcome.stored.name));
    showColumns(result);
    showUnread(result);
}

void ImportSummary::showColumns(const ImportResult &result)
{
    auto *const table = outlet<QTableWidget>(QStringLiteral("columnsTable"));
    beginTable(table, {QStringLiteral("Column"), QStringLiteral("Type"), QStringLiteral("Read"),
                       QStringLiteral("Kept as typed"), QStringLiteral("Empty")});
    const QList<ImportValues::Column> &columns = result.outcome.values.columns;
    for (qsizetype column = 0; column < columns.size(); ++column) {
        const ImportValues::Column &counts = columns.at(column);
        addRow(table, {titleOf(result.schema.columns.at(column)), counts.typeName,
                       QString::number(counts.read), QString::number(counts.unread),
                       QString::number(counts.empty)});
    }
    table->resizeColumnsToContents();
}

void ImportSummary::showUnread(const ImportResult &result)
{
    const QList<ImportValues::Unread> &unread = result.outcome.values.unread;
    auto *const table = outlet<QTableWidget>(QStringLiteral("unreadTable"));
    beginTable(table, {QStringLiteral("Row"), QStringLiteral("Column"), QStringLiteral("Value"),
                       QStringLiteral("Why")});
    for (const ImportValues::Unread &value : unread.first(qMin(unread.size(), MostShown)))
        addRow(table, {QString::number(value.row), titleOf(result.schema.columns.at(value.column)),
                       ShortText::firstLine(value.text), value.reason});
    if (unread.size() > MostShown)
        addRow(table, {QStringLiteral("…"), QString(),
                       QStringLiteral("%1 more").arg(unread.size() - MostShown), QString()});
    table->resizeColumnsToContents();
    table->setVisible(!unread.isEmpty());
    outlet<QLabel>(QStringLiteral("unreadLabel"))->setVisible(!unread.isEmpty());
}
