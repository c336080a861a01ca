#include "GalleryCommand.h"

#include "Gallery/GalleryPage.h"
#include "OptionNames.h"
#include "PictureFile.h"
#include "Text/PrintableText.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
Outcome<> checkGallery(const QCommandLineParser &parser)
{
    if (!parser.positionalArguments().isEmpty())
        return Failure{u"gallery takes no arguments"_s};
    if (parser.value(ScreenshotOption).isEmpty())
        return Failure{u"gallery needs --screenshot with the name of a folder"_s};
    return {};
}

ExitCode savePicture(const GalleryPicture &picture, const QDir &folder, CommandContext &context)
{
    const QString path = folder.filePath(picture.name + u".png");
    const Outcome<> written = writePicture(picture.image, path);
    if (!written)
        return context.fail(path, written.reason());
    context.out() << printableText(path) << '\n';
    return ExitCode::Success;
}

ExitCode runGallery(const QCommandLineParser &parser, CommandContext &context)
{
    const QString path = parser.value(ScreenshotOption);
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return context.fail(path, u"there is no application to draw with"_s);
    if (!QDir().mkpath(path))
        return context.fail(path, u"the folder cannot be made"_s);
    QList<GalleryPicture> pictures = Gallery::pictures();
    pictures += {u"gallery"_s, QString(), Gallery::pageOf(pictures)};
    for (const GalleryPicture &picture : std::as_const(pictures)) {
        const ExitCode code = savePicture(picture, QDir(path), context);
        if (code != ExitCode::Success)
            return code;
    }
    return ExitCode::Success;
}
} // namespace

ExitCode runGalleryCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({ScreenshotOption, QString(), u"DIR"_s});
    return context.run(arguments, &parser, checkGallery, runGallery);
}
