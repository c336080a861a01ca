#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QRectF>
#include <QWidget>

/// The window of the status display: without a frame, transparent, without a shadow, and never the
/// one that has the keyboard. Screen readers take it for a notification.
///
/// Where no compositor makes windows transparent, as in plain X11, the window has the shape of the
/// rounded panel.
class KTUTILITY_EXPORT KTStatusHUDWindow : public QWidget
{
    Q_OBJECT

public:
    /// A window that is not shown yet.
    explicit KTStatusHUDWindow(QWidget *parent = nullptr);
    /// \param contentRect where it is to be, in the system's coordinates (y upwards); see
    /// NSWindow::setFrame().
    /// \param styleMask is not used, on purpose: the window never has a frame.
    KTStatusHUDWindow(const QRectF &contentRect, Qt::WindowFlags styleMask);

protected:
    /// Cuts the window to the shape of the panel where windows cannot be transparent.
    void resizeEvent(QResizeEvent *event) override;
};
