// The states of the windows that docs/tour.md shows. Each is brought about as by a user, and drawn
// into the folder that COBBLE_PICTURES names, if it names one.

#include "SheetSupport.h"

#include "Commands/UserSettings.h"
#include "Finding/FilterBar.h"
#include "Window/FieldDelegate.h"
#include "Window/MediaField.h"
#include "Window/RecordFinder.h"
#include "Window/SmartLibraryList.h"
#include "Window/WindowPicture.h"

#include <QComboBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QImageWriter>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>
#include <QTableWidget>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {
constexpr QSize PictureSize(880, 580);
/// The columns of the books.
enum Column { Title, Author, Pages, Price, Bought, ReadIn, LentTo, Notes, Cover };

QPalette paletteOf(const QColor &ground, const QColor &base, const QColor &text,
                   const QColor &highlight, const QColor &highlighted)
{
    QPalette colors(ground);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colors.setColor(role, text);
    QColor faint = text;
    faint.setAlphaF(0.6F);
    colors.setColor(QPalette::PlaceholderText, faint);
    colors.setColor(QPalette::Base, base);
    colors.setColor(QPalette::AlternateBase, ground);
    colors.setColor(QPalette::Highlight, highlight);
    colors.setColor(QPalette::HighlightedText, highlighted);
    return colors;
}

QPalette darkColors()
{
    return paletteOf(QColor(49, 54, 59), QColor(35, 38, 41), QColor(239, 240, 241),
                     QColor(61, 132, 184), Qt::white);
}

QPalette contrastingColors()
{
    return paletteOf(Qt::black, Qt::black, Qt::white, Qt::yellow, Qt::black);
}

/// The colours of the desktop while it lives.
class DesktopColors
{
public:
    explicit DesktopColors(const QPalette &colors) { QApplication::setPalette(colors); }
    ~DesktopColors() { QApplication::setPalette(_before); }
    DesktopColors(const DesktopColors &) = delete;
    DesktopColors &operator=(const DesktopColors &) = delete;

private:
    const QPalette _before = QApplication::palette();
};

/// As few colours as a person needs, so that the files are small.
QImage simplified(const QImage &picture)
{
    QImage result = picture.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            const auto part = [](int value) { return qMin(255, (value + 4) / 8 * 8); };
            line[x] = qRgb(part(qRed(line[x])), part(qGreen(line[x])), part(qBlue(line[x])));
        }
    }
    return result;
}
} // namespace

class TourPictureTests : public HostSheetTest
{
protected:
    ~TourPictureTests() override { QDir::setCurrent(_folderBefore); }

