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
    std::shared_ptr<StoredRecord> record;
    QString key;
    QVariant value;
};

/// What is pasted over cells of records; nothing if one of them cannot be read.
std::optional<QList<NewValue>> newValuesIn(OpenLibrary &library, const PastePlan &plan,
                                           const RecordIds &ids)
{
    QList<NewValue> values;
    for (const PastePlan::Cell &cell : plan.cells()) {
        const std::shared_ptr<StoredRecord> record = library.record(ids.at(size_t(cell.row)));
        if (!record)
            return std::nullopt;
        values += {record, library.definition().fields.at(cell.field).columnName, cell.value};
    }
    return values;
}

void setAll(const QList<NewValue> &values)
{
    for (const NewValue &each : values)
        each.record->setValueForKey(each.value, each.key);
}
} // namespace

QWidget *RecordCommands::view() const
{
    return _window->mainWindow()->table();
}

QModelIndex RecordCommands::currentCell() const
{
    return _window->mainWindow()->table()->currentIndex();
}

const RowRuns &RecordCommands::selected() const
{
    return _window->records()->selection();
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
        return !selected().isEmpty();
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
    return selected().count() > 1 && currentCell().flags().testFlag(Qt::ItemIsEditable);
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

/// \return false if they are too many, or cannot be read.
bool RecordCommands::copy()
{
    if (selected().count() > RecordTableModel::MostCopied) {
        _window->tell(tr("So many records cannot be copied at once."));
        return false;
    }
    const Outcome<CopiedRecords> copied = _window->model()->copied(selected());
    if (copied)
        QGuiApplication::clipboard()->setMimeData(new CopiedForms(*copied));
    else
        _window->tell(copied.reason());
    return bool(copied);
}

void RecordCommands::copyCell()
{
    QGuiApplication::clipboard()->setText(currentCell().data(Qt::EditRole).toString());
}

void RecordCommands::cut()
{
    if (copy())
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
    // Until the user has answered, the rows may be those of other records.
    const SharedRecordIds shown = _window->records()->ids();
    store(plan, [this, plan, row, shown, library = _window->library()] {
        if (_window->library() == library)
            overwrite(plan, RecordIds(shown->begin() + row, shown->end()));
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

/// \param ids of the records whose cells are pasted over.
void RecordCommands::overwrite(const PastePlan &plan, const RecordIds &ids)
{
    const std::optional<QList<NewValue>> values = newValuesIn(*_window->library(), plan, ids);
    if (!values) {
        _window->tell(tr("Not all of these records can be read now. Nothing was pasted."));
        return;
    }
    const Outcome<> changed = _window->change([&] {
        return _window->library()->change([&values] { setAll(*values); }, StepKinds::Paste);
    });
    if (!changed)
        _window->tell(changed.reason());
}

// --- Records ------------------------------------------------------------------------------------

/// Shows what was added.
/// \return what it is; nothing if that has failed.
RecordIds RecordCommands::add(const std::function<Outcome<>(RecordIds *)> &adding)
{
    RecordIds ids;
    const Outcome<> added = _window->change([&] { return adding(&ids); });
    if (!added) {
        _window->tell(added.reason());
        return {};
    }
    const auto count = qint64(ids.size());
    _window->showRecordsWithIds(ids);
    _window->tell(
        tr("Added %1 record(s)", nullptr, Counts::plural(count)).arg(Counts::number(count)));
    return ids;
}

RecordIds RecordCommands::insert(const QString &kind, const QList<QVariantList> &values)
{
    if (values.isEmpty())
        return {};
    return add(
        [&](RecordIds *ids) { return _window->library()->insertRecords(kind, values, ids); });
}

/// An empty one, in whose first field the user may begin to type.
void RecordCommands::addRecord()
{
    const RecordIds ids =
        insert(StepKinds::Insert, {QVariantList(_window->library()->definition().fields.size())});
    if (!ids.empty())
        editNew(ids.front());
}

/// At once, or when it has come to its place among many.
void RecordCommands::editNew(qint64 id)
{
    RecordList *const records = _window->records();
    RecordTableView *const table = _window->mainWindow()->table();
    const qsizetype row = records->rowOf(id);
    if (row >= 0) {
        table->setFocus(Qt::OtherFocusReason);
        table->editFirstCell(int(row));
    } else if (records->isArranging()) {
        const auto edit = [this, id, library = _window->library()] {
            if (_window->library() == library)
                editNew(id);
        };
        QObject::connect(records, &RecordList::arrangedObjectsChanged, this, edit,
                         Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    }
}

void RecordCommands::duplicate()
{
    const RecordIds ids = _window->records()->selectedIds();
    add([&](RecordIds *copies) { return _window->library()->duplicateRecords(ids, copies); });
}

/// Gives the selected records the value that the first of them has in the current column.
void RecordCommands::fillDown()
{
    const qsizetype column = currentCell().column();
    const std::shared_ptr<OpenLibrary> library = _window->library();
    const RecordIds ids = _window->records()->selectedIds();
    const std::shared_ptr<StoredRecord> first = library->record(ids.front());
    if (!first)
        return;
    const QVariant value = library->value(*first, column);
    const auto count = qsizetype(ids.size());
    if (count <= DetailPane::MostUnasked) {
        fill(ids, column, value);
        return;
    }
    const QString title = library->definition().fields.at(column).title();
    _window->askForMany(title, count, [=, this](bool isWanted) {
        if (isWanted && _window->library() == library && _window->records()->selectedIds() == ids)
            fill(ids, column, value);
    });
}

void RecordCommands::fill(const RecordIds &records, qsizetype field, const QVariant &value)
{
    const Outcome<> filled = _window->change(
        [&] { return _window->library()->changeAll(records, field, value, StepKinds::Fill); });
    if (!filled)
        _window->tell(filled.reason());
}
