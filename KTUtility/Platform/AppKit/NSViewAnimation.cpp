#include "NSViewAnimation.h"

#include <QGraphicsOpacityEffect>

namespace {
/// The animation that decides what is seen of a view.
constexpr const char *AnimationProperty = "_NSViewAnimation";

QGraphicsOpacityEffect *opacityEffectOf(const QWidget *view)
{
    return qobject_cast<QGraphicsOpacityEffect *>(view->graphicsEffect());
}

void setOpacity(QWidget *view, double opacity)
{
    QGraphicsOpacityEffect *effect = opacityEffectOf(view);
    if (!effect) {
        effect = new QGraphicsOpacityEffect;
        view->setGraphicsEffect(effect);
    }
    effect->setOpacity(opacity);
    effect->setEnabled(opacity < 1);
}

bool decides(const QWidget *view, const QObject *animation)
{
    return view->property(AnimationProperty).value<quintptr>() ==
           reinterpret_cast<quintptr>(animation);
}
} // namespace

NSViewAnimation::NSViewAnimation(QWidget *target, NSViewAnimationEffect effect, double duration,
                                 NSAnimationCurve animationCurve)
    : NSAnimation(duration, animationCurve), _target(target), _effect(effect)
{
}

double NSViewAnimation::opacityOf(const QWidget *view)
{
    const QGraphicsOpacityEffect *const effect = opacityEffectOf(view);
    return effect ? effect->opacity() : 1;
}

void NSViewAnimation::willStart()
{
    if (!_target)
        return;
    _target->setProperty(AnimationProperty, QVariant::fromValue(reinterpret_cast<quintptr>(this)));
    _startOpacity = opacityOf(_target);
    if (_effect == NSViewAnimationEffect::FadeIn)
        _target->show();
}

void NSViewAnimation::setCurrentValue(double value)
{
    if (!_target || !decides(_target, this))
        return;
    const bool fadesIn = _effect == NSViewAnimationEffect::FadeIn;
    setOpacity(_target, fadesIn ? value : _startOpacity * (1 - value));
    if (!fadesIn && value >= 1)
        _target->hide();
}

void NSViewAnimation::flush()
{
    if (_target)
        _target->repaint();
}
