#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/AppKit/NSSliderCell.h>

#include <QSlider>

#include <memory>

/// A slider whose knob is a picture, for use in code and, by its class name, in forms of Qt
/// Designer.
///
/// A slider of an interface file that NSNib loads begins with the settings of a new slider: what
/// the file says of range, value, steps and marks is not carried over. Set them in the code. The
/// orientation stays.
///
/// \code
/// auto *zoom = controller.outlet<KTMediaFieldSlider>(u"zoom"_s);
/// zoom->setRange(25, 400);
/// zoom->setValue(100);
/// \endcode
class KTUTILITY_EXPORT KTMediaFieldSlider : public QSlider
{
    Q_OBJECT

public:
    /// A slider with a cell of its own.
    explicit KTMediaFieldSlider(QWidget *parent = nullptr);
    ~KTMediaFieldSlider() override;

    /// What draws the slider; a KTMediaFieldSliderCell unless set.
    NSSliderCell *cell() const { return _cell.get(); }
    /// Has another cell draw the slider. The settings begin anew.
    void setCell(std::unique_ptr<NSSliderCell> cell);

    /// Takes a new KTMediaFieldSliderCell.
    Q_INVOKABLE void awakeFromNib();

    /// As the style wants it, and high enough for the picture.
    QSize sizeHint() const override;
    /// The least size of the style, and high enough for the picture.
    QSize minimumSizeHint() const override;

protected:
    /// Draws the cell; without one, the style's slider. Around a picture for the knob there is a frame
    /// while the slider has the keyboard, and a disabled one is faint.
    void paintEvent(QPaintEvent *event) override;

private:
    std::unique_ptr<NSSliderCell> _cell;
};
