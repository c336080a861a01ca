#include "MediaDownloads.h"

#include "MediaSources.h"
#include "Text/Reasons.h"

#include <KTUtility/KTLogger>
#include <KTUtility/NSPathUtilities>
#include <KTUtility/NSURLConnection>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
QString silence()
{
    return Reasons::tr("its server does not answer");
}

/// "example.org:8080" of "http://ann@Example.org:8080/a".
QString serverOf(const NSURL &url)
{
    static const QRegularExpression form(u"//(?:[^/?#]*@)?([^/?#]*)"_s);
    return form.match(url.absoluteString()).captured(1).toLower();
}

/// What a download is called; nil if its URL does not say.
QString nameOf(const NSURL &url)
{
    const QString name = NSString::lastPathComponent(url.path());
    const bool isName = !name.isEmpty() && name != u"." && name != u".." && !name.contains(u'/') &&
                        !name.contains(QChar(u'\0'));
    return isName ? name : QString();
}

/// Why a URL is not even asked for; nil if it is.
QString problemOfReply(const QString &name)
{
    if (name.isNull())
        return Reasons::tr("it names no file");
    return MediaSources::checkName(name).reason();
}

/// Why an answer is no file; nil if it is one.
QString problemOfReply(const NSHTTPURLResponse &response, bool hasBody)
{
    if (response.statusCode >= 400)
        return Reasons::tr("its server says %1").arg(response.statusCode);
    if (hasBody)
        return {};
    return response.statusCode >= 300
               ? Reasons::tr("it has moved to where plain http does not lead")
               : Reasons::tr("it cannot be downloaded");
}
} // namespace

Outcome<> MediaDownloads::fetch(const NSURL &url, const GoesOn &goesOn)
{
    if (_files.contains(url.absoluteString()))
        return {};
    if (goesOn && !goesOn())
        return Failure{Reasons::tr("it was cancelled"), true};
    QString problem = problemOfReply(nameOf(url));
    if (problem.isNull() && _silent.contains(serverOf(url)))
        problem = silence();
    if (problem.isNull())
        return fetchNew(url, goesOn);
    refuse(url, problem);
    return {};
}

Outcome<> MediaDownloads::fetchNew(const NSURL &url, const GoesOn &goesOn)
{
    bool isCancelled = false;
    const auto ask = [&] {
        isCancelled = goesOn && !goesOn();
        return !isCancelled;
    };
    NSHTTPURLResponse response;
    QElapsedTimer timer;
    timer.start();
    const auto data = NSURLConnection::sendSynchronousRequest(url, _timeout, &response, ask);
    if (isCancelled)
        return Failure{Reasons::tr("it was cancelled"), true};
    // Nor would one be quicker that has begun and never ends.
    const bool isOverdue = timer.elapsed() >= qint64(_timeout * 1000);
    const bool isSilent = !data && (response.statusCode == 0 || isOverdue);
    if (isSilent)
        _silent += serverOf(url);
    const QString problem = isSilent ? silence() : problemOfReply(response, data.has_value());
    if (problem.isNull())
        return write(url, *data);
    refuse(url, problem);
    return {};
}

void MediaDownloads::refuse(const NSURL &url, const QString &reason)
{
    KTLog(kLog_MediaFilenames, 4, u"%@ is not downloaded: %@", url.absoluteString(), reason);
    _files.insert(url.absoluteString(), Failure{reason});
}

/// A path in a folder of its own, so that names stay.
Outcome<QString> MediaDownloads::newPath(const QString &name)
{
    if (!_folder)
        _folder = std::make_unique<QTemporaryDir>();
    const QString folder = QString::number(++_number);
    if (!_folder->isValid() || !QDir(_folder->path()).mkdir(folder))
        return Failure{Reasons::tr("a download cannot be kept: %1").arg(_folder->errorString())};
    return _folder->filePath(QString(folder + u'/' + name));
}

Outcome<> MediaDownloads::write(const NSURL &url, const QByteArray &data)
{
    const Outcome<QString> path = newPath(nameOf(url));
    if (!path)
        return path.failure();
    QFile file(*path);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.flush())
        return Failure{Reasons::tr("a download cannot be kept: %1").arg(file.errorString())};
    const std::optional<NSURL> kept = NSURL::fileURLWithPath(*path);
    if (!kept)
        return Failure{Reasons::tr("a download cannot be kept: %1").arg(*path)};
    _files.insert(url.absoluteString(), *kept);
    return {};
}

Outcome<NSURL> MediaDownloads::fileOf(const NSURL &url) const
{
    return _files.value(url.absoluteString(), Failure{Reasons::tr("it was not downloaded")});
}
