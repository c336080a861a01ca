// The command `cobble window`.

#include "Cobble/Window/WindowSupport.h"

#include "Window/WindowPicture.h"

#include <QImage>

using namespace Qt::StringLiterals;

class WindowCommandTests : public HostWindowTest
{
protected:
    WindowCommandTests() { import(u"Things.csv"_s, Things); }

    CommandResult run(const QStringList &arguments)
    {
        return runInProcess(QStringList({u"window"_s, u"--bundle"_s, bundle.bundlePath()}) +
                            arguments);
    }
    QImage draw(const QStringList &arguments = {})
    {
        const QString path = tree.path(u"window.png"_s);
        const CommandResult result = run(QStringList({u"--screenshot"_s, path}) + arguments);
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
        EXPECT_EQ(result.output, QString());
        return QImage(path);
    }
    static int lightest(const QImage &picture, const QRect &part)
    {
        int lightest = 0;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x)
                lightest = qMax(lightest, qGray(picture.pixel(x, y)));
        }
        return lightest;
    }
};

TEST_F(WindowCommandTests, DrawsTheWindow)
{
    const QImage picture = draw();
    EXPECT_EQ(picture.size(), QSize(1000, 700));
    // Something is drawn: neither all of one colour nor what an empty search shows.
    EXPECT_NE(picture, draw({u"--search"_s, u"nobody"_s}));
    EXPECT_EQ(picture, draw({u"things"_s}));
}

TEST_F(WindowCommandTests, DrawsSheetsOverTheWindow)
{
    const QImage plain = draw();
    for (const char *const sheet : {"import", "export", "about"}) {
        const QImage picture = draw({u"--sheet"_s, QString::fromLatin1(sheet)});
        // The window behind is darker, the sheet is not, but for letters on it.
        EXPECT_LT(qGray(picture.pixel(500, 690)), qGray(plain.pixel(500, 690))) << sheet;
        EXPECT_GT(lightest(picture, {490, 340, 20, 20}),
                  lightest(plain, {490, 340, 20, 20}) * 9 / 10)
            << sheet;
    }
}

TEST_F(WindowCommandTests, SaysWhatIsWrong)
{
    EXPECT_EQ(run({u"a"_s, u"b"_s}).exitCode, 2);
    EXPECT_EQ(run({u"--screenshot"_s, QString()}).exitCode, 2);
    const CommandResult sheet = run({u"--sheet"_s, u"x"_s});
    EXPECT_EQ(sheet.exitCode, 2);
    EXPECT_TRUE(
        sheet.errors.startsWith(u"cobble: no sheet 'x'; there are import, export, about\n"));
    const CommandResult nothing =
        runInProcess({u"window"_s, u"--bundle"_s, tree.path(u"empty.cobbledb"_s), u"--sheet"_s,
                      u"export"_s, u"--screenshot"_s, tree.path(u"n.png"_s)});
    EXPECT_EQ(nothing.exitCode, 1);
    EXPECT_TRUE(nothing.errors.contains(u"there is nothing to export"));
    const QString picture = tree.path(u"w.png"_s);
    const CommandResult missing = run({u"nothing"_s, u"--screenshot"_s, picture});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(missing.errors.contains(u"no library 'nothing'"));
    const CommandResult folder = run({u"--screenshot"_s, tree.path(u"none/w.png"_s)});
    EXPECT_EQ(folder.exitCode, 1);
    EXPECT_TRUE(folder.errors.startsWith(u"cobble: " + tree.path(u"none/w.png: "_s)));
}

TEST_F(WindowCommandTests, WithoutADisplayItSaysHowToDraw)
{
    const CommandResult result = run({});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, u"cobble: window: there is no display; --screenshot FILE "
                             "draws the window without one\n"_s);
}
