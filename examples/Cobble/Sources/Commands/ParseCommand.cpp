#include "ParseCommand.h"

#include "CommandContext.h"
#include "Fields/FieldReader.h"
#include "Fields/FieldValue.h"
#include "OptionNames.h"
#include "Text/AlignedTable.h"
#include "Text/PrintableText.h"
#include "Usage.h"
#include "UserSettings.h"

#include <QCommandLineParser>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
const QString SettingOption = u"option"_s;

/// What the two commands are asked: a type, texts, a locale and settings.
struct FormatterRequest
{
    FieldType type = FieldType::Text;
    QStringList texts;
    QString locale;
    QStringList settings;
};

bool takesValue(const QString &argument)
{
    return argument == u"--locale" || argument == u"--option";
}

bool isOption(const QString &argument)
{
    return takesValue(argument) || argument == u"--help" || argument.startsWith(u"--locale=") ||
           argument.startsWith(u"--option=");
}

/// The known options first, then everything else as values, so that "-5" need not be told apart.
QStringList withOptionsFirst(const QStringList &arguments)
{
    QStringList options;
    QStringList values;
    bool areValues = false;
    for (qsizetype index = 0; index < arguments.size(); ++index) {
        const QString &argument = arguments.at(index);
        if (!areValues && argument == u"--") {
            areValues = true;
        } else if (areValues || !isOption(argument)) {
            values.append(argument);
        } else {
            options.append(argument);
            if (takesValue(argument) && index + 1 < arguments.size())
                options.append(arguments.at(++index));
        }
    }
    return options + QStringList(u"--"_s) + values;
}

/// What is wrong; nil if nothing is.
QString mistakeIn(const QCommandLineParser &parser, const QString &command)
{
    const QStringList values = parser.positionalArguments();
    const QString types = FieldTypes::names().join(u", "_s);
    if (values.isEmpty())
        return u"%1 needs a type: %2"_s.arg(command, types);
    if (!FieldTypes::typeNamed(values.first()))
        return u"unknown type '%1'; there are %2"_s.arg(values.first(), types);
    if (values.size() == 1)
        return u"%1 needs something to %1"_s.arg(command);
    return UserSettings::mistakeInLocale(UserSettings::localeIn(parser));
}

/// Runs one of the commands: understands the arguments, then \a run does it.
template<typename Run>
ExitCode runWithFormatter(const QString &command, const QStringList &arguments,
                          CommandContext &context, const Run &run)
{
    QCommandLineParser parser;
    parser.addOption({HelpOption, QString()});
    parser.addOption({SettingOption, QString(), u"KEY=VALUE"_s});
    UserSettings::addLocaleOption(&parser);
    if (!context.parse(withOptionsFirst(arguments), &parser))
        return ExitCode::WrongUsage;
    if (parser.isSet(HelpOption)) {
        context.out() << usageText();
        return ExitCode::Success;
    }
    if (const QString mistake = mistakeIn(parser, command); !mistake.isNull())
        return context.wrongUsage(mistake);
    const LocaleScope scope(UserSettings::localeIn(parser));
    QStringList values = parser.positionalArguments();
    const FieldReader reader(*FieldTypes::typeNamed(values.takeFirst()));
    const QString mistake = UserSettings::apply(parser.values(SettingOption), reader.formatter());
    if (!mistake.isNull())
        return context.wrongUsage(mistake);
    bool isDone = true;
    for (const QString &value : std::as_const(values))
        isDone = run(reader, value, context) && isDone;
    return isDone ? ExitCode::Success : ExitCode::Failure;
}

void addDisplay(AlignedTable *table, const NSFormatter &formatter, const QVariant &value)
{
    const QString shown = formatter.stringForObjectValue(value);
    table->addRow({u"display:"_s, shown.isNull() ? u"(nil)"_s : shown});
    const QString edited = formatter.editingStringForObjectValue(value);
    table->addRow({u"editing:"_s, edited.isNull() ? u"(nil)"_s : edited});
}

bool isDateType(FieldType type)
{
    return type == FieldType::Date || type == FieldType::Time || type == FieldType::DateTime;
}

QString patternText(const QString &pattern)
{
    return pattern.isNull() ? u"ISO 8601, or one that took only a part of the text"_s : pattern;
}

bool showParsed(const FieldReader &reader, const QString &text, CommandContext &context)
{
    const FieldReading reading = reader.read(text);
    AlignedTable table;
    if (reading.isRead) {
        table.addRow({u"value:"_s, FieldValue::textOf(reading.value)});
        addDisplay(&table, *reader.formatter(), reading.value);
    } else {
        table.addRow({u"not read:"_s, reading.reason});
    }
    if (reading.isRead && isDateType(reader.type()))
        table.addRow({u"pattern:"_s, patternText(reading.pattern)});
    context.out() << printableText(text) << '\n';
    table.print(context.out(), 2);
    return reading.isRead;
}

bool showFormatted(const FieldReader &reader, const QString &text, CommandContext &context)
{
    const QVariant value = FieldValue::valueOf(reader.type(), text);
    if (!value.isValid()) {
        context.warn(u"'%1' is no value of type %2"_s.arg(text, FieldTypes::nameOf(reader.type())));
        return false;
    }
    AlignedTable table;
    addDisplay(&table, *reader.formatter(), value);
    context.out() << printableText(text) << '\n';
    table.print(context.out(), 2);
    return true;
}
} // namespace

ExitCode runParseCommand(const QStringList &arguments, CommandContext &context)
{
    return runWithFormatter(u"parse"_s, arguments, context, showParsed);
}

ExitCode runFormatCommand(const QStringList &arguments, CommandContext &context)
{
    return runWithFormatter(u"format"_s, arguments, context, showFormatted);
}
