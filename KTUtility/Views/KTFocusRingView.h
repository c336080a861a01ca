#pragma once

#include "KTFocusRingContainer.h"
#include <KTUtility/KTUtilityExport.h>

/// A container that shows one ring around itself whenever the keyboard focus is anywhere inside of
/// it, so that an editor made of several controls looks focused as a whole.
///
/// It works in code and, by its class name, in forms of Qt Designer. The ring lies 3 points around
/// the view: leave a margin. It follows the palette's highlight colour, and is drawn anew only when
/// the focus enters or leaves, not when it moves inside.
///
/// \code
/// auto *address = new KTFocusRingView(window);
/// auto *layout = new QFormLayout(address);
/// layout->addRow(tr("Street"), new QLineEdit);
/// layout->addRow(tr("City"), new QLineEdit);
/// \endcode
class KTUTILITY_EXPORT KTFocusRingView : public KTFocusRingContainer<QWidget>
{
    Q_OBJECT

public:
    /// An empty container.
    explicit KTFocusRingView(QWidget *parent = nullptr);
    ~KTFocusRingView() override;
};
