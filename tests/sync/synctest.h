#pragma once
// Shared fixture of the sync tests: a real radicale server with one address book, and phonebooks
// of this test's folder opened in turn as the program would open them.

#include "exchange/contactrecord.h"
#include "support/fixture.h"
#include "support/fixtureradicale.h"
#include "support/fixturerecords.h"
#include "sync/syncsession.h"

#include <QUrl>

namespace synctest {

class SyncTest : public fixture::TempDirTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    // Closes the open phonebook and opens (or makes) `name` in the test's folder.
    void use(const QString& name);
    // Links the open phonebook to the test's address book (or to `book`).
    void link(const QUrl& book = QUrl());
    carddav::SyncSummary sync(const carddav::SyncProgress& progress = {});

    qint32 add(const exchange::ContactRecord& r);
    void replace(qint32 idcd, const exchange::ContactRecord& r);
    void remove(qint32 idcd);
    // The contacts of the open phonebook by full name; the IDCD of one (0 when absent).
    QMap<QString, exchange::ContactRecord> contacts();
    qint32 idOf(const QString& fullName);

    fixture::RadicaleServer server;
    QUrl book;
};

using fixture::FullContact;
exchange::ContactRecord Named(const QString& fullName, const QString& number);

} // namespace synctest
