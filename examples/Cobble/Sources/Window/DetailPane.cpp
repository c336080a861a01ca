#include "DetailPane.h"

#include "Appearance/Counts.h"
#include "Appearance/FieldTitle.h"
#include "Drops/PictureInput.h"
#include "FieldEditor.h"
#include "MediaField.h"

#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSSelectionMarker>

#include <QFormLayout>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
QString multipleValues()
{
    return DetailPane::tr("Multiple values");
}

/// What stands in an empty editor.
QString placeholderFor(const QVariant &value)
{
    if (!NSIsControllerMarker(value))
        return {};
    return value.value<NSSelectionMarker>().kind == NSSelectionMarker::Kind::MultipleValues
               ? multipleValues()
               : QString();
}
} // namespace

DetailPane::DetailPane(NSArrayController *records, QWidget *parent)
    : QWidget(parent)
    , _records(records)
    , _form(records)
    , _layout(new QFormLayout)
    , _manyLabel(new QLabel(this))
{
    auto *const both = new QVBoxLayout(this);
    both->setContentsMargins(0, 0, 0, 0);
    _manyLabel->setTextFormat(Qt::PlainText);
    _manyLabel->setContentsMargins(8, 8, 8, 0);
    _manyLabel->hide();
    both->addWidget(_manyLabel);
    both->addLayout(_layout);
    _layout->setContentsMargins(style()->pixelMetric(QStyle::PM_LayoutLeftMargin),
                                style()->pixelMetric(QStyle::PM_LayoutTopMargin),
                                style()->pixelMetric(QStyle::PM_LayoutRightMargin),
                                style()->pixelMetric(QStyle::PM_LayoutBottomMargin));
    _layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    QObject::connect(&_form, &DetailForm::rowsChanged, this, &DetailPane::rebuild);
    QObject::connect(records, &NSArrayController::selectionChanged, this,
                     &DetailPane::showSelection);
}

DetailPane::~DetailPane()
{
    // The rows are destroyed before the editors, which look at them.
    for (const Row &row : _rows)
        delete row.editor.data();
}

void DetailPane::setFields(const QList<FormField *> &fields)
{
    _form.setFields(fields);
}

FieldEditor *DetailPane::editor(qsizetype field) const
{
    return _rows.value(field).editor;
}

void DetailPane::rebuild()
{
    for (const Row &row : std::as_const(_rows))
        tellLost(row);
    while (_layout->rowCount() > 0)
        _layout->removeRow(0);
    _rows.clear();
    for (FormRow *const row : _form.rows())
        addRow(row);
    _shown = _records->selectedObjects();
}

void DetailPane::addRow(FormRow *formRow)
{
    const FieldType type = formRow->field()->field().type;
    auto *const editor = new FieldEditor(type, this);
    Row row{formRow, editor, nullptr, nullptr};
    if (type == FieldType::Media) {
        row.mediaField = new MediaField;
        row.pictureInput = new PictureInput(row.mediaField);
        connectInput(row);
    }
    auto *const label = labelFor(row);
    _layout->addRow(label, inputFor(row));
    _rows += row;
    const auto refresh = [this, row, label] {
        const QString title = FieldTitle::of(row.row->field()->field());
        label->setText(FieldTitle::label(title));
        row.editor->setTitle(title);
        // What is being typed is not taken away.
        if (!row.editor->isEdited())
            show(row);
    };
    refresh();
    QObject::connect(formRow, &FormRow::changed, editor, refresh);
    QObject::connect(editor, &FieldEditor::committed, formRow,
                     [this, row](const QString &text) { take(row, text); });
}

QLabel *DetailPane::labelFor(const Row &row)
{
    auto *const label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(row.editor->input());
    return label;
}

/// The editor, for media with their picture below.
QWidget *DetailPane::inputFor(const Row &row)
{
    if (!row.mediaField)
        return row.editor;
    auto *const both = new QWidget(this);
    auto *const layout = new QVBoxLayout(both);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(row.editor);
    layout->addWidget(row.mediaField);
    layout->addWidget(row.pictureInput);
    return both;
}

MediaField *DetailPane::mediaField(qsizetype field) const
{
    return _rows.value(field).mediaField;
}

/// Shows other records than before; if they are the same, what is being typed stays.
void DetailPane::showSelection()
{
    const QVariantList selected = _records->selectedObjects();
    const bool areOthers = selected != _shown;
    _shown = selected;
    for (const Row &row : std::as_const(_rows)) {
        if (areOthers)
            tellLost(row);
        if (row.row && (areOthers || !row.editor->isEdited()))
            show(row);
    }
}

/// Something is lost without being asked only when others do it: another window, or what was undone.
void DetailPane::tellLost(const Row &row)
{
    if (row.row && row.editor && row.editor->isEdited())
        Q_EMIT inputLost(row.row->field()->title(), row.editor->text());
}

std::optional<RejectedInput> DetailPane::settle()
{
    for (const Row &row : std::as_const(_rows)) {
        if (row.editor)
            row.editor->commit();
        if (row.row && row.editor && row.editor->isEdited() && !row.editor->problem().isNull())
            return RejectedInput{row.row->field()->title(), row.editor->text(),
                                 row.editor->problem(), row.editor->input(),
                                 [editor = row.editor] { editor->takeBack(); }};
    }
    return {};
}

bool DetailPane::isAsking(const std::function<void()> &then)
{
    if (_isAsking)
        _afterAnswer = then;
    return _isAsking;
}

