#include "KTFocusRingScrollView.h"

#include <KTUtility/Platform/Keys/NSClassRegistry.h>

KTFocusRingScrollView::KTFocusRingScrollView(QWidget *parent) : KTFocusRingContainer(parent) {}

KTFocusRingScrollView::~KTFocusRingScrollView() = default;

KT_REGISTER_CLASS(KTFocusRingScrollView)
