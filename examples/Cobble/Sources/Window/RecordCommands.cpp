#include "RecordCommands.h"

#include "Appearance/Counts.h"
#include "DetailPane.h"
#include "Editing/CopiedForms.h"
#include "Editing/PasteProblems.h"
#include "MainWindow.h"
#include "MainWindowController.h"
#include "RecordTableModel.h"
#include "RecordTableView.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>

namespace {
struct NewValue
{
    StoredRecord *record;
    QString key;
    QVariant value;
};
} // namespace

QWidget *RecordCommands::view() const
{
    return _window->mainWindow()->table();
}

QModelIndex RecordCommands::currentCell() const
{
    return _window->mainWindow()->table()->currentIndex();
}

QList<qsizetype> RecordCommands::selectedRows() const
{
    return _window->records()->selectionIndexes();
}

// --- What can be done ---------------------------------------------------------------------------

bool RecordCommands::canDo(EditCommand command) const
{
    const QMimeData *const clipboard = QGuiApplication::clipboard()->mimeData();
    if (!_window->library())
        return false;
    switch (command) {
    case EditCommand::Cut:
    case EditCommand::Copy:
    case EditCommand::Duplicate:
        return !selectedRows().isEmpty();
    case EditCommand::CopyCell:
        return currentCell().isValid();
    case EditCommand::Paste:
        return PastedTable::canBeIn(clipboard);
    case EditCommand::PasteIntoCells:
        return PastedTable::canBeIn(clipboard) && currentCell().isValid();
    case EditCommand::SelectAll:
        return _window->model()->rowCount() > 0;
    case EditCommand::FillDown:
        return canFill();
    case EditCommand::NewRecord:
        return true;
    default:
        return false;
    }
}

bool RecordCommands::canFill() const
{
    return selectedRows().size() > 1 && currentCell().flags().testFlag(Qt::ItemIsEditable);
}

void RecordCommands::perform(EditCommand command)
{
    if (command == EditCommand::Copy)
        copy();
    else if (command == EditCommand::CopyCell)
        copyCell();
    else if (command == EditCommand::SelectAll)
        _window->mainWindow()->table()->selectAll();
    else
        _window->pendingInput()->leave([this, command] { performAtOnce(command); });
}

void RecordCommands::performAtOnce(EditCommand command)
{
    // What was typed, and is stored now, may have changed what can be done.
    if (!canDo(command))
        return;
    switch (command) {
    case EditCommand::Cut:
        return cut();
    case EditCommand::Paste:
        return paste();
    case EditCommand::PasteIntoCells:
        return pasteIntoCells();
    case EditCommand::Duplicate:
        return duplicate();
    case EditCommand::FillDown:
        return fillDown();
    default:
        return addRecord();
    }
}

// --- Copying ------------------------------------------------------------------------------------

void RecordCommands::copy()
{
    QGuiApplication::clipboard()->setMimeData(
        new CopiedForms(_window->model()->copied(selectedRows())));
}

void RecordCommands::copyCell()
{
    QGuiApplication::clipboard()->setText(currentCell().data(Qt::EditRole).toString());
}

void RecordCommands::cut()
{
    copy();
    _window->deleteRecords();
}

// --- Pasting ------------------------------------------------------------------------------------

PasteTarget RecordCommands::pasteTarget() const
{
    const std::shared_ptr<OpenLibrary> library = _window->library();
    return {library->definition(),
            [library](qsizetype field) -> const FieldReader & { return library->reader(field); },
            library->bundlePath()};
}

/// Stores what can be stored, if there is more once the user has agreed to that.
void RecordCommands::store(const PastePlan &plan, const std::function<void()> &storing)
{
    if (plan.problems().isEmpty())
        storing();
    else
        PasteProblems::ask(_window->mainWindow(), plan.problems(), storing);
}

void RecordCommands::paste()
{
    const PastePlan plan = PastePlan::records(
        pasteTarget(), PastedTable::of(*QGuiApplication::clipboard()->mimeData()));
    store(plan, [this, plan, library = _window->library()] {
        if (_window->library() == library)
            insert(StepKinds::Paste, plan.records());
    });
}

