#include "support/TestSupport.h"

#include <QLocale>

#include <ctime>

/// Pins locale, time zone, platform plug-in and home folder before anything runs.
int main(int argc, char **argv)
{
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("LANG", "C.UTF-8");
    qunsetenv("LANGUAGE");
    qputenv("TZ", "America/New_York");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::tzset();
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    testing_support::useFreshHome();

    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#ifdef __SANITIZE_ADDRESS__
extern "C" __attribute__((visibility("default"))) const char *__lsan_default_suppressions();

/// What fontconfig keeps of its configuration is its own affair.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}
#endif
