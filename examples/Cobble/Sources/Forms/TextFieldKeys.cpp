#include "TextFieldKeys.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTextEdit>

#include <algorithm>

namespace {
constexpr QKeySequence::StandardKey KeysOfTextFields[] = {
    QKeySequence::Undo,
    QKeySequence::Redo,
    QKeySequence::Cut,
    QKeySequence::Copy,
    QKeySequence::Paste,
    QKeySequence::SelectAll,
    QKeySequence::Delete,
    QKeySequence::Backspace,
    QKeySequence::DeleteStartOfWord,
    QKeySequence::DeleteEndOfWord,
    QKeySequence::DeleteEndOfLine,
    QKeySequence::DeleteCompleteLine,
    QKeySequence::MoveToNextChar,
    QKeySequence::MoveToPreviousChar,
    QKeySequence::MoveToNextWord,
    QKeySequence::MoveToPreviousWord,
    QKeySequence::MoveToStartOfLine,
    QKeySequence::MoveToEndOfLine,
    QKeySequence::MoveToStartOfDocument,
    QKeySequence::MoveToEndOfDocument,
    QKeySequence::SelectNextChar,
    QKeySequence::SelectPreviousChar,
    QKeySequence::SelectNextWord,
    QKeySequence::SelectPreviousWord,
    QKeySequence::SelectStartOfLine,
    QKeySequence::SelectEndOfLine,
    QKeySequence::SelectStartOfDocument,
    QKeySequence::SelectEndOfDocument,
};

struct TextField
{
    /// Whether text can be typed into it.
    bool isEditable = false;
    /// Whether something was typed that could be taken back, or was.
    bool isTyping = false;
};

template<typename Edit>
TextField fieldOf(const Edit *edit)
{
    const QTextDocument *const text = edit->document();
    return {!edit->isReadOnly(), text->isUndoAvailable() || text->isRedoAvailable()};
}

TextField textField(const QObject *object)
{
    if (const auto *const line = qobject_cast<const QLineEdit *>(object))
        return {!line->isReadOnly(), line->isUndoAvailable() || line->isRedoAvailable()};
    if (const auto *const plain = qobject_cast<const QPlainTextEdit *>(object))
        return fieldOf(plain);
    const auto *const rich = qobject_cast<const QTextEdit *>(object);
    return rich ? fieldOf(rich) : TextField();
}

bool isUndo(const QKeyEvent *key)
{
    return key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo);
}

bool isUsed(const QKeyEvent *key)
{
    return std::any_of(std::begin(KeysOfTextFields), std::end(KeysOfTextFields),
                       [key](QKeySequence::StandardKey each) { return key->matches(each); });
}
} // namespace

bool TextFieldKeys::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    const TextField field = textField(object);
    const auto *const key = static_cast<QKeyEvent *>(event);
    if (!field.isEditable || !isUsed(key))
        return false;
    event->setAccepted(field.isTyping || !isUndo(key));
    return true;
}