// A row keeps the value that it has when what is selected has none, or several.
void DetailPane::show(const Row &row) const
{
    if (_manyCount > 0) {
        showMany(row);
        return;
    }
    const FormField *const field = row.row->field();
    const QVariant value = NSKeyValueCoding::valueForKey(_records->selection(), field->key());
    row.editor->setText(NSIsControllerMarker(value) ? QString() : row.row->text());
    row.editor->setPlaceholderText(placeholderFor(value));
    const bool isMedia = field->field().type == FieldType::Media;
    row.editor->setEnabled(!isMedia && !_records->selectionIndexes().isEmpty());
    showMedia(row);
}

void DetailPane::showMany(const Row &row) const
{
    row.editor->setText(QString());
    row.editor->setPlaceholderText(multipleValues());
    row.editor->setEnabled(row.row->field()->field().type != FieldType::Media);
    showMedia(row);
}

void DetailPane::setManySelected(qsizetype count)
{
    if (count == 0 && _manyCount == 0)
        return;
    _manyCount = count;
    _manyLabel->setText(
        tr("%1 record(s) selected", nullptr, Counts::plural(count)).arg(Counts::number(count)));
    _manyLabel->setVisible(count > 0);
    for (const Row &row : std::as_const(_rows)) {
        if (row.row)
            show(row);
    }
}

void DetailPane::showMedia(const Row &row) const
{
    if (!row.mediaField)
        return;
    const QString url = row.editor->text();
    row.pictureInput->setEnabled(_fileStorer && selectedCount() > 0);
    row.pictureInput->setHasFile(!url.isEmpty());
    row.mediaField->setFile(_fileFinder && !url.isEmpty() ? _fileFinder(url) : QString());
}

Outcome<> DetailPane::takeForMany(const Row &row, const QString &text)
{
    const Outcome<QVariant> value = row.row->read(text);
    const Outcome<> taken = !value         ? value.failure()
                            : _manyChanger ? _manyChanger(_rows.indexOf(row), *value)
                                           : Outcome<>();
    if (taken)
        row.editor->setText(row.row->textOf(*value));
    return taken;
}

qsizetype DetailPane::selectedCount() const
{
    return _manyCount > 0 ? _manyCount : _records->selectionIndexes().size();
}

/// Nobody is asked about what cannot be read.
void DetailPane::take(const Row &row, const QString &text)
{
    const qsizetype count = selectedCount();
    if (count <= MostUnasked || !_asker)
        store(row, text);
    else if (const Outcome<QVariant> value = row.row->read(text); !value)
        row.editor->setProblem(value.reason());
    else if (!_isAsking)
        askAndTake(row, text, count);
}

/// What was typed stays until there is an answer, and is taken back if it is not wanted.
void DetailPane::askAndTake(const Row &row, const QString &text, qsizetype count)
{
    _isAsking = true;
    const auto asked = std::pair(_shown, _manyCount);
    const QPointer<DetailPane> self(this);
    _asker(row.row->field()->title(), count, [=](bool isWanted) {
        if (self)
            self->answer(row, text,
                         isWanted && asked == std::pair(self->_records->selectedObjects(),
                                                        self->_manyCount));
    });
}

/// What waits for the answer waits on if the value cannot be stored, which is said beside it.
void DetailPane::answer(const Row &row, const QString &text, bool isWanted)
{
    _isAsking = false;
    const std::function<void()> then = std::exchange(_afterAnswer, {});
    if (row.row && row.editor && isWanted)
        store(row, text);
    else if (row.row && row.editor)
        show(row);
    const bool isLeft = row.editor && row.editor->isEdited() && !row.editor->problem().isNull();
    if (then && !isLeft)
        then();
}

void DetailPane::store(const Row &row, const QString &text)
{
    const Outcome<> written = write(row, text);
    if (!written)
        row.editor->setProblem(written.reason());
}

Outcome<> DetailPane::write(const Row &row, const QString &text)
{
    if (_manyCount > 0)
        return takeForMany(row, text);
    Outcome<> read;
    const auto change = [&] { read = row.row->setText(text); };
    const Outcome<> changed = _changer ? _changer(change) : (change(), Outcome<>());
    const Outcome<> taken = changed.andThen([&read] { return read; });
    if (taken)
        row.editor->setText(row.row->text());
    return taken;
}

// --- Files --------------------------------------------------------------------------------------

PictureInput *DetailPane::pictureInput(qsizetype field) const
{
    return _rows.value(field).pictureInput;
}

void DetailPane::connectInput(const Row &row)
{
    QObject::connect(row.pictureInput, &PictureInput::given, row.editor,
                     [this, row](const QString &path) { give(row, path); });
    QObject::connect(row.pictureInput, &PictureInput::removed, row.editor,
                     [this, row] { take(row, QString()); });
    QObject::connect(row.pictureInput, &PictureInput::refused, row.editor,
                     &FieldEditor::setProblem);
}

/// Gives all selected records a file. There is no question that could be answered while nobody else
/// may change the bundle, so that they must not be too many.
void DetailPane::give(const Row &row, const QString &path)
{
    const auto use = [this, &row](const QString &url) { return write(row, url); };
    const bool areTooMany = selectedCount() > MostUnasked;
    const Outcome<> given = areTooMany ? Failure{tr("so many records do not get a file at once")}
                                       : _fileStorer(path, use);
    if (!given)
        row.editor->setProblem(given.reason());
}
