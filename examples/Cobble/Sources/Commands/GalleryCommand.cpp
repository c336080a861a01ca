#include "GalleryCommand.h"

#include "Gallery/GalleryPage.h"
#include "OptionNames.h"
#include "Text/PrintableText.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QImageWriter>
#include <QSaveFile>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
QString mistakeInGallery(const QCommandLineParser &parser)
{
    if (!parser.positionalArguments().isEmpty())
        return u"gallery takes no arguments"_s;
    return parser.value(ScreenshotOption).isEmpty()
               ? u"gallery needs --screenshot with the name of a folder"_s
               : QString();
}

/// Writes one picture; \return why that failed, nil if it did not.
QString failureOfWriting(const QImage &image, const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    QImageWriter writer(&file, "png");
    if (!writer.write(image))
        return writer.errorString();
    return file.commit() ? QString() : file.errorString();
}

ExitCode savePicture(const GalleryPicture &picture, const QDir &folder, CommandContext &context)
{
    const QString path = folder.filePath(picture.name + u".png");
    const QString failure = failureOfWriting(picture.image, path);
    if (!failure.isNull())
        return context.fail(path, failure);
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
    return context.run(arguments, &parser, mistakeInGallery, runGallery);
}
