#include "KTFocusRingContainer.h"

#include "KTFocusRing_p.h"

template<typename View>
KTFocusRingContainer<View>::KTFocusRingContainer(QWidget *parent)
    : View(parent), _ring(std::make_unique<KTFocusRing>(this, [this] { viewWillDraw(); }))
{
}

template<typename View>
KTFocusRingContainer<View>::~KTFocusRingContainer() = default;

template<typename View>
bool KTFocusRingContainer<View>::shouldDrawFocusRing() const
{
    return _ring->shouldDraw();
}

template<typename View>
void KTFocusRingContainer<View>::viewWillDraw()
{
    const bool shouldDraw = shouldDrawFocusRing();
    if (shouldDraw == (_previousResponder != nullptr))
        return;
    _previousResponder = shouldDraw ? _ring->firstResponder() : nullptr;
    setKeyboardFocusRingNeedsDisplayInRect(this->rect());
}

template<typename View>
void KTFocusRingContainer<View>::setKeyboardFocusRingNeedsDisplayInRect(const QRect & /*rect*/)
{
    _ring->display();
}

template class KTFocusRingContainer<QWidget>;
template class KTFocusRingContainer<QScrollArea>;
