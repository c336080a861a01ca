#include "TextInputs.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace {
bool isReadOnly(const QWidget *input)
{
    return input->property("readOnly").toBool() || !input->isEnabled();
}

bool hasSelection(const QWidget *input)
{
    if (const auto *const line = qobject_cast<const QLineEdit *>(input))
        return line->hasSelectedText() && line->echoMode() == QLineEdit::Normal;
    if (const auto *const plain = qobject_cast<const QPlainTextEdit *>(input))
        return plain->textCursor().hasSelection();
    return static_cast<const QTextEdit *>(input)->textCursor().hasSelection();
}

/// Whether there is something typed to take back, or to type again.
bool canStep(const QWidget *input, bool isBack)
{
    if (const auto *const line = qobject_cast<const QLineEdit *>(input))
        return isBack ? line->isUndoAvailable() : line->isRedoAvailable();
    const auto *const plain = qobject_cast<const QPlainTextEdit *>(input);
    const QTextDocument *const text =
        plain ? plain->document() : static_cast<const QTextEdit *>(input)->document();
    return isBack ? text->isUndoAvailable() : text->isRedoAvailable();
}

/// The slot that all of them have for it.
const char *slotFor(EditCommand command)
{
    switch (command) {
    case EditCommand::Undo:
        return "undo";
    case EditCommand::Redo:
        return "redo";
    case EditCommand::Cut:
        return "cut";
    case EditCommand::Copy:
        return "copy";
    case EditCommand::Paste:
        return "paste";
    case EditCommand::SelectAll:
        return "selectAll";
    default:
        return nullptr;
    }
}
} // namespace

QWidget *TextInputs::focused()
{
    QWidget *const focus = QApplication::focusWidget();
    const bool isInput = qobject_cast<QLineEdit *>(focus) ||
                         qobject_cast<QPlainTextEdit *>(focus) || qobject_cast<QTextEdit *>(focus);
    return isInput ? focus : nullptr;
}

bool TextInputs::has(EditCommand command)
{
    return slotFor(command) != nullptr;
}

bool TextInputs::canDo(const QWidget *input, EditCommand command)
{
    switch (command) {
    case EditCommand::Undo:
    case EditCommand::Redo:
        return !isReadOnly(input) && canStep(input, command == EditCommand::Undo);
    case EditCommand::Cut:
        return !isReadOnly(input) && hasSelection(input);
    case EditCommand::Copy:
        return hasSelection(input);
    case EditCommand::Paste:
        return !isReadOnly(input) && QGuiApplication::clipboard()->mimeData() &&
               QGuiApplication::clipboard()->mimeData()->hasText();
    default:
        return has(command);
    }
}

void TextInputs::perform(QWidget *input, EditCommand command)
{
    QMetaObject::invokeMethod(input, slotFor(command));
}

bool TextInputs::performInFocused(EditCommand command)
{
    QWidget *const input = focused();
    const bool can = input && canDo(input, command);
    if (can)
        perform(input, command);
    return can;
}
