#pragma once

#include <QImage>
#include <QWidget>

class KTMediaFieldSlider;
class QLabel;

/// The picture of a media field, with a slider for its size and buttons that turn and mirror it.
/// That is for looking only; the file stays as it is.
///
/// \code
/// MediaField field;
/// field.setFile(bundle.filePathFromMediaUrl(url));
/// field.turn(90);
/// \endcode
class MediaField : public QWidget
{
    Q_OBJECT

public:
    /// In percent of a picture's own size.
    static constexpr int SmallestZoom = 10;
    static constexpr int LargestZoom = 400;
    /// Larger pictures are read smaller, to the pixel.
    static constexpr int LargestSide = 2000;

    explicit MediaField(QWidget *parent = nullptr);

    /// Shows a file upright and in a size that fits; nil shows none.
    void setFile(const QString &path);
    /// The picture as it is shown now; null if the file is none.
    QImage picture() const;
    /// What stands above the picture: the file's name, or why there is no picture.
    QString caption() const;

    /// Turns the picture counterclockwise, by degrees.
    void turn(int degrees);
    void flipHorizontally();
    void flipVertically();
    KTMediaFieldSlider *zoom() const { return _zoom; }

private:
    void addButton(const QString &text, const QString &title, void (MediaField::*press)());
    void turnLeft() { turn(90); }
    void turnRight() { turn(-90); }
    void makeSlider();
    QImage read(const QString &path);
    void fit();
    void showPicture();

    QImage _image;
    QString _path;
    int _degrees = 0;
    bool _isFlippedHorizontally = false;
    bool _isFlippedVertically = false;
    QWidget *_tools;
    QLabel *_caption;
    QLabel *_view;
    KTMediaFieldSlider *_zoom = nullptr;
};
