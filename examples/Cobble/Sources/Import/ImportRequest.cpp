#include "ImportRequest.h"

#include "Commands/UserSettings.h"
#include "Library/BundleOption.h"
#include "Text/CSVSeparator.h"

#include <QFileInfo>

namespace {
const QString LibraryOption = QStringLiteral("library");
const QString SeparatorOption = QStringLiteral("separator");
const QString MediaOption = QStringLiteral("media");
const QString ReplaceOption = QStringLiteral("replace");
const QString DryRunOption = QStringLiteral("dry-run");
} // namespace

/// The file's name without its extension; the whole name if nothing else is left.
QString ImportRequest::libraryNameForFile(const QString &path)
{
    const QFileInfo file(path);
    const QString name = file.completeBaseName();
    return name.isEmpty() ? file.fileName() : name;
}

void ImportRequest::addOptions(QCommandLineParser *parser)
{
    parser->addOption({LibraryOption, QString(), QStringLiteral("NAME")});
    parser->addOption({SeparatorOption, QString(), QStringLiteral("C")});
    parser->addOption({MediaOption, QString(), QStringLiteral("HEADER")});
    parser->addOption({ReplaceOption, QString()});
    parser->addOption({DryRunOption, QString()});
    BundleOption::add(parser);
    UserSettings::addLocaleOption(parser);
}

QString ImportRequest::mistakeIn(const QCommandLineParser &parser)
{
    const QStringList files = parser.positionalArguments();
    if (files.isEmpty() || files.first().isEmpty())
        return QStringLiteral("import needs the name of a file");
    if (files.size() > 1)
        return QStringLiteral("import takes one file, not also '%1'").arg(files.at(1));
    if (parser.isSet(LibraryOption) && parser.value(LibraryOption).trimmed().isEmpty())
        return QStringLiteral("--library needs a name");
    const QString separator = parser.value(SeparatorOption);
    if (parser.isSet(SeparatorOption) && !CSVSeparator::fromName(separator))
        return QStringLiteral("bad separator '%1'").arg(separator);
    const QString mistake = BundleOption::mistakeIn(parser);
    return mistake.isNull() ? UserSettings::mistakeInLocale(UserSettings::localeIn(parser))
                            : mistake;
}

ImportRequest ImportRequest::from(const QCommandLineParser &parser)
{
    ImportRequest request;
    request.path = parser.positionalArguments().first();
    request.libraryName = parser.isSet(LibraryOption) ? parser.value(LibraryOption)
                                                      : libraryNameForFile(request.path);
    request.separator = CSVSeparator::fromName(parser.value(SeparatorOption));
    request.locale = UserSettings::localeIn(parser);
    request.mediaHeaders = parser.values(MediaOption);
    request.replaces = parser.isSet(ReplaceOption);
    request.isDryRun = parser.isSet(DryRunOption);
    request.bundle = BundleOption::bundleIn(parser);
    return request;
}
