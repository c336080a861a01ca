#include "Drops/PictureInput.h"

#include "Cobble/Window/SheetSupport.h"
#include "Window/MediaField.h"

#include <QClipboard>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QToolButton>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {
class PictureInputTests : public HostSheetTest
{
protected:
    PictureInputTests()
    {
        tree.add(u"a.png"_s);
        import(u"Things.csv"_s, "Name,Photo\nAnn,a.png\nBob,\n");
        QImage picture(4, 2, QImage::Format_RGB32);
        picture.fill(Qt::red);
        EXPECT_TRUE(picture.save(tree.path(u"red.png"_s)));
        window = open();
        select(1);
    }

    void select(qsizetype row) { window->records()->setSelectionIndex(row); }
    PictureInput *input() const { return window->mainWindow()->detail()->pictureInput(1); }
    void press(const QString &name) const
    {
        QTest::mouseClick(input()->findChild<QToolButton *>(name), Qt::LeftButton);
        turn();
    }
    /// Drops something on the picture.
    /// \return whether it is taken.
    bool drop(const QMimeData &data) const
    {
        QWidget *const field = window->mainWindow()->detail()->mediaField(1);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(field, &enter);
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        if (enter.isAccepted())
            QApplication::sendEvent(field, &event);
        turn();
        return enter.isAccepted();
    }
    bool drop(const QString &path) const
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        return drop(data);
    }
    QString photo(qint64 record) { return stored(record, 1); }
    QString problem() const { return editor(window, 1)->problem(); }
    QStringList files() const
    {
        return QDir(bundle.mediaFolderPath()).entryList(QDir::Files, QDir::Name);
    }

    MainWindowController *window = nullptr;
};
} // namespace

TEST_F(PictureInputTests, ADroppedFileIsStoredAndShown)
{
    EXPECT_TRUE(drop(path(u"red.png"_s)));
    EXPECT_EQ(problem(), QString());
    EXPECT_EQ(photo(2), u"cobblemedia://red.0.png"_s);
    EXPECT_EQ(window->mainWindow()->detail()->mediaField(1)->caption(), u"red.0.png"_s);
    window->undoChange();
    turn();
    EXPECT_EQ(photo(2), QString());
    window->redoChange();
    turn();
    EXPECT_EQ(photo(2), u"cobblemedia://red.0.png"_s);
    EXPECT_EQ(files(), QStringList({u"a.0.png"_s, u"red.0.png"_s}));
}

TEST_F(PictureInputTests, ADroppedPictureIsStored)
{
    QMimeData data;
    data.setImageData(QImage(path(u"red.png"_s)));
    EXPECT_TRUE(drop(data));
    EXPECT_EQ(photo(2), u"cobblemedia://Picture.0.png"_s);
    EXPECT_EQ(QImage(bundle.mediaFolderPath() + u"/Picture.0.png").size(), QSize(4, 2));
}

TEST_F(PictureInputTests, WhatWasCopiedIsPasted)
{
    QApplication::clipboard()->setImage(QImage(path(u"red.png"_s)));
    press(u"pasteButton"_s);
    EXPECT_EQ(photo(2), u"cobblemedia://Picture.0.png"_s);
    QApplication::clipboard()->setText(u"red.png"_s);
    press(u"pasteButton"_s);
    EXPECT_EQ(problem(), u"There is no file and no picture to paste."_s);
    EXPECT_EQ(photo(2), u"cobblemedia://Picture.0.png"_s);
}

TEST_F(PictureInputTests, AFileIsChosen)
{
    press(u"chooseButton"_s);
    auto *const chooser = window->mainWindow()->findChild<QFileDialog *>();
    ASSERT_NE(chooser, nullptr);
    Q_EMIT chooser->fileSelected(path(u"red.png"_s));
    chooser->close();
    turn();
    EXPECT_EQ(photo(2), u"cobblemedia://red.0.png"_s);
}

TEST_F(PictureInputTests, ARemovedPictureComesBack)
{
    EXPECT_FALSE(input()->findChild<QToolButton *>(u"removeButton"_s)->isEnabled());
    select(0);
    press(u"removeButton"_s);
    EXPECT_EQ(photo(1), QString());
    EXPECT_EQ(files(), QStringList(u"a.0.png"_s));
    window->undoChange();
    turn();
    EXPECT_EQ(photo(1), u"cobblemedia://a.0.png"_s);
}

TEST_F(PictureInputTests, RefusesWhatAnImportWouldRefuse)
{
    QMimeData several;
    several.setUrls(
        {QUrl::fromLocalFile(path(u"red.png"_s)), QUrl::fromLocalFile(path(u"a.png"_s))});
    QMimeData web;
    web.setUrls({QUrl(u"http://127.0.0.1/a.png"_s)});
    EXPECT_TRUE(drop(path(u"none.png"_s)));
    EXPECT_EQ(problem(), u"There is no such file."_s);
    EXPECT_TRUE(drop(tree.root()));
    EXPECT_NE(problem(), u"There is no such file."_s);
    EXPECT_NE(problem(), QString());
    for (const QMimeData *const data : {&several, &web}) {
        EXPECT_TRUE(drop(*data));
        EXPECT_EQ(problem(), u"A field holds one file of this computer."_s);
    }
    EXPECT_EQ(photo(2), QString());
    EXPECT_EQ(files(), QStringList(u"a.0.png"_s));
}

TEST_F(PictureInputTests, NoFileStaysOfAChangeThatFails)
{
    const auto other = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ASSERT_TRUE(other->beginChange());
    EXPECT_TRUE(drop(path(u"red.png"_s)));
    other->rollback();
    EXPECT_NE(problem(), QString());
    EXPECT_EQ(files(), QStringList(u"a.0.png"_s));
}
