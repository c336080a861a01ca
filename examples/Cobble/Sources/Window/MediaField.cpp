#include "MediaField.h"

#include <KTUtility/KTMediaFieldSlider>
#include <KTUtility/NSImage>
#include <KTUtility/NSImage_KTAdditions>

#include <QFileInfo>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QScrollArea>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int ViewHeight = 140;

QLabel *plainLabel(QWidget *parent)
{
    auto *const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}
} // namespace

MediaField::MediaField(QWidget *parent)
    : QWidget(parent)
    , _tools(new QWidget(this))
    , _caption(plainLabel(this))
    , _view(plainLabel(this))
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *const scroller = new QScrollArea(this);
    scroller->setFixedHeight(ViewHeight);
    scroller->setWidget(_view);
    scroller->setAlignment(Qt::AlignCenter);
    scroller->setAccessibleName(tr("Picture"));
    auto *const tools = new QHBoxLayout(_tools);
    tools->setContentsMargins(0, 0, 0, 0);
    makeSlider();
    addButton(u"↺"_s, tr("Turn left"), &MediaField::turnLeft);
    addButton(u"↻"_s, tr("Turn right"), &MediaField::turnRight);
    addButton(u"⇆"_s, tr("Mirror left and right"), &MediaField::flipHorizontally);
    addButton(u"⇅"_s, tr("Mirror top and bottom"), &MediaField::flipVertically);
    layout->addWidget(_caption);
    layout->addWidget(scroller);
    layout->addWidget(_tools);
}

void MediaField::makeSlider()
{
    _zoom = new KTMediaFieldSlider(_tools);
    _zoom->setOrientation(Qt::Horizontal);
    _zoom->setRange(SmallestZoom, LargestZoom);
    _zoom->setPageStep(25);
    _zoom->setAccessibleName(tr("Size in percent"));
    _tools->layout()->addWidget(_zoom);
    QObject::connect(_zoom, &QSlider::valueChanged, this, &MediaField::showPicture);
}

void MediaField::addButton(const QString &text, const QString &title, void (MediaField::*press)())
{
    auto *const button = new QToolButton(_tools);
    button->setText(text);
    button->setToolTip(title);
    button->setAccessibleName(title);
    _tools->layout()->addWidget(button);
    QObject::connect(button, &QToolButton::clicked, this, press);
}

QImage MediaField::read(const QString &path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (qMax(size.width(), size.height()) > LargestSide)
        reader.setScaledSize(size.scaled(LargestSide, LargestSide, Qt::KeepAspectRatio));
    const QImage image = reader.read();
    const QString name = QFileInfo(path).fileName();
    _caption->setText(image.isNull() ? tr("%1: %2").arg(name, reader.errorString()) : name);
    return image;
}

void MediaField::setFile(const QString &path)
{
    if (path == _path && !path.isNull())
        return;
    _path = path;
    _caption->setText(tr("No file"));
    _image = path.isNull() ? QImage() : read(path);
    _degrees = 0;
    _isFlippedHorizontally = false;
    _isFlippedVertically = false;
    _tools->setEnabled(!_image.isNull());
    fit();
    showPicture();
}

/// As large as the view allows, and no larger than it is.
void MediaField::fit()
{
    if (_image.isNull())
        return;
    const int percent = 100 * (ViewHeight - 8) / qMax(1, _image.height());
    const QSignalBlocker blocker(_zoom);
    _zoom->setValue(std::clamp(percent, SmallestZoom, 100));
}

QImage MediaField::picture() const
{
    if (_image.isNull())
        return {};
    const QImage turned = KTAdditions::imageRotated(_image, _image, float(_degrees),
                                                    _isFlippedHorizontally, _isFlippedVertically);
    const QSizeF size = NSImage::sizeOf(turned) * _zoom->value() / 100;
    if (turned.isNull() || !NSImage::canMakeImageOfPixels(size))
        return turned;
    return turned.scaled(size.toSize().expandedTo({1, 1}), Qt::IgnoreAspectRatio,
                         Qt::SmoothTransformation);
}

QString MediaField::caption() const
{
    return _caption->text();
}

void MediaField::showPicture()
{
    _view->setPixmap(QPixmap::fromImage(picture()));
    _view->adjustSize();
}

void MediaField::turn(int degrees)
{
    _degrees = (_degrees + degrees) % 360;
    showPicture();
}

void MediaField::flipHorizontally()
{
    _isFlippedHorizontally = !_isFlippedHorizontally;
    showPicture();
}

void MediaField::flipVertically()
{
    _isFlippedVertically = !_isFlippedVertically;
    showPicture();
}
