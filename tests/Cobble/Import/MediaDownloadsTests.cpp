#include "Import/MediaDownloads.h"

#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <KTUtility/KTLogCapture>

#include <QFile>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::LoopbackServer;

namespace {
NSURL urlOf(const QString &text)
{
    return *NSURL::URLWithString(text);
}

/// Why a URL gave no file; nil if it did.
QString reasonFor(const NSURL &url, MediaDownloads &downloads)
{
    EXPECT_TRUE(downloads.fetch(url));
    return downloads.fileOf(url).reason();
}
} // namespace

TEST(MediaDownloads, KeepsEachFileUnderItsName)
{
    const LoopbackServer server;
    QString path;
    {
        MediaDownloads downloads;
        const NSURL picture =
            urlOf(server.url(u"/a%20b.png?size=2"_s).replace(u"?size=2"_s, u""_s));
        ASSERT_TRUE(downloads.fetch(picture));
        const Outcome<NSURL> file = downloads.fileOf(picture);
        ASSERT_TRUE(file) << file.reason().toStdString();
        path = file->path();
        EXPECT_TRUE(path.endsWith(u"/a b.png"_s));
        EXPECT_EQ(contentsOf(path), "AB");
        EXPECT_EQ(reasonFor(urlOf(server.url(u"/empty.gif"_s)), downloads), QString());
    }
    EXPECT_FALSE(QFile::exists(path));
}

TEST(MediaDownloads, AsksForEachURLOnce)
{
    const LoopbackServer server;
    MediaDownloads downloads;
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(reasonFor(urlOf(server.url(u"/pic.jpg"_s)), downloads), QString());
        EXPECT_EQ(reasonFor(urlOf(server.url(u"/none.jpg"_s)), downloads),
                  u"its server says 404"_s);
    }
    EXPECT_EQ(server.requests().size(), 2);
}

TEST(MediaDownloads, ADeadServerIsAskedOnce)
{
    const LoopbackServer dead([](int, const QByteArray &) {});
    const LoopbackServer alive;
    MediaDownloads downloads;
    for (const QString &name : {u"/1.jpg"_s, u"/2.jpg"_s, u"/3.jpg"_s})
        EXPECT_EQ(reasonFor(urlOf(dead.url(name)), downloads), u"its server does not answer"_s);
    EXPECT_EQ(dead.requests().size(), 1);
    EXPECT_EQ(reasonFor(urlOf(alive.url(u"/pic.jpg"_s)), downloads), QString());
}

TEST(MediaDownloads, NorIsOneThatNeverEndsAskedAgain)
{
    const LoopbackServer slow([](int socket, const QByteArray &) {
        LoopbackServer::send(socket, "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nabc");
        LoopbackServer::waitForClose(socket);
    });
    MediaDownloads downloads(0.2);
    for (const QString &name : {u"/1.jpg"_s, u"/2.jpg"_s})
        EXPECT_EQ(reasonFor(urlOf(slow.url(name)), downloads), u"its server does not answer"_s);
    EXPECT_EQ(slow.requests().size(), 1);
}

TEST(MediaDownloads, SaysWhyThereIsNoFile)
{
    const LoopbackServer server([](int socket, const QByteArray &path) {
        if (path == "/part.jpg")
            LoopbackServer::send(socket, "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nabc");
        else
            LoopbackServer::send(socket, "HTTP/1.1 301 Moved\r\nContent-Length: 0\r\n"
                                         "Connection: close\r\n"
                                         "Location: https://example.org/a.jpg\r\n\r\n");
    });
    const struct
    {
        QString url;
        QString reason;
    } rows[] = {
        {server.url(u"/part.jpg"_s), u"it cannot be downloaded"_s},
        {server.url(u"/moved.jpg"_s), u"it has moved to where plain http does not lead"_s},
        {server.url(u"/"_s), u"it names no file"_s},
        {server.url(u"/.."_s), u"it names no file"_s},
        {server.url(u"/a%2Fb/%2E%2E"_s), u"it names no file"_s},
        {server.url(QString(u'/' + QString(256, u'x'))), u"its name is too long"_s},
    };
    MediaDownloads downloads;
    EXPECT_EQ(downloads.fileOf(urlOf(server.url(u"/part.jpg"_s))).reason(),
              u"it was not downloaded"_s);
    for (const auto &row : rows)
        EXPECT_EQ(reasonFor(urlOf(row.url), downloads), row.reason) << row.url.toStdString();
    EXPECT_EQ(server.requests().size(), 2);
}

TEST(MediaDownloads, LogsWhatDoesNotCome)
{
    const LoopbackServer server;
    const NSURL url = urlOf(server.url(u"/none.jpg"_s));
    const KTLogCapture capture(kLog_MediaFilenames, 4);
    MediaDownloads downloads;
    reasonFor(url, downloads);
    EXPECT_EQ(capture.messages(),
              QStringList(url.absoluteString() + u" is not downloaded: its server says 404"));
}

TEST(MediaDownloads, CanBeCancelled)
{
    const LoopbackServer silent(
        [](int socket, const QByteArray &) { LoopbackServer::waitForClose(socket); });
    MediaDownloads downloads;
    const NSURL url = urlOf(silent.url(u"/a.jpg"_s));
    EXPECT_TRUE(downloads.fetch(url, [] { return false; }).isCancelled());
    EXPECT_TRUE(silent.requests().isEmpty());
    int asked = 0;
    EXPECT_TRUE(downloads.fetch(url, [&asked] { return ++asked < 2; }).isCancelled());
    EXPECT_EQ(downloads.fileOf(url).reason(), u"it was not downloaded"_s);
}

TEST(MediaDownloads, WhatCannotBeKeptEndsTheImport)
{
    const LoopbackServer server;
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/proc");
    MediaDownloads downloads;
    const Outcome<> fetched = downloads.fetch(urlOf(server.url(u"/pic.jpg"_s)));
    if (before.isNull())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", before);
    EXPECT_TRUE(fetched.reason().startsWith(u"a download cannot be kept: "_s));
    EXPECT_FALSE(fetched.isCancelled());
}
