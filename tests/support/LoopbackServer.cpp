#include "LoopbackServer.h"

#include <QHash>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace testing_support {
namespace {
void answerWithPicture(int socket, const QByteArray &path)
{
    static const QHash<QByteArray, QByteArray> pictures = {
        {"/pic.jpg", "PIC"}, {"/a%20b.png", "AB"}, {"/%C3%BC.png", "UE"}, {"/empty.gif", ""}};
    const bool exists = pictures.contains(path);
    LoopbackServer::sendBody(socket, exists ? pictures.value(path) : "nothing",
                             exists ? "200 OK" : "404 Not Found");
}
} // namespace

LoopbackServer::LoopbackServer() : LoopbackServer(answerWithPicture) {}

LoopbackServer::LoopbackServer(Answer answer) : _answer(std::move(answer))
{
    _listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto *const any = reinterpret_cast<sockaddr *>(&address);
    socklen_t size = sizeof(address);
    if (::bind(_listener, any, size) == 0 && ::listen(_listener, 16) == 0 &&
        ::getsockname(_listener, any, &size) == 0)
        _port = ntohs(address.sin_port);
    _thread = std::thread([this] { serve(); });
}

LoopbackServer::~LoopbackServer()
{
    ::shutdown(_listener, SHUT_RDWR);
    _thread.join();
    ::close(_listener);
}

QString LoopbackServer::url(const QString &path) const
{
    return u"http://127.0.0.1:%1"_s.arg(_port) + path;
}

QList<QByteArray> LoopbackServer::requests() const
{
    const QMutexLocker lock(&_mutex);
    return _requests;
}

void LoopbackServer::send(int socket, const QByteArray &bytes)
{
    for (qsizetype sent = 0; sent < bytes.size();) {
        const ssize_t size =
            ::send(socket, bytes.constData() + sent, size_t(bytes.size() - sent), MSG_NOSIGNAL);
        if (size <= 0)
            return;
        sent += size;
    }
}

void LoopbackServer::sendBody(int socket, const QByteArray &body, const QByteArray &status)
{
    send(socket, "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
                     "\r\nConnection: close\r\n\r\n" + body);
}

void LoopbackServer::waitForClose(int socket)
{
    char byte = 0;
    while (::recv(socket, &byte, 1, 0) > 0) {
    }
}

void LoopbackServer::serve()
{
    for (int socket = 0; (socket = ::accept4(_listener, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
        answerConnection(socket);
        ::close(socket);
    }
}

void LoopbackServer::answerConnection(int socket)
{
    QByteArray head;
    char byte = 0;
    while (!head.endsWith("\r\n\r\n") && ::recv(socket, &byte, 1, 0) == 1)
        head += byte;
    const QList<QByteArray> words = head.split(' ');
    if (words.size() < 2)
        return;
    {
        const QMutexLocker lock(&_mutex);
        _requests += head;
    }
    _answer(socket, words[1]);
}
} // namespace testing_support
