#include "BundleOption.h"

#include <KTUtility/NSFileManager>
#include <KTUtility/NSPathUtilities>

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
const QString Name = u"bundle"_s;
}

void BundleOption::add(QCommandLineParser *parser)
{
    parser->addOption({Name, QString(), u"PATH"_s});
}

Outcome<> BundleOption::check(const QCommandLineParser &parser)
{
    const bool isEmpty = parser.isSet(Name) && parser.value(Name).isEmpty();
    return isEmpty ? Failure{u"--bundle needs a path"_s} : Outcome<>();
}

KTDatabaseBundle BundleOption::bundleIn(const QCommandLineParser &parser)
{
    if (!parser.isSet(Name))
        return KTDatabaseBundle::defaultDatabaseBundle();
    // Shells put a "/" behind the names of folders.
    const QString path = QFileInfo(parser.value(Name)).absoluteFilePath();
    return KTDatabaseBundle(NSString::stringByAppendingPathComponent(path, QString()));
}

void BundleOption::needFolderOf(const KTDatabaseBundle &bundle)
{
    const QString folder = NSString::stringByDeletingLastPathComponent(bundle.bundlePath());
    if (folder == KTDatabaseBundle::cobbleSupportFolder())
        NSFileManager::createDirectoryAtPath(folder, true);
}
