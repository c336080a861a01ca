#include "FileRemoval_p.h"

#include "FileOperations_p.h"
#include "FolderPlace_p.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

using namespace KTPrivate;

namespace {
bool removeName(int folder, const QByteArray &name, int flags = 0)
{
    return uninterrupted([&] { return ::unlinkat(folder, name.constData(), flags); }) == 0;
}

/// Whether a name could not be removed because it is that of a folder.
bool isOfFolder(int error)
{
    return error == EISDIR || error == EPERM;
}

/// The removal of all that is in a folder, with few descriptors however deep it is.
class Emptying
{
public:
    explicit Emptying(int folder) : _place(folder) {}

    bool run();

private:
    struct Level
    {
        QByteArray name;
        QList<QByteArray> entries;
    };
    bool begin(const QByteArray &name);
    bool end();
    bool remove(const QByteArray &name);

    FolderPlace _place;
    std::vector<Level> _levels;
};

bool Emptying::run()
{
    bool isDone = begin({});
    while (isDone && !_levels.empty())
        isDone =
            _levels.back().entries.isEmpty() ? end() : remove(_levels.back().entries.takeLast());
    return isDone;
}

/// Begins with the folder that the place is at.
bool Emptying::begin(const QByteArray &name)
{
    const std::optional<QList<QByteArray>> entries = _place.names();
    if (entries)
        _levels.push_back({name, *entries});
    return entries.has_value();
}

/// Removes the folder that is empty now; the one at the root stays.
bool Emptying::end()
{
    const QByteArray name = _levels.back().name;
    _levels.pop_back();
    return _place.isRoot() ||
           (_place.leave() && removeName(_place.descriptor(), name, AT_REMOVEDIR));
}

bool Emptying::remove(const QByteArray &name)
{
    // What another process has removed meanwhile is gone.
    if (removeName(_place.descriptor(), name) || errno == ENOENT)
        return true;
    if (!isOfFolder(errno))
        return false;
    // One that may not be read may still be empty.
    return _place.enter(name) ? begin(name) : removeName(_place.descriptor(), name, AT_REMOVEDIR);
}

bool removeFolder(const QByteArray &path)
{
    const int folder = openFile(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    return (folder < 0 || Emptying(folder).run()) && removeName(AT_FDCWD, path, AT_REMOVEDIR);
}
} // namespace

bool KTPrivate::removeItem(const QByteArray &path)
{
    return removeName(AT_FDCWD, path) || (isOfFolder(errno) && removeFolder(path));
}
