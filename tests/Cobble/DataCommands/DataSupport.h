#pragma once

#include "Cobble/Commands/CommandSupport.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <fcntl.h>
#include <unistd.h>

namespace testing_support {
using namespace Qt::StringLiterals;

/// Other bytes in the place of the standard input.
class StandardInput
{
public:
    StandardInput(const QString &path, const QByteArray &bytes) : _saved(dup(STDIN_FILENO))
    {
        writeFile(path, bytes);
        const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
        dup2(descriptor, STDIN_FILENO);
        close(descriptor);
    }
    ~StandardInput()
    {
        dup2(_saved, STDIN_FILENO);
        close(_saved);
    }
    StandardInput(const StandardInput &) = delete;
    StandardInput &operator=(const StandardInput &) = delete;

private:
    int _saved;
};

/// Commands on a bundle with a library "People" of the fields Name, Age, Paid, Born and Photo, and
/// the records Ann and Bob.
class DataCommandTest : public testing::Test
{
protected:
    DataCommandTest() : bundle(tree.path(u"b.cobbledb"_s))
    {
        needApplication();
        useFreshHome();
        done({u"new"_s, u"People"_s, u"--field"_s, u"Name"_s, u"--field"_s, u"Age:number"_s,
              u"--field"_s, u"Paid:currency"_s, u"--field"_s, u"Born:date"_s, u"--field"_s,
              u"Photo:media"_s, u"--locale"_s, u"en_US"_s});
        done({u"new"_s, u"People"_s, u"--record"_s, u"Name=Ann"_s, u"Age=31"_s, u"Paid=$5.50"_s,
              u"Born=3/4/2008"_s, u"--locale"_s, u"en_US"_s});
        done({u"new"_s, u"People"_s, u"--record"_s, u"Name=Bob"_s});
    }

    CommandResult run(const QStringList &arguments) const
    {
        return runInProcess(arguments + QStringList{u"--bundle"_s, bundle});
    }
    /// What a command prints that has to succeed.
    QString done(const QStringList &arguments) const
    {
        const CommandResult result = run(arguments);
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
        EXPECT_EQ(result.errors, QString());
        return result.output;
    }
    QJsonObject doneAsJSON(const QStringList &arguments) const
    {
        const QString output = done(arguments + QStringList{u"--json"_s});
        return QJsonDocument::fromJson(output.toUtf8()).object();
    }
    /// The code and the reason with which a command fails; it must not change anything.
    QString failed(const QStringList &arguments) const
    {
        const QString before = run({u"show"_s, u"People"_s, u"--json"_s}).output;
        const CommandResult result = run(arguments);
        EXPECT_EQ(result.output, QString());
        EXPECT_EQ(run({u"show"_s, u"People"_s, u"--json"_s}).output, before);
        const QString reason = result.errors.section(u'\n', 0, 0);
        return QString::number(result.exitCode) + u' ' +
               QString(reason).remove(u"cobble: "_s + bundle + u": "_s);
    }
    CommandResult runWithInput(const QStringList &arguments, const QByteArray &bytes)
    {
        const StandardInput input(tree.path(u"input"_s), bytes);
        return run(arguments);
    }

    QJsonObject shown(const QString &library = u"People"_s) const
    {
        return doneAsJSON({u"show"_s, library});
    }
    /// The values of a field, as JSON.
    QJsonArray valuesOf(const QString &field) const
    {
        QJsonArray values;
        for (const QJsonValue &record : shown().value(u"records"_s).toArray())
            values.append(record[u"values"][field]);
        return values;
    }
    QStringList fieldNames() const
    {
        QStringList names;
        for (const QJsonValue &field : shown().value(u"fields"_s).toArray())
            names += field[u"name"].toString();
        return names;
    }

    FileTree tree;
    QString bundle;
};
} // namespace testing_support
