#pragma once

#include "NSHTTPURLResponse.h"
#include "NSURL.h"
#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>

#include <functional>
#include <optional>

/// Downloads, while the calling thread waits.
///
/// \code
/// const auto url = NSURL::URLWithString(u"http://example.com/photo.jpg"_s);
/// const std::optional<QByteArray> photo = NSURLConnection::sendSynchronousRequest(*url, 5.0);
/// \endcode
namespace NSURLConnection {
/// The largest body that is taken, in bytes.
inline constexpr qsizetype MaximumSize = qsizetype(256) << 20;

/// The body that a server sends for \a url, whatever its status says. Only plain http is spoken,
/// also after redirections; caches are asked to stand aside, and no proxy, cookie or password of
/// the user's settings is used.
/// \param timeoutInterval the longest time that all of it may take, in seconds.
/// \param response receives what the server says; may be null.
/// \param goesOn is asked about once a second or more often whether to go on; may be empty.
/// \return nothing for other schemes, after a failure, if the time is over, if it was ended, if the
/// body ended before its announced length, or is larger than MaximumSize. An empty body is empty data.
KTUTILITY_EXPORT std::optional<QByteArray>
sendSynchronousRequest(const NSURL &url, double timeoutInterval,
                       NSHTTPURLResponse *response = nullptr,
                       const std::function<bool()> &goesOn = {});
} // namespace NSURLConnection
