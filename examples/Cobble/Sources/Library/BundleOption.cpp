#include "BundleOption.h"

#include <KTUtility/NSFileManager>
#include <KTUtility/NSPathUtilities>

#include <QFileInfo>

namespace {
const QString Name = QStringLiteral("bundle");
}

void BundleOption::add(QCommandLineParser *parser)
{
    parser->addOption({Name, QString(), QStringLiteral("PATH")});
}

QString BundleOption::mistakeIn(const QCommandLineParser &parser)
{
    const bool isEmpty = parser.isSet(Name) && parser.value(Name).isEmpty();
    return isEmpty ? QStringLiteral("--bundle needs a path") : QString();
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
