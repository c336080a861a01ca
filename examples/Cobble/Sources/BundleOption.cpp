#include "BundleOption.h"

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
