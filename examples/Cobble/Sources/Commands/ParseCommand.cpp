#include "ParseCommand.h"

#include "CommandContext.h"
#include "Fields/FieldReader.h"
#include "Fields/FieldValue.h"
#include "OptionNames.h"
#include "Text/AlignedTable.h"
#include "Text/PrintableText.h"
#include "UserSettings.h"

#include <QCommandLineParser>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
const QString SettingOption = u"option"_s;
const QString WhyOption = u"why"_s;

bool takesValue(const QString &argument)
{
    return argument == u"--locale" || argument == u"--option";
}

bool isOption(const QString &argument, const QStringList &flags)
{
    return takesValue(argument) || flags.contains(argument) || argument.startsWith(u"--locale=") ||
           argument.startsWith(u"--option=");
}

/// The known options first, then everything else as values, so that "-5" need not be distinguished.
QStringList withOptionsFirst(const QStringList &arguments, const QStringList &flags)
{
    QStringList options;
    QStringList values;
    qsizetype index = 0;
    for (; index < arguments.size() && arguments.at(index) != u"--"; ++index) {
        const QString &argument = arguments.at(index);
        (isOption(argument, flags) ? options : values).append(argument);
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
/// \param tellsWhy whether it shows how, too.
/// \return whether it makes something of it.
using Show = bool (*)(const FieldReader &reader, const QString &text, bool tellsWhy,
                      CommandContext &context);

template<Show show>
ExitCode showValues(const QCommandLineParser &parser, CommandContext &context)
{
    const LocaleScope scope(UserSettings::localeIn(parser));
    QStringList values = parser.positionalArguments();
    const FieldReader reader(*FieldTypes::typeNamed(values.takeFirst()));
    const Outcome<> set = UserSettings::apply(parser.values(SettingOption), reader.formatter());
    if (!set)
        return context.wrongUsage(set.reason());
    const bool tellsWhy = parser.optionNames().contains(WhyOption);
    bool isDone = true;
    for (const QString &value : std::as_const(values))
        isDone = show(reader, value, tellsWhy, context) && isDone;
    return isDone ? ExitCode::Success : ExitCode::Failure;
}

/// Runs one of the two commands.
/// \param own the options without a value that it has besides those of both.
template<Show show>
ExitCode runWithFormatter(const QString &command, const QStringList &arguments,
                          const QStringList &own, CommandContext &context)
{
    QCommandLineParser parser;
    QStringList flags{u"--"_s + HelpOption};
    for (const QString &option : own) {
        parser.addOption({option, QString()});
        flags += u"--"_s + option;
    }
    parser.addOption({SettingOption, QString(), u"KEY=VALUE"_s});
    UserSettings::addLocaleOption(&parser);
    const auto check = [&command](const QCommandLineParser &parsed) {
        return checkValues(parsed, command);
    };
    return context.run(withOptionsFirst(arguments, flags), &parser, check, showValues<show>);
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

/// By which pattern a date was read, or in which other form.
void addPattern(AlignedTable *table, const FieldReader &reader, const QString &pattern)
{
    const QString form = reader.reading().form;
    if (form.isNull() || form == u"pattern")
        table->addRow({u"pattern:"_s, patternText(pattern)});
    else
        table->addRow({u"form:"_s, form});
}

QString alternativeText(const KTReading &reading, const NSFormatter &formatter)
{
    const QString shown = formatter.stringForObjectValue(reading.alternative);
    const QString text = shown.isNull() ? FieldValue::textOf(reading.alternative) : shown;
    return reading.alternativeForm.isNull() ? text
                                            : u"%1 (%2)"_s.arg(text, reading.alternativeForm);
}

/// How a text was understood.
void addReading(AlignedTable *table, const KTReading &reading, const QString &text,
                const NSFormatter &formatter)
{
    for (const KTReadingPart &part : reading.parts) {
        const QString typed = text.mid(part.range.location, part.range.length);
        table->addRow({u"by:"_s, u"%1 %2, from “%3”"_s.arg(part.role, part.meaning, typed)});
    }
    if (!reading.zone.isNull())
        table->addRow({u"zone:"_s, reading.zone});
    if (reading.isAmbiguous())
        table->addRow({u"or else:"_s, alternativeText(reading, formatter)});
}

/// How a text that was read was understood, or what the formatter says against it.
void addWhy(AlignedTable *table, const FieldReader &reader, const QString &text, bool isRead)
{
    if (isRead) {
        const KTReading reading = reader.reading();
        if (!isDateType(reader.type()) && reading.isRead())
            table->addRow({u"form:"_s, reading.form});
        addReading(table, reading, text, *reader.formatter());
        return;
    }
    QVariant value;
    QString reason;
    if (!reader.formatter()->getObjectValue(&value, text, &reason) && !reason.isEmpty())
        table->addRow({u"why:"_s, reason});
}

bool showParsed(const FieldReader &reader, const QString &text, bool tellsWhy,
                CommandContext &context)
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
        addPattern(&table, reader, pattern);
    if (tellsWhy)
        addWhy(&table, reader, text, bool(value));
    context.out() << printableText(text) << '\n';
    table.print(context.out(), 2);
    return bool(value);
}

bool showFormatted(const FieldReader &reader, const QString &text, bool, CommandContext &context)
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
    return runWithFormatter<showParsed>(u"parse"_s, arguments, {WhyOption}, context);
}

ExitCode runFormatCommand(const QStringList &arguments, CommandContext &context)
{
    return runWithFormatter<showFormatted>(u"format"_s, arguments, {}, context);
}
