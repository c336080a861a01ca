#include "KTFocusRingView.h"

#include "KTFocusRing_p.h"
#include <KTUtility/Platform/Keys/NSClassRegistry.h>

KTFocusRingView::KTFocusRingView(QWidget *parent)
    : QWidget(parent), _ring(std::make_unique<KTFocusRing>(this, [this] { viewWillDraw(); }))
{
}

KTFocusRingView::~KTFocusRingView() = default;

bool KTFocusRingView::shouldDrawFocusRing() const
{
    return _ring->shouldDraw();
}

void KTFocusRingView::viewWillDraw()
{
    const bool shouldDraw = shouldDrawFocusRing();
    if (shouldDraw == (_previousResponder != nullptr))
        return;
    _previousResponder = shouldDraw ? _ring->firstResponder() : nullptr;
    setKeyboardFocusRingNeedsDisplayInRect(rect());
}

void KTFocusRingView::setKeyboardFocusRingNeedsDisplayInRect(const QRect & /*rect*/)
{
    _ring->display();
}

KT_REGISTER_CLASS(KTFocusRingView)
