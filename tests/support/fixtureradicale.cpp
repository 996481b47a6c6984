#include "support/fixtureradicale.h"

#include "sync/davxml.h"

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <csignal>
#include <sys/prctl.h>

namespace fixture {

namespace {

// Debian's radicale is a module of the system's Python, which need not be the first python3 on
// the path.
QString python() {
    if (QFileInfo::exists(QStringLiteral("/usr/bin/python3"))) return QStringLiteral("/usr/bin/python3");
    return QStringLiteral("python3");
}

quint16 freePort() {
    QTcpServer probe;
    if (!probe.listen(QHostAddress::LocalHost, 0)) return 0;
    return probe.serverPort();
}

bool writeFile(const QString& path, const QByteArray& text) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(text) == text.size();
}

} // namespace

RadicaleServer::RadicaleServer() {
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    // Should the test program die, the server goes with it.
    m_process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

RadicaleServer::~RadicaleServer() {
    stop();
}

bool RadicaleServer::available(QString* reason) {
    static int known = -1;
    if (known < 0) {
        QProcess probe;
        probe.start(python(), {QStringLiteral("-c"), QStringLiteral("import radicale")});
        known = probe.waitForFinished(10000) && probe.exitStatus() == QProcess::NormalExit &&
                probe.exitCode() == 0;
    }
    if (!known && reason)
        *reason = QStringLiteral("radicale is not installed for %1 (Debian package radicale)").arg(python());
    return known;
}

bool RadicaleServer::start(const QString& dir) {
    stop();
    m_dir = dir;
    m_port = freePort();
    if (!m_port || !QDir().mkpath(dir + QStringLiteral("/collections"))) return false;
    const QString users = dir + QStringLiteral("/users");
    const QString config = dir + QStringLiteral("/config");
    if (!writeFile(users, "alice:secret\nbob:builder\n")) return false;
    const QByteArray text = QStringLiteral("[server]\nhosts = 127.0.0.1:%1\n"
                                           "[auth]\ntype = htpasswd\nhtpasswd_filename = %2\n"
                                           "htpasswd_encryption = plain\ndelay = 0\n"
                                           "[rights]\ntype = owner_only\n"
                                           "[storage]\nfilesystem_folder = %3/collections\n"
                                           "[web]\ntype = none\n"
                                           "[logging]\nlevel = warning\nmask_passwords = True\n")
                                .arg(m_port)
                                .arg(users, dir)
                                .toUtf8();
    if (!writeFile(config, text)) return false;

    m_log.clear();
    m_process.start(python(),
                    {QStringLiteral("-m"), QStringLiteral("radicale"), QStringLiteral("--config"), config});
    if (!m_process.waitForStarted(10000)) return false;

    // Ready once it takes connections.
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 15000) {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, m_port);
        if (socket.waitForConnected(200)) return true;
        if (m_process.waitForFinished(50)) return false; // it stopped: a bad configuration
    }
    stop();
    return false;
}

void RadicaleServer::stop() {
    if (m_process.state() == QProcess::NotRunning) return;
    m_process.terminate();
    if (!m_process.waitForFinished(3000)) {
        m_process.kill();
        m_process.waitForFinished(3000);
    }
    m_log += QString::fromUtf8(m_process.readAll());
}

QString RadicaleServer::log() {
    m_log += QString::fromUtf8(m_process.readAll());
    return m_log;
}

bool RadicaleServer::storeCards(const QString& name, const QList<QPair<QString, QByteArray>>& cards) {
    const QString folder = QStringLiteral("%1/collections/collection-root/%2/%3/").arg(m_dir, user(), name);
    if (!QFileInfo(folder).isDir()) return false;
    for (const auto& [file, card] : cards)
        if (!writeFile(folder + file, card)) return false;
    return true;
}

QUrl RadicaleServer::url() const {
    return QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(m_port));
}

QUrl RadicaleServer::createAddressBook(const QString& name, const QString& user, const QString& password) {
    const QString who = user.isEmpty() ? this->user() : user;
    const QString secret = user.isEmpty() ? this->password() : password;
    const QUrl book = url().resolved(QUrl(QStringLiteral("/%1/%2/").arg(who, name)));

    QNetworkAccessManager nam;
    QNetworkRequest request(book);
    request.setRawHeader("Authorization", "Basic " + (who + QLatin1Char(':') + secret).toUtf8().toBase64());
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArray("application/xml; charset=utf-8"));
    QNetworkReply* reply = nam.sendCustomRequest(request, "MKCOL", carddav::davxml::mkcolAddressBook(name));
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(15000, &loop, &QEventLoop::quit);
    if (!reply->isFinished()) loop.exec();
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    delete reply;
    return status == 201 ? book : QUrl();
}

} // namespace fixture
