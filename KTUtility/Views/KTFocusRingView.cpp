#include "KTFocusRingView.h"

#include <KTUtility/Platform/Classes/NSClassRegistry.h>

KTFocusRingView::KTFocusRingView(QWidget *parent) : KTFocusRingContainer(parent) {}

KTFocusRingView::~KTFocusRingView() = default;

KT_REGISTER_CLASS(KTFocusRingView)
