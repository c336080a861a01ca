#include "BundleOption.h"

#include <KTUtility/Platform/Foundation/NSFileManager.h>
#include <KTUtility/Platform/Foundation/NSPathUtilities.h>

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
    return KTDatabaseBundle(QFileInfo(parser.value(Name)).absoluteFilePath());
}

void BundleOption::needFolderOf(const KTDatabaseBundle &bundle)
{
    const QString folder = NSString::stringByDeletingLastPathComponent(bundle.bundlePath());
    if (folder == KTDatabaseBundle::cobbleSupportFolder())
        NSFileManager::createDirectoryAtPath(folder, true);
}
