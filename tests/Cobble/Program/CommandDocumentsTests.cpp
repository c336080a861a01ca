// What tells people of the commands outside of the program, the manual page and what shells
// complete, held to what the program itself says and takes.

#include "Cobble/Commands/CommandSupport.h"

#include "Commands/Usage.h"

#include "support/TestSupport.h"

#include <QDirIterator>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
/// The options of each command.
using Options = QMap<QString, QSet<QString>>;

const QString Desktop = QStringLiteral(COBBLE_SOURCES "/Desktop/");

QString textOf(const QString &path)
{
    const QString text = QString::fromUtf8(testing_support::contentsOf(path));
    EXPECT_FALSE(text.isEmpty()) << path.toStdString();
    return text;
}

QStringList allIn(const QString &text, const QString &pattern)
{
    QStringList found;
    for (const QRegularExpressionMatch &match :
         QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text))
        found += match.captured(1);
    return found;
}

QSet<QString> optionsIn(const QString &text)
{
    const QStringList found = allIn(text, u"--([a-z][a-z-]*)"_s);
    QSet<QString> options(found.begin(), found.end());
    options.remove(u"help"_s);
    return options;
}

/// The commands proper.
QStringList commands()
{
    QStringList names = commandNames();
    names.removeIf([](const QString &name) { return name.startsWith(u'-') || name == u"help"; });
    return names;
}

/// What the usage says; its lines of one command begin with its name and go on in brackets.
Options usageOptions()
{
    Options options;
    QString command;
    for (const QString &line : usageText().split(u'\n')) {
        const QStringList names = allIn(line, u"^  cobble ([a-z-]+)"_s);
        if (!names.isEmpty())
            command = names.first();
        const bool isSynopsis = !names.isEmpty() || line.startsWith(u"                ["_s);
        if (isSynopsis && commands().contains(command))
            options[command].unite(optionsIn(line));
    }
    return options;
}

/// The options by command of a document in which a pattern finds, in two parts, the commands (with
/// " " or " | " between several) and what is said of them.
Options optionsByPattern(const QString &text, const QString &pattern)
{
    Options options;
    for (const QRegularExpressionMatch &match :
         QRegularExpression(pattern, QRegularExpression::MultilineOption |
                                         QRegularExpression::DotMatchesEverythingOption)
             .globalMatch(text)) {
        for (const QString &name : allIn(match.captured(1), u"([a-z-]+)"_s)) {
            if (commands().contains(name))
                options[name].unite(optionsIn(match.captured(2)));
        }
    }
    return options;
}

/// The options in a shell's "case": "name | name) … ;;".
Options branchOptions(const QString &text)
{
    return optionsByPattern(text, u"^ {4,8}([a-z][a-z |-]*)\\)(.*?);;"_s);
}

Options bashOptions()
{
    return branchOptions(
        textOf(Desktop + u"completions/cobble.bash").section(u"values=''"_s, 0, 0));
}

Options zshOptions()
{
    QString text = textOf(Desktop + u"completions/cobble.zsh");
    for (const QString &name : {u"bundle"_s, u"locale"_s})
        text.replace(u'$' + name + u' ', u"--"_s + name + u' ');
    return branchOptions(text);
}

Options fishOptions()
{
    QString text = textOf(Desktop + u"completions/cobble.fish");
    Options options = optionsByPattern(
        text.replace(u" -l "_s, u" --"_s),
        u"^complete -c cobble -n '__fish_seen_subcommand_from ([a-z -]+)'([^\n]*)"_s);
    options.insert(u"names"_s, {}); // It has none to complete.
    return options;
}

Options manualOptions()
{
    QString text = textOf(Desktop + u"cobble.1.in").replace(u"\\-"_s, u"-"_s);
    return optionsByPattern(text, u"^\\.SS cobble ([a-z-]+)(.*?)(?=^\\.S[SH])"_s);
}

