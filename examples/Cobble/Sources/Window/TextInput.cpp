#include "TextInput.h"

#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// The longest word that lines are broken around.
constexpr qsizetype LongestWord = 2000;

bool hasLongWord(const QString &text)
{
    qsizetype length = 0;
    return std::any_of(text.begin(), text.end(), [&length](QChar unit) {
        length = unit.isSpace() ? 0 : length + 1;
        return length > LongestWord;
    });
}
} // namespace

TextInput::TextInput(QWidget *parent) : QPlainTextEdit(parent) {}

void TextInput::setWrapModeFor(const QString &text)
{
    setLineWrapMode(hasLongWord(text) ? NoWrap : WidgetWidth);
}

QString TextInput::text() const
{
    return document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

void TextInput::setText(const QString &text)
{
    // Nothing is to be broken anew while the mode changes.
    clear();
    setWrapModeFor(text);
    setPlainText(text);
}

void TextInput::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && event->modifiers().testFlag(Qt::ShiftModifier))
        insertPlainText(u"\n"_s);
    else
        QPlainTextEdit::keyPressEvent(event);
}

void TextInput::insertFromMimeData(const QMimeData *source)
{
    // As if it came into the longest word.
    if (source->hasText())
        setWrapModeFor(text() + source->text());
    QPlainTextEdit::insertFromMimeData(source);
}
