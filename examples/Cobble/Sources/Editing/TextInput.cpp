#include "TextInput.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// The longest word that lines are broken around.
constexpr qsizetype LongestWord = 2000;
/// Between frame and text, as in inputs of one line.
constexpr int TextMargin = 2;

bool hasLongWord(const QString &text)
{
    qsizetype length = 0;
    return std::any_of(text.begin(), text.end(), [&length](QChar unit) {
        length = unit.isSpace() ? 0 : length + 1;
        return length > LongestWord;
    });
}
} // namespace

TextInput::TextInput(QWidget *parent) : QPlainTextEdit(parent)
{
    document()->setDocumentMargin(TextMargin);
    viewport()->setAutoFillBackground(false);
}

int TextInput::heightOfLineEdit() const
{
    QStyleOptionFrame option;
    option.initFrom(this);
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
    // A line edit has a unit above and below its text.
    const QSize text(1, fontMetrics().height() + 2);
    const int height = style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, this).height();
    return qMax(height, fontMetrics().lineSpacing() + 2 * TextMargin + 2 * frameWidth());
}

void TextInput::paintFrame()
{
    QStyleOptionFrame option;
    option.initFrom(this);
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
    option.state |= QStyle::State_Sunken;
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
}

bool TextInput::event(QEvent *event)
{
    if (event->type() != QEvent::Paint)
        return QPlainTextEdit::event(event);
    paintFrame();
    return true;
}

void TextInput::focusInEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusInEvent(event);
    update();
}

void TextInput::focusOutEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusOutEvent(event);
    update();
}

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
