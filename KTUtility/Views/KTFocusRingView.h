#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QWidget>

#include <memory>

class KTFocusRing;

/// A container that shows one ring around itself whenever the keyboard focus is anywhere inside of
/// it, so that an editor made of several controls looks focused as a whole.
///
/// It works in code and, by its class name, in forms of Qt Designer. The ring lies 3 points around
/// the view: leave a margin. It follows the palette's highlight colour, and is drawn anew only when
/// the focus enters or leaves, not when it moves inside.
///
/// \code
/// auto *address = new KTFocusRingView(window);
/// auto *layout = new QFormLayout(address);
/// layout->addRow(tr("Street"), new QLineEdit);
/// layout->addRow(tr("City"), new QLineEdit);
/// \endcode
class KTUTILITY_EXPORT KTFocusRingView : public QWidget
{
    Q_OBJECT

public:
    explicit KTFocusRingView(QWidget *parent = nullptr);
    ~KTFocusRingView() override;

    /// Whether the window has the keyboard, and the focus is on this view or inside of it.
    bool shouldDrawFocusRing() const;

    /// Compares what is drawn with what should be, and has the ring drawn or erased if they
    /// differ. It is called whenever the focus or the active window changes.
    virtual void viewWillDraw();

    /// What had the focus when the ring was last turned on; null while there is no ring. Focus
    /// that moves inside does not change it. It may have been destroyed since: compare it only.
    QWidget *previousResponder() const { return _previousResponder; }

protected:
    /// Draws or erases the ring around a rectangle of this view; here, around all of it.
    virtual void setKeyboardFocusRingNeedsDisplayInRect(const QRect &rect);

private:
    std::unique_ptr<KTFocusRing> _ring;
    // Not used but to tell whether there is a ring, and for whom: it may be gone by now.
    QWidget *_previousResponder = nullptr;
};
