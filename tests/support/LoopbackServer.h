#pragma once

#include <QByteArray>
#include <QList>
#include <QMutex>
#include <QString>

#include <functional>
#include <thread>

namespace testing_support {
/// A server on the loopback interface that answers in its own thread, one connection at a time.
class LoopbackServer
{
public:
    /// Writes an answer to the connection \a socket for the request \a path; the connection is
    /// closed when it returns.
    using Answer = std::function<void(int socket, const QByteArray &path)>;

    explicit LoopbackServer(Answer answer);
    /// A server that has the pictures of the tables: pic.jpg, "a b.png", ü.png, empty.gif.
    LoopbackServer();
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer &) = delete;
    LoopbackServer &operator=(const LoopbackServer &) = delete;

    int port() const { return _port; }
    /// The URL of a path, which begins with "/".
    QString url(const QString &path) const;
    /// The heads of the requests so far.
    QList<QByteArray> requests() const;

    static void send(int socket, const QByteArray &bytes);
    /// A whole answer with a length and a body.
    static void sendBody(int socket, const QByteArray &body, const QByteArray &status = "200 OK");
    /// Returns when the other side has closed the connection.
    static void waitForClose(int socket);

private:
    void serve();
    void answerConnection(int socket);

    Answer _answer;
    int _listener = -1;
    int _port = 0;
    mutable QMutex _mutex;
    QList<QByteArray> _requests;
    std::thread _thread;
};
} // namespace testing_support
