#include "FileDrop.h"

#include "DropHint.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {
bool isImported(const QFileInfo &file)
{
    static const QStringList suffixes = {u"csv"_s, u"tsv"_s, u"tab"_s, u"txt"_s, u"vcf"_s};
    return suffixes.contains(file.suffix().toLower());
}

/// Why dropped files are not taken; nil if they are.
QString reasonAgainst(const QList<QUrl> &urls)
{
    if (urls.size() != 1)
        return FileDrop::tr("Please drop one file at a time.");
    const QFileInfo file(urls.first().toLocalFile());
    if (!urls.first().isLocalFile())
        return FileDrop::tr("Only files of this computer can be dropped here.");
    if (!file.isFile())
        return FileDrop::tr("“%1” is no file.").arg(file.fileName());
    if (!isImported(file))
        return FileDrop::tr(
                   "“%1” is no file that can be imported: these are csv, tsv, txt and vcf.")
            .arg(file.fileName());
    return {};
}
} // namespace

FileDrop::FileDrop(QWidget *window)
    : QObject(window), _hint(new DropHint(window, tr("Let go to import the file.")))
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool FileDrop::takes(const QDropEvent &event) const
{
    return event.mimeData()->hasUrls() && (!_mayCome || _mayCome());
}

void FileDrop::take(const QDropEvent &event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    const QString reason = reasonAgainst(urls);
    if (reason.isNull())
        Q_EMIT dropped(urls.first().toLocalFile());
    else
        Q_EMIT refused(reason);
}

void FileDrop::follow(QDropEvent *event, bool isDrag)
{
    // The file stays where it is, whatever the other program would like.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    _hint->setVisible(isDrag && reasonAgainst(event->mimeData()->urls()).isNull());
    if (!isDrag)
        take(*event);
}

bool FileDrop::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::DragLeave)
        _hint->setVisible(false);
    const bool isDrag = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!isDrag && event->type() != QEvent::Drop)
        return QObject::eventFilter(object, event);
    auto *const drop = static_cast<QDropEvent *>(event);
    if (!takes(*drop))
        return QObject::eventFilter(object, event);
    follow(drop, isDrag);
    return true;
}
