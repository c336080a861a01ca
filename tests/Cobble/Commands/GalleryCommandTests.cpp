// The command `cobble gallery`.

#include "CommandSupport.h"

#include "Gallery/GalleryPage.h"
#include "support/FileTree.h"
#include "support/PictureSupport.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QProcess>
#include <QSet>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QStringList &names()
{
    static const QStringList all = {
        u"hud"_s,       u"hud-large"_s, u"badges"_s,          u"rounded-rectangles"_s,
        u"gradients"_s, u"pictures"_s,  u"focus-ring-view"_s, u"focus-ring-scroll-view"_s,
        u"slider"_s,    u"gallery"_s,
    };
    return all;
}

class GalleryCommandTests : public WindowedTest
{
protected:
    GalleryCommandTests() { useFreshHome(); }

    static CommandResult run(const QStringList &arguments)
    {
        return runInProcess(QStringList(u"gallery"_s) + arguments);
    }
    CommandResult draw(const QString &into) { return run({u"--screenshot"_s, into}); }
    QImage picture(const QString &name) const { return QImage(folder.filePath(name + u".png")); }

    QTemporaryDir folder;
};

/// How many colours a picture has.
qsizetype coloursIn(const QImage &image)
{
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colours += image.pixel(x, y);
    return colours.size();
}

bool hasColourNear(const QImage &image, const QRect &area, const QColor &colour, int tolerance)
{
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (areClose(image.pixelColor(x, y), colour, tolerance))
                return true;
    return false;
}
} // namespace

TEST_F(GalleryCommandTests, DrawsAPictureOfEachHelperAndAPage)
{
    const CommandResult result = draw(folder.path());
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QString());
    QString expected;
    for (const QString &name : names()) {
        expected += folder.filePath(name + u".png") + u'\n';
        EXPECT_GT(coloursIn(picture(name)), 20) << name.toStdString();
    }
    EXPECT_EQ(result.output, expected);
    EXPECT_EQ(picture(u"hud"_s).size(), QSize(400, 240));
    EXPECT_GT(picture(u"gallery"_s).width(), 1200);
}

TEST_F(GalleryCommandTests, DrawsTheSameEveryTime)
{
    const QList<GalleryPicture> first = Gallery::pictures();
    const QList<GalleryPicture> second = Gallery::pictures();
    ASSERT_EQ(first.size(), 9);
    for (qsizetype index = 0; index < first.size(); ++index) {
        // Large letters are antialiased a little differently when they are drawn first.
        EXPECT_TRUE(areAlike(first.at(index).image, second.at(index).image, 20))
            << first.at(index).name.toStdString();
        EXPECT_FALSE(first.at(index).title.isEmpty());
    }
}

TEST_F(GalleryCommandTests, ShowsWhatTheHelpersDo)
{
    ASSERT_EQ(draw(folder.path()).exitCode, 0);
    // The display is dark with white letters.
    const QImage display = picture(u"hud"_s);
    EXPECT_LT(display.pixelColor(200, 80).lightness(), 110);
    EXPECT_TRUE(hasColourNear(display, {100, 100, 200, 40}, Qt::white, 10));
    // Pills are red, and none of the six is missing.
    const QImage badges = picture(u"badges"_s);
    for (int index = 0; index < 6; ++index)
        EXPECT_TRUE(hasColourNear(badges, {60 + index % 3 * 126, 60 + index / 3 * 98, 28, 24},
                                  QColor(230, 80, 38), 30))
            << index;
    // Rings lie around the views.
    const QColor ring = QApplication::palette().color(QPalette::Highlight);
    for (const char16_t *const name : {u"focus-ring-view", u"focus-ring-scroll-view"})
        EXPECT_TRUE(hasColourNear(picture(QString::fromUtf16(name)), {24, 100, 6, 4}, ring, 60));
}

TEST_F(GalleryCommandTests, MakesTheFolder)
{
    const QString deep = folder.filePath(u"a/b/c"_s);
    EXPECT_EQ(draw(deep).exitCode, 0);
    EXPECT_EQ(QDir(deep).entryList(QDir::Files).size(), names().size());
}

TEST_F(GalleryCommandTests, SaysWhereItCannotWrite)
{
    const QString file = folder.filePath(u"file"_s);
    writeFile(file, "x");
    const CommandResult notMade = draw(file + u"/below");
    EXPECT_EQ(notMade.exitCode, 1);
    EXPECT_EQ(notMade.errors, QString(u"cobble: " + file + u"/below: the folder cannot be made\n"));
    // A folder has the name of a picture.
    QDir(folder.path()).mkpath(u"badges.png/x"_s);
    const CommandResult taken = draw(folder.path());
    EXPECT_EQ(taken.exitCode, 1);
    EXPECT_TRUE(taken.errors.startsWith(u"cobble: " + folder.filePath(u"badges.png: "_s)));
}

TEST_F(GalleryCommandTests, SaysWhatIsWrong)
{
    EXPECT_EQ(run({}).exitCode, 2);
    EXPECT_TRUE(run({}).errors.startsWith(
        u"cobble: gallery needs --screenshot with the name of a folder\n"));
    EXPECT_EQ(run({u"--screenshot"_s, QString()}).exitCode, 2);
    EXPECT_EQ(run({u"--screenshot"_s}).exitCode, 2);
    EXPECT_EQ(run({u"x"_s, u"--screenshot"_s, folder.path()}).exitCode, 2);
    EXPECT_TRUE(run({u"--help"_s}).output.contains(u"cobble gallery"));
}

TEST_F(GalleryCommandTests, SharpScreensGetSharpPictures)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_SCALE_FACTOR"_s, u"2"_s);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(COBBLE_EXECUTABLE),
                  {u"gallery"_s, u"--screenshot"_s, folder.path()});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    const QImage sharp = picture(u"badges"_s);
    EXPECT_EQ(sharp.size(), QSize(800, 480));
    // Twice the pixels, and not each pixel twice.
    const QImage coarse = sharp.scaled(400, 240).scaled(800, 480);
    EXPECT_FALSE(areAlike(sharp, coarse, 8));
    EXPECT_EQ(picture(u"hud"_s).size(), QSize(800, 480));
    EXPECT_EQ(picture(u"focus-ring-view"_s).size(), QSize(800, 480));
}

TEST_F(GalleryCommandTests, SmallScreensAreLargeEnough)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString configuration = folder.filePath(u"screen.json"_s);
    writeFile(configuration, R"({"screens": [{"name": "small", "x": 0, "y": 0, "width": 320,
        "height": 200, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    environment.insert(u"QT_QPA_PLATFORM"_s, QString(u"offscreen:configfile=" + configuration));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(COBBLE_EXECUTABLE),
                  {u"gallery"_s, u"--screenshot"_s, folder.path()});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    // The large text shrinks to 320 - 96 points, so that less of the table is dark.
    draw(folder.filePath(u"usual"_s));
    const QImage usual(folder.filePath(u"usual/hud-large.png"_s));
    const QImage small = picture(u"hud-large"_s);
    EXPECT_LT(usual.pixelColor(45, 120).lightness(), small.pixelColor(45, 120).lightness());
    EXPECT_LT(small.pixelColor(90, 120).lightness(), 130);
}