    static QByteArray sample()
    {
        return testing_support::contentsOf(QStringLiteral(COBBLE_SAMPLES) + u"/books.csv");
    }
    MainWindowController *openBooks(const QString &locale = {})
    {
        import(u"Books.csv"_s, sample());
        return openSized(locale);
    }
    MainWindowController *openSized(const QString &locale = {})
    {
        _locale.emplace(locale);
        MainWindowController *const window = open();
        window->mainWindow()->resize(PictureSize);
        giveForm(window, 180);
        window->mainWindow()->table()->setFocus();
        return window;
    }
    static void giveForm(MainWindowController *window, int height)
    {
        turn();
        window->mainWindow()
            ->findChild<QSplitter *>(u"formSplitter"_s)
            ->setSizes({PictureSize.height() - height, height});
        turn();
    }
    /// Waits until all records are found, and the selected one is seen.
    static void settle(MainWindowController *window)
    {
        EXPECT_TRUE(QTest::qWaitFor([window] { return !window->records()->isArranging(); }, 20000));
        turn();
        EXPECT_TRUE(QTest::qWaitFor(
            [window] { return !window->mainWindow()->summary()->text().contains(u'…'); }));
    }
    static void draw(MainWindowController *window, const QString &name)
    {
        settle(window);
        const QImage picture = WindowPicture::of(window->mainWindow());
        EXPECT_EQ(picture.size(), window->mainWindow()->size() * picture.devicePixelRatio());
        const QString folder = qEnvironmentVariable("COBBLE_PICTURES");
        if (folder.isEmpty())
            return;
        QImageWriter writer(folder + u'/' + name, "png");
        writer.setCompression(100);
        EXPECT_TRUE(writer.write(simplified(picture))) << writer.errorString().toStdString();
    }
    /// Opens the sheet and waits for its preview.
    QWidget *openPreview(MainWindowController *window)
    {
        tree.add(u"Books.csv"_s, sample());
        QDir::setCurrent(tree.root());
        window->importFileAtPath(u"Books.csv"_s);
        turn();
        QWidget *const sheet = window->importSheet()->window();
        const auto *const rejected = sheet->findChild<QTableWidget *>(u"rejectedTable"_s);
        EXPECT_TRUE(QTest::qWaitFor([rejected] { return rejected->rowCount() > 0; }, 20000));
        return sheet;
    }
    static void sort(MainWindowController *window, int column)
    {
        window->mainWindow()->table()->sortByColumn(column, Qt::AscendingOrder);
        settle(window);
    }
    static void filter(MainWindowController *window, const QString &text)
    {
        window->finder()->setShowsFilter(true);
        window->finder()->bar()->setText(text);
        window->search();
        window->mainWindow()->table()->setFocus();
        settle(window);
    }
    /// Types into a cell what its field does not take.
    static void typeRejected(MainWindowController *window, int row, int column)
    {
        RecordTableView *const table = window->mainWindow()->table();
        table->setFocus();
        table->setCurrentIndex(window->model()->index(row, column));
        table->edit(table->currentIndex());
        auto *const input = table->viewport()->findChild<QLineEdit *>();
        ASSERT_NE(input, nullptr);
        type(input, u"many"_s);
        QTest::keyClick(input, Qt::Key_Return);
        EXPECT_FALSE(input->accessibleDescription().isEmpty());
    }
    static void endSheet(KTDialogController *sheet)
    {
        sheet->endDialog();
        turn();
    }
    static void openMenu(MainWindowController *window, const char *item)
    {
        QAction *const within = menuItem(window, item);
        for (QAction *const title : window->mainWindow()->menuBar()->actions()) {
            if (title->menu()->actions().contains(within))
                window->mainWindow()->menuBar()->setActiveAction(title);
        }
        turn();
        EXPECT_TRUE(QApplication::activePopupWidget());
    }
    static void reveal(MainWindowController *window, QWidget *part)
    {
        for (QScrollArea *const area : window->mainWindow()->findChildren<QScrollArea *>()) {
            if (area->widget() == window->mainWindow()->detail())
                area->ensureWidgetVisible(part);
        }
        turn();
    }
    static void dragOver(QWidget *view, const QMimeData &data)
    {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view, &enter);
        EXPECT_TRUE(enter.isAccepted());
    }
    /// A cover for a book.
    QString cover()
    {
        QImage picture(96, 132, QImage::Format_RGB32);
        picture.fill(QColor(38, 84, 124));
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(239, 201, 76));
        painter.drawEllipse(QPoint(66, 40), 16, 16);
        painter.setBrush(QColor(18, 50, 78));
        painter.drawPolygon(
            QPolygon({{0, 110}, {30, 70}, {52, 100}, {70, 84}, {96, 112}, {96, 132}, {0, 132}}));
        painter.end();
        EXPECT_TRUE(picture.save(path(u"harbour.png"_s)));
        return path(u"harbour.png"_s);
    }

private:
    const QString _folderBefore = QDir::currentPath();
    std::optional<LocaleScope> _locale;
};

TEST_F(TourPictureTests, TheEmptyWindow)
{
    MainWindowController *const window = openSized();
    EXPECT_TRUE(window->mainWindow()->importButton()->isVisible());
    draw(window, u"empty.png"_s);
}

