#include "KTInstanceNumbers_p.h"

#include <KTUtility/Platform/Disk/FileOperations_p.h>
#include <KTUtility/Platform/Disk/FolderStream_p.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>

#include <QFile>

#include <charconv>
#include <climits>
#include <fcntl.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// How many taken numbers in a row are asked for one by one before the folder is listed.
constexpr int LongestWalk = 1000;
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

int KTInstanceNumbers::firstFree(int from, int to)
{
    for (int number = from; number <= to; ++number) {
        if (number - from == LongestWalk)
            listFolder(number, to);
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
    if (!_listed.empty())
        return _listed[size_t(number - _firstListed)];
    _name.truncate(_prefix.size());
    _name += QByteArray::number(number);
    _name += _suffix;
    return existsInFolder(_name.constData());
}

bool KTInstanceNumbers::existsInFolder(const char *name) const
{
    return ::faccessat(_folder, name, F_OK, 0) == 0;
}

void KTInstanceNumbers::listFolder(int from, int to)
{
    const int descriptor = ::openat(_folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const FolderStream folder(descriptor < 0 ? nullptr : ::fdopendir(descriptor));
    // A folder that may be searched and not be listed is asked on.
    if (!folder)
        return;
    _firstListed = from;
    _listed.assign(size_t(to - from) + 1, false);
    while (const dirent *entry = ::readdir(folder.get())) {
        const std::optional<int> number = numberOf(entry->d_name);
        const bool mayLeadNowhere = entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN;
        if (number && *number >= from && *number <= to)
            _listed[size_t(*number - from)] = !mayLeadNowhere || existsInFolder(entry->d_name);
    }
}

/// The number in the name of a copy of the file; nothing for other names.
std::optional<int> KTInstanceNumbers::numberOf(const char *name) const
{
    const QByteArrayView text(name);
    if (text.size() <= _prefix.size() + _suffix.size() || !text.startsWith(_prefix) ||
        !text.endsWith(_suffix))
        return std::nullopt;
    const QByteArrayView digits =
        text.sliced(_prefix.size(), text.size() - _prefix.size() - _suffix.size());
    int number = 0;
    const auto result = std::from_chars(digits.begin(), digits.end(), number);
    const bool isCanonical = digits[0] != '-' && (digits[0] != '0' || digits.size() == 1);
    return result.ec == std::errc() && result.ptr == digits.end() && isCanonical
               ? std::optional<int>(number)
               : std::nullopt;
}
