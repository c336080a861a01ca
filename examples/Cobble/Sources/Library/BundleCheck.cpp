#include "BundleCheck.h"

#include "Text/Reasons.h"

#include <QFile>

#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
/// What a journal ends with that names another one, behind that name, its length and its checksum.
constexpr QByteArrayView NameMark("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7");
/// The length, the checksum and the mark.
constexpr qint64 NameTrailer = 16;

// Of the first bytes of a database: what it begins with, and who may read it.
constexpr QByteArrayView Beginning("SQLite format 3");
constexpr qint64 ReadersAt = 19;
constexpr char ReadersOfLogs = 2;

enum class EntryKind { None, File, Other, Unknown };

/// What is at a path, not following links.
EntryKind kindOf(const QString &path)
{
    std::error_code error;
    const auto type =
        std::filesystem::symlink_status(QFile::encodeName(path).toStdString(), error).type();
    if (type == std::filesystem::file_type::none)
        return EntryKind::Unknown;
    if (type == std::filesystem::file_type::not_found)
        return EntryKind::None;
    return type == std::filesystem::file_type::regular ? EntryKind::File : EntryKind::Other;
}

Outcome<> fileOfItsOwn(const QString &path, const QString &what)
{
    const EntryKind kind = kindOf(path);
    if (kind == EntryKind::None || kind == EntryKind::File)
        return {};
    if (kind == EntryKind::Unknown)
        return Failure{Reasons::tr("%1 cannot be looked at").arg(what)};
    return Failure{Reasons::tr("%1 is a link, or no file").arg(what)};
}

/// Opens a file that may have been exchanged for a link or a pipe in this moment.
bool openPlainFile(QFile &file)
{
    const QByteArray path = QFile::encodeName(file.fileName());
    const int descriptor = ::open(path.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    return descriptor >= 0 && file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered,
                                        QFileDevice::AutoCloseHandle);
}

/// Bytes of a file; fewer at its end.
Outcome<QByteArray> bytesOf(QFile &file, qint64 from, qint64 size)
{
    if (!file.seek(from))
        return Failure{file.errorString()};
    const QByteArray bytes = file.read(size);
    if (file.error() != QFileDevice::NoError)
        return Failure{file.errorString()};
    return bytes;
}

Outcome<> checkNoLogs(const QString &path)
{
    for (const QString &suffix : {u"-wal"_s, u"-shm"_s}) {
        if (kindOf(path + suffix) != EntryKind::None)
            return Failure{
                Reasons::tr("there is a 'Database%1', which Cobble does not use").arg(suffix)};
    }
    return {};
}

/// To read a database with a write-ahead log makes files beside it.
Outcome<> checkFirstBytes(const QString &path)
{
    QFile file(path);
    // SQLite has a reason if it cannot be opened.
    if (!openPlainFile(file))
        return {};
    const Outcome<QByteArray> bytes = bytesOf(file, 0, ReadersAt + 1);
    if (!bytes)
        return bytes.failure();
    const bool hasLogs = bytes->startsWith(Beginning) && bytes->size() > ReadersAt &&
                         bytes->at(ReadersAt) >= ReadersOfLogs;
    return hasLogs ? Failure{Reasons::tr(
                         "the database has a write-ahead log, which Cobble does not use")}
                   : Outcome<>();
}
} // namespace

Outcome<> BundleCheck::folders(const KTDatabaseBundle &bundle)
{
    if (bundle.isSelfContained())
        return {};
    return Failure{Reasons::tr("a folder of the bundle is a link, which leads out of it")};
}

Outcome<> BundleCheck::journal(const QString &path)
{
    const Outcome<> isFile = fileOfItsOwn(path, Reasons::tr("the journal of the database"));
    QFile file(path);
    if (!isFile || kindOf(path) == EntryKind::None)
        return isFile;
    if (!openPlainFile(file))
        return kindOf(path) == EntryKind::None
                   ? Outcome<>()
                   : Failure{Reasons::tr("the journal of the database cannot be read")};
    const qint64 size = file.size();
    if (size < NameTrailer)
        return {};
    const Outcome<QByteArray> end = bytesOf(file, size - NameMark.size(), NameMark.size());
    if (!end)
        return end.failure();
    return *end == NameMark ? Failure{Reasons::tr("the journal of the database names another file")}
                            : Outcome<>();
}

Outcome<> BundleCheck::database(const KTDatabaseBundle &bundle, bool mayRead)
{
    const QString path = bundle.databaseFilePath();
    return folders(bundle)
        .andThen([&] { return fileOfItsOwn(path, Reasons::tr("the database")); })
        .andThen([&] { return checkNoLogs(path); })
        .andThen([&] { return journal(path + u"-journal"); })
        .andThen([&] { return mayRead ? checkFirstBytes(path) : Outcome<>(); });
}