TEST_F(TourPictureTests, TheWindow)
{
    MainWindowController *const window = openBooks();
    EXPECT_EQ(countIn(window), u"20 records"_s);
    draw(window, u"window.png"_s);
}

TEST_F(TourPictureTests, AtTwiceTheScale)
{
    MainWindowController *const window = openBooks();
    window->mainWindow()->resize(600, 400);
    draw(window, u"scale-2.png"_s);
}

TEST_F(TourPictureTests, TheImportSheet)
{
    MainWindowController *const window = openSized();
    QWidget *const sheet = openPreview(window);
    EXPECT_EQ(sheet->findChild<QTableWidget *>(u"rejectedTable"_s)->rowCount(), 3);
    draw(window, u"sheet.png"_s);
    endSheet(window->importSheet());
}

TEST_F(TourPictureTests, AFileIsDragged)
{
    MainWindowController *const window = openBooks();
    tree.add(u"Records.csv"_s, sample());
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path(u"Records.csv"_s))});
    dragOver(window->mainWindow(), data);
    draw(window, u"drop.png"_s);
}

TEST_F(TourPictureTests, TheSummaryOfAnImport)
{
    MainWindowController *const window = openSized();
    tree.add(u"Books.csv"_s, sample());
    importThrough(window, path(u"Books.csv"_s));
    EXPECT_TRUE(window->importSummary()->isRunningAsDialog());
    draw(window, u"imported.png"_s);
    endSheet(window->importSummary());
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
}

TEST_F(TourPictureTests, Searching)
{
    MainWindowController *const window = openBooks();
    search(window, u"11/20/21"_s);
    settle(window);
    EXPECT_EQ(column(window, Title), QStringList(u"A Winter of Maps"_s));
    search(window, u"$18.5"_s);
    settle(window);
    EXPECT_EQ(column(window, Title), QStringList(u"A Winter of Maps"_s));
    draw(window, u"search.png"_s);
}

TEST_F(TourPictureTests, Filtering)
{
    MainWindowController *const window = openBooks();
    filter(window, u"pages > 250 AND bought BETWEEN 1/1/2019 AND 12/31/2021"_s);
    EXPECT_EQ(window->finder()->bar()->problem(), QString());
    EXPECT_EQ(window->model()->rowCount(), 6);
    window->mainWindow()->table()->setCurrentIndex(window->model()->index(0, Price));
    window->mainWindow()->table()->selectAll();
    const auto isSummed = [window] {
        return window->mainWindow()->summary()->text().contains(u"92.30"_s);
    };
    EXPECT_TRUE(QTest::qWaitFor(isSummed, 20000));
    draw(window, u"filter.png"_s);
}

TEST_F(TourPictureTests, ASmartLibrary)
{
    MainWindowController *const window = openBooks();
    filter(window, u"NOT \"Lent to\" IS EMPTY"_s);
    sort(window, LentTo);
    const Library &library = window->library()->definition();
    const FilterFields fields(library);
    EXPECT_TRUE(window->smartLibraries()->save(
        SmartLibraries::make(u"Lent"_s, library, window->finder()->shownQuery(), fields)));
    EXPECT_EQ(librariesIn(window), QStringList({u"Books"_s, u"    Lent"_s}));
    EXPECT_EQ(window->model()->rowCount(), 4);
    draw(window, u"smart.png"_s);
}

TEST_F(TourPictureTests, TheExportSheet)
{
    MainWindowController *const window = openBooks();
    window->exportFile();
    turn();
    EXPECT_TRUE(window->exportSheet()->isRunningAsDialog());
    type(field(window->exportSheet()->window(), u"fileEdit"_s), u"Books.csv"_s);
    draw(window, u"export.png"_s);
    endSheet(window->exportSheet());
}

