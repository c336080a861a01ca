#include "ImportRequest.h"

#include "Commands/UserSettings.h"
#include "Library/BundleOption.h"
#include "Text/CSVSeparator.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
const QString LibraryOption = u"library"_s;
const QString SeparatorOption = u"separator"_s;
const QString MediaOption = u"media"_s;
const QString ReplaceOption = u"replace"_s;
const QString DryRunOption = u"dry-run"_s;
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
    parser->addOption({LibraryOption, QString(), u"NAME"_s});
    parser->addOption({SeparatorOption, QString(), u"C"_s});
    parser->addOption({MediaOption, QString(), u"HEADER"_s});
    parser->addOption({ReplaceOption, QString()});
    parser->addOption({DryRunOption, QString()});
    BundleOption::add(parser);
    UserSettings::addLocaleOption(parser);
}

QString ImportRequest::mistakeIn(const QCommandLineParser &parser)
{
    const QStringList files = parser.positionalArguments();
    if (files.isEmpty() || files.first().isEmpty())
        return u"import needs the name of a file"_s;
    if (files.size() > 1)
        return u"import takes one file, not also '%1'"_s.arg(files.at(1));
    if (parser.isSet(LibraryOption) && parser.value(LibraryOption).trimmed().isEmpty())
        return u"--library needs a name"_s;
    const QString separator = parser.value(SeparatorOption);
    if (parser.isSet(SeparatorOption) && !CSVSeparator::fromName(separator))
        return u"bad separator '%1'"_s.arg(separator);
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
