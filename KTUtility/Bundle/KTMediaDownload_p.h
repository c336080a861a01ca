#pragma once

#include <KTUtility/Platform/Files/NSURL.h>
#include <KTUtility/Platform/Files/NSURLConnection.h>

namespace KTMediaDownload {
/// How long a download may take in all, in seconds.
inline constexpr double Timeout = 5.0;

/// Whether media may come from a URL: its scheme is "http", written so.
inline bool isAllowed(const NSURL &url)
{
    return url.scheme() == u"http";
}

inline std::optional<QByteArray> dataFrom(const NSURL &url)
{
    return NSURLConnection::sendSynchronousRequest(url, Timeout);
}
} // namespace KTMediaDownload
