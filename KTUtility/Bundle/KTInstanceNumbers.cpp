#include "KTInstanceNumbers_p.h"

#include <KTUtility/Platform/Disk/FileOperations_p.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>

#include <QFile>

#include <climits>
#include <fcntl.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Where the search begins to double.
constexpr int FirstDoubled = 4;

int descriptorOfFolder(const QByteArray &path)
{
    return ::open(path.isEmpty() ? "." : path.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
}
} // namespace

KTInstanceNumbers::KTInstanceNumbers(const QString &path) : _folder(-1)
{
    const QString base = NSString::stringByAppendingPathExtension(
        NSString::stringByDeletingPathExtension(path), u"0"_s);
    const QString extension = NSString::pathExtension(path);
    if (!canBePath(base) || !extension.isValidUtf16())
        return;
    const QByteArray encoded = QFile::encodeName(base);
    const qsizetype name = encoded.lastIndexOf('/') + 1;
    _folder = descriptorOfFolder(encoded.first(name));
    _prefix = encoded.mid(name).chopped(1);
    _name = _prefix;
    _suffix = extension.isEmpty() ? QByteArray() : '.' + QFile::encodeName(extension);
}

KTInstanceNumbers::~KTInstanceNumbers()
{
    if (_folder >= 0)
        ::close(_folder);
}

int KTInstanceNumbers::next(const std::function<void(int)> &willAsk)
{
    _willAsk = willAsk;
    for (int number = 0; number < FirstDoubled; ++number) {
        if (!exists(number))
            return number;
    }
    int lower = 0;
    int lastFree = freeUpperBound(&lower);
    if (lastFree < 0)
        return -1;
    int number = lastFree;
    while (!exists(number)) {
        lastFree = number;
        // Only if the copy there was deleted meanwhile.
        if (number == lower)
            return number;
        number = (lower + number) / 2;
    }
    return firstFree(number, lastFree);
}

/// The first free number of 4, 8, 16, …; −1 if there is none. \a lower becomes the one before.
int KTInstanceNumbers::freeUpperBound(int *lower)
{
    int number = FirstDoubled;
    while (exists(number)) {
        if (number > INT_MAX / 2)
            return -1;
        *lower = number;
        number *= 2;
    }
    return number;
}

/// Each number on the way is that of a copy, of which a listing of the folder would tell as well,
/// beside all others: asking for one costs less than listing four, and there are three others for
/// each copy that the search may come to where the numbers are dense.
int KTInstanceNumbers::firstFree(int from, int to)
{
    for (int number = from; number <= to; ++number) {
        if (!exists(number))
            return number;
    }
    return -1;
}

bool KTInstanceNumbers::exists(int number)
{
    if (_willAsk)
        _willAsk(number);
    if (_folder < 0)
        return false;
    _name.truncate(_prefix.size());
    _name += QByteArray::number(number);
    _name += _suffix;
    return ::faccessat(_folder, _name.constData(), F_OK, 0) == 0;
}
