#pragma once

#include "ExitCode.h"
#include "Text/Outcome.h"

#include <QString>

#include <functional>

class KTLogger;
class QCommandLineParser;
class QTextStream;

/// What a command talks to: the two outputs and the logger. Errors are reported through it, so that
/// they all look the same and give the right exit code.
class CommandContext
{
public:
    /// \param showsProgress whether somebody looks at the error output while a command runs.
    CommandContext(QTextStream &out, QTextStream &err, KTLogger *logger,
                   bool showsProgress = false);

    QTextStream &out() { return _out; }
    /// Where long work reports how far it is; null if nobody looks.
    QTextStream *progress() { return _showsProgress ? &_err : nullptr; }
    KTLogger *logger() { return _logger; }

    /// Parses the arguments of one command; its options, also `--help`, are added to \a parser
    /// before.
    /// \return false if there is an unknown option or one lacks its value; that is reported then.
    bool parse(const QStringList &arguments, QCommandLineParser *parser);

    /// The same for a command whose options, without --help, \a parser has: parses, shows the usage
    /// if that is asked for, and runs \a perform unless \a check finds a mistake.
    ExitCode run(const QStringList &arguments, QCommandLineParser *parser,
                 const std::function<Outcome<>(const QCommandLineParser &parser)> &check,
                 ExitCode (*perform)(const QCommandLineParser &parser, CommandContext &context));

    /// Prints the line "cobble: message" on the error output.
    void warn(const QString &message);
    /// The same for something about a file: "cobble: path: message".
    void warn(const QString &path, const QString &message);
    /// Warns, and gives the exit code for what could not be done.
    ExitCode fail(const QString &message);
    ExitCode fail(const QString &path, const QString &message);
    /// Warns, unless \a message is nil, shows the usage on the error output, and gives the exit
    /// code for that.
    ExitCode wrongUsage(const QString &message);

private:
    QTextStream &_out;
    QTextStream &_err;
    KTLogger *_logger;
    bool _showsProgress;
};
