#include "PictureInput.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QImage>
#include <QMimeData>
#include <QTemporaryDir>
#include <QToolButton>
#include <QUrl>

using namespace Qt::StringLiterals;

PictureInput::PictureInput(QWidget *target, QWidget *parent) : QWidget(parent)
{
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    QObject::connect(addButton(u"chooseButton"_s, tr("Choose…")), &QToolButton::clicked, this,
                     &PictureInput::choose);
    QObject::connect(addButton(u"pasteButton"_s, tr("Paste")), &QToolButton::clicked, this,
                     &PictureInput::paste);
    _remove = addButton(u"removeButton"_s, tr("Remove"));
    QObject::connect(_remove, &QToolButton::clicked, this, &PictureInput::removed);
    layout->addStretch();
    target->setAcceptDrops(true);
    target->installEventFilter(this);
}

QToolButton *PictureInput::addButton(const QString &name, const QString &title)
{
    auto *const button = new QToolButton(this);
    button->setObjectName(name);
    button->setText(title);
    layout()->addWidget(button);
    return button;
}

void PictureInput::setHasFile(bool hasFile)
{
    _remove->setEnabled(hasFile);
}

void PictureInput::choose()
{
    auto *const chooser = new QFileDialog(window(), tr("Choose Picture"));
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setFileMode(QFileDialog::ExistingFile);
    QObject::connect(chooser, &QFileDialog::fileSelected, this, &PictureInput::given);
    chooser->open();
}

void PictureInput::paste()
{
    const QMimeData *const content = QApplication::clipboard()->mimeData();
    if (!content || !take(*content))
        Q_EMIT refused(tr("There is no file and no picture to paste."));
}

bool PictureInput::take(const QMimeData &content)
{
    if (content.hasUrls())
        takeFiles(content);
    else if (content.hasImage())
        takeImage(qvariant_cast<QImage>(content.imageData()));
    return content.hasUrls() || content.hasImage();
}

void PictureInput::takeFiles(const QMimeData &content)
{
    const QList<QUrl> urls = content.urls();
    if (urls.size() == 1 && urls.first().isLocalFile())
        Q_EMIT given(urls.first().toLocalFile());
    else
        Q_EMIT refused(tr("A field holds one file of this computer."));
}

/// A picture that is no file becomes one for as long as it takes to store it.
void PictureInput::takeImage(const QImage &image)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(tr("Picture") + u".png");
    if (image.save(path))
        Q_EMIT given(path);
    else
        Q_EMIT refused(tr("The picture cannot be stored."));
}

bool PictureInput::eventFilter(QObject *object, QEvent *event)
{
    const bool isDrag = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!isDrag && event->type() != QEvent::Drop)
        return QWidget::eventFilter(object, event);
    auto *const drop = static_cast<QDropEvent *>(event);
    if (!isEnabled() || !(drop->mimeData()->hasUrls() || drop->mimeData()->hasImage()))
        return QWidget::eventFilter(object, event);
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (!isDrag)
        take(*drop->mimeData());
    return true;
}
