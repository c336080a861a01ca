#include <KTUtility/NSURLConnection>

#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <QElapsedTimer>
#include <QSemaphore>

#include <dlfcn.h>
#include <netdb.h>

using namespace Qt::StringLiterals;

using testing_support::LoopbackServer;

namespace {
constexpr double Soon = 0.2;

/// A name that is looked up until the test has seen enough, in milliseconds at most.
const QString SilentHost = u"silent.test"_s;
constexpr int LongestSilence = 4000;
QSemaphore answersWanted;
QSemaphore answersGiven;

int answerWhenWanted()
{
    answersWanted.tryAcquire(1, LongestSilence);
    answersGiven.release();
    return EAI_AGAIN;
}

std::optional<QByteArray> get(const QString &url, double timeout = 5)
{
    return NSURLConnection::sendSynchronousRequest(*NSURL::URLWithString(url), timeout);
}
} // namespace

/// Stands before the system's own function, for one name.
extern "C" __attribute__((visibility("default"))) int
getaddrinfo(const char *name, const char *service, const addrinfo *hints, addrinfo **result)
{
    if (name && QLatin1String(name) == SilentHost)
        return answerWhenWanted();
    static const auto next =
        reinterpret_cast<decltype(&getaddrinfo)>(::dlsym(RTLD_NEXT, "getaddrinfo"));
    return next(name, service, hints, result);
}

TEST(NSURLConnection, GivesTheBody)
{
    const LoopbackServer server;
    EXPECT_EQ(get(server.url(u"/pic.jpg"_s)), QByteArray("PIC"));
    EXPECT_EQ(get(server.url(u"/%C3%BC.png"_s)), QByteArray("UE"));
    const auto empty = get(server.url(u"/empty.gif"_s));
    ASSERT_TRUE(empty.has_value());
    EXPECT_TRUE(empty->isEmpty() && !empty->isNull());
}

TEST(NSURLConnection, TheStatusDoesNotMatter)
{
    const LoopbackServer server;
    EXPECT_EQ(get(server.url(u"/none"_s)), QByteArray("nothing"));
}

TEST(NSURLConnection, TellsTheStatus)
{
    const LoopbackServer server([](int socket, const QByteArray &path) {
        if (path == "/part")
            LoopbackServer::send(socket, "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nabc");
        else if (path == "/moved")
            LoopbackServer::send(socket, "HTTP/1.1 302 Found\r\nContent-Length: 0\r\n"
                                         "Connection: close\r\nLocation: https://a/b\r\n\r\n");
        else if (path != "/silent")
            LoopbackServer::sendBody(socket, "body", path.mid(1) + " Text");
    });
    const struct
    {
        QString path;
        int status;
        bool hasBody;
    } rows[] = {
        {u"/200"_s, 200, true},   {u"/404"_s, 404, true},    {u"/500"_s, 500, true},
        {u"/part"_s, 200, false}, {u"/moved"_s, 302, false}, {u"/silent"_s, 0, false},
    };
    for (const auto &row : rows) {
        NSHTTPURLResponse response;
        const auto body = NSURLConnection::sendSynchronousRequest(
            *NSURL::URLWithString(server.url(row.path)), 5, &response);
        EXPECT_EQ(response.statusCode, row.status) << row.path.toStdString();
        EXPECT_EQ(body.has_value(), row.hasBody) << row.path.toStdString();
    }
}

TEST(NSURLConnection, AsksWhetherToGoOn)
{
    const LoopbackServer server(
        [](int socket, const QByteArray &) { LoopbackServer::waitForClose(socket); });
    int asked = 0;
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(NSURLConnection::sendSynchronousRequest(
        *NSURL::URLWithString(server.url(u"/a"_s)), 60, nullptr, [&asked] { return ++asked < 2; }));
    EXPECT_EQ(asked, 2);
    EXPECT_LT(timer.elapsed(), 30000);
}

TEST(NSURLConnection, AsksCachesToStandAside)
{
    const LoopbackServer server;
    get(server.url(u"/pic.jpg"_s));
    ASSERT_EQ(server.requests().size(), 1);
    EXPECT_TRUE(server.requests().first().contains("Cache-Control: no-cache\r\n"));
    EXPECT_TRUE(server.requests().first().contains("Pragma: no-cache\r\n"));
}

