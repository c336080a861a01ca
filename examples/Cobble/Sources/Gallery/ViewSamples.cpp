#include "ViewSamples.h"

#include "GallerySample.h"

#include <KTUtility/KTFocusRingScrollView>
#include <KTUtility/KTFocusRingView>
#include <KTUtility/KTMediaFieldSlider>
#include <KTUtility/KTStatusHUDController>
#include <KTUtility/NSManualClock>

#include <QApplication>
#include <QFormLayout>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
/// What the display looks like when it has faded in.
QPixmap statusDisplay(const QString &text, bool isLarge)
{
    NSManualClock clock;
    KTStatusHUDController hud;
    hud.setLargeText(isLarge);
    hud.showStatusWindowWithString(text, QRectF(0, 0, 400, 240), false);
    clock.advance(0.5);
    return hud.window() ? hud.window()->grab() : QPixmap();
}

QImage drawDisplayOverTable(const QString &text, bool isLarge)
{
    const QPixmap display = statusDisplay(text, isLarge);
    return gallerySample([&](QPainter &painter) {
        drawSampleTable(painter);
        QRect place(QPoint(), (QSizeF(display.size()) / display.devicePixelRatio()).toSize());
        place.moveCenter(QRect(QPoint(), GallerySize).center());
        painter.drawPixmap(place.topLeft(), display);
    });
}

/// Waits for the window to have the keyboard; without a desktop, it is given at once.
void activate(QWidget &window)
{
    constexpr int Patience = 100;
    window.show();
    window.activateWindow();
    for (int turn = 0; turn < Patience && !window.isActiveWindow(); ++turn)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
}

/// A window with one view in the middle, of which a control has the keyboard.
QImage drawWindow(QWidget *view, QWidget *focused)
{
    QWidget window;
    window.setAttribute(Qt::WA_QuitOnClose, false);
    window.setFixedSize(GallerySize);
    auto *const layout = new QVBoxLayout(&window);
    layout->setContentsMargins(28, 28, 28, 28);
    layout->addWidget(view);
    activate(window);
    if (focused)
        focused->setFocus();
    return window.grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QLineEdit *lineOf(const QString &text)
{
    auto *const line = new QLineEdit(text);
    // The blinking mark would be there in some pictures and not in others.
    line->setReadOnly(true);
    return line;
}

KTMediaFieldSlider *sliderAt(int value)
{
    auto *const slider = new KTMediaFieldSlider;
    slider->setValue(value);
    return slider;
}
} // namespace

QImage drawStatusDisplay()
{
    return drawDisplayOverTable(u"247 records imported"_s, false);
}

QImage drawLargeStatusDisplay()
{
    return drawDisplayOverTable(u"247"_s, true);
}

QImage drawFocusRingView()
{
    auto *const address = new KTFocusRingView;
    auto *const form = new QFormLayout(address);
    QLineEdit *const city = lineOf(u"Bergen"_s);
    form->addRow(u"Street"_s, lineOf(u"Strandgaten 12"_s));
    form->addRow(u"City"_s, city);
    form->addRow(u"Country"_s, lineOf(u"Norway"_s));
    return drawWindow(address, city);
}

QImage drawFocusRingScrollView()
{
    auto *const notes = new KTFocusRingScrollView;
    auto *const text = new QPlainTextEdit(
        u"Met at the fair.\nWants the catalogue of spring,\nand a call in May."_s);
    text->setReadOnly(true);
    text->setFrameShape(QFrame::NoFrame);
    text->setFocusPolicy(Qt::StrongFocus);
    notes->setWidget(text);
    notes->setWidgetResizable(true);
    return drawWindow(notes, text);
}

QImage drawSlider()
{
    auto *const column = new QWidget;
    auto *const layout = new QVBoxLayout(column);
    for (const int value : {0, 40, 99})
        layout->addWidget(sliderAt(value));
    return drawWindow(column, nullptr);
}
