// The command `cobble window`.

#include "WindowSupport.h"

#include "Window/WindowPicture.h"

#include <QImage>

class WindowCommand : public HostWindowTest
{
protected:
    WindowCommand() { import(QStringLiteral("Things.csv"), Things); }

    CommandResult run(const QStringList &arguments)
    {
        return runInProcess(QStringList({QStringLiteral("window"), QStringLiteral("--bundle"),
                                         bundle.bundlePath()}) +
                            arguments);
    }
    QImage draw(const QStringList &arguments = {})
    {
        const QString path = tree.path(QStringLiteral("window.png"));
        const CommandResult result =
            run(QStringList({QStringLiteral("--screenshot"), path}) + arguments);
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
        EXPECT_EQ(result.output, QString());
        return QImage(path);
    }
};

TEST_F(WindowCommand, DrawsTheWindow)
{
    const QImage picture = draw();
    EXPECT_EQ(picture.size(), QSize(1000, 700));
    // Something is drawn: neither all of one colour nor what an empty search shows.
    EXPECT_NE(picture, draw({QStringLiteral("--search"), QStringLiteral("nobody")}));
    EXPECT_EQ(picture, draw({QStringLiteral("things")}));
}

TEST_F(WindowCommand, DrawsSheetsOverTheWindow)
{
    const QImage plain = draw();
    for (const char *const sheet : {"import", "export", "delete", "about"}) {
        const QImage picture = draw({QStringLiteral("--sheet"), QString::fromLatin1(sheet)});
        // The window behind is darker, the sheet is not.
        EXPECT_LT(qGray(picture.pixel(500, 690)), qGray(plain.pixel(500, 690))) << sheet;
        EXPECT_NE(picture.pixel(500, 350), plain.pixel(500, 350)) << sheet;
    }
}

TEST_F(WindowCommand, SaysWhatIsWrong)
{
    EXPECT_EQ(run({QStringLiteral("a"), QStringLiteral("b")}).exitCode, 2);
    EXPECT_EQ(run({QStringLiteral("--screenshot"), QString()}).exitCode, 2);
    const CommandResult sheet = run({QStringLiteral("--sheet"), QStringLiteral("x")});
    EXPECT_EQ(sheet.exitCode, 2);
    EXPECT_TRUE(sheet.errors.startsWith(
        u"cobble: no sheet 'x'; there are import, export, delete, about\n"));
    const CommandResult nothing =
        run({QStringLiteral("--search"), QStringLiteral("nobody"), QStringLiteral("--sheet"),
             QStringLiteral("delete"), QStringLiteral("--screenshot"),
             tree.path(QStringLiteral("n.png"))});
    EXPECT_EQ(nothing.exitCode, 1);
    EXPECT_TRUE(nothing.errors.contains(u"there is nothing to delete"));
    const QString picture = tree.path(QStringLiteral("w.png"));
    const CommandResult missing =
        run({QStringLiteral("nothing"), QStringLiteral("--screenshot"), picture});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(missing.errors.contains(u"no library 'nothing'"));
    const CommandResult folder =
        run({QStringLiteral("--screenshot"), tree.path(QStringLiteral("none/w.png"))});
    EXPECT_EQ(folder.exitCode, 1);
    EXPECT_TRUE(folder.errors.startsWith(u"cobble: " + tree.path(QStringLiteral("none/w.png: "))));
}

TEST_F(WindowCommand, WithoutADisplayItSaysHowToDraw)
{
    const CommandResult result = run({});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors,
              QStringLiteral("cobble: window: there is no display; --screenshot FILE "
                             "draws the window without one\n"));
}
