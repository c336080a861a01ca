#include "KTFocusRingScrollView.h"

#include "KTFocusRing_p.h"
#include <KTUtility/Platform/Keys/NSClassRegistry.h>

KTFocusRingScrollView::KTFocusRingScrollView(QWidget *parent)
    : QScrollArea(parent), _ring(std::make_unique<KTFocusRing>(this, [this] { viewWillDraw(); }))
{
}

KTFocusRingScrollView::~KTFocusRingScrollView() = default;

bool KTFocusRingScrollView::shouldDrawFocusRing() const
{
    return _ring->shouldDraw();
}

void KTFocusRingScrollView::viewWillDraw()
{
    const bool shouldDraw = shouldDrawFocusRing();
    if (shouldDraw == (_previousResponder != nullptr))
        return;
    _previousResponder = shouldDraw ? _ring->firstResponder() : nullptr;
    setKeyboardFocusRingNeedsDisplayInRect(rect());
}

void KTFocusRingScrollView::setKeyboardFocusRingNeedsDisplayInRect(const QRect & /*rect*/)
{
    _ring->display();
}

KT_REGISTER_CLASS(KTFocusRingScrollView)
