#pragma once
// The XML of WebDAV and CardDAV: request bodies written with QXmlStreamWriter, and 207
// multistatus answers read with QXmlStreamReader by namespace (DAV: and the CardDAV namespace),
// whatever prefixes the server chose. Qt Core only.

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace carddav::davxml {

// One <response> of a multistatus, with the properties of its successful propstats.
struct Response {
    QString href;   // as written, trimmed
    int status = 0; // the response's own status (a removed member of a sync report), 0 if none
    QByteArray etag;
    QByteArray addressData;
    bool hasEtag = false;
    bool hasAddressData = false;
    bool collection = false;
    bool addressBook = false;
    QString displayName;
    QString description;
    bool syncCollection = false; // supported-report-set lists sync-collection
    QString currentUserPrincipal;
    QStringList addressBookHomeSet;
};

struct MultiStatus {
    QList<Response> responses;
    QString syncToken;
};

// Reads a multistatus answer. False, with the reason in `error`, when the text is not
// well-formed XML or its root is not DAV:multistatus.
bool readMultiStatus(const QByteArray& body, MultiStatus* out, QString* error);

// The local names of the conditions inside a DAV:error body ("valid-sync-token"); empty when
// the body is no such element.
QStringList readErrorConditions(const QByteArray& body);

// The status code of a status line ("HTTP/1.1 404 Not Found" gives 404); 0 when unreadable.
int statusOfLine(const QString& line);

// PROPFIND bodies.
QByteArray propfindAddressBook(); // resourcetype, names, reports, principal and home set
QByteArray propfindPrincipal();   // current-user-principal and addressbook-home-set
QByteArray propfindEtags();       // getetag and resourcetype

// REPORT bodies.
QByteArray syncCollection(const QString& token);
QByteArray addressBookMultiget(const QStringList& hrefs);

// MKCOL body that makes an address book with this display name.
QByteArray mkcolAddressBook(const QString& displayName);

} // namespace carddav::davxml
