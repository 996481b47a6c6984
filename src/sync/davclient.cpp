#include "sync/davclient.h"

#include "core/language.h"
#include "sync/davxml.h"

#include <QAuthenticator>
#include <QEventLoop>
#include <QHash>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSet>
#include <QSslError>
#include <QTimer>

#include <optional>

using namespace mLanguageGobals;

namespace carddav {

DavError::DavError(Kind kind, int status, const QString& message)
    : std::runtime_error(message.toStdString()), m_kind(kind), m_status(status), m_message(message) {}

namespace {

using Headers = QList<QPair<QByteArray, QByteArray>>;

const QByteArray kXml = "application/xml; charset=utf-8";
const QByteArray kVcard = "text/vcard; charset=utf-8";
constexpr int kMaxRedirects = 5;
constexpr int kMultigetBatch = 100;
constexpr int kCancelPollMs = 50;

struct Answer {
    int status = 0;
    QByteArray reason;
    QByteArray body;
    QUrl url; // the address that answered
    QByteArray etag;
    QByteArray location;
};

QString statusText(const Answer& a) {
    return QStringLiteral("%1 %2").arg(a.status).arg(QString::fromUtf8(a.reason)).trimmed();
}

int portOf(const QUrl& url) {
    return url.port(url.scheme() == QLatin1String("https") ? 443 : 80);
}

bool sameOrigin(const QUrl& a, const QUrl& b) {
    return a.scheme() == b.scheme() && a.host().compare(b.host(), Qt::CaseInsensitive) == 0 &&
           portOf(a) == portOf(b);
}

bool isRedirect(int status) {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

// A path in its decoded form without a trailing slash, for comparing hrefs.
QString decodedPath(const QUrl& url) {
    QString path = url.path(QUrl::FullyDecoded);
    while (path.size() > 1 && path.endsWith(QLatin1Char('/')))
        path.chop(1);
    return path;
}

QUrl withSlash(QUrl url) {
    if (!url.path().endsWith(QLatin1Char('/'))) url.setPath(url.path() + QLatin1Char('/'));
    return url;
}

// An href as the server names its member: the encoded path, also when the server wrote a
// whole URL.
QString hrefPath(const QString& href) {
    const QUrl url(href, QUrl::TolerantMode);
    if (url.isRelative() && !href.startsWith(QLatin1Char('/'))) return href;
    return url.path(QUrl::FullyEncoded);
}

AddressBookInfo infoOf(const davxml::Response& r, const QUrl& url) {
    AddressBookInfo info;
    info.url = withSlash(url);
    info.displayName = r.displayName;
    info.description = r.description;
    info.syncCollection = r.syncCollection;
    return info;
}

} // namespace

struct DavClient::Impl {
    QUrl server;
    QString user;
    QString password;
    int timeout = 30000;
    const std::atomic_bool* cancel = nullptr;
    int requests = 0;
    QNetworkAccessManager nam;

