#pragma once

#include "Text/Outcome.h"

#include <KTUtility/NSURL>

#include <QHash>
#include <QSet>
#include <QTemporaryDir>

#include <functional>
#include <memory>

/// What a command downloads, before it locks anything: each URL once, and nothing more from a server
/// that does not answer.
///
/// The files lie in a temporary folder, which goes with the object.
///
/// \code
/// MediaDownloads downloads;
/// downloads.fetch(url);
/// const Outcome<NSURL> file = downloads.fileOf(url);    // file:///tmp/cobble-AbCdEf/1/photo.jpg
/// \endcode
class MediaDownloads
{
public:
    /// Says whether to go on; may be empty.
    using GoesOn = std::function<bool()>;

    /// How long a server may take for a file, in seconds.
    static constexpr double Timeout = 5.0;

    /// \param timeout what to wait instead of that.
    explicit MediaDownloads(double timeout = Timeout) : _timeout(timeout) {}

    /// Downloads what an "http" URL names, unless that was tried before.
    /// \param goesOn is asked while a server is waited for.
    /// \return fails if it was cancelled, or nothing can be written. What cannot be downloaded is
    /// no failure here: fileOf() says why.
    Outcome<> fetch(const NSURL &url, const GoesOn &goesOn = {});

    /// The "file" URL of what came, or why nothing did.
    Outcome<NSURL> fileOf(const NSURL &url) const;

private:
    Outcome<> fetchNew(const NSURL &url, const GoesOn &goesOn);
    void refuse(const NSURL &url, const QString &reason);
    Outcome<> write(const NSURL &url, const QByteArray &data);
    Outcome<QString> newPath(const QString &name);

    double _timeout;
    QHash<QString, Outcome<NSURL>> _files;
    /// Names of servers that have not answered.
    QSet<QString> _silent;
    std::unique_ptr<QTemporaryDir> _folder;
    int _number = 0;
};
