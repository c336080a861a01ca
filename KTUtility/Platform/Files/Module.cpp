#include "Module_p.h"

#include "FileTrust_p.h"
#include "NSFileManager.h"
#include <KTUtility/Platform/Classes/NSClassRegistry.h>

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <cerrno>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// A file descriptor that is closed at the end.
class Descriptor
{
public:
    // Without O_NONBLOCK, a pipe in the file's place would wait for a writer.
    explicit Descriptor(const QString &path)
        : _number(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
    }
    ~Descriptor()
    {
        if (_number >= 0)
            ::close(_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int number() const { return _number; }
    /// Leaves the file open for as long as the process lives.
    void keepOpen() { _number = -1; }
    /// The path of the file that is open.
    QString path() const
    {
        return QFile::symLinkTarget(u"/proc/self/fd/"_s + QString::number(_number));
    }

private:
    int _number;
};

/// Whether a file has all the bytes at this place.
bool hasBytes(quint64 offset, quint64 count, quint64 size)
{
    return offset <= size && count <= size - offset;
}

template<typename Record>
bool readRecord(int file, quint64 offset, Record *record)
{
    return ::pread(file, record, sizeof(Record), off_t(offset)) == ssize_t(sizeof(Record));
}

/// Whether all that is mapped is in the file, since reading what was cut off crashes: the segments,
/// which the loader maps, and the table of sections behind them, which backtraces look at. Files
/// that are no modules of this machine are left to the loader, which says what they are.
bool isWhole(int file, quint64 size)
{
    ElfW(Ehdr) header{};
    if (!readRecord(file, 0, &header) || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 ||
        header.e_phentsize != sizeof(ElfW(Phdr)))
        return true;
    if (!hasBytes(header.e_shoff, quint64(header.e_shnum) * header.e_shentsize, size))
        return false;
    for (unsigned index = 0; index < header.e_phnum; ++index) {
        ElfW(Phdr) segment{};
        if (!readRecord(file, header.e_phoff + index * sizeof(segment), &segment))
            return false;
        if (segment.p_type == PT_LOAD && !hasBytes(segment.p_offset, segment.p_filesz, size))
            return false;
    }
    return true;
}

/// Why the file must not be loaded; nil if it may.
QString rejectionOfFile(int file)
{
    struct stat status = {};
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode))
        return u"is not a file"_s;
    const QString rejection = FileTrust::rejectionOf(status);
    if (!rejection.isNull())
        return rejection;
    if (!isWhole(file, quint64(status.st_size)))
        return u"is incomplete"_s;
    return {};
}

/// Why the folders that lead to a file, and what the bundle says about it, must not be trusted; nil
/// if they may.
QString rejectionOfBundle(const QString &file, const QString &executable, const QString &bundlePath)
{
    const QString bundle = QFileInfo(bundlePath).canonicalFilePath();
    if (bundle.isEmpty() || !file.startsWith(bundle + u'/'))
        return file + u" lies outside of the bundle"_s;
    const QString rejection = FileTrust::rejectionOfPath(executable);
    const QString information = bundle + u"/Contents/Info.plist"_s;
    return rejection.isNull() && NSFileManager::fileExistsAtPath(information)
               ? FileTrust::rejectionOfPath(information)
               : rejection;
}

/// Why a file that was opened, if it could be, must not be loaded; nil if it may.
QString rejectionOfOpened(const Descriptor &file, const QString &executable,
                          const QString &bundlePath)
{
    if (executable.isNull())
        return u"there is no executable in "_s + bundlePath;
    if (file.number() < 0)
        return executable + u": "_s + qt_error_string(errno);
    const QString rejection = rejectionOfFile(file.number());
    return rejection.isNull() ? rejectionOfBundle(file.path(), executable, bundlePath)
                              : QString(executable + u' ' + rejection);
}

/// A path of an open file that was never used before. The loader takes paths that it has seen for
/// the same file, and descriptors are used again; "." and "//" change nothing but the path.
QByteArray newPathOf(int file)
{
    static quint64 count = 0;
    // Not "self": debuggers read the path, too.
    QByteArray path = "/proc/" + QByteArray::number(::getpid()) + "/fd/";
    for (quint64 digits = ++count; digits != 0; digits >>= 1)
        path += (digits & 1) != 0 ? "./" : ".//";
    return path + QByteArray::number(file);
}

/// What the loader says, with the name of the file in place of the path that it was given.
QString loaderError(const QByteArray &path, const QString &executable)
{
    return QString::fromLocal8Bit(dlerror()).replace(QString::fromLatin1(path), executable);
}
/// The record of the loader about what it has loaded; null if it has none.
const link_map *recordOf(void *handle)
{
    link_map *record = nullptr;
    return dlinfo(handle, RTLD_DI_LINKMAP, &record) == 0 ? record : nullptr;
}

/// Keeps the file of code that is new in the process. The code stays, and what looks for its file
/// under the path that the loader was given (debuggers, backtraces, sanitizers) must not find
/// whatever has got the number of the descriptor since.
void keepOpenForCode(const link_map *record, Descriptor *file)
{
    static QSet<const link_map *> known;
    if (!record || known.contains(record))
        return;
    known.insert(record);
    file->keepOpen();
}
} // namespace

std::unique_ptr<Module> Module::open(const QString &executable, const QString &bundlePath,
                                     QString *error)
{
    Descriptor file(executable);
    *error = rejectionOfOpened(file, executable, bundlePath);
    if (!error->isNull())
        return nullptr;
    const QByteArray path = newPathOf(file.number());
    void *const handle = dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!handle) {
        *error = loaderError(path, executable);
        return nullptr;
    }
    keepOpenForCode(recordOf(handle), &file);
    return std::unique_ptr<Module>(new Module(handle));
}

QString Module::rejectionOf(const QString &executable, const QString &bundlePath)
{
    const Descriptor file(executable);
    return rejectionOfOpened(file, executable, bundlePath);
}

Module::Module(void *handle) : _handle(handle), _module(recordOf(handle)) {}

Module::~Module()
{
    dlclose(_handle);
}

const NSClass *Module::classNamed(const QString &name) const
{
    return NSClassRegistry::classNamed(name, _module);
}
