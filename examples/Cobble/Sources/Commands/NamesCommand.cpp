#include "NamesCommand.h"

#include "Import/ImportSchema.h"
#include "Text/AlignedTable.h"
#include "Text/PrintableText.h"

#include <KTUtility/NSString_KTNaming>

#include <QCommandLineParser>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
void printNames(const QString &text, QTextStream &out)
{
    AlignedTable table;
    const auto add = [&table](const char16_t *title, const QString &name) {
        table.addRow({QString::fromUtf16(title), name});
    };
    add(u"propertyString", KTAdditions::propertyString(text));
    // Entities and library entities share a cache, on purpose; entityNameForText() bypasses it, so
    // that each line shows its own transform.
    add(u"entityString", entityNameForText(text));
    add(u"libraryEntityName", KTAdditions::libraryEntityName(text));
    add(u"lowerCaseName", KTAdditions::lowerCaseNameFromString(text));
    add(u"tableName", KTAdditions::tableNameString(text));
    add(u"tableColumn", KTAdditions::tableColumnString(text));
    add(u"label", KTAdditions::labelString(text));
    add(u"bumpyCase (first small)", KTAdditions::bumpyCaseStringFromString(text, false));
    add(u"bumpyCase (first capital)", KTAdditions::bumpyCaseStringFromString(text, true));
    add(u"properNoun", KTAdditions::properNounString(text));
    out << printableText(text) << '\n';
    table.print(out, 2);
}

Outcome<> checkNames(const QCommandLineParser &parser)
{
    return parser.positionalArguments().isEmpty() ? Failure{u"names needs a text"_s} : Outcome<>();
}

ExitCode runNames(const QCommandLineParser &parser, CommandContext &context)
{
    const QStringList texts = parser.positionalArguments();
    for (qsizetype index = 0; index < texts.size(); ++index) {
        if (index > 0)
            context.out() << '\n';
        printNames(texts.at(index), context.out());
    }
    return ExitCode::Success;
}
} // namespace

ExitCode runNamesCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    return context.run(arguments, &parser, checkNames, runNames);
}
