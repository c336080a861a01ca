#include "Appearance/LineIcon.h"

#include "support/TestSupport.h"

#include <QGuiApplication>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace {
const QString Cross = u"M 8 0 L 8 16 M 0 8 L 16 8"_s;

QColor middleOf(const QIcon &icon, int size, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(QSize(size, size), 1, mode).toImage().pixelColor(size / 2, size / 2);
}
} // namespace

class LineIconTests : public testing_support::WindowedTest
{
protected:
    LineIconTests() : _before(QGuiApplication::palette()) {}
    ~LineIconTests() override { QGuiApplication::setPalette(_before); }

    static void setTextColor(const QColor &color)
    {
        QPalette palette;
        palette.setColor(QPalette::WindowText, color);
        palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::gray);
        palette.setColor(QPalette::HighlightedText, Qt::yellow);
        QGuiApplication::setPalette(palette);
    }

private:
    QPalette _before;
};

TEST_F(LineIconTests, HasTheColourOfTexts)
{
    for (const QColor &color : {QColor(Qt::black), QColor(Qt::white), QColor(Qt::red)}) {
        setTextColor(color);
        const QIcon icon(new LineIcon(Cross));
        EXPECT_EQ(middleOf(icon, 16), color);
        EXPECT_EQ(middleOf(icon, 64), color);
        EXPECT_EQ(middleOf(icon, 16, QIcon::Disabled), QColor(Qt::gray));
        EXPECT_EQ(middleOf(icon, 16, QIcon::Selected), QColor(Qt::yellow));
    }
}

TEST_F(LineIconTests, IsEmptyBesideItsLines)
{
    const QIcon icon(new LineIcon(Cross));
    EXPECT_EQ(icon.pixmap(QSize(32, 32), 1).toImage().pixelColor(4, 4).alpha(), 0);
    const QIcon none(new LineIcon(QString()));
    EXPECT_EQ(none.pixmap(QSize(32, 32), 1).toImage().pixelColor(16, 16).alpha(), 0);
}

TEST_F(LineIconTests, CopiesAreTheSame)
{
    setTextColor(Qt::black);
    const LineIcon icon(Cross);
    const QIcon copy(icon.clone());
    EXPECT_EQ(middleOf(copy, 16), QColor(Qt::black));
}
