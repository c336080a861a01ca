#include "ZoneData_p.h"

#include <QDirIterator>
#include <QFile>
#include <QMutex>
#include <QMutexLocker>
#include <QTimeZone>

#include <algorithm>
#include <array>
#include <atomic>
#include <ctime>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr qint64 SecondsBetweenLooks = 60;
/// Qt remembers the files of so many zones, those used last.
constexpr int ZonesThatQtRemembers = 100;

/// Before the first look.
constexpr qint64 Never = -1;

struct Looks
{
    QMutex mutex;
    QByteArray fingerprint;
    std::atomic<qint64> next = Never;
    std::atomic<unsigned> generation = 0;
};

Looks &looks()
{
    static Looks looks;
    return looks;
}

/// Seconds since the machine started, as coarse as the system's tick.
qint64 uptime()
{
    timespec time = {};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
    return time.tv_sec;
}

QByteArray targetOf(const char *link)
{
    std::array<char, 256> target{};
    const ssize_t size = ::readlink(link, target.data(), target.size());
    return {target.data(), std::max<ssize_t>(size, 0)};
}

QByteArray statusOf(const QByteArray &path)
{
    struct stat status = {};
    if (::stat(path.constData(), &status) != 0)
        return QByteArray("-");
    QByteArray result;
    for (const qint64 number : {qint64(status.st_dev), qint64(status.st_ino),
                                qint64(status.st_mtim.tv_sec), qint64(status.st_mtim.tv_nsec)})
        result += QByteArray::number(number) + ' ';
    return result;
}

/// Zones that Qt read long ago would stay as they were: it reads again what it has forgotten, and
/// forgets a zone when it has met enough others.
void letQtForget()
{
    int left = 2 * ZonesThatQtRemembers;
    for (const QByteArray &id : QTimeZone::availableTimeZoneIds()) {
        if (left-- == 0)
            return;
        (void)QTimeZone(id);
    }
}

void noteChanges(Looks &looks)
{
    const QMutexLocker lock(&looks.mutex);
    const QByteArray seen = ZoneData::fingerprint();
    const bool isFirst = looks.next.exchange(uptime() + SecondsBetweenLooks) == Never;
    const bool hasChanged = looks.fingerprint != seen;
    looks.fingerprint = seen;
    if (isFirst || !hasChanged)
        return;
    letQtForget();
    ++looks.generation;
}
} // namespace

QByteArray ZoneData::fingerprint()
{
    const QByteArray folder(ZoneData::Folder);
    QByteArray result =
        targetOf(ZoneData::MachineZone) + ' ' + statusOf(ZoneData::MachineZone) + statusOf(folder);
    // A file that is replaced changes its folder; zic(8) writes over the list of all.
    result += statusOf(folder + "/tzdata.zi");
    QDirIterator folders(QFile::decodeName(folder), QDir::Dirs | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (folders.hasNext())
        result += statusOf(QFile::encodeName(folders.next()));
    return result;
}

void ZoneData::look()
{
    noteChanges(looks());
}

unsigned ZoneData::generation()
{
    Looks &known = looks();
    if (uptime() >= known.next.load(std::memory_order_relaxed))
        noteChanges(known);
    return known.generation.load(std::memory_order_acquire);
}
