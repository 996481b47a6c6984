#pragma once
// A small CardDAV client (RFC 6352 over WebDAV, with RFC 6578 sync-collection) on Qt Network.
// Every call blocks until the server has answered: it runs a local event loop, so a client may
// live on a worker thread (it must be made and used on one thread). Failures are thrown as
// DavError with a kind that tells the user in plain words what went wrong. A certificate error is
// never ignored: it fails the request with kind Tls and the certificate's complaint.

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <atomic>
#include <memory>
#include <stdexcept>

namespace carddav {

class DavError : public std::runtime_error {
  public:
    enum Kind {
        Unreachable,      // no answer: name not found, connection refused or dropped, timeout
        Tls,              // the certificate was refused
        AuthRefused,      // 401 or 403 on a request that needs the user's rights
        NotFound,         // 404 or 410 where a resource or collection was expected
        InvalidSyncToken, // the server no longer knows the sync token (a full listing is needed)
        NotAddressBook,   // the address given is not a CardDAV server or address book
        Server,           // any other unexpected status
        Protocol,         // an answer that cannot be read (bad XML, missing parts)
        Cancelled,        // the cancel flag was raised
    };
    DavError(Kind kind, int status, const QString& message);
    Kind kind() const { return m_kind; }
    int status() const { return m_status; } // HTTP status, 0 when there was none
    QString message() const { return m_message; }

  private:
    Kind m_kind;
    int m_status;
    QString m_message;
};

struct AddressBookInfo {
    QUrl url; // absolute, ends in "/"
    QString displayName;
    QString description;
    bool syncCollection = false; // the server offers the sync-collection report on it
};

// One member of an address book as a listing tells it.
struct ResourceState {
    QString href;         // path as the server names it ("/alice/contacts/abc.vcf"), percent-encoded
    QByteArray etag;      // as the server sends it, quotes included; empty when removed
    bool removed = false; // sync-collection reported it gone (404 in its propstat/status)
};

struct Resource {
    QString href;
    QByteArray etag;
    QByteArray vcard; // the address-data, as bytes
};

struct SyncCollectionResult {
    QList<ResourceState> changes; // changed, added and removed members since the token
    QString token;                // the new token to keep
};

enum class WriteResult {
    Done,               // stored (or removed)
    PreconditionFailed, // 412: the server's copy changed, or one already exists
    Gone,               // 404/410 on update or delete: the server no longer has it
};

class DavClient {
  public:
    // `server`: any address of the server or of an address book (http or https).
    DavClient(const QUrl& server, const QString& user, const QString& password);
    ~DavClient();
    DavClient(const DavClient&) = delete;
    DavClient& operator=(const DavClient&) = delete;

    // Milliseconds a request may go without progress before it fails as Unreachable (30 s).
    void setTimeout(int ms);
    // When the flag becomes true, the running request is aborted and Cancelled is thrown.
    void setCancelFlag(const std::atomic_bool* cancel);

    // The address books the user can reach: the given address itself when it is an address book,
    // else through /.well-known/carddav, current-user-principal and addressbook-home-set.
    QList<AddressBookInfo> discover();

    // What the address book offers (display name, sync-collection), by PROPFIND depth 0.
    AddressBookInfo addressBook(const QUrl& book);

    // Every vCard member of the address book with its ETag (PROPFIND depth 1).
    QList<ResourceState> listEtags(const QUrl& book);

    // Changes since `token` (empty: everything, with the first token). Throws InvalidSyncToken
    // when the server refuses the token.
    SyncCollectionResult syncCollection(const QUrl& book, const QString& token);

    // The cards of these members (addressbook-multiget, in batches). Members the server no longer
    // has are left out of the answer.
    QList<Resource> multiget(const QUrl& book, const QStringList& hrefs);

    // Stores a card. With an ETag the server must still hold that version (If-Match); with none
    // the resource must not exist yet (If-None-Match: *). `etag` receives the new ETag when the
    // server tells it (else it is cleared).
    WriteResult put(const QUrl& resource, const QByteArray& vcard, const QByteArray& ifMatch,
                    QByteArray* etag);
    // Removes a card that must still be at version `ifMatch` (any version when empty).
    WriteResult remove(const QUrl& resource, const QByteArray& ifMatch);

    // The absolute address of an href of this server.
    QUrl resolve(const QString& href) const;

    // Requests sent so far (for tests and timings).
    int requestCount() const;

  private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

} // namespace carddav
