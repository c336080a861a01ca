#include "NSURLConnection.h"

#include <curl/curl.h>

#include <cmath>
#include <memory>

namespace {
struct CloseTransfer
{
    void operator()(CURL *transfer) const { curl_easy_cleanup(transfer); }
};
using Transfer = std::unique_ptr<CURL, CloseTransfer>;

struct FreeHeaders
{
    void operator()(curl_slist *headers) const { curl_slist_free_all(headers); }
};
using Headers = std::unique_ptr<curl_slist, FreeHeaders>;

constexpr long MaximumRedirections = 16;

/// Takes a part of the body, whose units are bytes; anything but \a size ends the transfer.
size_t takePart(const char *part, size_t /*unit*/, size_t size, void *body)
{
    QByteArray &data = *static_cast<QByteArray *>(body);
    if (size > size_t(NSURLConnection::MaximumSize - data.size()))
        return 0;
    data.append(part, qsizetype(size));
    return size;
}

/// Asks whether to go on; anything but 0 ends the transfer.
int askWhetherToGoOn(void *goesOn, curl_off_t, curl_off_t, curl_off_t, curl_off_t)
{
    return (*static_cast<const std::function<bool()> *>(goesOn))() ? 0 : 1;
}

Headers headersAgainstCaches()
{
    Headers headers(curl_slist_append(nullptr, "Cache-Control: no-cache"));
    if (headers)
        curl_slist_append(headers.get(), "Pragma: no-cache");
    return headers;
}

bool isLibraryReady()
{
    static const bool isReady = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return isReady;
}

void setLimits(CURL *transfer, double timeoutInterval)
{
    const long milliseconds = std::max(1L, std::lround(timeoutInterval * 1000));
    curl_easy_setopt(transfer, CURLOPT_TIMEOUT_MS, milliseconds);
    curl_easy_setopt(transfer, CURLOPT_NOSIGNAL, 1L);
    // Without it, the end of the transfer waits for a name server that does not answer.
    curl_easy_setopt(transfer, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(transfer, CURLOPT_MAXFILESIZE_LARGE, curl_off_t(NSURLConnection::MaximumSize));
    curl_easy_setopt(transfer, CURLOPT_PROTOCOLS_STR, "http");
    curl_easy_setopt(transfer, CURLOPT_REDIR_PROTOCOLS_STR, "http");
    curl_easy_setopt(transfer, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(transfer, CURLOPT_MAXREDIRS, MaximumRedirections);
    curl_easy_setopt(transfer, CURLOPT_NOPROXY, "*");
}

void setQuestion(CURL *transfer, const std::function<bool()> &goesOn)
{
    if (!goesOn)
        return;
    curl_easy_setopt(transfer, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(transfer, CURLOPT_XFERINFOFUNCTION, askWhetherToGoOn);
    curl_easy_setopt(transfer, CURLOPT_XFERINFODATA, &goesOn);
}

int statusOf(CURL *transfer)
{
    long status = 0;
    curl_easy_getinfo(transfer, CURLINFO_RESPONSE_CODE, &status);
    return int(status);
}
} // namespace

std::optional<QByteArray>
NSURLConnection::sendSynchronousRequest(const NSURL &url, double timeoutInterval,
                                        NSHTTPURLResponse *response,
                                        const std::function<bool()> &goesOn)
{
    const Transfer transfer(isLibraryReady() ? curl_easy_init() : nullptr);
    if (!transfer || url.scheme().compare(u"http", Qt::CaseInsensitive) != 0)
        return std::nullopt;
    const Headers headers = headersAgainstCaches();
    const QByteArray text = url.absoluteString().toLatin1();
    QByteArray body("");
    setLimits(transfer.get(), timeoutInterval);
    setQuestion(transfer.get(), goesOn);
    curl_easy_setopt(transfer.get(), CURLOPT_URL, text.constData());
    curl_easy_setopt(transfer.get(), CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(transfer.get(), CURLOPT_WRITEFUNCTION, takePart);
    curl_easy_setopt(transfer.get(), CURLOPT_WRITEDATA, &body);
    const bool isDone = curl_easy_perform(transfer.get()) == CURLE_OK;
    if (response)
        response->statusCode = statusOf(transfer.get());
    return isDone ? std::optional(body) : std::nullopt;
}
