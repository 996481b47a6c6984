#include "app/previnstance.h"

#include "app/mmain.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>

namespace mPrevInstance {

namespace {
QLocalServer* gServer = nullptr;

QString serverName() {
    // One name per user and settings location, so that tests with their own home don't meet the user's copy.
    const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QStringLiteral("kelvarin-") + QString::number(qHash(home), 16);
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
                QObject::connect(s, &QLocalSocket::readyRead, s, [s] {
                    if (s->readAll().contains("show")) mMain::MainFormShow();
                });
                QObject::connect(s, &QLocalSocket::disconnected, s, &QObject::deleteLater);
            }
        });
    }
    return false;
}

void ShowPrevInstance() {
    QLocalSocket s;
    s.connectToServer(serverName());
    if (!s.waitForConnected(1000)) return; // nothing found: end silently all the same
    s.write("show\n");
    s.waitForBytesWritten(1000);
    s.disconnectFromServer();
}

void StopListening() {
    delete gServer;
    gServer = nullptr;
}

} // namespace mPrevInstance
