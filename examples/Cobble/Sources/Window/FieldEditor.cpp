#include "FieldEditor.h"

#include "Appearance/ProblemLabel.h"
#include "Appearance/Sentence.h"
#include "Editing/TextInput.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextDocument>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int MostLines = 5;
} // namespace

FieldEditor::FieldEditor(FieldType type, QWidget *parent) : QWidget(parent)
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    if (type == FieldType::Text)
        makeTextInput();
    else
        addInput(_line = new QLineEdit(this));
    _problem = new ProblemLabel(this);
    _problem->hide();
    layout->addWidget(_problem);
}

void FieldEditor::addInput(QWidget *input)
{
    layout()->addWidget(input);
    input->installEventFilter(this);
    setFocusProxy(input);
}

void FieldEditor::makeTextInput()
{
    _lines = new TextInput(this);
    _lines->setTabChangesFocus(true);
    _lines->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    addInput(_lines);
    QObject::connect(_lines, &TextInput::textChanged, this, &FieldEditor::fitHeight);
    fitHeight();
}

void FieldEditor::fitHeight()
{
    const int lines = qBound(1, _lines->blockCount(), MostLines);
    const int oneLine = _lines->fontMetrics().lineSpacing();
    _lines->setFixedHeight(_lines->heightOfLineEdit() + (lines - 1) * oneLine);
    _lines->setVerticalScrollBarPolicy(_lines->blockCount() > MostLines ? Qt::ScrollBarAsNeeded
                                                                        : Qt::ScrollBarAlwaysOff);
}

QWidget *FieldEditor::input() const
{
    return focusProxy();
}

QString FieldEditor::text() const
{
    return _lines ? _lines->text() : _line->text();
}

void FieldEditor::setText(const QString &text)
{
    setProblem(QString());
    if (!_lines)
        _line->setText(text);
    else if (_lines->text() != text)
        _lines->setText(text);
    // What was stored is for the window to undo.
    if (_lines)
        _lines->document()->clearUndoRedoStacks();
    // As the input has it, which turns some line breaks into others.
    _text = this->text();
}

void FieldEditor::setPlaceholderText(const QString &text)
{
    if (_lines)
        _lines->setPlaceholderText(text);
    else
        _line->setPlaceholderText(text);
}

void FieldEditor::setProblem(const QString &reason)
{
    const QString sentence = Sentence::of(reason);
    _problem->setText(sentence);
    _problem->setVisible(!sentence.isEmpty());
    input()->setAccessibleDescription(sentence);
    input()->setToolTip(sentence);
    ProblemLabel::mark(input(), !sentence.isEmpty());
}

QString FieldEditor::problem() const
{
    return _problem->isHidden() ? QString() : _problem->text();
}

void FieldEditor::setTitle(const QString &title)
{
    input()->setAccessibleName(title);
}

void FieldEditor::commit()
{
    if (isEdited())
        Q_EMIT committed(text());
}

/// \return whether the key is for the editor and not for its input.
bool FieldEditor::handleKey(int key, Qt::KeyboardModifiers modifiers)
{
    if (key == Qt::Key_Escape && isEdited()) {
        takeBack();
        return true;
    }
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!isReturn || (_lines && modifiers.testFlag(Qt::ShiftModifier)))
        return false;
    commit();
    return true;
}

bool FieldEditor::eventFilter(QObject *object, QEvent *event)
{
    if (object != input())
        return false;
    // A menu that opens over the editor takes the focus for a while only.
    if (event->type() == QEvent::FocusOut &&
        static_cast<const QFocusEvent *>(event)->reason() != Qt::PopupFocusReason)
        commit();
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto *const press = static_cast<QKeyEvent *>(event);
    return handleKey(press->key(), press->modifiers());
}
