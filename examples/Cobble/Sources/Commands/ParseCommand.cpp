#include "ParseCommand.h"

#include "CommandContext.h"
#include "Fields/FieldReader.h"
#include "Fields/FieldValue.h"
#include "Text/AlignedTable.h"
#include "Text/PrintableText.h"
#include "UserSettings.h"

#include <QCommandLineParser>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
const QString SettingOption = u"option"_s;

bool takesValue(const QString &argument)
{
    return argument == u"--locale" || argument == u"--option";
}

bool isOption(const QString &argument)
{
    return takesValue(argument) || argument == u"--help" || argument.startsWith(u"--locale=") ||
           argument.startsWith(u"--option=");
}

/// The known options first, then everything else as values, so that "-5" need not be distinguished.
QStringList withOptionsFirst(const QStringList &arguments)
{
    QStringList options;
    QStringList values;
    qsizetype index = 0;
    for (; index < arguments.size() && arguments.at(index) != u"--"; ++index) {
        const QString &argument = arguments.at(index);
        (isOption(argument) ? options : values).append(argument);
        if (takesValue(argument) && index + 1 < arguments.size())
            options.append(arguments.at(++index));
    }
    return options + QStringList(u"--"_s) + values + arguments.mid(index + 1);
}

Outcome<> checkValues(const QCommandLineParser &parser, const QString &command)
{
    const QStringList values = parser.positionalArguments();
    const QString types = FieldTypes::names().join(u", "_s);
    if (values.isEmpty())
        return Failure{u"%1 needs a type: %2"_s.arg(command, types)};
    if (!FieldTypes::typeNamed(values.first()))
        return Failure{u"unknown type '%1'; there are %2"_s.arg(values.first(), types)};
    if (values.size() == 1)
        return Failure{u"%1 needs something to %1"_s.arg(command)};
    return UserSettings::checkLocale(parser);
}

/// Shows what a reader makes of a text.
/// \return whether it makes something of it.
using Show = bool (*)(const FieldReader &reader, const QString &text, CommandContext &context);

template<Show show>
ExitCode showValues(const QCommandLineParser &parser, CommandContext &context)
{
    const LocaleScope scope(UserSettings::localeIn(parser));
    QStringList values = parser.positionalArguments();
    const FieldReader reader(*FieldTypes::typeNamed(values.takeFirst()));
    const Outcome<> set = UserSettings::apply(parser.values(SettingOption), reader.formatter());
    if (!set)
        return context.wrongUsage(set.reason());
    bool isDone = true;
    for (const QString &value : std::as_const(values))
        isDone = show(reader, value, context) && isDone;
    return isDone ? ExitCode::Success : ExitCode::Failure;
}

/// Runs one of the two commands.
template<Show show>
ExitCode runWithFormatter(const QString &command, const QStringList &arguments,
                          CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({SettingOption, QString(), u"KEY=VALUE"_s});
    UserSettings::addLocaleOption(&parser);
    const auto check = [&command](const QCommandLineParser &parsed) {
        return checkValues(parsed, command);
    };
    return context.run(withOptionsFirst(arguments), &parser, check, showValues<show>);
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
    const Outcome<QVariant> value = reader.read(text);
    const QString pattern = reader.recentPattern();
    AlignedTable table;
    if (value) {
        table.addRow({u"value:"_s, FieldValue::textOf(*value)});
        addDisplay(&table, *reader.formatter(), *value);
    } else {
        table.addRow({u"not read:"_s, value.reason()});
    }
    if (value && isDateType(reader.type()))
        table.addRow({u"pattern:"_s, patternText(pattern)});
    context.out() << printableText(text) << '\n';
    table.print(context.out(), 2);
    return bool(value);
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
    return runWithFormatter<showParsed>(u"parse"_s, arguments, context);
}

ExitCode runFormatCommand(const QStringList &arguments, CommandContext &context)
{
    return runWithFormatter<showFormatted>(u"format"_s, arguments, context);
}
