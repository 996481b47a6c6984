#include "sync/syncsession.h"

#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "exchange/book/bookexchange.h"
#include "exchange/vcardmap.h"
#include "exchange/vcardreader.h"
#include "exchange/vcardwriter.h"
#include "phonebook/store/dao.h"
#include "sync/davclient.h"
#include "sync/merge.h"
#include "trees/deletecd.h"

#include <QHash>
#include <QSet>
#include <QUuid>

using exchange::ContactRecord;
using namespace mLanguageGobals;

namespace carddav {

namespace {

constexpr int kFetchBatch = 100;

// Cards go to the server as vCard 3.0, the version every CardDAV server must keep as it was given
// (some store 4.0 through a 3.0 model that garbles a photo given as a data: address).
QByteArray Format(const ContactRecord& r) {
    return exchange::FormatVCard(r, exchange::VCardVersion::V30);
}

// The card sent to the server: ours, with the contact's UID after the version line.
QByteArray WithUid(const QByteArray& card, const QString& uid) {
    const int version = card.indexOf("\r\nVERSION:");
    const int at = version < 0 ? card.indexOf("\r\n") + 2 : card.indexOf("\r\n", version + 2) + 2;
    return card.left(at) + exchange::FoldLine("UID:" + uid.toUtf8()) + card.mid(at);
}

// Hrefs compare by their decoded path: servers answer absolute addresses or paths, encoded or not.
QString Key(const QString& href) {
    return QUrl::fromPercentEncoding(QUrl(href).path(QUrl::FullyEncoded).toUtf8());
}

// The properties of a server's card that no field takes (a birthday, a nickname, ...), kept as a
// card of their own so that a card sent back gives them back.
QByteArray ExtrasOf(const exchange::VCardContact& card) {
    const QList<exchange::UnplacedProperty> unplaced = exchange::UnplacedProperties(card);
    if (unplaced.isEmpty()) return {};
    QByteArray out = "BEGIN:VCARD\r\nVERSION:3.0\r\n";
    for (const exchange::UnplacedProperty& u : unplaced)
        out += exchange::FormatProperty(u.property, exchange::VCardVersion::V30);
    return out + "END:VCARD\r\n";
}

// Takes `block` out of the comment where it stands as whole lines; false when it does not.
bool TakeLines(QString& comment, const QString& block) {
    for (qsizetype at = comment.indexOf(block); at >= 0; at = comment.indexOf(block, at + 1)) {
        const qsizetype end = at + block.size();
        const bool lineStart = at == 0 || comment.at(at - 1) == QLatin1Char('\n');
        const bool lineEnd = end == comment.size() || comment.at(end) == QLatin1Char('\n');
        if (!lineStart || !lineEnd) continue;
        if (at > 0)
            comment.remove(at - 1, block.size() + 1); // with the line break before it
        else
            comment.remove(at, qMin(block.size() + 1, comment.size() - at));
        return true;
    }
    return false;
}

// True when a property's lines (with its group's label), alone on a card, read as this comment line.
bool ReadsBackAs(const QByteArray& line, const QString& commentLine) {
    const QList<exchange::UnplacedProperty> back = exchange::UnplacedProperties(
        exchange::ReadVCards("BEGIN:VCARD\r\nVERSION:3.0\r\n" + line + "END:VCARD\r\n").value(0));
    return !back.isEmpty() && back.first().commentLine == commentLine;
}

// The card sent for a contact: ours with its UID, and the server's properties that no field takes
// back in place of the comment lines they became. One whose line the user has removed stays
// removed. `kept` receives the properties sent, as a card of their own.
QByteArray CardToSend(ContactRecord record, const QByteArray& extras, const QString& uid, QByteArray* kept) {
    QByteArray lines;
    if (!extras.isEmpty()) {
        QList<exchange::UnplacedProperty> unplaced =
            exchange::UnplacedProperties(exchange::ReadVCards(extras).value(0));
        for (qsizetype i = 0; i < unplaced.size(); ++i) {
            if (unplaced[i].commentLine.isEmpty()) continue; // a label, taken with its property
            // The property with its group's label, which stands right after it when it has one.
            QByteArray line;
            for (qsizetype k = i; k < unplaced.size() && (k == i || unplaced[k].commentLine.isEmpty()); ++k) {
                exchange::VCardProperty p = unplaced[k].property;
                // The card's numbers stand in groups item1, item2, ...: a group of the server's is
                // renamed so that its label never names one of them.
                if (p.group.startsWith(QLatin1String("item"), Qt::CaseInsensitive))
                    p.group.prepend(QLatin1Char('x'));
                const QByteArray one = exchange::FormatProperty(p, exchange::VCardVersion::V30);
                if (one.isEmpty()) {
                    line.clear();
                    break;
                }
                line += one;
            }
            // Only lines that read back as the same comment line take its place.
            if (!line.isEmpty() && ReadsBackAs(line, unplaced[i].commentLine) &&
                TakeLines(record.Comment, unplaced[i].commentLine))
                lines += line;
        }
    }
    *kept = lines.isEmpty() ? QByteArray() : "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n";
    QByteArray card = WithUid(Format(record), uid);
    return card.insert(card.lastIndexOf("END:VCARD"), lines);
}

struct StateRow {
    qint32 idcd = 0;
    QString added;
    QString href;
    QByteArray etag; // empty: a card was sent but the server's answer never came
    QString uid;
    QByteArray base;   // our card of the version both sides last agreed on; empty: none yet
    QByteArray extras; // the server's properties that no field takes, as a card of their own
};

struct Local {
    qint32 idcd = 0;
    QString added;
    ContactRecord record;
    QByteArray card;
};

enum class Side { Unchanged, Changed, Deleted };

// One contact being synced: what each side did, what is sent, and what is written here.
struct Item {
    int state = -1; // index into states, -1: not linked yet
    int local = -1; // index into locals, -1: not (or no longer) here
    Side localSide = Side::Unchanged;
    Side remoteSide = Side::Unchanged;
    Resource remote;
    ContactRecord remoteRecord;
    QString remoteUid;
    QByteArray remoteExtras;

