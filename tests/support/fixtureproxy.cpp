#include "support/fixtureproxy.h"

#include <QTcpSocket>

namespace fixture {

// One client connection and its own connection to the server.
struct CuttingProxy::Link {
    QTcpSocket* client = nullptr;
    QTcpSocket* server = nullptr;
    QByteArray request; // the start of the request not yet complete, to count requests
    bool closed = false;
};

namespace {

// The length of the first complete request in `data` (head and a body of Content-Length
// bytes), or 0 while it is incomplete.
qsizetype completeRequest(const QByteArray& data) {
    const qsizetype headEnd = data.indexOf("\r\n\r\n");
    if (headEnd < 0) return 0;
    qsizetype length = 0;
    for (const QByteArray& line : data.left(headEnd).split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0 && line.left(colon).trimmed().toLower() == "content-length")
            length = line.mid(colon + 1).trimmed().toLongLong();
    }
    const qsizetype total = headEnd + 4 + length;
    return data.size() >= total ? total : 0;
}

} // namespace

CuttingProxy::CuttingProxy(const QString& host, quint16 port) : m_host(host), m_targetPort(port) {
    m_server.listen(QHostAddress::LocalHost, 0);
    connect(&m_server, &QTcpServer::newConnection, this, &CuttingProxy::accept);
}

CuttingProxy::~CuttingProxy() {
    m_server.close();
    for (const auto& link : m_links) {
        for (QTcpSocket* socket : {link->client, link->server}) {
            disconnect(socket, nullptr, this, nullptr);
            socket->abort();
            delete socket;
        }
    }
}

QUrl CuttingProxy::url() const {
    return QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(port()));
}

void CuttingProxy::accept() {
    while (QTcpSocket* client = m_server.nextPendingConnection()) {
        m_links.push_back(std::make_unique<Link>());
        Link* link = m_links.back().get();
        link->client = client;
        link->server = new QTcpSocket(this);
        client->setParent(this);
        connect(client, &QTcpSocket::readyRead, this, [this, link] { fromClient(link); });
        connect(link->server, &QTcpSocket::connected, this, [this, link] { fromClient(link); });
        connect(link->server, &QTcpSocket::readyRead, this, [this, link] { fromServer(link); });
        connect(client, &QTcpSocket::disconnected, this, [this, link] { drop(link); });
        connect(link->server, &QTcpSocket::disconnected, this, [this, link] { drop(link); });
        link->server->connectToHost(m_host, m_targetPort);
    }
}

void CuttingProxy::fromClient(Link* link) {
    if (link->closed || link->server->state() != QAbstractSocket::ConnectedState) return;
    const QByteArray data = link->client->readAll();
    link->server->write(data);
    link->request += data;
    while (const qsizetype length = completeRequest(link->request)) {
        link->request.remove(0, length);
        ++m_requests;
        if (m_cutAfterRequests >= 0 && m_requests >= m_cutAfterRequests) {
            // The server gets the request; its answer never reaches the client.
            ++m_cuts;
            link->closed = true;
            link->client->abort();
            link->server->disconnectFromHost();
            return;
        }
    }
}

void CuttingProxy::fromServer(Link* link) {
    if (link->closed) return;
    QByteArray data = link->server->readAll();
    if (m_answerBudget >= 0 && data.size() >= m_answerBudget) {
        data.truncate(m_answerBudget);
        m_answerBudget = 0;
        ++m_cuts;
        link->closed = true;
        link->client->write(data);
        link->client->disconnectFromHost();
        link->server->abort();
        return;
    }
    if (m_answerBudget > 0) m_answerBudget -= data.size();
    link->client->write(data);
}

void CuttingProxy::drop(Link* link) {
    // Whichever side closes, the other follows once its data is written.
    if (link->client->state() != QAbstractSocket::UnconnectedState) link->client->disconnectFromHost();
    if (link->server->state() != QAbstractSocket::UnconnectedState) link->server->disconnectFromHost();
    link->closed = true;
}

} // namespace fixture