/// What bash completes at the end of a line.
QStringList completionsOf(const QString &line)
{
    const QString script =
        u"compopt() { :; }\n. \"$1\"\nread -ra COMP_WORDS <<<\"$2\"\n"
        "[[ $2 == *' ' ]] && COMP_WORDS+=('')\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
        "_cobble\nprintf '%s\\n' \"${COMPREPLY[@]}\""_s;
    QProcess bash;
    bash.start(u"bash"_s, {u"-c"_s, script, u"bash"_s, Desktop + u"completions/cobble.bash", line});
    EXPECT_TRUE(bash.waitForFinished());
    EXPECT_EQ(bash.readAllStandardError(), QByteArray());
    return QString::fromUtf8(bash.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

std::string textOf(const Options &options)
{
    QString text;
    for (auto entry = options.begin(); entry != options.end(); ++entry) {
        QStringList names = entry->values();
        names.sort();
        text += u'\n' + entry.key() + u": "_s + names.join(u' ');
    }
    return text.toStdString();
}

void expectSame(const Options &options, const char *document)
{
    EXPECT_TRUE(options == usageOptions())
        << document << " says" << textOf(options) << "\nthe usage" << textOf(usageOptions());
}
} // namespace

TEST(CommandDocuments, TheUsageHasEveryCommand)
{
    EXPECT_EQ(usageOptions().keys().size(), commands().size());
    for (const QString &name : commands())
        EXPECT_TRUE(usageOptions().contains(name)) << name.toStdString();
}

TEST(CommandDocuments, CommandsTakeTheOptionsOfTheUsage)
{
    testing_support::useFreshHome();
    const Options options = usageOptions();
    for (auto entry = options.begin(); entry != options.end(); ++entry) {
        for (const QString &option : entry.value()) {
            const QString given = u"--"_s + option;
            const CommandResult result = runInProcess({entry.key(), given, u"x"_s, u"--help"_s});
            EXPECT_EQ(result.exitCode, 0) << qPrintable(entry.key() + given);
        }
    }
}

TEST(CommandDocuments, TheUsageHasEveryOptionOfTheSources)
{
    QSet<QString> inSources;
    QDirIterator files(QStringLiteral(COBBLE_SOURCES "/Sources"), {u"*.cpp"_s, u"*.h"_s},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QStringList found = allIn(
            textOf(files.next()),
            u"const QString [A-Za-z]*(?:Option|Name) = (?:u|QStringLiteral\\()\"([a-z-]+)\""_s);
        inSources.unite(QSet<QString>(found.begin(), found.end()));
    }
    inSources.remove(u"help"_s);
    QSet<QString> inUsage;
    for (const QSet<QString> &options : usageOptions())
        inUsage.unite(options);
    EXPECT_TRUE(inSources == inUsage)
        << testing::PrintToString(Options{{u"sources"_s, inSources}, {u"usage"_s, inUsage}});
}

TEST(CommandDocuments, AllOfThemSayWhatTheUsageSays)
{
    expectSame(manualOptions(), "cobble(1)");
    expectSame(bashOptions(), "bash");
    expectSame(zshOptions(), "zsh");
    expectSame(fishOptions(), "fish");
}

TEST(CommandDocuments, ShellsKnowEveryCommand)
{
    const QString zsh = textOf(Desktop + u"completions/cobble.zsh");
    const QString fish = textOf(Desktop + u"completions/cobble.fish");
    const QStringList inZsh = allIn(zsh, u"^    '([a-z-]+):"_s);
    const QStringList inFish = allIn(fish, u" -a ([a-z-]+) -d "_s);
    const QStringList named = allIn(fish, u"^set -l commands (.*)$"_s);
    EXPECT_EQ(inZsh, commands() + QStringList(u"help"_s));
    EXPECT_EQ(inFish, inZsh);
    EXPECT_EQ(named, QStringList(inZsh.join(u' ')));
    EXPECT_EQ(completionsOf(u"cobble "_s), commandNames());
}

TEST(CommandDocuments, BashCompletes)
{
    const struct
    {
        QString line;
        QStringList completions;
    } rows[] = {
        {u"cobble im"_s, {u"import"_s}},
        {u"cobble import --l"_s, {u"--library"_s, u"--locale"_s}},
        {u"cobble import a.csv --separator s"_s, {u"semicolon"_s, u"space"_s}},
        {u"cobble import a.csv --library "_s, {}},
        {u"cobble media "_s, {u"list"_s, u"add"_s, u"path"_s, u"delete"_s}},
        {u"cobble media list a"_s, {}},
        {u"cobble parse d"_s, {u"duration"_s, u"date"_s, u"date+time"_s}},
        {u"cobble log --to "_s, {u"file"_s, u"console"_s}},
        {u"cobble log --file-line o"_s, {u"on"_s, u"off"_s}},
        {u"cobble window --sheet a"_s, {u"about"_s}},
        {u"cobble help "_s, {}},
        {u"cobble export x --to /proc/cpuinf"_s, {u"/proc/cpuinfo"_s}},
        {u"cobble import /proc/cpuinf"_s, {u"/proc/cpuinfo"_s}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(completionsOf(row.line), row.completions) << row.line.toStdString();
}