    enum class Send { None, Update, Create, Remove } send = Send::None;
    QString href;
    QString uid;
    QByteArray ifMatch;
    ContactRecord sent; // the record the sent card holds
    QByteArray extras;  // the server's properties without a field, put back into the sent card

    enum class Outcome { NotTried, Done, PreconditionFailed, Gone, Failed } outcome = Outcome::NotTried;
    QByteArray newEtag;

    enum class Here { None, Write, Add, Delete } here = Here::None;
    ContactRecord write;
    bool merged = false;
    int conflicts = 0;
};

QString FailedCard(const QString& href, const QString& why) {
    return msgSyncCardNote.arg(href, why);
}

} // namespace

QString SyncSummary::text() const {
    QString t =
        msgSyncSummary.arg(sent + deletedThere).arg(received + deletedHere).arg(merged).arg(conflicts);
    if (!error.isEmpty()) t += QStringLiteral(" ") + msgSyncStopped.arg(error);
    return t;
}

struct SyncSession::Impl {
    Account account;
    QString password;
    SyncProgress progress;

    QList<StateRow> states;
    QList<Local> locals;
    QList<Item> items;
    QString token;
    bool syncCollection = false;
    bool listed = false; // the server's changes are all known: commit may write them
    SyncSummary summary;

    void report(const QString& what, int done, int total) const {
        if (progress) progress(what, done, total);
    }

