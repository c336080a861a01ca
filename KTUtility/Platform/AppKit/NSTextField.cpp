#include "NSTextField.h"

#include <KTUtility/Platform/Classes/NSClassRegistry.h>

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace {
/// More than any screen shows of a line. Each half of it is taken from one end.
constexpr qsizetype MostUnits = 32768;

bool isBreak(QChar character)
{
    return character == QChar::LineSeparator || character == QChar::ParagraphSeparator ||
           (character < u' ' && character.isSpace());
}
} // namespace

NSTextField::NSTextField(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(false);
}

void NSTextField::setLineBreakMode(Qt::TextElideMode mode)
{
    _lineBreakMode = mode;
    update();
}

/// The text on one line, and no longer than can be of use.
QString NSTextField::oneLine() const
{
    QString line = text();
    if (line.size() > MostUnits)
        line = line.first(MostUnits / 2) + line.last(MostUnits / 2);
    for (QChar &character : line) {
        if (isBreak(character))
            character = u' ';
    }
    return line;
}

int NSTextField::stringWidth() const
{
    return int(std::ceil(QFontMetricsF(font()).horizontalAdvance(oneLine())));
}

void NSTextField::sizeToFit()
{
    resize(sizeHint());
}

QString NSTextField::shownText() const
{
    const Shortened wanted{text(), font(), width(), _lineBreakMode};
    if (wanted == _shortened)
        return _shownText;
    _shortened = wanted;
    _shownText = QFontMetricsF(font()).elidedText(oneLine(), _lineBreakMode, width());
    return _shownText;
}

QSize NSTextField::sizeHint() const
{
    return {stringWidth(), int(std::ceil(QFontMetricsF(font()).height()))};
}

QSize NSTextField::minimumSizeHint() const
{
    return {0, int(std::ceil(QFontMetricsF(font()).height()))};
}

void NSTextField::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.setFont(font());
    painter.drawText(rect(), int(alignment() | Qt::TextSingleLine | Qt::TextDontClip), shownText());
}

KT_REGISTER_CLASS(NSTextField)
