#pragma once

#include <QWidget>

class QMenuBar;
class QTextBrowser;

/// A window with a page to read: the help, or the keys of the menus.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    HelpWindow();

    /// Shows the help, in the language of the windows.
    void showHelp();
    /// Lists the menu items that have keys.
    void showShortcuts(const QMenuBar *menus);

    /// What is shown, as plain text.
    QString text() const;

private:
    void present(const QString &title, const QString &html);

    QTextBrowser *_page;
};
