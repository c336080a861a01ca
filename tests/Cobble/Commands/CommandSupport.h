#pragma once

#include "Program/Cobble.h"

#include "support/TestSupport.h"

#include <QTextStream>

/// What a command line run within the test leaves.
struct CommandResult
{
    int exitCode = -1;
    QString output;
    QString errors;
};

/// Runs a command line with a logger of its own, whose settings lie in the current home.
inline CommandResult runInProcess(const QStringList &arguments)
{
    // As in the program itself; without one, Qt opens no database.
    testing_support::needApplication();
    KTLogger logger;
    CommandResult result;
    QTextStream out(&result.output);
    QTextStream err(&result.errors);
    result.exitCode = runCobble(arguments, out, err, &logger);
    return result;
}

/// A command line typed with spaces between its arguments; "·" stands for a space in one.
inline CommandResult runLine(const char16_t *line)
{
    QStringList arguments = QString::fromUtf16(line).split(u' ');
    for (QString &argument : arguments)
        argument.replace(u'·', u' ');
    return runInProcess(arguments);
}
