#include "Cobble.h"

#include "Commands/CommandContext.h"
#include "Commands/ExportCommand.h"
#include "Commands/GalleryCommand.h"
#include "Commands/ImportCommand.h"
#include "Commands/LogCommand.h"
#include "Commands/MediaCommand.h"
#include "Commands/NamesCommand.h"
#include "Commands/ParseCommand.h"
#include "Commands/PlugInsCommand.h"
#include "Commands/ShowCommand.h"
#include "Commands/StandardStreams.h"
#include "Commands/Usage.h"
#include "Commands/WindowCommand.h"
#include "DataCommands/DeleteCommand.h"
#include "DataCommands/FieldCommand.h"
#include "DataCommands/NewCommand.h"
#include "DataCommands/RenameCommand.h"
#include "DataCommands/SetCommand.h"
#include "DataCommands/UndoCommand.h"

#include <algorithm>
#include <array>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
/// Whether a command begins a new log, or leaves that of the last session alone and at most adds to
/// it.
enum class Log { Begun, Kept };

struct Command
{
    QStringView name;
    ExitCode (*run)(const QStringList &arguments, CommandContext &context);
    Log log = Log::Kept;
};

ExitCode runHelp(const QStringList &, CommandContext &context)
{
    context.out() << usageText();
    return ExitCode::Success;
}

ExitCode runVersion(const QStringList &, CommandContext &context)
{
    context.out() << QStringLiteral("Cobble " COBBLE_VERSION "\n");
    return ExitCode::Success;
}

constexpr std::array<Command, 23> Commands = {{
    {u"window", runWindowCommand, Log::Begun},
    {u"import", runImportCommand, Log::Begun},
    {u"show", runShowCommand},
    {u"export", runExportCommand, Log::Begun},
    {u"new", runNewCommand, Log::Begun},
    {u"set", runSetCommand, Log::Begun},
    {u"delete", runDeleteCommand, Log::Begun},
    {u"rename", runRenameCommand, Log::Begun},
    {u"field", runFieldCommand, Log::Begun},
    {u"undo", runUndoCommand, Log::Begun},
    {u"redo", runRedoCommand, Log::Begun},
    {u"media", runMediaCommand},
    {u"upgrade-copy", runUpgradeCopyCommand, Log::Begun},
    {u"plugins", runPlugInsCommand},
    {u"parse", runParseCommand},
    {u"format", runFormatCommand},
    {u"names", runNamesCommand},
    {u"log", runLogCommand},
    {u"gallery", runGalleryCommand},
    {u"help", runHelp},
    {u"--help", runHelp},
    {u"-h", runHelp},
    {u"--version", runVersion},
}};

ExitCode runUnknown(const QString &name, CommandContext &context)
{
    const QString kind = name.startsWith(u'-') ? u"option"_s : u"command"_s;
    return context.wrongUsage(u"unknown %1 '%2'"_s.arg(kind, name));
}

/// The command that a command line asks for; null if there is none of that name.
const Command *commandOf(const QStringList &arguments)
{
    const auto found = std::find_if(Commands.begin(), Commands.end(), [&](const Command &command) {
        return !arguments.isEmpty() && command.name == arguments.first();
    });
    return found == Commands.end() ? nullptr : &*found;
}

ExitCode runCommand(const QStringList &arguments, CommandContext &context)
{
    if (arguments.isEmpty())
        return context.wrongUsage(QString());
    if (const Command *const command = commandOf(arguments))
        return command->run(arguments.sliced(1), context);
    return runUnknown(arguments.first(), context);
}

/// Whether a command line leaves the log of the last session alone: also one that only asks how a
/// command is used.
bool keepsLog(const QStringList &arguments)
{
    const Command *const command = commandOf(arguments);
    return !command || command->log == Log::Kept || arguments.contains(u"--help"_s) ||
           arguments.contains(u"-h"_s);
}
} // namespace

QStringList commandNames()
{
    QStringList names;
    for (const Command &command : Commands)
        names += command.name.toString();
    return names;
}

int runCobble(const QStringList &arguments, QTextStream &out, QTextStream &err, KTLogger *logger,
              bool showsProgress)
{
    CommandContext context(out, err, logger, showsProgress);
    return int(runCommand(arguments, context));
}

int runCobbleProcess(const QStringList &arguments, int outputDescriptor, int errorDescriptor)
{
    KTLogger::setKeepsLogFile(keepsLog(arguments));
    KTLog(kLog_Lifecycle, 4, u"start: cobble %@", arguments.join(u' '));
    DescriptorStream output(outputDescriptor);
    DescriptorStream errors(errorDescriptor);
    int exitCode = runCobble(arguments, output.stream(), errors.stream(), KTLogger::sharedLogger(),
                             isatty(errorDescriptor) == 1);
    if (const Outcome<> written = output.finish(); !written) {
        errors.stream() << "cobble: standard output: " << written.reason() << '\n';
        exitCode = exitCode == int(ExitCode::Success) ? int(ExitCode::Failure) : exitCode;
    }
    (void)errors.finish(); // There is nowhere left to report it.
    KTLog(kLog_Lifecycle, 4, u"exit code %d", exitCode);
    return exitCode;
}
