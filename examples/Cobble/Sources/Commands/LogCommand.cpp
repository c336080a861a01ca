#include "LogCommand.h"

#include "ComponentNames.h"
#include "OptionNames.h"
#include "Text/AlignedTable.h"
#include "Text/PrintableText.h"

#include <KTUtility/KTLogger>

#include <QCommandLineParser>
#include <QTextStream>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {
const QString FileLineOption = u"file-line"_s;
const QString ClearOption = u"clear"_s;

/// What the command line asks to change.
struct LogChanges
{
    bool clears = false;
    /// Nil if no level is to change.
    QString component;
    int level = 0;
    std::optional<bool> writesToFile;
    std::optional<bool> displaysFileLine;

    bool isEmpty() const
    {
        return !clears && component.isNull() && !writesToFile && !displaysFileLine;
    }
};

void addLogOptions(QCommandLineParser *parser)
{
    parser->addOption({ToOption, QString(), u"PLACE"_s});
    parser->addOption({FileLineOption, QString(), u"SWITCH"_s});
    parser->addOption({ClearOption, QString()});
}

/// The level written as one digit, 0 to 7.
std::optional<int> levelFromText(const QString &text)
{
    const bool isLevel = text.size() == 1 && text.front() >= u'0' && text.front() <= u'7';
    return isLevel ? std::optional<int>(text.front().unicode() - u'0') : std::nullopt;
}

/// The value of an option with two values; nothing if it is not given.
Outcome<std::optional<bool>> switchIn(const QCommandLineParser &parser, const QString &option,
                                      const QString &whenTrue, const QString &whenFalse)
{
    if (!parser.isSet(option))
        return std::optional<bool>();
    const QString value = parser.value(option);
    if (value != whenTrue && value != whenFalse)
        return Failure{u"--%1 takes %2 or %3, not '%4'"_s.arg(option, whenTrue, whenFalse, value)};
    return std::optional(value == whenTrue);
}

Outcome<> readLevel(const QStringList &texts, const QStringList &components, LogChanges *changes)
{
    if (texts.isEmpty())
        return {};
    if (texts.size() != 2)
        return Failure{u"log takes a component and a level"_s};
    changes->component = componentNamed(texts.first(), components);
    if (changes->component.isNull())
        return Failure{unknownComponentText(texts.first(), components)};
    const std::optional<int> level = levelFromText(texts.last());
    if (!level)
        return Failure{u"bad level '%1': levels are 0 to 7"_s.arg(texts.last())};
    changes->level = *level;
    return {};
}

Outcome<> readSwitches(const QCommandLineParser &parser, LogChanges *changes)
{
    const auto writesToFile = switchIn(parser, ToOption, u"file"_s, u"console"_s);
    if (!writesToFile)
        return writesToFile.failure();
    changes->writesToFile = *writesToFile;
    const auto displaysFileLine = switchIn(parser, FileLineOption, u"on"_s, u"off"_s);
    if (!displaysFileLine)
        return displaysFileLine.failure();
    changes->displaysFileLine = *displaysFileLine;
    return {};
}

Outcome<LogChanges> changesIn(const QCommandLineParser &parser, const QStringList &components)
{
    LogChanges changes;
    changes.clears = parser.isSet(ClearOption);
    const Outcome<> read =
        readLevel(parser.positionalArguments(), components, &changes).andThen([&] {
            return readSwitches(parser, &changes);
        });
    if (!read)
        return read.failure();
    return changes;
}

/// The logger saves nothing before some component has a level, and says so by an exception.
void ensureComponents(KTLogger *logger)
{
    if (!logger->components())
        logger->setLevelOfComponent(0, kLog_Tests);
}

void setPlace(bool writesToFile, KTLogger *logger)
{
    if (writesToFile)
        logger->setOutputToFile(nullptr);
    else
        logger->setOutputToConsole(nullptr);
}

/// Makes the changes, as far as they can be saved: the logger reads back what it wrote.
void apply(const LogChanges &changes, KTLogger *logger)
{
    ensureComponents(logger);
    if (changes.clears && logger->components())
        logger->clearAllLoggingState(nullptr);
    if (!changes.component.isNull())
        logger->setLevelOfComponent(changes.level, changes.component);
    if (changes.writesToFile && logger->components())
        setPlace(*changes.writesToFile, logger);
    const bool togglesFileLine =
        changes.displaysFileLine && *changes.displaysFileLine != logger->displayFileLine();
    if (togglesFileLine && logger->components())
        logger->setDisplayFileLine(nullptr);
}

bool isCleared(const LogChanges &changes, const KTLogger &logger)
{
    const QStringList &components = logger.allComponentsArray();
    return std::all_of(components.begin(), components.end(), [&](const QString &component) {
        return component == changes.component || logger.levelOfComponent(component) == 0;
    });
}

/// Whether the settings, as read back, are as asked for.
bool isApplied(const LogChanges &changes, const KTLogger &logger)
{
    return logger.components() && (!changes.clears || isCleared(changes, logger)) &&
           (changes.component.isNull() ||
            logger.levelOfComponent(changes.component) == changes.level) &&
           logger.writeToFile() == changes.writesToFile.value_or(logger.writeToFile()) &&
           logger.displayFileLine() == changes.displaysFileLine.value_or(logger.displayFileLine());
}

QString outputText(const KTLogger &logger)
{
    if (logger.writeToFile())
        return QString(logger.logFolder() + u"/cobble.log");
    return logger.displayFileLine() ? u"console, with file and line"_s : u"console"_s;
}

void printPlaces(const KTLogger &logger, QTextStream &out)
{
    const QString &settings = logger.userFile();
    AlignedTable places;
    places.addRow({u"Output:"_s, outputText(logger)});
    places.addRow(
        {u"Settings:"_s, settings.isNull() ? u"none, as there is no home folder"_s : settings});
    places.print(out);
}

void printLevels(const KTLogger &logger, QTextStream &out)
{
    AlignedTable levels;
    levels.addRow({u"Level"_s, u"Component"_s});
    for (const QString &component : logger.allComponentsArray())
        levels.addRow({QString::number(logger.levelOfComponent(component)), component});
    levels.print(out);
}

ExitCode show(const KTLogger &logger, QTextStream &out)
{
    printPlaces(logger, out);
    out << '\n';
    printLevels(logger, out);
    return ExitCode::Success;
}

ExitCode change(const LogChanges &changes, CommandContext &context)
{
    KTLogger *logger = context.logger();
    apply(changes, logger);
    if (!isApplied(changes, *logger))
        return context.fail(logger->userFile().isNull() ? u"settings"_s : logger->userFile(),
                            u"cannot be saved"_s);
    if (changes.clears)
        context.out() << "All components: 0\n";
    if (!changes.component.isNull())
        context.out() << printableText(changes.component) << ": " << changes.level << '\n';
    if (changes.writesToFile || changes.displaysFileLine)
        context.out() << "Output: " << printableText(outputText(*logger)) << '\n';
    return ExitCode::Success;
}

ExitCode runLog(const QCommandLineParser &parser, CommandContext &context)
{
    const auto changes = changesIn(parser, context.logger()->allComponentsArray());
    if (!changes)
        return context.wrongUsage(changes.reason());
    return changes->isEmpty() ? show(*context.logger(), context.out()) : change(*changes, context);
}
} // namespace

ExitCode runLogCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    addLogOptions(&parser);
    const auto checkNothing = [](const QCommandLineParser &) { return Outcome<>(); };
    return context.run(arguments, &parser, checkNothing, runLog);
}
