#include "loopbackhttp.h"

#include <QHostAddress>
#include <QTcpSocket>

namespace {

// A request head larger than this is no request of a test client.
constexpr int maxHeadBytes = 64 * 1024;

QByteArray reason(int status)
{
    switch (status) {
    case 200:
        return "OK";
    case 404:
        return "Not Found";
    case 500:
        return "Internal Server Error";
    default:
        return "Status";
    }
}

} // namespace

LoopbackHttp::LoopbackHttp(QObject *parent) : QObject(parent)
{
    connect(&server, &QTcpServer::newConnection, this, &LoopbackHttp::accept);
}

LoopbackHttp::~LoopbackHttp()
{
    stop();
}

bool LoopbackHttp::start()
{
    if (server.isListening())
        return true;
    return server.listen(QHostAddress::LocalHost, 0);
}

void LoopbackHttp::stop()
{
    server.close();
    const QList<QTcpSocket *> open = buffers.keys();
    for (QTcpSocket *socket : open)
        drop(socket);
}

quint16 LoopbackHttp::port() const
{
    return server.serverPort();
}

QString LoopbackHttp::address() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(port());
}

void LoopbackHttp::setRoute(const QString &target, const QByteArray &body,
                            const QByteArray &contentType)
{
    Route route;
    route.contentType = contentType;
    route.body = body;
    routes.insert(target, route);
}

void LoopbackHttp::setStatusRoute(const QString &target, int status, const QByteArray &body)
{
    Route route;
    route.status = status;
    route.contentType = "text/html";
    route.body = body;
    routes.insert(target, route);
}

void LoopbackHttp::setSlowRoute(const QString &target, const QByteArray &part,
                                qint64 announcedLength)
{
    Route route;
    route.kind = Kind::Slow;
    route.contentType = "text/html";
    route.body = part;
    route.announcedLength = announcedLength;
    routes.insert(target, route);
}

void LoopbackHttp::setBrokenRoute(const QString &target, const QByteArray &part,
                                  qint64 announcedLength)
{
    setSlowRoute(target, part, announcedLength);
    routes[target].kind = Kind::Broken;
}

void LoopbackHttp::setStalledRoute(const QString &target, const QByteArray &part)
{
    setSlowRoute(target, part, 0);
    routes[target].kind = Kind::Stalled;
}

void LoopbackHttp::removeRoute(const QString &target)
{
    routes.remove(target);
}

void LoopbackHttp::accept()
{
    while (QTcpSocket *socket = server.nextPendingConnection()) {
        buffers.insert(socket, QByteArray());
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { readRequest(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] { drop(socket); });
        if (socket->bytesAvailable() > 0)
            readRequest(socket);
    }
}

void LoopbackHttp::readRequest(QTcpSocket *socket)
{
    auto found = buffers.find(socket);
    if (found == buffers.end())
        return;
    QByteArray &head = found.value();
    if (head.contains("\r\n\r\n")) {
        socket->readAll(); // answered already; whatever follows is ignored
        return;
    }
    head += socket->readAll();
    const int end = head.indexOf("\r\n\r\n");
    if (end < 0) {
        if (head.size() > maxHeadBytes)
            drop(socket);
        return;
    }
    // "GET /path?query HTTP/1.1"
    const QByteArray requestLine = head.left(head.indexOf("\r\n"));
    const QList<QByteArray> words = requestLine.split(' ');
    const QString target = words.size() >= 2 ? QString::fromUtf8(words.at(1)) : QString();
    received.append(target);
    emit requested(target);
    answer(socket, target);
}

void LoopbackHttp::answer(QTcpSocket *socket, const QString &target)
{
    Route route;
    const auto found = routes.constFind(target);
    if (found != routes.constEnd()) {
        route = found.value();
    } else {
        route.status = 404;
        route.contentType = "text/html";
        route.body = "<html><body>not found</body></html>\n";
    }
    const qint64 length = route.kind == Kind::Complete ? qint64(route.body.size())
                                                       : route.announcedLength;
    QByteArray reply = "HTTP/1.1 " + QByteArray::number(route.status) + ' ' + reason(route.status)
        + "\r\nContent-Type: " + route.contentType + "\r\n";
    if (route.kind != Kind::Stalled)
        reply += "Content-Length: " + QByteArray::number(length) + "\r\n";
    reply += "Connection: close\r\n\r\n" + route.body;
    socket->write(reply);
    socket->flush();
    if (route.kind != Kind::Slow && route.kind != Kind::Stalled)
        socket->disconnectFromHost(); // after what is written has gone out
}

void LoopbackHttp::drop(QTcpSocket *socket)
{
    if (!buffers.remove(socket))
        return;
    socket->disconnect(this);
    socket->abort();
    socket->deleteLater();
}