    bool cancelled() const { return cancel && cancel->load(); }
    Answer sendOnce(const QByteArray& verb, const QUrl& url, const QByteArray& body, const Headers& headers);
    Answer send(const QByteArray& verb, QUrl url, const QByteArray& body, const Headers& headers,
                bool follow = false);
    Answer propfind(const QUrl& url, int depth, const QByteArray& body, bool follow = false);
    davxml::MultiStatus multiStatus(const Answer& a);
    [[noreturn]] void fail(const Answer& a);
    std::optional<davxml::Response> self(const davxml::MultiStatus& ms, const QUrl& url);
    QList<AddressBookInfo> booksOfHome(const QUrl& home);
    QList<AddressBookInfo> booksOfPrincipal(const QUrl& principal);
};

Answer DavClient::Impl::sendOnce(const QByteArray& verb, const QUrl& url, const QByteArray& body,
                                 const Headers& headers) {
    if (cancelled()) throw DavError(DavError::Cancelled, 0, msgDavCancelled);
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    // The password goes along unasked only to the server the user named.
    if (sameOrigin(url, server))
        request.setRawHeader("Authorization",
                             "Basic " + (user + QLatin1Char(':') + password).toUtf8().toBase64());
    // Plain bodies: a compressed answer that the connection cut short is not told apart from a
    // whole one, while a plain body must match its Content-Length.
    request.setRawHeader("Accept-Encoding", "identity");
    for (const auto& [name, value] : headers)
        request.setRawHeader(name, value);

    QNetworkReply* reply = nam.sendCustomRequest(request, verb, body);
    ++requests;

    QEventLoop loop;
    QTimer idle;
    idle.setSingleShot(true);
    idle.setInterval(timeout);
    QTimer poll;
    poll.setInterval(kCancelPollMs);
    bool timedOut = false;
    bool aborted = false;
    int authAsked = 0;
    QStringList sslTexts;

    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    const auto progress = [&idle] { idle.start(); };
    QObject::connect(reply, &QNetworkReply::downloadProgress, &loop, progress);
    QObject::connect(reply, &QNetworkReply::uploadProgress, &loop, progress);
    QObject::connect(reply, &QNetworkReply::metaDataChanged, &loop, progress);
    QObject::connect(&idle, &QTimer::timeout, &loop, [&] {
        timedOut = true;
        reply->abort();
    });
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (!cancelled()) return;
        aborted = true;
        reply->abort();
    });
    QObject::connect(reply, &QNetworkReply::sslErrors, &loop, [&](const QList<QSslError>& errors) {
        for (const QSslError& e : errors)
            sslTexts << e.errorString();
    });
    // Qt asks when the server wants other credentials: answer once with the user's, then let
    // the request fail with 401.
    const auto authConnection = QObject::connect(&nam, &QNetworkAccessManager::authenticationRequired, &loop,
                                                 [&](QNetworkReply* r, QAuthenticator* a) {
                                                     if (r != reply || authAsked++ > 0) return;
                                                     a->setUser(user);
                                                     a->setPassword(password);
                                                 });

