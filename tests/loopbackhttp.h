#pragma once

// A small HTTP server on 127.0.0.1 for tests that fetch pages with wget: nothing reaches
// the network. It serves in the event loop of the test, so the test must let events run
// (QTRY_VERIFY and friends do) while the client talks to it.
//
//     LoopbackHttp server;
//     QVERIFY(server.start());
//     server.setRoute("/v1/latest?from=EUR&to=NOK", R"({"rates":{"NOK":11.45}})");
//     ... fetch server.address() + "/v1/latest?from=EUR&to=NOK" ...
//     QCOMPARE(server.targets(), QStringList{"/v1/latest?from=EUR&to=NOK"});
//
// A route is the request target exactly as the request line carries it: path and query.
// A target without a route is answered with 404.

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTcpServer>

class QTcpSocket;

class LoopbackHttp : public QObject
{
    Q_OBJECT

public:
    explicit LoopbackHttp(QObject *parent = nullptr);
    ~LoopbackHttp() override;

    // Listens on 127.0.0.1 at a free port; false when it cannot.
    bool start();
    // Stops listening and drops every open connection (this ends the slow routes too);
    // a client that tries again then finds the port closed.
    void stop();
    quint16 port() const;
    // "http://127.0.0.1:<port>": what goes in front of a target.
    QString address() const;

    // Answers with status 200 and the body, then closes the connection.
    void setRoute(const QString &target, const QByteArray &body,
                  const QByteArray &contentType = "text/html");
    // Answers with another status (404, 500, ...) and the body.
    void setStatusRoute(const QString &target, int status, const QByteArray &body);
    // Announces `announcedLength` bytes, sends `part` and then nothing more: the answer
    // never completes, the connection stays open until stop() or the server's end.
    void setSlowRoute(const QString &target, const QByteArray &part, qint64 announcedLength);
    // Announces `announcedLength` bytes, sends `part` and closes the connection half way.
    void setBrokenRoute(const QString &target, const QByteArray &part, qint64 announcedLength);
    // Sends the head without a length and `part` of the body, then nothing more: the client
    // reads until the connection closes, which it does not until stop() or the server's end.
    void setStalledRoute(const QString &target, const QByteArray &part);
    void removeRoute(const QString &target);

    // The targets of the requests received so far, in order of arrival.
    QStringList targets() const { return received; }
    void clearTargets() { received.clear(); }
    // Connections accepted and not yet closed.
    int openConnections() const { return int(buffers.size()); }

signals:
    void requested(const QString &target);

private:
    enum class Kind { Complete, Slow, Broken, Stalled };
    struct Route
    {
        Kind kind = Kind::Complete;
        int status = 200;
        QByteArray contentType;
        QByteArray body;
        qint64 announcedLength = 0;
    };

    void accept();
    void readRequest(QTcpSocket *socket);
    void answer(QTcpSocket *socket, const QString &target);
    void drop(QTcpSocket *socket);

    QTcpServer server;
    QHash<QString, Route> routes;
    QHash<QTcpSocket *, QByteArray> buffers; // what each open connection has sent so far
    QStringList received;
};
