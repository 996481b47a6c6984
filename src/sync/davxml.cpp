#include "sync/davxml.h"

#include <initializer_list>
#include <utility>

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace carddav::davxml {

namespace {

const QString kDav = QStringLiteral("DAV:");
const QString kCard = QStringLiteral("urn:ietf:params:xml:ns:carddav");

bool is(const QXmlStreamReader& r, const QString& ns, const char* name) {
    return r.namespaceUri() == ns && r.name() == QLatin1String(name);
}

QString text(QXmlStreamReader& r) {
    return r.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
}

// The first DAV:href inside the current element.
QString firstHref(QXmlStreamReader& r) {
    QString href;
    while (r.readNextStartElement()) {
        if (is(r, kDav, "href") && href.isEmpty())
            href = text(r);
        else
            r.skipCurrentElement();
    }
    return href;
}

QStringList allHrefs(QXmlStreamReader& r) {
    QStringList hrefs;
    while (r.readNextStartElement()) {
        if (is(r, kDav, "href"))
            hrefs << text(r);
        else
            r.skipCurrentElement();
    }
    return hrefs;
}

// True when a DAV:sync-collection element stands anywhere below the current element.
bool listsSyncCollection(QXmlStreamReader& r) {
    bool found = false;
    int depth = 1;
    while (depth > 0 && !r.atEnd()) {
        switch (r.readNext()) {
        case QXmlStreamReader::StartElement:
            ++depth;
            if (is(r, kDav, "sync-collection")) found = true;
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        default:
            break;
        }
    }
    return found;
}

void readResourceType(QXmlStreamReader& r, Response* p) {
    while (r.readNextStartElement()) {
        if (is(r, kDav, "collection")) p->collection = true;
        if (is(r, kCard, "addressbook")) p->addressBook = true;
        r.skipCurrentElement();
    }
}

void readProp(QXmlStreamReader& r, Response* p) {
    while (r.readNextStartElement()) {
        if (is(r, kDav, "getetag")) {
            p->etag = text(r).toUtf8();
            p->hasEtag = true;
        } else if (is(r, kCard, "address-data")) {
            // The card keeps its line breaks; only the indentation of the XML is dropped.
            p->addressData = r.readElementText(QXmlStreamReader::SkipChildElements).toUtf8();
            p->hasAddressData = true;
        } else if (is(r, kDav, "resourcetype")) {
            readResourceType(r, p);
        } else if (is(r, kDav, "displayname")) {
            p->displayName = text(r);
        } else if (is(r, kCard, "addressbook-description")) {
            p->description = text(r);
        } else if (is(r, kDav, "supported-report-set")) {
            p->syncCollection = listsSyncCollection(r);
        } else if (is(r, kDav, "current-user-principal")) {
            p->currentUserPrincipal = firstHref(r);
        } else if (is(r, kCard, "addressbook-home-set")) {
            p->addressBookHomeSet = allHrefs(r);
        } else {
            r.skipCurrentElement();
        }
    }
}

// A propstat's properties count only when its status is a success (or is missing).
void readPropStat(QXmlStreamReader& r, Response* response) {
    Response found;
    int status = 200;
    while (r.readNextStartElement()) {
        if (is(r, kDav, "prop"))
            readProp(r, &found);
        else if (is(r, kDav, "status"))
            status = statusOfLine(text(r));
        else
            r.skipCurrentElement();
    }
    if (status < 200 || status > 299) return;
    if (found.hasEtag) {
        response->etag = found.etag;
        response->hasEtag = true;
    }
    if (found.hasAddressData) {
        response->addressData = found.addressData;
        response->hasAddressData = true;
    }
    response->collection |= found.collection;
    response->addressBook |= found.addressBook;
    response->syncCollection |= found.syncCollection;
    if (!found.displayName.isEmpty()) response->displayName = found.displayName;
    if (!found.description.isEmpty()) response->description = found.description;
    if (!found.currentUserPrincipal.isEmpty()) response->currentUserPrincipal = found.currentUserPrincipal;
    if (!found.addressBookHomeSet.isEmpty()) response->addressBookHomeSet = found.addressBookHomeSet;
}

Response readResponse(QXmlStreamReader& r) {
    Response response;
    while (r.readNextStartElement()) {
        if (is(r, kDav, "href") && response.href.isEmpty())
            response.href = text(r);
        else if (is(r, kDav, "status"))
            response.status = statusOfLine(text(r));
        else if (is(r, kDav, "propstat"))
            readPropStat(r, &response);
        else
            r.skipCurrentElement();
    }
    return response;
}

class Writer {
  public:
    Writer() : w(&bytes) {
        w.setAutoFormatting(false);
        w.writeStartDocument();
        w.writeNamespace(kDav, QStringLiteral("d"));
        w.writeNamespace(kCard, QStringLiteral("card"));
    }
    QByteArray finish() {
        w.writeEndDocument();
        return bytes;
    }
    void start(const QString& ns, const char* name) { w.writeStartElement(ns, QLatin1String(name)); }
    void end() { w.writeEndElement(); }
    void empty(const QString& ns, const char* name) { w.writeEmptyElement(ns, QLatin1String(name)); }
    void text(const QString& ns, const char* name, const QString& value) {
        w.writeTextElement(ns, QLatin1String(name), value);
    }

  private:
    QByteArray bytes;
    QXmlStreamWriter w;
};

} // namespace

int statusOfLine(const QString& line) {
    // "HTTP/1.1 200 OK": the second word.
    const QStringList words = line.simplified().split(QLatin1Char(' '));
    if (words.size() < 2) return 0;
    bool ok = false;
    const int code = words[1].toInt(&ok);
    return ok && code >= 100 && code <= 599 ? code : 0;
}

bool readMultiStatus(const QByteArray& body, MultiStatus* out, QString* error) {
    *out = MultiStatus();
    QXmlStreamReader r(body);
    if (!r.readNextStartElement() || !is(r, kDav, "multistatus")) {
        *error = r.hasError() ? r.errorString() : QStringLiteral("no multistatus element");
        return false;
    }
    while (r.readNextStartElement()) {
        if (is(r, kDav, "response"))
            out->responses << readResponse(r);
        else if (is(r, kDav, "sync-token"))
            out->syncToken = text(r);
        else
            r.skipCurrentElement();
    }
    // Anything after the root must still be well-formed.
    while (!r.atEnd())
        r.readNext();
    if (r.hasError()) {
        *error = QStringLiteral("line %1: %2").arg(r.lineNumber()).arg(r.errorString());
        *out = MultiStatus();
        return false;
    }
    return true;
}

QStringList readErrorConditions(const QByteArray& body) {
    QStringList names;
    QXmlStreamReader r(body);
    if (!r.readNextStartElement() || !is(r, kDav, "error")) return names;
    while (r.readNextStartElement()) {
        names << r.name().toString();
        r.skipCurrentElement();
    }
    return r.hasError() ? QStringList() : names;
}

namespace {

// A PROPFIND body asking for these properties, each a namespace and a name.
QByteArray propfind(std::initializer_list<std::pair<QString, const char*>> properties) {
    Writer w;
    w.start(kDav, "propfind");
    w.start(kDav, "prop");
    for (const auto& [ns, name] : properties)
        w.empty(ns, name);
    w.end();
    w.end();
    return w.finish();
}

} // namespace

QByteArray propfindAddressBook() {
    return propfind({{kDav, "resourcetype"},
                     {kDav, "displayname"},
                     {kCard, "addressbook-description"},
                     {kDav, "supported-report-set"},
                     {kDav, "current-user-principal"},
                     {kCard, "addressbook-home-set"}});
}

QByteArray propfindPrincipal() {
    return propfind({{kDav, "current-user-principal"}, {kCard, "addressbook-home-set"}});
}

QByteArray propfindEtags() {
    return propfind({{kDav, "getetag"}, {kDav, "resourcetype"}});
}

QByteArray syncCollection(const QString& token) {
    Writer w;
    w.start(kDav, "sync-collection");
    if (token.isEmpty())
        w.empty(kDav, "sync-token");
    else
        w.text(kDav, "sync-token", token);
    w.text(kDav, "sync-level", QStringLiteral("1"));
    w.start(kDav, "prop");
    w.empty(kDav, "getetag");
    w.end();
    w.end();
    return w.finish();
}

QByteArray addressBookMultiget(const QStringList& hrefs) {
    Writer w;
    w.start(kCard, "addressbook-multiget");
    w.start(kDav, "prop");
    w.empty(kDav, "getetag");
    w.empty(kCard, "address-data");
    w.end();
    for (const QString& href : hrefs)
        w.text(kDav, "href", href);
    w.end();
    return w.finish();
}

QByteArray mkcolAddressBook(const QString& displayName) {
    Writer w;
    w.start(kDav, "mkcol");
    w.start(kDav, "set");
    w.start(kDav, "prop");
    w.start(kDav, "resourcetype");
    w.empty(kDav, "collection");
    w.empty(kCard, "addressbook");
    w.end();
    w.text(kDav, "displayname", displayName);
    w.end();
    w.end();
    w.end();
    return w.finish();
}

} // namespace carddav::davxml
