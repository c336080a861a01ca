#include "SystemTimeZone_p.h"

#include "ZoneData_p.h"

#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>
#include <QRegularExpression>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// No file of a zone is nearly as long.
constexpr qint64 LongestFile = 1'000'000;

/// The rule of the days to come, which a zone's file ends with: a line of its own.
QByteArray ruleOfFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.read(LongestFile);
    const qsizetype end = bytes.lastIndexOf('\n');
    const qsizetype start = end > 0 ? bytes.lastIndexOf('\n', end - 1) : -1;
    return bytes.startsWith("TZif") && start > 0 ? bytes.mid(start + 1, end - start - 1)
                                                 : QByteArray();
}

/// A zone's file: the zone of its name if it lies among the system's, else its rule.
QTimeZone zoneOfFile(const QString &path)
{
    const QString folder = QString::fromLatin1(ZoneData::Folder) + u'/';
    for (const QString &file : {path, QFileInfo(path).canonicalFilePath()}) {
        if (!file.startsWith(folder))
            continue;
        if (const QTimeZone zone(file.mid(folder.size()).toLatin1()); zone.isValid())
            return zone;
    }
    return QTimeZone(ruleOfFile(path));
}

bool haveTheSameOffsets(const QTimeZone &left, const QTimeZone &right)
{
    for (const int month : {1, 7}) {
        const QDateTime noon(QDate(2024, month, 1), QTime(12, 0), QTimeZone::utc());
        if (left.offsetFromUtc(noon) != right.offsetFromUtc(noon))
            return false;
    }
    return true;
}

/// A rule that says that there is summer time, and not when: then it is when the system's file
/// "posixrules" has it. What that file says of the years before 2007 counts where it is of the same
/// offsets; elsewhere its present rule does.
QTimeZone zoneOfRuleWithoutDates(const QByteArray &rule)
{
    const QTimeZone present(rule + ",M3.2.0,M11.1.0");
    const QString path = QString::fromLatin1(ZoneData::Folder) + u"/posixrules"_s;
    const QTimeZone past = QFileInfo::exists(path) ? zoneOfFile(path) : QTimeZone();
    return present.isValid() && past.isValid() && haveTheSameOffsets(past, present) ? past
                                                                                    : present;
}

bool isRuleWithoutDates(const QByteArray &name)
{
    static const QRegularExpression form(
        u"^[A-Za-z]{3,}[+-]?\\d{1,3}(:\\d{1,2}){0,2}[A-Za-z]{3,}([+-]?\\d{1,3}(:\\d{1,2}){0,2})?$"_s);
    return form.match(QString::fromLatin1(name)).hasMatch();
}

QString fileOfZone(const QByteArray &name)
{
    return QString::fromLatin1(ZoneData::Folder) + u'/' + QString::fromLatin1(name);
}

/// "UTC+3" and "GMT+3", which mean 3 hours west of Greenwich here and east of it for Qt.
QTimeZone zoneOfOffset(const QByteArray &name)
{
    static const QRegularExpression form(
        u"^(?:UTC|GMT)([+-]?)(\\d{1,2})(?::(\\d{2}))?(?::(\\d{2}))?$"_s);
    const QRegularExpressionMatch match = form.match(QString::fromLatin1(name));
    if (!match.hasMatch())
        return {};
    const int seconds = match.capturedView(2).toInt() * 3600 + match.capturedView(3).toInt() * 60 +
                        match.capturedView(4).toInt();
    return QTimeZone(match.capturedView(1) == u"-" ? seconds : -seconds);
}

QTimeZone zoneUnknownToQt(const QByteArray &name)
{
    if (name.isEmpty())
        return zoneOfFile(QString::fromLatin1(ZoneData::MachineZone));
    return name.startsWith('/') ? zoneOfFile(QFile::decodeName(name))
                                : zoneOfRuleWithoutDates(name);
}

/// The machine's zone, and what it came from.
struct SystemZone
{
    QMutex mutex;
    QByteArray variable;
    unsigned generation = 0;
    QTimeZone zone;
};

/// Whether a zone is still that of the machine.
bool isStillCurrent(const SystemZone &known, const QByteArray &variable)
{
    return known.zone.isValid() && known.variable == variable &&
           known.generation == ZoneData::generation();
}

SystemZone &systemZone()
{
    static SystemZone zone;
    return zone;
}
} // namespace

QTimeZone SystemTimeZone::zoneOf(const QByteArray &variable)
{
    const QByteArray name = variable.startsWith(':') ? variable.mid(1) : variable;
    if (const QTimeZone zone = zoneOfOffset(name); zone.isValid())
        return zone;
    // Qt may know "EST5EDT" by the name of a zone with a past; the C library knows it by a file only.
    if (isRuleWithoutDates(name) && !QFileInfo::exists(fileOfZone(name)))
        return zoneOfRuleWithoutDates(name);
    if (const QTimeZone zone = QTimeZone::systemTimeZone(); zone.isValid())
        return zone;
    const QTimeZone zone = zoneUnknownToQt(name);
    return zone.isValid() ? zone : QTimeZone::utc();
}

QTimeZone SystemTimeZone::current()
{
    SystemZone &known = systemZone();
    const QByteArray variable = qgetenv("TZ");
    const QMutexLocker lock(&known.mutex);
    if (isStillCurrent(known, variable))
        return known.zone;
    known.variable = variable;
    known.generation = ZoneData::generation();
    known.zone = zoneOf(variable);
    return known.zone;
}

void SystemTimeZone::reset()
{
    ZoneData::look();
    SystemZone &known = systemZone();
    const QMutexLocker lock(&known.mutex);
    known.zone = QTimeZone();
}