void RecordCommands::pasteIntoCells()
{
    const qsizetype row = currentCell().row();
    const PastePlan plan =
        PastePlan::cells(pasteTarget(), PastedTable::of(*QGuiApplication::clipboard()->mimeData()),
                         fieldsFromCurrent(), _window->model()->rowCount() - row);
    store(plan, [this, plan, row, library = _window->library()] {
        if (_window->library() == library)
            overwrite(plan, row);
    });
}

/// Those of the current cell and the ones behind it, as the columns stand.
QList<qsizetype> RecordCommands::fieldsFromCurrent() const
{
    const QHeaderView *const header = _window->mainWindow()->table()->horizontalHeader();
    QList<qsizetype> fields;
    for (int place = header->visualIndex(currentCell().column()); place < header->count(); ++place)
        fields += header->logicalIndex(place);
    return fields;
}

void RecordCommands::overwrite(const PastePlan &plan, qsizetype firstRow)
{
    // While they change, the order of the rows may.
    QList<NewValue> values;
    for (const PastePlan::Cell &cell : plan.cells()) {
        const LibraryField &field = _window->library()->definition().fields.at(cell.field);
        if (StoredRecord *const record = _window->model()->recordAt(firstRow + cell.row))
            values += {record, field.columnName, cell.value};
    }
    const auto change = [values] {
        for (const NewValue &each : values)
            each.record->setValueForKey(each.value, each.key);
    };
    const Outcome<> changed =
        _window->change([&] { return _window->library()->change(change, StepKinds::Paste); });
    if (!changed)
        _window->tell(changed.reason());
}

// --- Records ------------------------------------------------------------------------------------

void RecordCommands::insert(const QString &kind, const QList<QVariantList> &values)
{
    if (values.isEmpty())
        return;
    std::vector<qint64> ids;
    const Outcome<> inserted =
        _window->change([&] { return _window->library()->insertRecords(kind, values, &ids); });
    if (!inserted) {
        _window->tell(inserted.reason());
        return;
    }
    _window->showRecordsWithIds(ids);
    _window->tell(tr("Added %1 record(s)", nullptr, Counts::plural(values.size()))
                      .arg(Counts::number(values.size())));
}

/// An empty one, in whose first field the user may begin to type.
void RecordCommands::addRecord()
{
    const qsizetype before = _window->library()->recordCount();
    insert(StepKinds::Insert, {QVariantList(_window->library()->definition().fields.size())});
    RecordTableView *const table = _window->mainWindow()->table();
    if (_window->library()->recordCount() == before)
        return;
    table->setFocus(Qt::OtherFocusReason);
    table->editFirstCell(int(_window->records()->selectionIndex()));
}

void RecordCommands::duplicate()
{
    const OpenLibrary &library = *_window->library();
    QList<QVariantList> copies;
    for (const qsizetype row : selectedRows()) {
        const StoredRecord *const record = _window->model()->recordAt(row);
        QVariantList values;
        for (qsizetype field = 0; field < library.definition().fields.size(); ++field)
            values += library.value(*record, field);
        copies += values;
    }
    insert(StepKinds::Duplicate, copies);
}

/// Gives the selected records the value that the first of them has in the current column.
void RecordCommands::fillDown()
{
    const QList<qsizetype> rows = selectedRows();
    const int column = currentCell().column();
    const LibraryField field = _window->library()->definition().fields.at(column);
    QList<StoredRecord *> records;
    for (const qsizetype row : rows)
        records += _window->model()->recordAt(row);
    const QVariant value = _window->library()->value(*records.first(), column);
    if (rows.size() <= DetailPane::MostUnasked) {
        fill(records, field.columnName, value);
        return;
    }
    _window->askForMany(field.title(), rows.size(), [=, this](bool isWanted) {
        if (isWanted && selectedRows() == rows)
            fill(records, field.columnName, value);
    });
}

void RecordCommands::fill(const QList<StoredRecord *> &records, const QString &key,
                          const QVariant &value)
{
    const auto change = [&] {
        for (StoredRecord *const record : records)
            record->setValueForKey(value, key);
    };
    const Outcome<> filled =
        _window->change([&] { return _window->library()->change(change, StepKinds::Fill); });
    if (!filled)
        _window->tell(filled.reason());
}
