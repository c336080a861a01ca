#pragma once

/// What a server has said about a request, beside what it has sent.
///
/// \code
/// NSHTTPURLResponse response;
/// const auto photo = NSURLConnection::sendSynchronousRequest(*url, 5.0, &response);
/// if (response.statusCode >= 400)
///     return complain(response.statusCode);    // 404: what came is a page that says so
/// \endcode
struct NSHTTPURLResponse
{
    /// The status of the last answer: 200, 404, or 302 where a redirection led nowhere; 0 if no
    /// server has answered.
    int statusCode = 0;
};
