#include "app/previnstance.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>

namespace mPrevInstance {

namespace {
QLocalServer* gServer = nullptr;

RequestHandler& handler() {
    static RequestHandler h;
    return h;
}

QString serverName() {
    // One name per user and settings location, so that tests with their own home don't meet the user's copy.
    const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QStringLiteral("kelvarin-") + QString::number(qHash(home), 16);
}

// One request a line: "show", or "open " and the phonebook's path in Base64 of UTF-8, so that
// any character of a path passes.
void readRequests(QLocalSocket* s) {
    while (s->canReadLine()) {
        const QByteArray line = s->readLine().trimmed();
        QString phonebook;
        if (line.startsWith("open "))
            phonebook = QString::fromUtf8(QByteArray::fromBase64(line.mid(5)));
        else if (line != "show")
            continue;
        if (handler()) handler()(phonebook);
    }
}
} // namespace

bool PrevInstance() {
    QLocalSocket probe;
    probe.connectToServer(serverName());
    if (probe.waitForConnected(300)) {
        probe.disconnectFromServer();
        return true;
    }
    if (!gServer) {
        gServer = new QLocalServer();
        QLocalServer::removeServer(serverName()); // a name left by a copy that crashed
        gServer->listen(serverName());
        QObject::connect(gServer, &QLocalServer::newConnection, [] {
            while (QLocalSocket* s = gServer->nextPendingConnection()) {
                QObject::connect(s, &QLocalSocket::readyRead, s, [s] { readRequests(s); });
                QObject::connect(s, &QLocalSocket::disconnected, s, &QObject::deleteLater);
            }
        });
    }
    return false;
}

void ShowPrevInstance(const QString& phonebook) {
    QLocalSocket s;
    s.connectToServer(serverName());
    if (!s.waitForConnected(1000)) return; // nothing found: end silently all the same
    s.write(phonebook.isEmpty() ? QByteArray("show\n") : "open " + phonebook.toUtf8().toBase64() + "\n");
    s.waitForBytesWritten(1000);
    s.disconnectFromServer();
}

void SetRequestHandler(RequestHandler h) {
    handler() = std::move(h);
}

void StopListening() {
    delete gServer;
    gServer = nullptr;
}

} // namespace mPrevInstance
