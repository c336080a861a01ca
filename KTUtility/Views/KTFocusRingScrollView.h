#pragma once

#include "KTFocusRingContainer.h"
#include <KTUtility/KTUtilityExport.h>

/// A scroll area that shows one ring around itself whenever the keyboard focus is anywhere inside
/// of it, so that an editor made of several controls looks focused as a whole.
///
/// It works in code and, by its class name, in forms of Qt Designer. The ring lies 3 points around
/// the view: leave a margin. It follows the palette's highlight colour, and is drawn anew only when
/// the focus enters or leaves, not when it moves inside.
///
/// \code
/// auto *notes = new KTFocusRingScrollView(window);
/// notes->setWidget(new QPlainTextEdit);
/// notes->setWidgetResizable(true);
/// \endcode
class KTUTILITY_EXPORT KTFocusRingScrollView : public KTFocusRingContainer<QScrollArea>
{
    Q_OBJECT

public:
    /// A scroll area without a widget.
    explicit KTFocusRingScrollView(QWidget *parent = nullptr);
    ~KTFocusRingScrollView() override;
};
