#include "Drops/DropHint.h"

#include "support/TestSupport.h"

#include <QImage>

using namespace Qt::StringLiterals;

using DropHintTests = testing_support::WindowedTest;

TEST_F(DropHintTests, CoversItsWindowWhileItIsSeen)
{
    QWidget window;
    window.resize(300, 200);
    const QImage before = window.grab().toImage();
    auto *const hint = new DropHint(&window, u"Let go to import the file"_s);
    EXPECT_TRUE(hint->isHidden());
    EXPECT_EQ(window.grab().toImage(), before);
    hint->setVisible(true);
    EXPECT_EQ(hint->geometry(), window.rect());
    const QImage covered = window.grab().toImage();
    EXPECT_EQ(covered.pixelColor(1, 100), window.palette().color(QPalette::Highlight));
    EXPECT_EQ(covered.pixelColor(298, 100), window.palette().color(QPalette::Highlight));
    EXPECT_EQ(window.childAt(150, 100), nullptr);
    hint->setVisible(false);
    EXPECT_EQ(window.grab().toImage(), before);
}
