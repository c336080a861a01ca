#include "DetailPane.h"

#include "FieldEditor.h"
#include "MediaField.h"

#include <KTUtility/Platform/Foundation/NSKeyValueCoding.h>
#include <KTUtility/Platform/Foundation/NSSelectionMarker.h>

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {
/// What stands in an empty editor.
QString placeholderFor(const QVariant &value)
{
    if (!NSIsControllerMarker(value))
        return {};
    return value.value<NSSelectionMarker>().kind == NSSelectionMarker::Kind::MultipleValues
               ? QStringLiteral("Multiple values")
               : QString();
}
/// A title in which "&" is a letter like others.
QString labelText(const QVariant &title)
{
    return title.toString().replace(u'&', QStringLiteral("&&")) + u':';
}
} // namespace

DetailPane::DetailPane(NSArrayController *records, QWidget *parent)
    : QWidget(parent), _records(records), _form(records), _layout(new QFormLayout(this))
{
    _layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    QObject::connect(&_form, &DetailForm::rowsChanged, this, &DetailPane::rebuild);
    QObject::connect(records, &NSArrayController::selectionChanged, this,
                     &DetailPane::showSelection);
}

DetailPane::~DetailPane()
{
    // The rows go before the editors, which look at them.
    qDeleteAll(_editors);
}

void DetailPane::setFields(const QList<FormField *> &fields)
{
    _form.setFields(fields);
}

FieldEditor *DetailPane::editor(qsizetype field) const
{
    return _editors.value(field);
}

void DetailPane::rebuild()
{
    while (_layout->rowCount() > 0)
        _layout->removeRow(0);
    _editors.clear();
    _mediaFields.clear();
    for (FormRow *const row : _form.rows())
        addRow(row);
    _shown = _records->selectedObjects();
}

void DetailPane::addRow(FormRow *row)
{
    auto *const editor = new FieldEditor(row->field()->field().type, this);
    auto *const label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(editor->input());
    _layout->addRow(label, inputFor(row, editor));
    _editors += editor;
    const auto refresh = [this, row, editor, label] {
        label->setText(labelText(row->label()));
        editor->setTitle(row->label().toString());
        // What is being typed is not taken away.
        if (!editor->isEdited())
            show(row, editor);
    };
    refresh();
    QObject::connect(row, &FormRow::changed, editor, refresh);
    QObject::connect(editor, &FieldEditor::committed, row,
                     [this, row, editor](const QString &text) { take(row, editor, text); });
}

/// The editor, for media with their picture below.
QWidget *DetailPane::inputFor(FormRow *row, FieldEditor *editor)
{
    const bool isMedia = row->field()->field().type == FieldType::Media;
    auto *const media = isMedia ? new MediaField : nullptr;
    _mediaFields += media;
    if (!media)
        return editor;
    auto *const both = new QWidget(this);
    auto *const layout = new QVBoxLayout(both);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(editor);
    layout->addWidget(media);
    return both;
}

MediaField *DetailPane::mediaField(qsizetype field) const
{
    return _mediaFields.value(field);
}

/// Shows other records than before; if they are the same, what is being typed stays.
void DetailPane::showSelection()
{
    const QVariantList selected = _records->selectedObjects();
    const bool areOthers = selected != _shown;
    _shown = selected;
    const QList<FormRow *> rows = _form.rows();
    for (qsizetype field = 0; field < qMin(rows.size(), _editors.size()); ++field) {
        if (areOthers || !_editors.at(field)->isEdited())
            show(rows.at(field), _editors.at(field));
    }
}

// A row keeps the value that it has when what is selected has none, or several.
void DetailPane::show(FormRow *row, FieldEditor *editor) const
{
    const QVariant value =
        NSKeyValueCoding::valueForKey(_records->selection(), row->field()->key());
    editor->setText(NSIsControllerMarker(value) ? QString() : row->text());
    editor->setPlaceholderText(placeholderFor(value));
    const bool isMedia = row->field()->field().type == FieldType::Media;
    editor->setEnabled(!isMedia && !_records->selectionIndexes().isEmpty());
    showMedia(row, editor);
}

void DetailPane::showMedia(const FormRow *row, const FieldEditor *editor) const
{
    const qsizetype position = _form.rows().indexOf(row);
    MediaField *const media = _mediaFields.value(position);
    if (media)
        media->setFile(_fileFinder && !editor->text().isEmpty() ? _fileFinder(editor->text())
                                                                : QString());
}

void DetailPane::take(FormRow *row, FieldEditor *editor, const QString &text)
{
    QString reason;
    bool isRead = false;
    const auto read = [&] { isRead = row->setText(text, &reason); };
    const QString refusal = _changer ? _changer(read) : (read(), QString());
    if (!isRead && refusal.isNull())
        editor->setProblem(reason.isEmpty() ? QStringLiteral("it cannot be read") : reason);
    else if (!refusal.isNull())
        editor->setProblem(refusal);
    else
        editor->setText(row->text());
}
