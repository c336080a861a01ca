#include "Commands/PictureFile.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QImage redImage()
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}
} // namespace

TEST(PictureFile, WritesAPictureWhateverTheNameIs)
{
    const testing_support::FileTree tree;
    for (const QString &name : {u"a.png"_s, u"a.txt"_s, u"公司"_s}) {
        ASSERT_TRUE(writePicture(redImage(), tree.path(name)));
        const QImage read(tree.path(name), "png");
        EXPECT_EQ(read.size(), QSize(3, 2));
        EXPECT_EQ(read.pixelColor(1, 1), QColor(Qt::red));
    }
}

TEST(PictureFile, TakesThePlaceOfAnother)
{
    const testing_support::FileTree tree;
    tree.add(u"a.png"_s, "something else");
    ASSERT_TRUE(writePicture(redImage(), tree.path(u"a.png"_s)));
    EXPECT_EQ(QImage(tree.path(u"a.png"_s)).size(), QSize(3, 2));
}

TEST(PictureFile, TellsWhyItCannotBeWritten)
{
    const testing_support::FileTree tree;
    EXPECT_EQ(writePicture(redImage(), tree.path(u"none/a.png"_s)).reason(),
              u"No such file or directory"_s);
}

TEST(PictureFile, APictureOfNothingLeavesTheFileAsItWas)
{
    const testing_support::FileTree tree;
    tree.add(u"a.png"_s, "something else");
    EXPECT_FALSE(writePicture(QImage(), tree.path(u"a.png"_s)));
    EXPECT_EQ(testing_support::contentsOf(tree.path(u"a.png"_s)), "something else");
}
