// Two phonebooks linked to one address book of a real server, synced in turn.
#include "synctest.h"

#include "exchange/book/bookexchange.h"
#include "support/fixtureproxy.h"
#include "sync/account.h"
#include "sync/davclient.h"

using exchange::ContactRecord;
using exchange::NumberRow;

namespace synctest {
namespace {

class Sync : public SyncTest {
  protected:
    // Phonebooks a and b, both linked, both synced once.
    void twoLinked() {
        use(QStringLiteral("b.kvdb"));
        link();
        use(QStringLiteral("a.kvdb"));
        link();
    }
};

TEST_F(Sync, ContactsTravelBothWaysWithEveryField) {
    twoLinked();
    const ContactRecord full = FullContact(1);
    add(full);
    add(Named(QStringLiteral("O'Neil & Sons"), QStringLiteral("+1 555 0100")));
    carddav::SyncSummary s = sync();
    ASSERT_TRUE(s.completed()) << s.error.toStdString();
    EXPECT_EQ(s.sent, 2);

    use(QStringLiteral("b.kvdb"));
    s = sync();
    ASSERT_TRUE(s.completed()) << s.error.toStdString();
    EXPECT_EQ(s.received, 2);
    QMap<QString, ContactRecord> b = contacts();
    ASSERT_EQ(b.size(), 2);
    EXPECT_EQ(b.value(full.FullName), full); // twelve numbers, the photo byte for byte, the trees

    // An edit and a delete travel back; the contact added after the delete takes the freed id
    // within the same second, and is still a contact of its own.
    ContactRecord edited = full;
    edited.Title = QStringLiteral("Chief engineer");
    edited.Numbers[3].value = QStringLiteral("+351 99 999");
    replace(idOf(full.FullName), edited);
    remove(idOf(QStringLiteral("O'Neil & Sons")));
    add(Named(QStringLiteral("New in B"), QStringLiteral("1")));
    s = sync();
    EXPECT_EQ(s.sent, 2);
    EXPECT_EQ(s.deletedThere, 1);

    use(QStringLiteral("a.kvdb"));
    s = sync();
    ASSERT_TRUE(s.completed()) << s.error.toStdString();
    EXPECT_EQ(s.received, 2);
    EXPECT_EQ(s.deletedHere, 1);
    const QMap<QString, ContactRecord> a = contacts();
    EXPECT_EQ(a.keys(), (QStringList{QStringLiteral("New in B"), full.FullName}));
    EXPECT_EQ(a.value(full.FullName), edited);

    // Nothing changed: one request, nothing moves, and nothing is written.
    s = sync();
    EXPECT_TRUE(s.completed());
    EXPECT_EQ(s.requests, 1);
    EXPECT_EQ(s.sent + s.received + s.deletedHere + s.deletedThere + s.merged, 0);
}

TEST_F(Sync, EditsOnBothSidesMergeAndAConflictKeepsBothValues) {
    twoLinked();
    ContactRecord ana = Named(QStringLiteral("Ana Lima"), QStringLiteral("+351 900 000 001"));
    ana.Title = QStringLiteral("Engineer");
    ana.City = QStringLiteral("Porto");
    const qint32 id = add(ana);
    ASSERT_TRUE(sync().completed());
    use(QStringLiteral("b.kvdb"));
    ASSERT_TRUE(sync().completed());

    ContactRecord inB = ana;
    inB.City = QStringLiteral("Braga");      // only here
    inB.Title = QStringLiteral("Architect"); // on both sides
    replace(idOf(ana.FullName), inB);
    ASSERT_TRUE(sync().completed());

    use(QStringLiteral("a.kvdb"));
    ContactRecord inA = ana;
    inA.Company = QStringLiteral("Acme"); // only here
    inA.Title = QStringLiteral("Lead engineer");
    replace(id, inA);
    carddav::SyncSummary s = sync();
    ASSERT_TRUE(s.completed()) << s.error.toStdString();
    EXPECT_EQ(s.merged, 1);
    EXPECT_EQ(s.conflicts, 1);
    const ContactRecord merged = contacts().value(ana.FullName);
    EXPECT_EQ(merged.City, QStringLiteral("Braga"));
    EXPECT_EQ(merged.Company, QStringLiteral("Acme"));
    EXPECT_EQ(merged.Title, QStringLiteral("Lead engineer"));
    EXPECT_TRUE(merged.Comment.contains(QStringLiteral("Title on the server, ")));
    EXPECT_TRUE(merged.Comment.endsWith(QStringLiteral(": Architect")));

    use(QStringLiteral("b.kvdb"));
    ASSERT_TRUE(sync().completed());
    EXPECT_EQ(contacts().value(ana.FullName), merged);
}

TEST_F(Sync, DeletedOnOneSideAndChangedOnTheOtherIsKept) {
    twoLinked();
    add(Named(QStringLiteral("Kept here"), QStringLiteral("1")));
    add(Named(QStringLiteral("Kept there"), QStringLiteral("2")));
    ASSERT_TRUE(sync().completed());
    use(QStringLiteral("b.kvdb"));
    ASSERT_TRUE(sync().completed());
    remove(idOf(QStringLiteral("Kept here")));
    replace(idOf(QStringLiteral("Kept there")), Named(QStringLiteral("Kept there"), QStringLiteral("22")));
    ASSERT_TRUE(sync().completed());

    use(QStringLiteral("a.kvdb"));
    replace(idOf(QStringLiteral("Kept here")), Named(QStringLiteral("Kept here"), QStringLiteral("11")));
    remove(idOf(QStringLiteral("Kept there")));
    ASSERT_TRUE(sync().completed());
    EXPECT_EQ(contacts().keys(), (QStringList{QStringLiteral("Kept here"), QStringLiteral("Kept there")}));
    EXPECT_EQ(contacts().value(QStringLiteral("Kept there")).Numbers.value(0).value, QStringLiteral("22"));

    use(QStringLiteral("b.kvdb"));
    ASSERT_TRUE(sync().completed());
    EXPECT_EQ(contacts().value(QStringLiteral("Kept here")).Numbers.value(0).value, QStringLiteral("11"));
    EXPECT_EQ(contacts().size(), 2);
}

TEST_F(Sync, FirstSyncMatchesContactsByTheDuplicateRule) {
    use(QStringLiteral("b.kvdb"));
    link();
    ContactRecord there = Named(QStringLiteral("Jürgen Weiß"), QStringLiteral("+49 30 1234"));
    there.Title = QStringLiteral("Ingenieur");
    add(there);
    add(Named(QStringLiteral("Only there"), QStringLiteral("5")));
    ASSERT_TRUE(sync().completed());

    use(QStringLiteral("a.kvdb"));
    ContactRecord here = Named(QStringLiteral("jürgen  weiß"), QStringLiteral("+49 (30) 1234"));
    here.Company = QStringLiteral("Stadtwerke");
    add(here);
    link();
    const carddav::SyncSummary s = sync();
    ASSERT_TRUE(s.completed()) << s.error.toStdString();
    EXPECT_EQ(s.merged, 1);
    EXPECT_EQ(s.received, 1);
    const QMap<QString, ContactRecord> a = contacts();
    ASSERT_EQ(a.size(), 2);
    EXPECT_EQ(a.value(here.FullName).Title, QStringLiteral("Ingenieur"));
    EXPECT_EQ(a.value(here.FullName).Company, QStringLiteral("Stadtwerke"));
}

TEST_F(Sync, AnUploadRefusedBecauseTheServerChangedIsMergedNextTime) {
    twoLinked();
    const qint32 id = add(Named(QStringLiteral("Ana"), QStringLiteral("1")));
    ASSERT_TRUE(sync().completed());
    ContactRecord mine = Named(QStringLiteral("Ana"), QStringLiteral("1"));
    mine.City = QStringLiteral("Porto");
    replace(id, mine);

    // While this sync is about to send, another device changes the same card.
    bool changed = false;
    carddav::SyncSummary s = sync([&](const QString& what, int, int) {
        if (changed || what != QStringLiteral("Sending contacts")) return;
        changed = true;
        carddav::DavClient other(book, server.user(), server.password());
        const QList<carddav::ResourceState> cards = other.listEtags(book);
        ASSERT_EQ(cards.size(), 1);
        const carddav::Resource card = other.multiget(book, {cards[0].href}).value(0);
        QByteArray text = card.vcard;
        text.replace("END:VCARD", "TITLE:Architect\r\nEND:VCARD");
        QByteArray etag;
        ASSERT_EQ(other.put(other.resolve(card.href), text, card.etag, &etag), carddav::WriteResult::Done);
    });
    ASSERT_TRUE(changed);
    EXPECT_TRUE(s.completed()) << s.error.toStdString();
    EXPECT_EQ(s.sent, 0); // refused with 412: nothing overwritten
    EXPECT_EQ(contacts().value(QStringLiteral("Ana")).City, QStringLiteral("Porto"));

    s = sync();
    ASSERT_TRUE(s.completed()) << s.error.toStdString();
    EXPECT_EQ(s.sent, 1);
    const ContactRecord here = contacts().value(QStringLiteral("Ana"));
    EXPECT_EQ(here.City, QStringLiteral("Porto"));
    EXPECT_EQ(here.Title, QStringLiteral("Architect"));
    use(QStringLiteral("b.kvdb"));
    ASSERT_TRUE(sync().completed());
    EXPECT_EQ(contacts().value(QStringLiteral("Ana")), here);
}

TEST_F(Sync, AnEditMadeHereWhileTheNetworkIsBusyIsKept) {
    twoLinked();
    add(Named(QStringLiteral("Ana"), QStringLiteral("1")));
    ASSERT_TRUE(sync().completed());
    use(QStringLiteral("b.kvdb"));
    ASSERT_TRUE(sync().completed());
    ContactRecord there = Named(QStringLiteral("Ana"), QStringLiteral("1"));
    there.City = QStringLiteral("Braga");
    replace(idOf(QStringLiteral("Ana")), there);
    ASSERT_TRUE(sync().completed());

    use(QStringLiteral("a.kvdb"));
    carddav::SyncSession session(carddav::LoadAccount(), server.password());
    session.prepare();
    session.exchange();
    ContactRecord here = Named(QStringLiteral("Ana"), QStringLiteral("1"));
    here.Title = QStringLiteral("Engineer");
    replace(idOf(QStringLiteral("Ana")), here); // the user edits between the network and the commit
    ASSERT_TRUE(session.commit().completed());
    EXPECT_EQ(contacts().value(QStringLiteral("Ana")).Title, QStringLiteral("Engineer"));
    EXPECT_EQ(contacts().value(QStringLiteral("Ana")).City, QStringLiteral("Braga"));

    ASSERT_TRUE(sync().completed()); // the edit goes out now
    use(QStringLiteral("b.kvdb"));
    ASSERT_TRUE(sync().completed());
    EXPECT_EQ(contacts().value(QStringLiteral("Ana")).Title, QStringLiteral("Engineer"));
}

TEST_F(Sync, WhatAPhoneKeepsWithoutAFieldHereGoesBackAsItWas) {
    // A phone's card with a birthday, nicknames and a property of its own.
    carddav::DavClient phone(book, server.user(), server.password());
    QByteArray etag;
    ASSERT_EQ(phone.put(book.resolved(QUrl(QStringLiteral("phone.vcf"))),
                        "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:phone\r\nFN:Ana\r\nN:;Ana;;;\r\nNOTE:Own note\r\n"
                        "BDAY:1980-02-29\r\nNICKNAME:Annie\r\nitem3.X-SHOE:38\r\nitem3.X-ABLabel:Shoe\r\n"
                        "TEL;TYPE=CELL:1\r\nEND:VCARD\r\n",
                        QByteArray(), &etag),
              carddav::WriteResult::Done);
    use(QStringLiteral("a.kvdb"));
    link();
    ASSERT_TRUE(sync().completed());
    ContactRecord ana = contacts().value(QStringLiteral("Ana"));
    EXPECT_EQ(ana.Comment.toStdString(), "Own note\nBirthday: 1980-02-29\nNickname: Annie\nShoe: 38");

    // Edited here, the nickname line removed: the card goes back with its birthday and shoe size
    // as properties again, and without the nickname.
    ana.Title = QStringLiteral("Engineer");
    ana.Comment = QStringLiteral("Own note, longer\nBirthday: 1980-02-29\nShoe: 38");
    replace(idOf(QStringLiteral("Ana")), ana);
    ASSERT_TRUE(sync().completed());
    const QByteArray card = phone.multiget(book, {book.path() + QStringLiteral("phone.vcf")}).value(0).vcard;
    EXPECT_TRUE(card.contains("BDAY:1980-02-29")) << card.constData();
    EXPECT_TRUE(card.contains("xitem3.X-SHOE:38")) << card.constData(); // clear of the numbers' groups
    EXPECT_FALSE(card.contains("NICKNAME")) << card.constData();
    EXPECT_TRUE(card.contains("NOTE:Own note\\, longer\n")) << card.constData();

    // Another phonebook reads the same contact back.
    use(QStringLiteral("b.kvdb"));
    link();
    ASSERT_TRUE(sync().completed());
    EXPECT_EQ(contacts().value(QStringLiteral("Ana")).Comment.toStdString(), ana.Comment.toStdString());
    EXPECT_EQ(contacts().value(QStringLiteral("Ana")).Title, QStringLiteral("Engineer"));
}

TEST_F(Sync, AServerThatDropsTheConnectionHalfWayLeavesBothSidesConsistent) {
    fixture::CuttingProxy proxy(QStringLiteral("127.0.0.1"), server.port());
    QUrl viaProxy = book;
    viaProxy.setPort(proxy.port());
    use(QStringLiteral("a.kvdb"));
    link(viaProxy);
    for (int i = 0; i < 30; ++i)
        add(Named(QStringLiteral("Contact %1").arg(i), QString::number(1000 + i)));
    proxy.cutAfterRequests(proxy.requests() + 12); // the listing, then some of the cards
    carddav::SyncSummary s = sync();
    EXPECT_FALSE(s.completed());
    EXPECT_GT(s.sent, 0);
    EXPECT_LT(s.sent, 30);

    proxy.cutAfterRequests(-1);
    s = sync();
    ASSERT_TRUE(s.completed()) << s.error.toStdString();
    EXPECT_EQ(contacts().size(), 30);
    carddav::DavClient direct(book, server.user(), server.password());
    EXPECT_EQ(direct.listEtags(book).size(), 30); // every card once, none twice

    use(QStringLiteral("b.kvdb"));
    link();
    ASSERT_TRUE(sync().completed());
    EXPECT_EQ(contacts().size(), 30);
}

} // namespace
} // namespace synctest
