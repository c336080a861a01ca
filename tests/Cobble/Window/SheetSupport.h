#pragma once

#include "WindowSupport.h"

#include <QMessageBox>

/// The host's windows with their sheets and alerts.
class HostSheetTest : public HostWindowTest
{
protected:
    static QMessageBox *alertBox()
    {
        for (QWidget *const window : QApplication::topLevelWidgets()) {
            auto *const box = qobject_cast<QMessageBox *>(window);
            if (box && box->isVisible())
                return box;
        }
        return nullptr;
    }
    static QWidget *openImport(MainWindowController *window)
    {
        window->importFile();
        turn();
        return window->importSheet()->window();
    }
    static QLineEdit *field(QWidget *sheet, const QString &name)
    {
        return sheet->findChild<QLineEdit *>(name);
    }
    /// Imports a file through the sheet.
    static void importThrough(MainWindowController *window, const QString &path)
    {
        QWidget *const sheet = openImport(window);
        type(field(sheet, QStringLiteral("fileEdit")), path);
        QTest::keyClick(field(sheet, QStringLiteral("fileEdit")), Qt::Key_Return);
        turn();
    }
    QString path(const QString &name) const { return tree.path(name); }
};
