#include "InterruptedChange.h"

#include "support/TestSupport.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtEndian>

#include <numeric>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::writeFile;

namespace {
const QByteArray NameMark("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7");
constexpr quint32 PageSize = 4096;
/// SQLite keeps nothing at this place of a database.
constexpr quint32 LockedByte = 0x40000000;

struct Files
{
    QByteArray database;
    QByteArray journal;
};

QByteArray bytesOf(quint32 number)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

/// What a change that needs more room than there is has written when it is half done.
Files filesOfHalfChange(const QString &path, const QString &statement)
{
    Files files;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"interrupted"_s);
        database.setDatabaseName(path);
        EXPECT_TRUE(database.open());
        QSqlQuery query(database);
        for (const QString &each : {u"PRAGMA cache_size = 1"_s, u"BEGIN"_s, statement})
            EXPECT_TRUE(query.exec(each)) << each.toStdString();
        files = {contentsOf(path), contentsOf(path + u"-journal")};
        EXPECT_TRUE(query.exec(u"ROLLBACK"_s));
    }
    QSqlDatabase::removeDatabase(u"interrupted"_s);
    return files;
}
} // namespace

void InterruptedChange::leaveIn(const KTDatabaseBundle &bundle, const QString &table,
                                const QString &column)
{
    const QString path = bundle.databaseFilePath();
    const QByteArray before = contentsOf(path);
    const Files files =
        filesOfHalfChange(path, u"UPDATE %1 SET %2 = 'half ' || %2"_s.arg(table, column));
    EXPECT_NE(files.database, before);
    EXPECT_FALSE(files.journal.isEmpty());
    writeFile(path, files.database);
    writeFile(path + u"-journal", files.journal);
}

void InterruptedChange::nameInJournal(const KTDatabaseBundle &bundle, const QString &path)
{
    const QString journal = bundle.databaseFilePath() + u"-journal";
    const QByteArray name = QFile::encodeName(path);
    const quint32 sum = std::accumulate(name.begin(), name.end(), quint32(0));
    writeFile(journal, contentsOf(journal) + bytesOf(LockedByte / PageSize + 1) + name +
                           bytesOf(quint32(name.size())) + bytesOf(sum) + NameMark);
}
