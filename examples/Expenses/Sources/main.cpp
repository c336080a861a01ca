#include "ExpensesWindow.h"

#include <KTUtility/KTTranslations>

#include <QApplication>
#include <QDir>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setDesktopFileName(u"org.example.expenses"_s);
    QApplication::setApplicationName(u"Expenses"_s);
    KTTranslations::install(u":/i18n/expenses"_s);
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    folder.mkpath(u"."_s);
    ExpensesWindow window(folder.filePath(u"expenses.plist"_s));
    window.show();
    return QApplication::exec();
}
