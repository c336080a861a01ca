// Measures the host's commands beside peers in the same run:
//
//     CobbleCommandScale [--of COBBLE] [ROWS]
//
// prints the quickest of some runs: what it takes to import and to export so many rows of ten columns (a million unless given),
// with one processor and with two, beside sqlite3 with the same rows as texts; and what it takes to
// start, beside a program that does nothing and is linked to the same libraries of Qt, and one that
// is linked to the framework, too.

#include "MeasuredCommand.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// The fields of a row, four of them in quotes or with blanks.
QString row(qint64 number)
{
    static const QStringList names{u"Ann"_s, u"Bob"_s, u"Zoë"_s, u"Dmitri"_s, u"Ela"_s};
    const qint64 mixed = number * 7919 % 1000003;
    const QDate day = QDate(1960, 1, 1).addDays(mixed % 23000);
    const QDate stamp = QDate(1990, 1, 1).addDays(mixed % 8000);
    const auto two = [](qint64 part) { return u"%1"_s.arg(part, 2, 10, QChar(u'0')); };
    const QStringList fields{
        names.at(mixed % 5) + u' ' + QString::number(number),
        u"\"%1,%2.%3\""_s.arg(1 + mixed % 49).arg(100 + mixed % 900).arg(two(mixed % 100)),
        QString::number(mixed % 100000),
        u"$%1.%2"_s.arg(mixed % 2000).arg(two(mixed % 100)),
        day.toString(u"M/d/yyyy"_s),
        stamp.toString(u"M/d/yyyy "_s) + u"%1:%2 "_s.arg(1 + mixed % 12).arg(two(mixed % 60)) +
            (mixed % 2 ? u"PM"_s : u"AM"_s),
        u"%1:%2:%3"_s.arg(mixed % 40).arg(two(mixed % 59)).arg(two(mixed % 58)),
        u"(555) %1-%2"_s.arg(100 + mixed % 900).arg(mixed % 10000, 4, 10, QChar(u'0')),
        u"0.%1"_s.arg(mixed % 10000, 4, 10, QChar(u'0')),
        number % 7 ? u"some note number %1 and a little more of it"_s.arg(number)
                   : u"\"a note, \"\"quoted\"\", of number %1\""_s.arg(number)};
    return fields.join(u',') + u"\r\n"_s;
}

bool makeFile(const QString &path, qint64 rows)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write("Name,Amount,Count,Paid,When,Stamp,Spent,Phone,Ratio,Note\r\n");
    for (qint64 number = 0; number < rows; ++number)
        file.write(row(number).toUtf8());
    return file.flush();
}

/// What is measured, and what it makes, which is removed before.
struct Task
{
    QString title;
    QStringList words;
    int processors = 1;
    QString output;
};

/// The commands, in a folder of their own.
class Session
{
public:
    Session(const QString &cobble, qint64 rows) : _cobble(cobble), _rows(rows) {}

    bool begin()
    {
        _out << u"| %1 rows | processor, s | real, s | memory, MB |\n|---|---|---|---|"_s.arg(_rows)
             << Qt::endl;
        return _folder.isValid() && makeFile(path(u"rows.csv"_s), _rows);
    }
    bool importRows()
    {
        const QString database = path(u"peer.db"_s);
        const QString script = u".import %1 peer"_s.arg(path(u"rows.csv"_s));
        const QStringList words{_cobble, u"import"_s, path(u"rows.csv"_s), u"--bundle"_s, bundle()};
        return measure(
            {{u"sqlite3 .import"_s, {u"sqlite3"_s, database, u".mode csv"_s, script}, 1, database},
             {u"cobble import"_s, words, 1, bundle()},
             {u"cobble import, two processors"_s, words, 2, bundle()}},
            3);
    }
    bool exportRows()
    {
        const QString file = path(u"out.csv"_s);
        return measure(
            {{u"sqlite3 -csv"_s,
              {u"sqlite3"_s, u"-csv"_s, path(u"peer.db"_s), u"SELECT * FROM peer"_s},
              1,
              {}},
             {u"cobble export"_s,
              {_cobble, u"export"_s, u"rows"_s, u"--to"_s, file, u"--bundle"_s, bundle()},
              1,
              file}},
            3);
    }
    bool start()
    {
        const QString beside = QCoreApplication::applicationDirPath();
        return measure(
            {{u"linked to Qt"_s, {beside + u"/CobbleQtAlone"_s}, 1, {}},
             {u"linked to the framework"_s, {beside + u"/CobbleFrameworkAlone"_s}, 1, {}},
             {u"cobble --version"_s, {_cobble, u"--version"_s}, 1, {}},
             {u"cobble show"_s,
              {_cobble, u"show"_s, u"rows"_s, u"--limit"_s, u"5"_s, u"--bundle"_s, bundle()},
              1,
              {}}},
            40);
    }

private:
    QString path(const QString &name) const { return _folder.filePath(name); }
    QString bundle() const { return path(u"b.cobbledb"_s); }
    /// In turns, so that what else the machine does slows all of them.
    bool measure(const QList<Task> &tasks, int rounds)
    {
        QList<MeasuredCommand> best;
        for (int round = 0; round < rounds; ++round) {
            for (qsizetype index = 0; index < tasks.size(); ++index) {
                const MeasuredCommand measured = runOnce(tasks.at(index));
                if (round == 0)
                    best += measured;
                else
                    best[index].merge(measured);
            }
        }
        for (qsizetype index = 0; index < tasks.size(); ++index)
            show(tasks.at(index).title, best.at(index));
        return std::all_of(best.begin(), best.end(),
                           [](const MeasuredCommand &command) { return command.isDone; });
    }
    static MeasuredCommand runOnce(const Task &task)
    {
        if (!task.output.isEmpty() && !QFile::remove(task.output))
            QDir(task.output).removeRecursively();
        return MeasuredCommand::run(task.words, task.processors);
    }
    void show(const QString &title, const MeasuredCommand &command)
    {
        _out << u"| %1 | %2 | %3 | %4 |%5"_s.arg(title)
                    .arg(command.processorTime, 0, 'f', 3)
                    .arg(command.time, 0, 'f', 3)
                    .arg(command.megabytes, 0, 'f', 0)
                    .arg(command.isDone ? u""_s : u" FAILED"_s)
             << Qt::endl;
    }

    QString _cobble;
    qint64 _rows;
    QTemporaryDir _folder;
    QTextStream _out{stdout};
};
} // namespace

int main(int count, char **arguments)
{
    const QCoreApplication application(count, arguments);
    QStringList words = QCoreApplication::arguments().mid(1);
    QString cobble = QStringLiteral(COBBLE_PROGRAM);
    if (words.value(0) == u"--of"_s) {
        cobble = words.value(1);
        words = words.mid(2);
    }
    Session session(cobble, words.value(0, u"1000000"_s).toLongLong());
    const bool isDone =
        session.begin() && session.importRows() && session.exportRows() && session.start();
    return isDone ? 0 : 1;
}
