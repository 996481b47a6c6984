#pragma once
// A real CardDAV server for tests: Debian's radicale on a free loopback port, its store in a
// folder the test gives, with plain-password users "alice" and "bob" who each reach only their
// own collections. The server stops with the object, also when a test fails half-way.

#include <QList>
#include <QPair>
#include <QProcess>
#include <QString>
#include <QUrl>

namespace fixture {

class RadicaleServer {
  public:
    RadicaleServer();
    ~RadicaleServer();
    RadicaleServer(const RadicaleServer&) = delete;
    RadicaleServer& operator=(const RadicaleServer&) = delete;

    // False when radicale is not installed; `reason` then says what is missing.
    static bool available(QString* reason = nullptr);

    // Starts the server with its configuration and store in `dir`; true once it answers.
    bool start(const QString& dir);
    void stop();

    QUrl url() const; // "http://127.0.0.1:PORT/"
    quint16 port() const { return m_port; }
    QString user() const { return QStringLiteral("alice"); }
    QString password() const { return QStringLiteral("secret"); }
    // What the server wrote to its output (for the message of a failed test).
    QString log();

    // Makes an address book of `user` (alice by default) and answers its address, or an empty
    // address when the server refused.
    QUrl createAddressBook(const QString& name, const QString& user = QString(),
                           const QString& password = QString());

    // Writes cards straight into the store of alice's book `name` (file name and card), as
    // another program would: much faster than a request each.
    bool storeCards(const QString& name, const QList<QPair<QString, QByteArray>>& cards);

  private:
    QProcess m_process;
    QString m_dir;
    quint16 m_port = 0;
    QString m_log;
};

} // namespace fixture
