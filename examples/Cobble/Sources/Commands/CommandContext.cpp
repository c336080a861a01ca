#include "CommandContext.h"

#include "OptionNames.h"
#include "Text/PrintableText.h"
#include "Usage.h"

#include <QCommandLineParser>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
/// The parser's texts are sentences that begin with a capital and end with a full stop.
QString asMessage(const QString &sentence)
{
    QString message = sentence;
    if (message.endsWith(u'.'))
        message.chop(1);
    return message.isEmpty() ? message : QString(message.front().toLower() + message.sliced(1));
}
} // namespace

CommandContext::CommandContext(QTextStream &out, QTextStream &err, KTLogger *logger,
                               bool showsProgress)
    : _out(out), _err(err), _logger(logger), _showsProgress(showsProgress)
{
}

bool CommandContext::parse(const QStringList &arguments, QCommandLineParser *parser)
{
    // The parser passes over the first argument, the name of the program.
    if (parser->parse(QStringList(u"cobble"_s) + arguments))
        return true;
    wrongUsage(asMessage(parser->errorText()));
    return false;
}

ExitCode
CommandContext::run(const QStringList &arguments, QCommandLineParser *parser,
                    const std::function<Outcome<>(const QCommandLineParser &parser)> &check,
                    ExitCode (*perform)(const QCommandLineParser &parser, CommandContext &context))
{
    parser->addOption({HelpOption, QString()});
    if (!parse(arguments, parser))
        return ExitCode::WrongUsage;
    if (parser->isSet(HelpOption)) {
        _out << usageText();
        return ExitCode::Success;
    }
    const Outcome<> checked = check(*parser);
    return checked ? perform(*parser, *this) : wrongUsage(checked.reason());
}

void CommandContext::warn(const QString &message)
{
    _err << "cobble: " << printableText(message) << '\n';
}

void CommandContext::warn(const QString &path, const QString &message)
{
    warn(QString(path + u": " + message));
}

ExitCode CommandContext::fail(const QString &message)
{
    warn(message);
    return ExitCode::Failure;
}

ExitCode CommandContext::fail(const QString &path, const QString &message)
{
    warn(path, message);
    return ExitCode::Failure;
}

ExitCode CommandContext::wrongUsage(const QString &message)
{
    if (!message.isNull())
        warn(message);
    _err << usageText();
    return ExitCode::WrongUsage;
}
