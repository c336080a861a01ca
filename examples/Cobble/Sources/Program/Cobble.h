#pragma once

#include <KTUtility/KTLogger>

#include <QStringList>

class QTextStream;

/// Runs one command line and returns what the process ends with, an ExitCode.
///
/// \param arguments those of the command line, without the name of the program.
/// \param out gets the results.
/// \param err gets errors and warnings, each a line beginning with "cobble: ", and the usage where
/// that was wrong.
/// \param logger whose settings the command `log` shows and changes.
/// \param showsProgress whether long commands report on \a err how far they are.
///
/// \code
/// const int exitCode = runCobble({u"import"_s, u"contacts.csv"_s}, out, err);
/// \endcode
int runCobble(const QStringList &arguments, QTextStream &out, QTextStream &err,
              KTLogger *logger = KTLogger::sharedLogger(), bool showsProgress = false);

/// What the first argument may be: the names of the commands, and the options that stand alone.
QStringList commandNames();

/// The same as runCobble() for a process: writes to two open descriptors, logs start and end (only
/// commands that work on something empty the log first), and counts it as a failure, reported on
/// the error output, if results could not be written.
int runCobbleProcess(const QStringList &arguments, int outputDescriptor, int errorDescriptor);
