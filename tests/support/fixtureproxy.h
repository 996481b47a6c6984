#pragma once
// A loopback TCP forwarder to a server that can drop both connections part-way, to play a
// server or network that fails in the middle of a request. It runs on the event loop of the
// thread that made it (a client's local event loop is enough).

#include <QObject>
#include <QTcpServer>
#include <QUrl>

#include <memory>
#include <vector>

namespace fixture {

class CuttingProxy : public QObject {
  public:
    CuttingProxy(const QString& host, quint16 port);
    ~CuttingProxy() override;

    quint16 port() const { return m_server.serverPort(); }
    QUrl url() const; // "http://127.0.0.1:PORT/"

    // Once `count` complete requests (counted over all connections) have been passed on, the
    // connection that carried the last one is dropped before its answer; later requests too.
    // -1 never cuts.
    void cutAfterRequests(int count) { m_cutAfterRequests = count; }
    // Once `bytes` bytes of answers (over all connections) have been passed back, both sides
    // of the connection are dropped. -1 never cuts.
    void cutAfterAnswerBytes(qint64 bytes) { m_answerBudget = bytes; }

    int requests() const { return m_requests; }
    int cuts() const { return m_cuts; }

  private:
    struct Link;
    void accept();
    void fromClient(Link* link);
    void fromServer(Link* link);
    void drop(Link* link);

    QString m_host;
    quint16 m_targetPort;
    QTcpServer m_server;
    std::vector<std::unique_ptr<Link>> m_links;
    int m_cutAfterRequests = -1;
    qint64 m_answerBudget = -1;
    int m_requests = 0;
    int m_cuts = 0;
};

} // namespace fixture
