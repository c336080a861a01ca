#include "KTFocusRingScrollView.h"

#include <KTUtility/Platform/Classes/NSClassRegistry.h>

KTFocusRingScrollView::KTFocusRingScrollView(QWidget *parent) : KTFocusRingContainer(parent) {}

KTFocusRingScrollView::~KTFocusRingScrollView() = default;

KT_REGISTER_CLASS(KTFocusRingScrollView)
