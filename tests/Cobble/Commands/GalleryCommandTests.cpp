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

using namespace testing_support;

namespace {
const QStringList &names()
{
    static const QStringList all = {
        QStringLiteral("hud"),
        QStringLiteral("hud-large"),
        QStringLiteral("badges"),
        QStringLiteral("rounded-rectangles"),
        QStringLiteral("gradients"),
        QStringLiteral("pictures"),
        QStringLiteral("focus-ring-view"),
        QStringLiteral("focus-ring-scroll-view"),
        QStringLiteral("slider"),
        QStringLiteral("gallery"),
    };
    return all;
}

class GalleryCommand : public WindowedTest
{
protected:
    GalleryCommand() { useFreshHome(); }

    static CommandResult run(const QStringList &arguments)
    {
        return runInProcess(QStringList(QStringLiteral("gallery")) + arguments);
    }
    CommandResult draw(const QString &into) { return run({QStringLiteral("--screenshot"), into}); }
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

TEST_F(GalleryCommand, DrawsAPictureOfEachHelperAndAPage)
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
    EXPECT_EQ(picture(QStringLiteral("hud")).size(), QSize(400, 240));
    EXPECT_GT(picture(QStringLiteral("gallery")).width(), 1200);
}

TEST_F(GalleryCommand, TheSameEveryTime)
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

TEST_F(GalleryCommand, ShowsWhatTheHelpersDo)
{
    ASSERT_EQ(draw(folder.path()).exitCode, 0);
    // The display is dark with white letters.
    const QImage display = picture(QStringLiteral("hud"));
    EXPECT_LT(display.pixelColor(200, 80).lightness(), 110);
    EXPECT_TRUE(hasColourNear(display, {100, 100, 200, 40}, Qt::white, 10));
    // Pills are red, and none of the six is missing.
    const QImage badges = picture(QStringLiteral("badges"));
    for (int index = 0; index < 6; ++index)
        EXPECT_TRUE(hasColourNear(badges, {60 + index % 3 * 126, 60 + index / 3 * 98, 28, 24},
                                  QColor(230, 80, 38), 30))
            << index;
    // Rings lie around the views.
    const QColor ring = QApplication::palette().color(QPalette::Highlight);
    for (const char16_t *const name : {u"focus-ring-view", u"focus-ring-scroll-view"})
        EXPECT_TRUE(hasColourNear(picture(QString::fromUtf16(name)), {24, 100, 6, 4}, ring, 60));
}

TEST_F(GalleryCommand, MakesTheFolder)
{
    const QString deep = folder.filePath(QStringLiteral("a/b/c"));
    EXPECT_EQ(draw(deep).exitCode, 0);
    EXPECT_EQ(QDir(deep).entryList(QDir::Files).size(), names().size());
}

TEST_F(GalleryCommand, SaysWhereItCannotWrite)
{
    const QString file = folder.filePath(QStringLiteral("file"));
    writeFile(file, "x");
    const CommandResult notMade = draw(file + u"/below");
    EXPECT_EQ(notMade.exitCode, 1);
    EXPECT_EQ(notMade.errors, QString(u"cobble: " + file + u"/below: the folder cannot be made\n"));
    // A folder has the name of a picture.
    QDir(folder.path()).mkpath(QStringLiteral("badges.png/x"));
    const CommandResult taken = draw(folder.path());
    EXPECT_EQ(taken.exitCode, 1);
    EXPECT_TRUE(
        taken.errors.startsWith(u"cobble: " + folder.filePath(QStringLiteral("badges.png: "))));
}

TEST_F(GalleryCommand, SaysWhatIsWrong)
{
    EXPECT_EQ(run({}).exitCode, 2);
    EXPECT_TRUE(run({}).errors.startsWith(
        u"cobble: gallery needs --screenshot with the name of a folder\n"));
    EXPECT_EQ(run({QStringLiteral("--screenshot"), QString()}).exitCode, 2);
    EXPECT_EQ(run({QStringLiteral("--screenshot")}).exitCode, 2);
    EXPECT_EQ(run({QStringLiteral("x"), QStringLiteral("--screenshot"), folder.path()}).exitCode,
              2);
    EXPECT_TRUE(run({QStringLiteral("--help")}).output.contains(u"cobble gallery"));
}

TEST_F(GalleryCommand, SharpScreensGetSharpPictures)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(COBBLE_EXECUTABLE),
                  {QStringLiteral("gallery"), QStringLiteral("--screenshot"), folder.path()});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    const QImage sharp = picture(QStringLiteral("badges"));
    EXPECT_EQ(sharp.size(), QSize(800, 480));
    // Twice the pixels, and not each pixel twice.
    const QImage coarse = sharp.scaled(400, 240).scaled(800, 480);
    EXPECT_FALSE(areAlike(sharp, coarse, 8));
    EXPECT_EQ(picture(QStringLiteral("hud")).size(), QSize(800, 480));
    EXPECT_EQ(picture(QStringLiteral("focus-ring-view")).size(), QSize(800, 480));
}

TEST_F(GalleryCommand, SmallScreensAreLargeEnough)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString configuration = folder.filePath(QStringLiteral("screen.json"));
    writeFile(configuration, R"({"screens": [{"name": "small", "x": 0, "y": 0, "width": 320,
        "height": 200, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                       QString(u"offscreen:configfile=" + configuration));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(COBBLE_EXECUTABLE),
                  {QStringLiteral("gallery"), QStringLiteral("--screenshot"), folder.path()});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    // The large text shrinks to 320 - 96 points, so that less of the table is dark.
    draw(folder.filePath(QStringLiteral("usual")));
    const QImage usual(folder.filePath(QStringLiteral("usual/hud-large.png")));
    const QImage small = picture(QStringLiteral("hud-large"));
    EXPECT_LT(usual.pixelColor(45, 120).lightness(), small.pixelColor(45, 120).lightness());
    EXPECT_LT(small.pixelColor(90, 120).lightness(), 130);
}