    // Steps of exchange().
    void list(DavClient& client, QHash<int, QString>& fetchState, QStringList& fetchNew);
    void fetch(DavClient& client, const QHash<int, QString>& fetchState, const QStringList& fetchNew);
    void plan();
    void send(DavClient& client);
    void planLinked(Item& item);
    void planMatched(Item& item, const ContactRecord& base);
};

SyncSession::SyncSession(const Account& account, const QString& password) : d(std::make_unique<Impl>()) {
    d->account = account;
    d->password = password;
    d->token = account.syncToken;
    d->syncCollection = account.syncCollection;
}

SyncSession::~SyncSession() = default;

void SyncSession::setProgress(SyncProgress progress) {
    d->progress = std::move(progress);
}

void SyncSession::prepare() {
    HUNT_PLACE("carddav.SyncSession.prepare");
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM SyncState"), dao::dbOpenSnapshot);
    for (; !rs.AtEOF(); rs.MoveNext()) {
        StateRow s;
        s.idcd = rs[QStringLiteral("IDCD")].toInt();
        s.added = rs[QStringLiteral("Added")].toString();
        s.href = rs[QStringLiteral("Href")].toString();
        s.etag = rs[QStringLiteral("ETag")].toString().toUtf8();
        s.uid = rs[QStringLiteral("UID")].toString();
        s.base = rs[QStringLiteral("Base")].toString().toUtf8();
        s.extras = rs[QStringLiteral("Extras")].toString().toUtf8();
        d->states << s;
    }
    rs.Close();
    mExchange::ForEachStoredContact([this](const mExchange::StoredContact& c) {
        d->locals << Local{c.idcd, c.added, c.record, Format(c.record)};
        return true;
    });
}

void SyncSession::Impl::list(DavClient& client, QHash<int, QString>& fetchState, QStringList& fetchNew) {
    QList<ResourceState> listing;
    bool full = true;
    if (syncCollection && !token.isEmpty()) {
        try {
            const SyncCollectionResult r = client.syncCollection(account.book, token);
            listing = r.changes;
            token = r.token;
            full = false;
        } catch (const DavError& e) {
            if (e.kind() != DavError::InvalidSyncToken) throw;
            summary.notes << msgSyncTokenRefused;
        }
    }
    if (full) {
        report(msgSyncListing, 0, 0);
        syncCollection = client.addressBook(account.book).syncCollection;
        if (syncCollection) {
            const SyncCollectionResult r = client.syncCollection(account.book, QString());
            listing = r.changes;
            token = r.token;
        } else {
            listing = client.listEtags(account.book);
            token.clear();
        }
    }

    QHash<QString, int> stateOf;
    for (int i = 0; i < states.size(); ++i)
        stateOf.insert(Key(states[i].href), i);
    QSet<int> seen;
    for (const ResourceState& r : listing) {
        const auto found = stateOf.constFind(Key(r.href));
        if (found == stateOf.constEnd()) {
            if (!r.removed) fetchNew << r.href;
            continue;
        }
        seen.insert(found.value());
        Item& item = items[found.value()];
        if (r.removed)
            item.remoteSide = Side::Deleted;
        else if (r.etag != states[found.value()].etag)
            fetchState.insert(found.value(), r.href);
    }
    for (int i = 0; i < states.size(); ++i) {
        if (full && !seen.contains(i)) items[i].remoteSide = Side::Deleted;
        // A card whose answer never came: the server tells whether it has it.
        if (states[i].etag.isEmpty() && items[i].remoteSide != Side::Deleted && !fetchState.contains(i))
            fetchState.insert(i, states[i].href);
    }
}

void SyncSession::Impl::fetch(DavClient& client, const QHash<int, QString>& fetchState,
                              const QStringList& fetchNew) {
    QStringList hrefs = fetchNew;
    QHash<QString, int> stateOf;
    for (auto it = fetchState.constBegin(); it != fetchState.constEnd(); ++it) {
        hrefs << it.value();
        stateOf.insert(Key(it.value()), it.key());
    }
    QSet<int> answered;
    for (int from = 0; from < hrefs.size(); from += kFetchBatch) {
        report(msgSyncReceiving, from, int(hrefs.size()));
        for (const Resource& res : client.multiget(account.book, hrefs.mid(from, kFetchBatch))) {
            const QList<exchange::VCardContact> cards = exchange::ReadVCards(res.vcard);
            if (cards.isEmpty() || cards.first().properties.isEmpty()) {
                summary.notes << FailedCard(res.href, msgSyncUnreadableCard);
                if (const auto s = stateOf.constFind(Key(res.href)); s != stateOf.constEnd())
                    answered.insert(*s);
                continue;
            }
            Item item;
            item.remote = res;
            item.remoteRecord = exchange::RecordFromVCard(cards.first());
            if (const exchange::VCardProperty* uid = cards.first().first(QStringLiteral("UID")))
                item.remoteUid = uid->text();
            item.remoteExtras = ExtrasOf(cards.first());
            item.remoteSide = Side::Changed;
            const auto s = stateOf.constFind(Key(res.href));
            if (s != stateOf.constEnd()) {
                answered.insert(*s);
                Item& linked = items[*s];
                linked.remote = item.remote;
                linked.remoteRecord = item.remoteRecord;
                linked.remoteUid = item.remoteUid;
                linked.remoteExtras = item.remoteExtras;
                linked.remoteSide = Side::Changed;
            } else {
                items << item; // new on the server
            }
        }
    }
    report(msgSyncReceiving, int(hrefs.size()), int(hrefs.size()));
    for (auto it = fetchState.constBegin(); it != fetchState.constEnd(); ++it)
        if (!answered.contains(it.key())) items[it.key()].remoteSide = Side::Deleted;
}

// A contact both sides knew: the four cases of who changed or removed it.
void SyncSession::Impl::planLinked(Item& item) {
    const StateRow& s = states[item.state];
    item.href = s.href;
    item.uid = s.uid;
    const bool changedHere = item.localSide == Side::Changed;
    if (item.localSide == Side::Deleted) {
        if (item.remoteSide == Side::Unchanged) {
            item.send = Item::Send::Remove;
            item.ifMatch = s.etag;
        } else if (item.remoteSide == Side::Changed) {
            item.here = Item::Here::Add; // changed there, removed here: kept
            item.write = item.remoteRecord;
        }
        return;
    }
    const Local& l = locals[item.local];
    if (item.remoteSide == Side::Deleted) {
        if (!changedHere) {
            item.here = Item::Here::Delete;
            return;
        }
        item.send = Item::Send::Create; // changed here, removed there: kept
        item.sent = l.record;
        return;
    }
    if (item.remoteSide == Side::Unchanged) {
        if (changedHere) {
            item.send = Item::Send::Update;
            item.ifMatch = s.etag;
            item.sent = l.record;
        }
        return;
    }
    if (!changedHere) {
        item.here = Item::Here::Write;
        item.write = item.remoteRecord;
        return;
    }
    planMatched(item, exchange::RecordFromVCard(exchange::ReadVCards(s.base).value(0)));
}

// Changed on both sides (or met on both sides for the first time): merged, written here, and sent
// when the server's card differs from the merge.
void SyncSession::Impl::planMatched(Item& item, const ContactRecord& base) {
    const Local& l = locals[item.local];
    const MergeResult m = MergeContact(base, l.record, item.remoteRecord, QDateTime::currentDateTime());
    item.merged = true;
    item.conflicts = m.conflicts;
    if (Format(m.record) != l.card) {
        item.here = Item::Here::Write;
        item.write = m.record;
    }
    if (Format(m.record) != Format(item.remoteRecord)) {
        item.send = Item::Send::Update;
        item.ifMatch = item.remote.etag;
        item.sent = m.record;
    }
}

void SyncSession::Impl::plan() {
    // Which contacts changed here since the last agreement.
    QHash<qint32, int> localOf;
    for (int i = 0; i < locals.size(); ++i)
        localOf.insert(locals[i].idcd, i);
    QSet<int> linkedLocals;
    for (int i = 0; i < states.size(); ++i) {
        Item& item = items[i];
        item.state = i;
        const auto l = localOf.constFind(states[i].idcd);
        if (l == localOf.constEnd() || locals[*l].added != states[i].added) {
            item.localSide = Side::Deleted;
            continue;
        }
        item.local = *l;
        linkedLocals.insert(*l);
        item.localSide = locals[*l].card == states[i].base ? Side::Unchanged : Side::Changed;
    }

    // Cards new on the server: the same UID as a card that moved, else a contact here by the
    // duplicate rule, else a new contact.
    QHash<QString, int> movedByUid;
    for (int i = 0; i < states.size(); ++i)
        if (items[i].remoteSide == Side::Deleted && !states[i].uid.isEmpty())
            movedByUid.insert(states[i].uid, i);
    QMultiHash<QString, int> unlinkedByName;
    for (int i = 0; i < locals.size(); ++i)
        if (!linkedLocals.contains(i))
            unlinkedByName.insert(mExchange::NormalName(locals[i].record.FullName), i);
    for (int n = int(states.size()); n < items.size(); ++n) {
        Item& item = items[n];
        if (const auto moved = movedByUid.constFind(item.remoteUid);
            !item.remoteUid.isEmpty() && moved != movedByUid.constEnd()) {
            Item& old = items[*moved];
            states[*moved].href = item.remote.href;
            old.remote = item.remote;
            old.remoteRecord = item.remoteRecord;
            old.remoteUid = item.remoteUid;
            old.remoteExtras = item.remoteExtras;
            old.remoteSide = Side::Changed;
            movedByUid.erase(moved);
            item.remoteSide = Side::Unchanged; // nothing left to do for this entry
            continue;
        }
        item.href = item.remote.href;
        item.uid = item.remoteUid;
        const QString name = mExchange::NormalName(item.remoteRecord.FullName);
        for (auto it = unlinkedByName.constFind(name); it != unlinkedByName.constEnd() && it.key() == name;
             ++it)
            if (mExchange::SameContact(locals[*it].record, item.remoteRecord)) {
                item.local = *it;
                unlinkedByName.erase(it);
                break;
            }
        if (item.local >= 0) {
            linkedLocals.insert(item.local);
            planMatched(item, ContactRecord());
        } else {
            item.here = Item::Here::Add;
            item.write = item.remoteRecord;
        }
    }

    for (int i = 0; i < states.size(); ++i)
        if (items[i].remoteSide != Side::Unchanged || items[i].localSide != Side::Unchanged)
            planLinked(items[i]);

    // Contacts new here.
    const QString folder = account.book.path(QUrl::FullyEncoded);
    for (int i = 0; i < locals.size(); ++i) {
        if (linkedLocals.contains(i)) continue;
        Item item;
        item.local = i;
        item.localSide = Side::Changed;
        item.send = Item::Send::Create;
        item.uid = QUuid::createUuid().toString(QUuid::WithoutBraces);
        item.href = folder + (folder.endsWith(QLatin1Char('/')) ? QString() : QStringLiteral("/")) +
                    item.uid + QStringLiteral(".vcf");
        item.sent = locals[i].record;
        items << item;
    }
}

void SyncSession::Impl::send(DavClient& client) {
    int total = 0, done = 0;
    for (const Item& item : items)
        total += item.send != Item::Send::None;
    for (Item& item : items) {
        if (item.send == Item::Send::None) continue;
        report(msgSyncSending, done++, total);
        if (item.uid.isEmpty()) item.uid = QUuid::createUuid().toString(QUuid::WithoutBraces);
        item.extras = item.remoteSide == Side::Changed ? item.remoteExtras
                      : item.state >= 0                ? states[item.state].extras
                                                       : QByteArray();
        const QUrl url = client.resolve(item.href);
        try {
            WriteResult r;
            if (item.send == Item::Send::Remove)
                r = client.remove(url, item.ifMatch);
            else
                r = client.put(url, CardToSend(item.sent, item.extras, item.uid, &item.extras),
                               item.send == Item::Send::Create ? QByteArray() : item.ifMatch, &item.newEtag);
            item.outcome = r == WriteResult::Done                 ? Item::Outcome::Done
                           : r == WriteResult::PreconditionFailed ? Item::Outcome::PreconditionFailed
                                                                  : Item::Outcome::Gone;
        } catch (const DavError& e) {
            item.outcome = Item::Outcome::Failed;
            if (e.kind() == DavError::Server || e.kind() == DavError::Protocol) {
                summary.notes << FailedCard(item.href, e.message()); // this card only
                continue;
            }
            throw;
        }
    }
    report(msgSyncSending, total, total);
}

void SyncSession::exchange(const std::atomic_bool* cancel) {
    HUNT_PLACE("carddav.SyncSession.exchange");
    d->items.clear();
    for (int i = 0; i < d->states.size(); ++i)
        d->items << Item();
    std::unique_ptr<DavClient> client;
    try {
        client = std::make_unique<DavClient>(d->account.book, d->account.user, d->password);
        client->setCancelFlag(cancel);
        QHash<int, QString> fetchState;
        QStringList fetchNew;
        d->list(*client, fetchState, fetchNew);
        d->fetch(*client, fetchState, fetchNew);
        d->plan();
        d->listed = true;
        d->send(*client);
    } catch (const DavError& e) {
        d->summary.error = e.message();
    } catch (const std::exception& e) {
        d->summary.error = QString::fromLocal8Bit(e.what());
    }
    if (client) d->summary.requests = client->requestCount();
}

SyncSummary SyncSession::commit() {
    HUNT_PLACE("carddav.SyncSession.commit");
    SyncSummary& summary = d->summary;
    if (!d->listed) {
        SaveSyncResult(d->account.syncToken, QDateTime::currentDateTime(), summary.text());
        return summary;
    }
    dao::Transaction trans(gWS);

    // Contacts edited or removed here while the network was busy.
    QSet<qint32> watched;
    for (const Item& item : d->items)
        if (item.here == Item::Here::Write || item.here == Item::Here::Delete)
            watched.insert(d->locals[item.local].idcd);
    QHash<qint32, mExchange::StoredContact> now;
    if (!watched.isEmpty())
        mExchange::ForEachStoredContact([&](const mExchange::StoredContact& c) {
            if (watched.contains(c.idcd)) now.insert(c.idcd, c);
            return true;
        });

    struct NewState {
        qint32 idcd;
        QString added;
        const Item* item;
        QByteArray etag;
        QByteArray base;
        bool readBack; // the base is the contact as stored here once written
        QByteArray extras;
    };
    QList<NewState> newStates;
    QList<int> dropStates;
    QList<qint32> deleteHere;
    mExchange::RecordWriter writer;
    const QDateTime when = QDateTime::currentDateTime();

    for (Item& item : d->items) {
        const Local* l = item.local >= 0 ? &d->locals[item.local] : nullptr;
        const StateRow* s = item.state >= 0 ? &d->states[item.state] : nullptr;
        qint32 idcd = l ? l->idcd : 0;
        QString added = l ? l->added : QString();
        auto drop = [&] {
            if (s) dropStates << item.state;
        };

        // What changes here.
        bool editedMeanwhile = false, goneHere = false;
        try {
            if (item.here == Item::Here::Write || item.here == Item::Here::Delete) {
                const auto c = now.constFind(idcd);
                goneHere = c == now.constEnd() || c->added != added;
                editedMeanwhile = !goneHere && Format(c->record) != l->card;
                if (item.here == Item::Here::Delete) {
                    // Removed on the server; an edit made here since is kept and sent as new.
                    if (!editedMeanwhile && !goneHere) {
                        deleteHere << idcd; // once its state is dropped
                        ++summary.deletedHere;
                    }
                    drop();
                    continue;
                }
                if (editedMeanwhile)
                    writer.replace(idcd, MergeContact(l->record, c->record, item.write, when).record,
                                   &summary.notes);
                else if (!goneHere)
                    writer.replace(idcd, item.write, &summary.notes);
                if (!item.merged) ++summary.received;
            } else if (item.here == Item::Here::Add) {
                idcd = writer.add(item.write, &added, &summary.notes);
                ++summary.received;
            }
        } catch (const HuntERR::Error& e) {
            summary.notes << FailedCard(item.href, e.Description());
            continue;
        }
        if (item.merged) {
            ++summary.merged;
            summary.conflicts += item.conflicts;
        }

        // What the server holds now, and so the state to keep.
        const ContactRecord* server = nullptr; // set when both sides hold the same contact
        QByteArray etag;
        QByteArray base = s ? s->base : QByteArray();
        QByteArray extras = s ? s->extras : QByteArray();
        const bool sentOk = item.outcome == Item::Outcome::Done;
        switch (item.send) {
        case Item::Send::None:
            if (item.remoteSide == Side::Deleted) {
                drop();
                continue;
            }
            if (item.remoteSide != Side::Changed) continue;
            etag = item.remote.etag;
            server = &item.remoteRecord;
            extras = item.remoteExtras;
            break;
        case Item::Send::Remove:
            if (sentOk || item.outcome == Item::Outcome::Gone) {
                ++summary.deletedThere;
                drop();
            }
            continue; // else the state stays: the server's change comes next time
        case Item::Send::Update:
        case Item::Send::Create:
            if (sentOk) {
                ++summary.sent;
                etag = item.newEtag;
                server = &item.sent;
                extras = item.extras;
            } else if (item.send == Item::Send::Update && item.outcome != Item::Outcome::Gone) {
                // Refused or not sent: ours goes next time, against the server's card as fetched.
                if (item.remoteSide != Side::Changed) continue;
                etag = item.remote.etag;
                base = Format(item.remoteRecord);
                extras = item.remoteExtras;
            } else if (item.send == Item::Send::Create && item.outcome == Item::Outcome::NotTried && !s) {
                continue; // nothing went out: sent as new next time
            }
            // else perhaps stored, perhaps not: an empty ETag asks the server next time
            break;
        }
        if (server) {
            if (goneHere || editedMeanwhile)
                base = Format(*server); // what changed here goes next time
            else if (item.here != Item::Here::None)
                base.clear(); // read back below
            else
                base = l->card;
        }
        drop();
        newStates << NewState{idcd, added, &item, etag, base, server && base.isEmpty(), extras};
    }

    // The version agreed on is the contact as it now stands here.
    QHash<qint32, int> readBackOf;
    for (int i = 0; i < newStates.size(); ++i)
        if (newStates[i].readBack) readBackOf.insert(newStates[i].idcd, i);
    if (!readBackOf.isEmpty())
        mExchange::ForEachStoredContact([&](const mExchange::StoredContact& c) {
            if (const auto it = readBackOf.constFind(c.idcd); it != readBackOf.constEnd())
                newStates[*it].base = Format(c.record);
            return true;
        });

    for (const int i : dropStates)
        gDB.Execute(QStringLiteral("DELETE * FROM SyncState WHERE IDCD = %1 AND Added = '%2'")
                        .arg(d->states[i].idcd)
                        .arg(d->states[i].added));
    for (const qint32 idcd : deleteHere)
        mAccess::DeleteCD(idcd, -1);
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM SyncState WHERE IDCD = -1"));
    for (const NewState& n : newStates) {
        rs.AddNew();
        rs.SetValue(QStringLiteral("IDCD"), n.idcd);
        rs.SetValue(QStringLiteral("Added"), n.added);
        rs.SetValue(QStringLiteral("Href"), n.item->href);
        rs.SetValue(QStringLiteral("ETag"), QString::fromUtf8(n.etag));
        rs.SetValue(QStringLiteral("UID"), n.item->uid);
        rs.SetValue(QStringLiteral("Base"), QString::fromUtf8(n.base));
        rs.SetValue(QStringLiteral("Extras"), QString::fromUtf8(n.extras));
        rs.Update();
    }
    rs.Close();

    Account account = d->account;
    if (account.syncCollection != d->syncCollection) {
        account.syncCollection = d->syncCollection;
        SaveAccount(account);
    }
    SaveSyncResult(d->token, QDateTime::currentDateTime(), summary.text());
    trans.Commit();
    return summary;
}

SyncSummary SyncNow(const QString& password, const std::atomic_bool* cancel, const SyncProgress& progress) {
    SyncSession session(LoadAccount(), password);
    session.setProgress(progress);
    session.prepare();
    session.exchange(cancel);
    return session.commit();
}

} // namespace carddav
