#include "DatabaseCopy.h"

#include "BundleCheck.h"
#include "Text/Reasons.h"

#include <KTUtility/NSFileManager>

#include <QFile>

#include <optional>
#include <sys/stat.h>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {
/// What tells one state of a file from another.
auto stateOfFile(const QString &path)
{
    struct stat status = {};
    const int answer = ::lstat(QFile::encodeName(path).constData(), &status);
    return std::tuple(answer, status.st_ino, status.st_size, status.st_mtim.tv_sec,
                      status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec);
}
} // namespace

Outcome<std::unique_ptr<DatabaseCopy>> DatabaseCopy::make(const KTDatabaseBundle &bundle)
{
    auto copy = std::make_unique<DatabaseCopy>();
    const Outcome<> filled = copy->fill(bundle.databaseFilePath());
    if (!filled)
        return filled.failure();
    return copy;
}

QString DatabaseCopy::path() const
{
    return _folder.filePath(u"Database"_s);
}

Outcome<> DatabaseCopy::fill(const QString &database) const
{
    const QString journal = database + u"-journal";
    const auto before = stateOfFile(journal);
    // While the journal is there, others write to the database only what is in the journal, too.
    const bool isCopied = _folder.isValid() &&
                          NSFileManager::copyItemAtPath(journal, path() + u"-journal") &&
                          NSFileManager::copyItemAtPath(database, path()) &&
                          NSFileManager::setPosixPermissions(path(), 0600);
    if (stateOfFile(journal) != before)
        return Failure{Reasons::tr("another program is changing the database; please try again")};
    if (!isCopied)
        return Failure{Reasons::tr("a change of the database was interrupted, and it cannot be "
                                   "copied to take that back in the copy")};
    return BundleCheck::journal(path() + u"-journal");
}
