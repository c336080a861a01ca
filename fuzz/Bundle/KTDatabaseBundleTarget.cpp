#include "FuzzTarget.h"
#include "Targets.h"

#include <KTUtility/KTDatabaseBundle>
#include <KTUtility/KTMediaFilenameMunger>
#include <KTUtility/NSURL>

#include <QDir>

using namespace Qt::StringLiterals;

void fuzzMedia(FuzzInput &input)
{
    const KTDatabaseBundle bundle(u"/nowhere/fuzz.cobbledb"_s);
    const QString folder = bundle.mediaFolderPath();
    const QString text = input.text();
    const auto isInside = [&folder](const QString &path) {
        return path.isNull() || QDir::cleanPath(path).startsWith(QDir::cleanPath(folder) + u'/');
    };
    for (const QString &candidate : {text, QString(u"cobblemedia://" + text)}) {
        if (const std::optional<NSURL> url = NSURL::URLWithString(candidate)) {
            FUZZ_REQUIRE(isInside(bundle.filePathFromMediaUrl(*url)));
            FUZZ_REQUIRE(!bundle.isMediaURL(*url) || url->scheme() == u"cobblemedia");
        }
        bundle.mediaUrlFromFilePath(candidate);
        bundle.isFileNameInMediaFolder(candidate);
    }
    KTMediaFilenameMunger::originalFileNameFromDBStoredName(text);
    KTMediaFilenameMunger::makeDBStoredNamefromOriginalFileName(text);
    KTMediaFilenameMunger::stringByRemovingExtComment(
        KTMediaFilenameMunger::stringByAddingExtComment(text, u"orig"_s));
}
