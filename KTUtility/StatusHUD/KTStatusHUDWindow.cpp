#include "KTStatusHUDWindow.h"

#include "KTStatusHUDShape_p.h"
#include "KTStatusHUDView.h"
#include <KTUtility/Platform/AppKit/NSImage.h>
#include <KTUtility/Platform/AppKit/NSWindow.h>
#include <KTUtility/Platform/Classes/NSClassRegistry.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QBitmap>
#include <QGuiApplication>
#include <QPainter>

namespace {
QAccessibleInterface *makeAccessible(const QString & /*className*/, QObject *object)
{
    auto *const window = qobject_cast<KTStatusHUDWindow *>(object);
    return window ? new QAccessibleWidget(window, QAccessible::Notification) : nullptr;
}

void introduceToScreenReaders()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeAccessible);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

/// Every pixel that a rounded rectangle touches.
QRegion regionOfRoundRect(const QSize &size)
{
    QImage shape = NSImage::imageOfSize(size);
    if (shape.isNull())
        return QRegion(QRect(QPoint(), size));
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(KTStatusHUDView::bezierPathWithRoundRectInRect(QRectF(shape.rect()),
                                                                    KTStatusHUDCornerRadius),
                     Qt::black);
    painter.end();
    // The bits of a mask image are white for what they choose, and those of a bitmap black.
    return QRegion(
        QBitmap::fromImage(shape.createMaskFromColor(qRgba(0, 0, 0, 0), Qt::MaskInColor)));
}
} // namespace

KTStatusHUDWindow::KTStatusHUDWindow(QWidget *parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint |
                          Qt::WindowDoesNotAcceptFocus)
{
    introduceToScreenReaders();
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
}

KTStatusHUDWindow::KTStatusHUDWindow(const QRectF &contentRect, Qt::WindowFlags /*styleMask*/)
    : KTStatusHUDWindow(nullptr)
{
    NSWindow::setFrame(this, contentRect);
}

void KTStatusHUDWindow::resizeEvent(QResizeEvent *)
{
    if (QGuiApplication::platformName() == u"xcb")
        setMask(regionOfRoundRect(size()));
}

KT_REGISTER_CLASS(KTStatusHUDWindow)
