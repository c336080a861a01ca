#include "ExpensesWindow.h"

#include <KTUtility/KTTranslations>
#include <KTUtility/NSSearchPath>

#include <QApplication>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    ExpensesWindow::identifyProgram();
    KTTranslations::install(u":/i18n/expenses"_s);
    const QStringList folders =
        NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, NSUserDomainMask, true);
    ExpensesWindow window(folders.value(0) + u"/expenses.plist"_s);
    window.show();
    return QApplication::exec();
}
