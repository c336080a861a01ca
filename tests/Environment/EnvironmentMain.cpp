#include "EnvironmentSupport.h"

#include "support/TestSupport.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace environment_support {
QString expectedLocale()
{
    return qEnvironmentVariable("KTUTILITY_TEST_LOCALE");
}

QTimeZone zone()
{
    const QTimeZone found(qgetenv("TZ"));
    return found.isValid() ? found : QTimeZone::systemTimeZone();
}

QString wallTime(const QDateTime &date)
{
    if (!date.isValid())
        return u"NO"_s;
    return date.toTimeZone(zone()).toString(u"yyyy-MM-ddTHH:mm:ss"_s);
}

void chooseCalendar()
{
    if (expectedLocale().contains(u'@'))
        NSLocale::setCurrentLocale(NSLocale(expectedLocale()));
}
} // namespace environment_support

int main(int argc, char **argv)
{
    testing_support::pinAllButLocaleAndZone("offscreen");
    environment_support::chooseCalendar();
    return testing_support::runTests(argc, argv);
}
