#include "Drops/FileDrop.h"

#include "Drops/DropHint.h"

#include "Cobble/Window/SheetSupport.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QStatusBar>
#include <QTableWidget>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {
class FileDropTests : public HostSheetTest
{
protected:
    /// Drags something over a window and lets go of it there.
    /// \return whether the window takes it.
    static bool drop(QWidget *window, const QMimeData &data)
    {
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(window, &enter);
        if (!enter.isAccepted())
            return false;
        QDragMoveEvent move(QPoint(10, 10), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                            Qt::NoModifier);
        QApplication::sendEvent(window, &move);
        QDropEvent event(QPointF(10, 10), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                         Qt::NoModifier);
        event.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(window, &event);
        // Whoever has moved a file would delete it.
        EXPECT_EQ(event.dropAction(), Qt::CopyAction);
        turn();
        return move.isAccepted() && event.isAccepted();
    }
    static bool drop(MainWindowController *window, const QList<QUrl> &urls)
    {
        QMimeData data;
        data.setUrls(urls);
        return drop(window->mainWindow(), data);
    }
    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }
    static QString told(MainWindowController *window)
    {
        return window->mainWindow()->statusBar()->currentMessage();
    }
};
} // namespace

TEST_F(FileDropTests, ADroppedTableIsImportedThroughTheSheet)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.CSV"_s, "Pet\nCat\n");
    EXPECT_TRUE(drop(window, {url(u"Pets.CSV"_s)}));
    ASSERT_TRUE(window->importSheet()->isRunningAsDialog());
    EXPECT_EQ(window->importSheet()->file(), path(u"Pets.CSV"_s));
    press(window->importSheet()->window(), u"Import"_s);
    turn();
    EXPECT_EQ(stored(1, 0, u"Pets"_s), u"Cat"_s);
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
}

TEST_F(FileDropTests, TheSheetPreviewsTheFileThatWasDropped)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, "Pet,Age\nCat,3\nDog,4\n");
    EXPECT_TRUE(drop(window, {url(u"Pets.csv"_s)}));
    const auto *const preview =
        window->importSheet()->window()->findChild<QTableWidget *>(u"previewTable"_s);
    EXPECT_TRUE(QTest::qWaitFor([preview] { return preview->columnCount() == 2; }, 20000));
    window->importSheet()->endDialog();
    turn();
}

TEST_F(FileDropTests, TheWindowSaysWhatLettingGoDoes)
{
    MainWindowController *const window = openThings();
    const auto *const hint = window->mainWindow()->findChild<DropHint *>();
    tree.add(u"Pets.csv"_s, "Pet\nCat\n");
    tree.add(u"a.png"_s);
    const auto drag = [&](const QString &name) {
        QMimeData data;
        data.setUrls({url(name)});
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window->mainWindow(), &enter);
    };
    drag(u"Pets.csv"_s);
    EXPECT_TRUE(hint->isVisible());
    QDragLeaveEvent leave;
    QApplication::sendEvent(window->mainWindow(), &leave);
    EXPECT_FALSE(hint->isVisible());
    drag(u"a.png"_s);
    EXPECT_FALSE(hint->isVisible());
    drag(u"Pets.csv"_s);
    EXPECT_TRUE(drop(window, {url(u"a.png"_s)}));
    EXPECT_FALSE(hint->isVisible());
}

TEST_F(FileDropTests, TheSheetForgetsTheFileThatWasDropped)
{
    MainWindowController *const window = openThings();
    tree.add(u"Ann.vcf"_s, "BEGIN:VCARD\nEND:VCARD\n");
    EXPECT_TRUE(drop(window, {url(u"Ann.vcf"_s)}));
    EXPECT_EQ(window->importSheet()->file(), path(u"Ann.vcf"_s));
    window->importSheet()->endDialog();
    turn();
    openImport(window);
    EXPECT_EQ(window->importSheet()->file(), QString());
    window->importSheet()->endDialog();
    turn();
}

TEST_F(FileDropTests, NothingIsDroppedBehindASheet)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, "Pet\nCat\n");
    openImport(window);
    EXPECT_FALSE(drop(window, {url(u"Pets.csv"_s)}));
    EXPECT_EQ(window->importSheet()->file(), QString());
    window->importSheet()->endDialog();
    turn();
}

TEST_F(FileDropTests, SaysWhatIsNotImported)
{
    MainWindowController *const window = openThings();
    tree.add(u"a.png"_s);
    tree.add(u"a.csv"_s, "A\n1\n");
    QDir(tree.root()).mkdir(u"folder.csv"_s);
    const struct
    {
        QList<QUrl> urls;
        QString sentence;
    } rows[] = {
        {{url(u"a.png"_s)},
         u"“a.png” is no file that can be imported: these are csv, tsv, txt and vcf."_s},
        {{url(u"a.csv"_s), url(u"a.png"_s)}, u"Please drop one file at a time."_s},
        {{QUrl(u"http://127.0.0.1/a.csv"_s)},
         u"Only files of this computer can be dropped here."_s},
        {{url(u"folder.csv"_s)}, u"“folder.csv” is no file."_s},
        {{url(u"none.csv"_s)}, u"“none.csv” is no file."_s},
    };
    for (const auto &row : rows) {
        EXPECT_TRUE(drop(window, row.urls));
        EXPECT_EQ(told(window), row.sentence);
        EXPECT_FALSE(window->importSheet()->isRunningAsDialog());
    }
}

TEST_F(FileDropTests, OnlyFilesAreTaken)
{
    QMimeData data;
    data.setText(u"a.csv"_s);
    EXPECT_FALSE(drop(openThings()->mainWindow(), data));
}
