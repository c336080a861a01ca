#include "PlugInNote_p.h"

#include <KTUtility/Platform/Disk/FileOperations_p.h>
#include <KTUtility/Platform/Disk/FolderNames_p.h>
#include <KTUtility/Platform/Files/DefaultsFile_p.h>
#include <KTUtility/Platform/Files/NSFileManager.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QList>

#include <array>
#include <climits>
#include <csignal>
#include <cstring>
#include <sys/file.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// The path of this process's note, for a function that may not ask for memory; empty without one.
std::array<char, PATH_MAX> notePath{};

/// No note is longer, in bytes.
constexpr int LongestNote = PATH_MAX + 64;

/// How others end a process that has done nothing wrong.
constexpr std::array EndingSignals = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

void removeNoteAndEnd(int signal)
{
    ::unlink(notePath.data());
    std::signal(signal, SIG_DFL);
    std::raise(signal); // at the end of this function
}

using Handler = void (*)(int);

/// Lets one function handle the signals that another one has handled so far.
void exchangeHandlers(Handler from, Handler to)
{
    for (const int signal : EndingSignals) {
        struct sigaction action = {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler != from)
            continue;
        action.sa_handler = to;
        ::sigaction(signal, &action, nullptr);
    }
}

QString notePrefix()
{
    return NSHostIdentifier() + u".plugins.running-"_s;
}

/// What stands in a note: the bundle, and which code of it.
QByteArray textFor(const NSBundle &bundle)
{
    const QFileInfo code(bundle.executablePath());
    const QByteArray changed = QByteArray::number(code.lastModified().toMSecsSinceEpoch());
    return bundle.bundlePath().toUtf8() + '\n' + changed + ' ' + QByteArray::number(code.size());
}

/// The file of this process. Plug-ins may call each other: the last one called stands in it.
class NoteFile
{
public:
    void push(const QByteArray &text)
    {
        if (_texts.isEmpty())
            open();
        _texts += text;
        write();
    }
    void pop()
    {
        _texts.removeLast();
        if (_texts.isEmpty())
            remove();
        else
            write();
    }

private:
    void open()
    {
        const QString folder = DefaultsFile::folder();
        const QByteArray name = QFile::encodeName(folder + u'/' + notePrefix() + u"XXXXXX"_s);
        if (folder.isNull() || name.size() >= PATH_MAX)
            return;
        NSFileManager::createDirectoryAtPath(folder, true);
        std::strcpy(notePath.data(), name.constData());
        _file = ::mkostemp(notePath.data(), O_CLOEXEC);
        if (_file < 0)
            return;
        // Who looks whether it is locked has it locked for a moment.
        uninterrupted([this] { return ::flock(_file, LOCK_EX); });
        exchangeHandlers(SIG_DFL, removeNoteAndEnd);
    }
    void write() const
    {
        const QByteArray &text = _texts.last();
        if (_file >= 0 && ::ftruncate(_file, 0) == 0)
            uninterrupted(
                [&] { return ::pwrite(_file, text.constData(), size_t(text.size()), 0); });
    }
    void remove()
    {
        if (_file < 0)
            return;
        exchangeHandlers(removeNoteAndEnd, SIG_DFL);
        // One that cannot be removed names nobody.
        (void)::ftruncate(_file, 0);
        removeFile(notePath.data());
        ::close(_file);
        _file = -1;
    }

    QList<QByteArray> _texts;
    int _file = -1;
};

NoteFile &noteFile()
{
    static NoteFile file;
    return file;
}

/// What stands in a note whose process is gone; empty if it lives.
QByteArray textLeftIn(const QString &path)
{
    const int file = openFile(QFile::encodeName(path), O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0)
        return {};
    // Shared, so that others who look do not take this process for that of the note.
    const bool isLeft = ::flock(file, LOCK_SH | LOCK_NB) == 0;
    QByteArray text(LongestNote, '\0');
    const ssize_t size =
        uninterrupted([&] { return ::pread(file, text.data(), size_t(text.size()), 0); });
    ::close(file);
    return isLeft && size > 0 ? text.first(size) : QByteArray();
}

/// Whether a note is about code that is no longer there, or was replaced. One that names nothing is
/// not: its process may be about to write it.
bool isOutdated(const QByteArray &text)
{
    const qsizetype end = text.lastIndexOf('\n');
    return end >= 0 && textFor(NSBundle(QString::fromUtf8(text.first(end)))) != text;
}

/// The notes that are left about the code of a bundle. Removes those that say nothing any more.
QStringList leftNotes(const NSBundle &bundle)
{
    const QString folder = DefaultsFile::folder();
    if (folder.isNull())
        return {};
    const QByteArray text = textFor(bundle);
    QStringList left;
    for (const QString &name : filesNamed(folder, notePrefix(), QString())) {
        const QString path = folder + u'/' + name;
        const QByteArray found = textLeftIn(path);
        if (found == text)
            left += path;
        else if (isOutdated(found))
            QFile::remove(path);
    }
    return left;
}
} // namespace

PlugInNote::PlugInNote(const NSBundle *bundle) : _isNoted(bundle != nullptr)
{
    if (_isNoted)
        noteFile().push(textFor(*bundle));
}

PlugInNote::~PlugInNote()
{
    if (_isNoted)
        noteFile().pop();
}

bool PlugInNote::isLeftFor(const NSBundle &bundle)
{
    return !leftNotes(bundle).isEmpty();
}

void PlugInNote::removeLeftFor(const NSBundle &bundle)
{
    for (const QString &path : leftNotes(bundle))
        QFile::remove(path);
}