    if (!reply->isFinished()) {
        idle.start();
        poll.start();
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    QObject::disconnect(authConnection);

    Answer a;
    a.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    a.reason = reply->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toByteArray();
    if (reply->isOpen()) a.body = reply->readAll();
    const QVariant length = reply->header(QNetworkRequest::ContentLengthHeader);
    a.url = reply->url();
    a.etag = reply->rawHeader("ETag");
    a.location = reply->rawHeader("Location");
    const QNetworkReply::NetworkError error = reply->error();
    const QString errorText = reply->errorString();
    delete reply;

    if (aborted || (error == QNetworkReply::OperationCanceledError && cancelled()))
        throw DavError(DavError::Cancelled, 0, msgDavCancelled);
    if (timedOut)
        throw DavError(DavError::Unreachable, 0, msgDavUnreachable.arg(msgDavNoAnswer.arg(timeout / 1000.0)));
    if (!sslTexts.isEmpty())
        throw DavError(DavError::Tls, 0, msgDavTls.arg(sslTexts.join(QStringLiteral("; "))));
    if (error == QNetworkReply::SslHandshakeFailedError)
        throw DavError(DavError::Tls, 0, msgDavTls.arg(errorText));
    // A transport error, also one after the status line (the connection dropped half-way).
    if (error != QNetworkReply::NoError && (a.status == 0 || error < QNetworkReply::ContentAccessDenied))
        throw DavError(DavError::Unreachable, a.status, msgDavUnreachable.arg(errorText));
    if (length.isValid() && a.body.size() < length.toLongLong())
        throw DavError(DavError::Unreachable, a.status, msgDavUnreachable.arg(msgDavCutShort));
    return a;
}

Answer DavClient::Impl::send(const QByteArray& verb, QUrl url, const QByteArray& body, const Headers& headers,
                             bool follow) {
    for (int hop = 0;; ++hop) {
        const Answer a = sendOnce(verb, url, body, headers);
        if (!follow || !isRedirect(a.status) || a.location.isEmpty()) return a;
        if (hop == kMaxRedirects) throw DavError(DavError::Server, a.status, msgDavRedirects);
        const QUrl next = url.resolved(QUrl::fromEncoded(a.location.trimmed()));
        if (url.scheme() == QLatin1String("https") && next.scheme() != QLatin1String("https"))
            throw DavError(DavError::Server, a.status, msgDavInsecureRedirect);
        url = next;
    }
}

Answer DavClient::Impl::propfind(const QUrl& url, int depth, const QByteArray& body, bool follow) {
    return send("PROPFIND", url, body, {{"Depth", QByteArray::number(depth)}, {"Content-Type", kXml}},
                follow);
}

void DavClient::Impl::fail(const Answer& a) {
    switch (a.status) {
    case 401:
        throw DavError(DavError::AuthRefused, a.status, msgDavAuthRefused);
    case 403: {
        // A refusal that names a condition (an unsupported report, say) is not about rights.
        const QStringList conditions = davxml::readErrorConditions(a.body);
        if (!conditions.isEmpty())
            throw DavError(DavError::Server, a.status,
                           msgDavServer.arg(statusText(a) + QStringLiteral(" (") +
                                            conditions.join(QStringLiteral(", ")) + QLatin1Char(')')));
        throw DavError(DavError::AuthRefused, a.status, msgDavForbidden.arg(a.url.toDisplayString()));
    }
    case 404:
    case 410:
        throw DavError(DavError::NotFound, a.status, msgDavNotFound.arg(a.url.toDisplayString()));
    default:
        throw DavError(DavError::Server, a.status, msgDavServer.arg(statusText(a)));
    }
}

davxml::MultiStatus DavClient::Impl::multiStatus(const Answer& a) {
    if (a.status != 207) fail(a);
    davxml::MultiStatus ms;
    QString error;
    if (!davxml::readMultiStatus(a.body, &ms, &error))
        throw DavError(DavError::Protocol, a.status, msgDavUnreadable.arg(error));
    return ms;
}

// The response that speaks of the requested address itself (a depth-0 answer may name it
// another way, so a single response counts as well).
std::optional<davxml::Response> DavClient::Impl::self(const davxml::MultiStatus& ms, const QUrl& url) {
    for (const davxml::Response& r : ms.responses)
        if (decodedPath(url.resolved(QUrl(r.href, QUrl::TolerantMode))) == decodedPath(url)) return r;
    if (ms.responses.size() == 1) return ms.responses.first();
    return std::nullopt;
}

QList<AddressBookInfo> DavClient::Impl::booksOfHome(const QUrl& home) {
    const Answer a = propfind(home, 1, davxml::propfindAddressBook(), true);
    const davxml::MultiStatus ms = multiStatus(a);
    QList<AddressBookInfo> books;
    for (const davxml::Response& r : ms.responses)
        if (r.addressBook) books << infoOf(r, a.url.resolved(QUrl(r.href, QUrl::TolerantMode)));
    return books;
}

QList<AddressBookInfo> DavClient::Impl::booksOfPrincipal(const QUrl& principal) {
    const Answer a = propfind(principal, 0, davxml::propfindPrincipal(), true);
    const std::optional<davxml::Response> r = self(multiStatus(a), a.url);
    if (!r || r->addressBookHomeSet.isEmpty()) return {};
    QList<AddressBookInfo> books;
    for (const QString& home : r->addressBookHomeSet)
        books << booksOfHome(a.url.resolved(QUrl(home, QUrl::TolerantMode)));
    return books;
}

DavClient::DavClient(const QUrl& server, const QString& user, const QString& password) : d(new Impl) {
    d->server = server;
    d->user = user;
    d->password = password;
}

DavClient::~DavClient() = default;

void DavClient::setTimeout(int ms) {
    d->timeout = ms;
}

void DavClient::setCancelFlag(const std::atomic_bool* cancel) {
    d->cancel = cancel;
}

int DavClient::requestCount() const {
    return d->requests;
}

QUrl DavClient::resolve(const QString& href) const {
    return d->server.resolved(QUrl(href, QUrl::TolerantMode));
}

QList<AddressBookInfo> DavClient::discover() {
    // The address itself: an address book, a principal or a home set answer in one request.
    const Answer first = d->propfind(d->server, 0, davxml::propfindAddressBook(), true);
    QUrl principal;
    if (first.status == 207) {
        const std::optional<davxml::Response> r = d->self(d->multiStatus(first), first.url);
        if (r && r->addressBook) return {infoOf(*r, first.url)};
        if (r && !r->addressBookHomeSet.isEmpty()) {
            QList<AddressBookInfo> books;
            for (const QString& home : r->addressBookHomeSet)
                books << d->booksOfHome(first.url.resolved(QUrl(home, QUrl::TolerantMode)));
            return books;
        }
        if (r && !r->currentUserPrincipal.isEmpty())
            principal = first.url.resolved(QUrl(r->currentUserPrincipal, QUrl::TolerantMode));
    } else if (first.status == 401) {
        d->fail(first);
    }
    if (principal.isEmpty()) {
        // The well-known address tells where the service lives.
        QUrl known = d->server;
        known.setPath(QStringLiteral("/.well-known/carddav"));
        known.setQuery(QString());
        const Answer a = d->propfind(known, 0, davxml::propfindPrincipal(), true);
        if (a.status == 401 || a.status == 403) d->fail(a);
        if (a.status != 207) throw DavError(DavError::NotAddressBook, a.status, msgDavNotAddressBook);
        const std::optional<davxml::Response> r = d->self(d->multiStatus(a), a.url);
        if (r && !r->addressBookHomeSet.isEmpty()) {
            QList<AddressBookInfo> books;
            for (const QString& home : r->addressBookHomeSet)
                books << d->booksOfHome(a.url.resolved(QUrl(home, QUrl::TolerantMode)));
            return books;
        }
        if (!r || r->currentUserPrincipal.isEmpty())
            throw DavError(DavError::NotAddressBook, a.status, msgDavNotAddressBook);
        principal = a.url.resolved(QUrl(r->currentUserPrincipal, QUrl::TolerantMode));
    }
    const QList<AddressBookInfo> books = d->booksOfPrincipal(principal);
    if (books.isEmpty()) throw DavError(DavError::NotAddressBook, 0, msgDavNotAddressBook);
    return books;
}

AddressBookInfo DavClient::addressBook(const QUrl& book) {
    const Answer a = d->propfind(book, 0, davxml::propfindAddressBook(), true);
    const std::optional<davxml::Response> r = d->self(d->multiStatus(a), a.url);
    if (!r || !r->addressBook) throw DavError(DavError::NotAddressBook, a.status, msgDavNotAddressBook);
    return infoOf(*r, a.url);
}

QList<ResourceState> DavClient::listEtags(const QUrl& book) {
    const Answer a = d->propfind(book, 1, davxml::propfindEtags());
    const davxml::MultiStatus ms = d->multiStatus(a);
    const QString bookPath = decodedPath(book);
    QList<ResourceState> members;
    for (const davxml::Response& r : ms.responses) {
        if (r.collection || r.href.isEmpty()) continue;
        if (decodedPath(book.resolved(QUrl(r.href, QUrl::TolerantMode))) == bookPath) continue;
        ResourceState s;
        s.href = hrefPath(r.href);
        s.etag = r.etag;
        members << s;
    }
    return members;
}

SyncCollectionResult DavClient::syncCollection(const QUrl& book, const QString& token) {
    const Answer a =
        d->send("REPORT", book, davxml::syncCollection(token), {{"Depth", "0"}, {"Content-Type", kXml}});
    if (a.status == 403 || a.status == 409 || a.status == 410) {
        const bool tokenRefused =
            davxml::readErrorConditions(a.body).contains(QStringLiteral("valid-sync-token"));
        if (tokenRefused || !token.isEmpty())
            throw DavError(DavError::InvalidSyncToken, a.status, msgDavSyncTokenRefused);
    }
    const davxml::MultiStatus ms = d->multiStatus(a);
    if (ms.syncToken.isEmpty())
        throw DavError(DavError::Protocol, a.status, msgDavUnreadable.arg(QStringLiteral("no sync-token")));
    SyncCollectionResult result;
    result.token = ms.syncToken;
    const QString bookPath = decodedPath(book);
    for (const davxml::Response& r : ms.responses) {
        if (r.href.isEmpty()) continue;
        if (decodedPath(book.resolved(QUrl(r.href, QUrl::TolerantMode))) == bookPath) continue;
        ResourceState s;
        s.href = hrefPath(r.href);
        s.removed = r.status == 404 || r.status == 410;
        if (!s.removed) {
            if (r.collection) continue;
            s.etag = r.etag;
        }
        result.changes << s;
    }
    return result;
}

QList<Resource> DavClient::multiget(const QUrl& book, const QStringList& hrefs) {
    QList<Resource> cards;
    for (int start = 0; start < hrefs.size(); start += kMultigetBatch) {
        const QStringList batch = hrefs.mid(start, kMultigetBatch);
        // The caller's own spelling of each href, found by its decoded path.
        QHash<QString, QString> asked;
        for (const QString& href : batch)
            asked.insert(decodedPath(book.resolved(QUrl(href, QUrl::TolerantMode))), href);
        const Answer a = d->send("REPORT", book, davxml::addressBookMultiget(batch),
                                 {{"Depth", "1"}, {"Content-Type", kXml}});
        const davxml::MultiStatus ms = d->multiStatus(a);
        for (const davxml::Response& r : ms.responses) {
            if (!r.hasAddressData || r.href.isEmpty()) continue;
            Resource card;
            card.href =
                asked.value(decodedPath(book.resolved(QUrl(r.href, QUrl::TolerantMode))), hrefPath(r.href));
            card.etag = r.etag;
            card.vcard = r.addressData;
            cards << card;
        }
    }
    return cards;
}

WriteResult DavClient::put(const QUrl& resource, const QByteArray& vcard, const QByteArray& ifMatch,
                           QByteArray* etag) {
    Headers headers = {{"Content-Type", kVcard}};
    if (ifMatch.isEmpty())
        headers.append(qMakePair(QByteArray("If-None-Match"), QByteArray("*")));
    else
        headers.append(qMakePair(QByteArray("If-Match"), ifMatch));
    const Answer a = d->send("PUT", resource, vcard, headers);
    if (etag) etag->clear();
    if (a.status == 412) return WriteResult::PreconditionFailed;
    if (a.status == 404 || a.status == 410) return WriteResult::Gone;
    if (a.status < 200 || a.status > 299) d->fail(a);
    if (etag) *etag = a.etag;
    return WriteResult::Done;
}

WriteResult DavClient::remove(const QUrl& resource, const QByteArray& ifMatch) {
    Headers headers;
    if (!ifMatch.isEmpty()) headers.append(qMakePair(QByteArray("If-Match"), ifMatch));
    const Answer a = d->send("DELETE", resource, QByteArray(), headers);
    if (a.status == 412) return WriteResult::PreconditionFailed;
    if (a.status == 404 || a.status == 410) return WriteResult::Gone;
    if (a.status < 200 || a.status > 299) d->fail(a);
    return WriteResult::Done;
}

} // namespace carddav
