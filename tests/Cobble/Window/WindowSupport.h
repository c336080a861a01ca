#pragma once

#include "Cobble/Commands/CommandSupport.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include "Open/OpenLibrary.h"
#include "Window/DesktopApplication.h"
#include "Window/DetailPane.h"
#include "Window/FieldEditor.h"
#include "Window/MainWindow.h"
#include "Window/MainWindowController.h"
#include "Window/RecordTableModel.h"
#include "Window/RecordTableView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>
#include <QTest>

/// The host's windows over a bundle with the library "Things".
class HostWindowTest : public testing_support::WindowedTest
{
protected:
    inline static const QByteArray Things = "Name,Visits,Paid,Since,Notes\n"
                                            "Ann,7,$5.50,3/4/2008,\"first\nsecond\"\n"
                                            "Bjørn,-12,$1,4/5/2008,\n"
                                            "Céline,1000,$2,5/6/2008,tall\n"
                                            "Ann,3,-$40,3/4/2008,\n";

    HostWindowTest() : bundle(tree.path(QStringLiteral("b.cobbledb")))
    {
        testing_support::useFreshHome();
    }

    /// Stores a file as the library that has its name.
    void import(const QString &name, const QByteArray &contents)
    {
        tree.add(name, contents);
        const CommandResult result = runInProcess(
            {QStringLiteral("import"), tree.path(name), QStringLiteral("--bundle"),
             bundle.bundlePath(), QStringLiteral("--locale"), QStringLiteral("en_US")});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    }
    /// Opens the first window, or one more.
    MainWindowController *open()
    {
        if (!application)
            application = std::make_unique<DesktopApplication>(bundle, &logger);
        application->newWindow();
        turn();
        return application->windows().last();
    }
    MainWindowController *openThings()
    {
        import(QStringLiteral("Things.csv"), Things);
        return open();
    }

    /// What a table shows in a cell.
    static QString cell(MainWindowController *window, int row, int column)
    {
        return window->model()->index(row, column).data().toString();
    }
    /// What it shows in a column.
    static QStringList column(MainWindowController *window, int column)
    {
        QStringList texts;
        for (int row = 0; row < window->model()->rowCount(); ++row)
            texts += cell(window, row, column);
        return texts;
    }
    static QString countIn(MainWindowController *window)
    {
        return window->mainWindow()->count()->text();
    }
    static QStringList librariesIn(MainWindowController *window)
    {
        QStringList names;
        const QListWidget *const list = window->mainWindow()->libraries();
        for (int row = 0; row < list->count(); ++row)
            names += list->item(row)->text();
        return names;
    }
    static FieldEditor *editor(MainWindowController *window, qsizetype field)
    {
        return window->mainWindow()->detail()->editor(field);
    }
    static void type(QWidget *into, const QString &text)
    {
        QTest::keyClick(into, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(into, Qt::Key_Delete);
        QTest::keyClicks(into, text);
    }
    static void search(MainWindowController *window, const QString &text)
    {
        type(window->mainWindow()->search(), text);
        QTest::keyClick(window->mainWindow()->search(), Qt::Key_Return);
    }
    static QAction *menuItem(MainWindowController *window, const char *action)
    {
        return window->mainWindow()->findChild<QAction *>(QString::fromLatin1(action));
    }
    /// A button of a dialog by its text without the letter's mark.
    static QAbstractButton *button(QWidget *dialog, const QString &text)
    {
        for (QAbstractButton *const each : dialog->findChildren<QAbstractButton *>()) {
            if (each->text().remove(u'&') == text)
                return each;
        }
        return nullptr;
    }
    static void press(QWidget *dialog, const QString &text)
    {
        QAbstractButton *const found = button(dialog, text);
        ASSERT_NE(found, nullptr) << text.toStdString();
        QTest::mouseClick(found, Qt::LeftButton);
    }

    /// A value as the database has it now, shown as text.
    QString stored(qint64 record, qsizetype field,
                   const QString &library = QStringLiteral("Things"))
    {
        const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
        const auto found = store->libraryNamed(library);
        for (RecordCursor cursor = store->records(*found); cursor.next();) {
            if (cursor.id() == record)
                return RecordTexts(*found).textOf(field, cursor.value(field));
        }
        return {};
    }

    testing_support::FileTree tree;
    KTDatabaseBundle bundle;
    KTLogger logger;
    std::unique_ptr<DesktopApplication> application;
};