TEST_F(TourPictureTests, WhatIsRejected)
{
    MainWindowController *const window = openBooks();
    typeRejected(window, 2, Pages);
    draw(window, u"rejected.png"_s);
}

TEST_F(TourPictureTests, TheMenuNamesWhatItUndoes)
{
    MainWindowController *const window = openBooks();
    window->records()->setSelectionIndexes({1, 4, 8});
    window->deleteRecords();
    openMenu(window, "undoChange:");
    EXPECT_EQ(menuItem(window, "undoChange:")->text().remove(u'&'), u"Undo Delete 3 Records"_s);
    draw(window, u"undo.png"_s);
    QApplication::activePopupWidget()->close();
    turn();
}

TEST_F(TourPictureTests, ANewLibrary)
{
    MainWindowController *const window = openBooks();
    menuItem(window, "newLibrary:")->trigger();
    turn();
    type(window->mainWindow()->findChild<QLineEdit *>(u"nameEdit"_s), u"Records"_s);
    draw(window, u"new-library.png"_s);
}

TEST_F(TourPictureTests, ANewFieldAndItsPicture)
{
    MainWindowController *const window = openBooks();
    menuItem(window, "newField:")->trigger();
    turn();
    auto *const types = window->mainWindow()->findChild<QComboBox *>(u"typeBox"_s);
    ASSERT_NE(types, nullptr);
    types->setCurrentIndex(types->count() - 1);
    auto *const name = window->mainWindow()->findChild<QLineEdit *>(u"nameEdit"_s);
    type(name, u"Cover"_s);
    draw(window, u"new-field.png"_s);
    QTest::keyClick(name, Qt::Key_Return);
    turn();
    MediaField *const field = window->mainWindow()->detail()->mediaField(Cover);
    ASSERT_NE(field, nullptr);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(cover())});
    dragOver(field, data);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(field, &drop);
    turn();
    EXPECT_EQ(editor(window, Cover)->problem(), QString());
    EXPECT_EQ(stored(1, Cover, u"Books"_s), u"cobblemedia://harbour.0.png"_s);
    EXPECT_EQ(field->picture().size(), QSize(96, 132));
    giveForm(window, 340);
    reveal(window, field);
    draw(window, u"picture.png"_s);
}

TEST_F(TourPictureTests, AnAlert)
{
    MainWindowController *const window = openBooks();
    typeRejected(window, 2, Pages);
    EXPECT_FALSE(window->pendingInput()->leave([] {}));
    turn();
    ASSERT_NE(alertBox(), nullptr);
    draw(window, u"alert.png"_s);
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
}

TEST_F(TourPictureTests, InTheDark)
{
    const DesktopColors colors(darkColors());
    MainWindowController *const window = openBooks();
    filter(window, u"pages > 250"_s);
    draw(window, u"dark.png"_s);
}

TEST_F(TourPictureTests, InHighContrast)
{
    const DesktopColors colors(contrastingColors());
    MainWindowController *const window = openBooks();
    typeRejected(window, 2, Pages);
    draw(window, u"high-contrast.png"_s);
}

TEST_F(TourPictureTests, FromTheRight)
{
    MainWindowController *const window = openBooks(u"ar_EG"_s);
    EXPECT_TRUE(window->mainWindow()->isRightToLeft());
    filter(window, u"Pages > 250"_s);
    draw(window, u"arabic.png"_s);
}

TEST_F(TourPictureTests, InJapanese)
{
    MainWindowController *const window = openSized(u"ja_JP"_s);
    window->mainWindow()->resize(PictureSize + QSize(60, 20));
    openPreview(window);
    draw(window, u"japanese.png"_s);
    endSheet(window->importSheet());
}

TEST_F(TourPictureTests, InGerman)
{
    MainWindowController *const window = openBooks(u"de_DE"_s);
    filter(window, u"Pages > 250"_s);
    openMenu(window, "newRecord:");
    draw(window, u"german.png"_s);
    QApplication::activePopupWidget()->close();
    turn();
}
