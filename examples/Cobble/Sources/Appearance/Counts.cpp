#include "Counts.h"

#include <KTUtility/NSLocale>

#include <QLocale>

#include <limits>

QString Counts::number(qint64 count)
{
    return QLocale(NSLocale::currentLocale().localeIdentifier()).toString(count);
}

int Counts::plural(qint64 count)
{
    return int(qMin(count, qint64(std::numeric_limits<int>::max())));
}

QString Counts::records(qint64 count)
{
    return tr("%1 record(s)", nullptr, plural(count)).arg(number(count));
}

QString Counts::recordsOf(qint64 shown, qint64 all)
{
    return tr("%1 of %2 record(s)", nullptr, plural(all)).arg(number(shown), number(all));
}
