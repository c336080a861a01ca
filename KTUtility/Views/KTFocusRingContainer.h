#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QScrollArea>
#include <QWidget>

#include <memory>

class KTFocusRing;

/// What KTFocusRingView and KTFocusRingScrollView have in common: a view that shows one ring around
/// itself whenever the keyboard focus is anywhere inside of it. Use these two.
///
/// \tparam View what it is besides: QWidget or QScrollArea; there is no code for others.
template<typename View>
class KTFocusRingContainer : public View
{
public:
    ~KTFocusRingContainer() override;

    /// Whether the window has the keyboard, and the focus is on this view or inside of it.
    bool shouldDrawFocusRing() const;

    /// Compares what is drawn with what should be, and has the ring drawn or erased if they
    /// differ. It is called whenever the focus or the active window changes.
    virtual void viewWillDraw();

    /// What had the focus when the ring was last turned on; null while there is no ring. Focus
    /// that moves inside does not change it. It may have been destroyed since: compare it only.
    QWidget *previousResponder() const { return _previousResponder; }

protected:
    /// A view without a ring.
    explicit KTFocusRingContainer(QWidget *parent);

    /// Draws or erases the ring around a rectangle of this view; here, around all of it.
    virtual void setKeyboardFocusRingNeedsDisplayInRect(const QRect &rect);

private:
    std::unique_ptr<KTFocusRing> _ring;
    // Only used to know whether there is a ring, and for whom: it may be destroyed by now.
    QWidget *_previousResponder = nullptr;
};

extern template class KTUTILITY_EXPORT KTFocusRingContainer<QWidget>;
extern template class KTUTILITY_EXPORT KTFocusRingContainer<QScrollArea>;
