#include "HelpWindow.h"

#include "WindowLanguage.h"

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QShortcut>
#include <QTextBrowser>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
QString helpIn(const QString &language)
{
    for (const QString &each : {language, u"en"_s}) {
        QFile file(u":/Cobble/Help/help_%1.html"_s.arg(each));
        if (file.open(QIODevice::ReadOnly))
            return QString::fromUtf8(file.readAll());
    }
    return {};
}

/// A title without the mark of its letter: "&Find", "検索(&F)".
QString plainTitle(const QString &title)
{
    static const QRegularExpression letter(uR"(\(&.\)|&(?!&))"_s);
    return QString(title).remove(letter).replace(u"&&"_s, u"&"_s);
}

QString rowsOf(const QMenu *menu)
{
    QString rows;
    for (const QAction *const item : menu->actions()) {
        const QString key = item->shortcut().toString(QKeySequence::NativeText);
        if (!key.isEmpty())
            rows += u"<tr><td>%1&nbsp;&nbsp;</td><td><b>%2</b></td></tr>"_s.arg(
                plainTitle(item->text()).toHtmlEscaped(), key.toHtmlEscaped());
    }
    return rows;
}

QString pageOf(const QMenuBar *menus)
{
    QString html;
    for (const QAction *const item : menus->actions()) {
        const QString rows = item->menu() ? rowsOf(item->menu()) : QString();
        if (!rows.isEmpty())
            html += u"<h3>%1</h3><table>%2</table>"_s.arg(plainTitle(item->text()).toHtmlEscaped(),
                                                          rows);
    }
    return html;
}
} // namespace

HelpWindow::HelpWindow() : _page(new QTextBrowser)
{
    _page->setOpenExternalLinks(true);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_page);
    resize(560, 520);
    for (const QKeySequence &key :
         {QKeySequence(QKeySequence::Close), QKeySequence(Qt::Key_Escape)})
        QObject::connect(new QShortcut(key, this), &QShortcut::activated, this, &QWidget::close);
}

void HelpWindow::showHelp()
{
    present(tr("Cobble Help"), helpIn(WindowLanguage::current()));
}

void HelpWindow::showShortcuts(const QMenuBar *menus)
{
    present(tr("Keyboard Shortcuts"), pageOf(menus));
}

QString HelpWindow::text() const
{
    return _page->toPlainText();
}

void HelpWindow::present(const QString &title, const QString &html)
{
    setWindowTitle(title);
    _page->setAccessibleName(title);
    _page->setHtml(html);
    show();
    raise();
    activateWindow();
    _page->setFocus();
}