TEST(NSURLConnection, PassesByProxies)
{
    const LoopbackServer server;
    const LoopbackServer proxy(
        [](int socket, const QByteArray &) { LoopbackServer::sendBody(socket, "proxy"); });
    qputenv("http_proxy", proxy.url(QString()).toLatin1());
    EXPECT_EQ(get(server.url(u"/pic.jpg"_s)), QByteArray("PIC"));
    qunsetenv("http_proxy");
}

TEST(NSURLConnection, FollowsRedirectionsWithinHTTP)
{
    const LoopbackServer server([](int socket, const QByteArray &path) {
        if (path == "/end")
            return LoopbackServer::sendBody(socket, "end");
        LoopbackServer::send(socket, "HTTP/1.1 302 Found\r\nContent-Length: 0\r\n"
                                     "Connection: close\r\nLocation: " +
                                         path.mid(1) + "\r\n\r\n");
    });
    EXPECT_EQ(get(server.url(u"//end"_s)), QByteArray("end"));
    EXPECT_FALSE(get(server.url(u"/file:///etc/hostname"_s)).has_value());
    EXPECT_FALSE(get(server.url(u"/ftp://127.0.0.1/a"_s)).has_value());
    const LoopbackServer circle([](int socket, const QByteArray &) {
        LoopbackServer::send(socket, "HTTP/1.1 302 Found\r\nContent-Length: 0\r\n"
                                     "Connection: close\r\nLocation: /again\r\n\r\n");
    });
    EXPECT_FALSE(get(circle.url(u"/again"_s)).has_value());
}

TEST(NSURLConnection, LoadsNothingButHTTP)
{
    EXPECT_FALSE(get(u"https://127.0.0.1:1/a"_s).has_value());
    EXPECT_FALSE(get(u"file:///etc/hostname"_s).has_value());
    EXPECT_FALSE(get(u"relative"_s).has_value());
}

TEST(NSURLConnection, AnswersThatEndEarlyAreNothing)
{
    const LoopbackServer server([](int socket, const QByteArray &path) {
        if (path == "/part")
            LoopbackServer::send(socket, "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nabc");
    });
    EXPECT_FALSE(get(server.url(u"/part"_s)).has_value());
    EXPECT_FALSE(get(server.url(u"/silent"_s)).has_value());
}

TEST(NSURLConnection, AnswersThatNeverComeAreNothing)
{
    const LoopbackServer server(
        [](int socket, const QByteArray &) { LoopbackServer::waitForClose(socket); });
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(get(server.url(u"/a"_s), Soon).has_value());
    EXPECT_GE(timer.elapsed(), 190);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST(NSURLConnection, ANameServerThatNeverAnswersIsNotWaitedFor)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(get(u"http://" + SilentHost + u"/a", Soon).has_value());
    EXPECT_LT(timer.elapsed(), LongestSilence);
    answersWanted.release();
    EXPECT_TRUE(answersGiven.tryAcquire(1, LongestSilence));
}

TEST(NSURLConnection, TheTimeIsThatOfTheWholeDownload)
{
    const LoopbackServer server([](int socket, const QByteArray &) {
        LoopbackServer::send(socket, "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nabc");
        LoopbackServer::waitForClose(socket);
    });
    EXPECT_FALSE(get(server.url(u"/a"_s), Soon).has_value());
}

TEST(NSURLConnection, LargeBodiesAreTakenAndTooLargeOnesAreNot)
{
    const QByteArray large(qsizetype(20) << 20, 'x');
    const LoopbackServer server([&large](int socket, const QByteArray &path) {
        if (path == "/large")
            LoopbackServer::sendBody(socket, large);
        else
            LoopbackServer::send(socket,
                                 "HTTP/1.1 200 OK\r\nContent-Length: 999999999999\r\n\r\nabc");
    });
    EXPECT_TRUE(get(server.url(u"/large"_s)) == large);
    EXPECT_FALSE(get(server.url(u"/larger"_s)).has_value());
}

TEST(NSURLConnection, GivesNothingWhereNobodyListens)
{
    QString url;
    {
        const LoopbackServer server;
        url = server.url(u"/pic.jpg"_s);
    }
    EXPECT_FALSE(get(url).has_value());
}
