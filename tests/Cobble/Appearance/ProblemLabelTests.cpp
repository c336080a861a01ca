#include "Appearance/ProblemLabel.h"

#include "support/TestSupport.h"

#include <QLineEdit>
#include <QVBoxLayout>

namespace {
struct Scheme
{
    const char *name;
    QColor window;
    QColor text;
};

const Scheme Schemes[] = {
    {"light", QColor(239, 240, 241), QColor(35, 38, 41)},
    {"white", Qt::white, Qt::black},
    {"dark", QColor(42, 46, 50), QColor(252, 252, 252)},
    {"middle", QColor(119, 119, 119), Qt::white},
    {"black", Qt::black, Qt::white},
    {"yellow on black", Qt::black, Qt::yellow},
    {"black on yellow", QColor(255, 255, 180), Qt::black},
};

QPalette paletteOf(const Scheme &scheme)
{
    QPalette palette;
    palette.setColor(QPalette::Window, scheme.window);
    palette.setColor(QPalette::WindowText, scheme.text);
    return palette;
}

QColor shownOn(const QLabel &label)
{
    return label.palette().color(label.foregroundRole());
}
} // namespace

class ProblemLabelTests : public testing_support::WindowedTest
{
};

TEST_F(ProblemLabelTests, ContrastIsThatOfTheGuidelines)
{
    EXPECT_NEAR(ProblemLabel::contrast(Qt::black, Qt::white), 21, 0.001);
    EXPECT_NEAR(ProblemLabel::contrast(Qt::white, Qt::white), 1, 0.001);
    EXPECT_NEAR(ProblemLabel::contrast(QColor(119, 119, 119), Qt::white), 4.48, 0.01);
    // What looked well on white only.
    EXPECT_NEAR(ProblemLabel::contrast(QColor(0xc0392b), QColor(42, 46, 50)), 2.5, 0.1);
}

TEST_F(ProblemLabelTests, CanBeReadOnEveryBackground)
{
    for (const Scheme &scheme : Schemes) {
        QWidget window;
        window.setPalette(paletteOf(scheme));
        const ProblemLabel label(&window);
        EXPECT_GE(ProblemLabel::contrast(shownOn(label), scheme.window),
                  ProblemLabel::LeastContrast)
            << scheme.name;
    }
}

TEST_F(ProblemLabelTests, IsRedWhereRedCanBeRead)
{
    for (const QColor &background : {QColor(Qt::white), QColor(42, 46, 50), QColor(Qt::black)}) {
        const QColor red = ProblemLabel::colorOn(background);
        EXPECT_GT(red.red(), red.green() + 60);
        EXPECT_GT(red.red(), red.blue() + 60);
    }
}

TEST_F(ProblemLabelTests, FollowsTheDesktopsColours)
{
    QWidget window;
    const ProblemLabel label(&window);
    for (const Scheme &scheme : Schemes) {
        window.setPalette(paletteOf(scheme));
        EXPECT_GE(ProblemLabel::contrast(shownOn(label), scheme.window),
                  ProblemLabel::LeastContrast)
            << scheme.name;
    }
}

TEST_F(ProblemLabelTests, MarkedInputsCanBeRead)
{
    const std::pair<QColor, QColor> grounds[] = {
        {Qt::white, Qt::black}, {{35, 38, 41}, {252, 252, 252}}, {Qt::black, Qt::white}};
    for (const auto &[ground, text] : grounds) {
        QWidget window;
        QPalette colors;
        colors.setColor(QPalette::Base, ground);
        colors.setColor(QPalette::Text, text);
        window.setPalette(colors);
        QLineEdit input(&window);
        ProblemLabel::mark(&input, true);
        const QColor marked = input.palette().color(QPalette::Base);
        EXPECT_NE(marked, ground);
        EXPECT_GE(ProblemLabel::contrast(text, marked), ProblemLabel::LeastContrast);
        ProblemLabel::mark(&input, false);
        EXPECT_EQ(input.palette().color(QPalette::Base), ground);
    }
}

TEST_F(ProblemLabelTests, AFrameLiesAroundTextAndSign)
{
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        ProblemLabel label;
        label.setLayoutDirection(direction);
        label.setText(QStringLiteral("wrong"));
        const QSize bare = label.sizeHint();
        label.setFramed(true);
        EXPECT_EQ(label.sizeHint(), bare + QSize(8, 8));
        label.resize(label.sizeHint());
        const QImage drawn = label.grab().toImage();
        const QRgb line = label.palette().color(QPalette::WindowText).rgb();
        for (const QPoint &corner : {label.rect().topLeft(), label.rect().topRight(),
                                     label.rect().bottomLeft(), label.rect().bottomRight()})
            EXPECT_EQ(drawn.pixel(corner), line);
    }
}
