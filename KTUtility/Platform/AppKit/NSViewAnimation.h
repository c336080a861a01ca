#pragma once

#include "NSAnimation.h"
#include <KTUtility/KTUtilityExport.h>

#include <QPointer>
#include <QWidget>

/// What becomes of the view.
enum class NSViewAnimationEffect {
    /// It is shown, and becomes opaque.
    FadeIn,
    /// It becomes transparent, from what it was, and is hidden at the end.
    FadeOut,
};

/// Fades a view in or out.
///
/// The view gets a QGraphicsOpacityEffect, since the opacity of windows needs a compositor; while
/// it is opaque, the effect is off and costs nothing. If two animations fade the same view, the one
/// that was started last decides what is seen; both come to their ends.
///
/// \code
/// NSViewAnimation fade(panel, NSViewAnimationEffect::FadeIn, 0.15, NSAnimationEaseIn);
/// fade.setAnimationBlockingMode(NSAnimationNonblocking);
/// fade.startAnimation();
/// \endcode
class KTUTILITY_EXPORT NSViewAnimation : public NSAnimation
{
public:
    /// \param target may be destroyed before; then there is nothing to see.
    NSViewAnimation(QWidget *target, NSViewAnimationEffect effect, double duration,
                    NSAnimationCurve animationCurve);

    /// The view that fades; null if it was destroyed.
    QWidget *target() const { return _target; }
    /// Whether it appears or disappears.
    NSViewAnimationEffect effect() const { return _effect; }

    /// How opaque a view is, 0 to 1.
    static double opacityOf(const QWidget *view);

protected:
    void willStart() override;
    void setCurrentValue(double value) override;
    void flush() override;

private:
    QPointer<QWidget> _target;
    NSViewAnimationEffect _effect;
    double _startOpacity = 1;
};
