#include "Window/MediaField.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <KTUtility/KTMediaFieldSlider>

#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {
class MediaFieldTests : public testing_support::WindowedTest
{
protected:
    /// A picture of 40 × 20: red at the left, blue at the right.
    QString twoColours()
    {
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(Qt::blue);
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 20; ++x)
                image.setPixelColor(x, y, Qt::red);
        }
        const QString path = tree.path(u"two.png"_s);
        EXPECT_TRUE(image.save(path));
        return path;
    }
    void press(const QString &title) const
    {
        for (QToolButton *const button : field.findChildren<QToolButton *>()) {
            if (button->accessibleName() == title) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        FAIL() << title.toStdString();
    }
    /// The colour at a part of the width and height.
    QColor at(double x, double y) const
    {
        const QImage picture = field.picture();
        return picture.pixelColor(int(x * picture.width()), int(y * picture.height()));
    }

    testing_support::FileTree tree;
    MediaField field;
};
} // namespace

TEST_F(MediaFieldTests, RunsItsExample)
{
    field.setFile(twoColours());
    EXPECT_EQ(field.caption(), u"two.png"_s);
    EXPECT_EQ(field.picture().size(), QSize(40, 20));
    field.turn(90);
    EXPECT_EQ(field.picture().size(), QSize(20, 40));
}

TEST_F(MediaFieldTests, ButtonsTurnAndMirror)
{
    field.setFile(twoColours());
    EXPECT_EQ(at(0.1, 0.5), QColor(Qt::red));
    press(u"Turn left"_s);
    EXPECT_EQ(at(0.5, 0.9), QColor(Qt::red));
    EXPECT_EQ(at(0.5, 0.1), QColor(Qt::blue));
    press(u"Turn right"_s);
    EXPECT_EQ(at(0.1, 0.5), QColor(Qt::red));
    press(u"Mirror left and right"_s);
    EXPECT_EQ(at(0.9, 0.5), QColor(Qt::red));
    press(u"Mirror top and bottom"_s);
    EXPECT_EQ(at(0.9, 0.5), QColor(Qt::red));
    for (int turns = 0; turns < 4; ++turns)
        press(u"Turn right"_s);
    EXPECT_EQ(at(0.9, 0.5), QColor(Qt::red));
}

TEST_F(MediaFieldTests, TheSliderSaysHowLarge)
{
    field.setFile(twoColours());
    EXPECT_EQ(field.zoom()->value(), 100);
    field.zoom()->setValue(200);
    EXPECT_EQ(field.picture().size(), QSize(80, 40));
    field.zoom()->setValue(1);
    EXPECT_EQ(field.zoom()->value(), MediaField::SmallestZoom);
    EXPECT_EQ(field.picture().size(), QSize(4, 2));
}

TEST_F(MediaFieldTests, AnotherFileBeginsAnew)
{
    const QString path = twoColours();
    field.setFile(path);
    field.turn(90);
    field.setFile(path);
    EXPECT_EQ(field.picture().size(), QSize(20, 40));
    field.setFile(QString());
    EXPECT_TRUE(field.picture().isNull());
    EXPECT_EQ(field.caption(), u"No file"_s);
    EXPECT_FALSE(field.zoom()->isEnabled());
    field.setFile(path);
    EXPECT_EQ(field.picture().size(), QSize(40, 20));
    EXPECT_TRUE(field.zoom()->isEnabled());
}

TEST_F(MediaFieldTests, WhatIsNoPictureIsToldOf)
{
    tree.add(u"song.mp3"_s, "no picture");
    tree.add(u"cut.png"_s, "\x89PNG\r\n\x1a\n");
    for (const char *const name : {"song.mp3", "cut.png", "missing.png", "."}) {
        field.setFile(tree.path(QString::fromLatin1(name)));
        EXPECT_TRUE(field.picture().isNull()) << name;
        EXPECT_TRUE(field.caption().contains(u": ")) << field.caption().toStdString();
        field.turn(90);
        field.flipHorizontally();
    }
}

TEST_F(MediaFieldTests, LargePicturesAreReadSmaller)
{
    QImage large(6000, 30, QImage::Format_RGB32);
    large.fill(Qt::red);
    const QString path = tree.path(u"large.png"_s);
    ASSERT_TRUE(large.save(path));
    field.setFile(path);
    EXPECT_EQ(field.picture().size(), QSize(2000, 10));
}
