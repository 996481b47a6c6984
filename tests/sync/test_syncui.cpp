// The sync settings window and the syncs that run beside the main window.
#include "synctest.h"

#include "core/globals.h"
#include "phonebook/login.h"
#include "sync/account.h"
#include "sync/secrets.h"
#include "sync/ui/synccontroller.h"
#include "sync/ui/syncsettings.h"

#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>
#include <QTest>

namespace synctest {
namespace {

class SyncUi : public SyncTest {
  protected:
    void SetUp() override {
        SyncTest::SetUp();
        if (IsSkipped()) return;
        m_store.read = [this](const QString& key) { return m_secrets.value(key); };
        m_store.write = [this](const QString& key, const QString& password) {
            if (m_refuse) return false;
            m_secrets.insert(key, password);
            return true;
        };
        m_store.remove = [this](const QString& key) { m_secrets.remove(key); };
        carddav::SetSecretStore(&m_store);
        use(QStringLiteral("a.kvdb"));
    }
    // One contact, the phonebook linked, the password in the store.
    void linkOneContact() {
        add(Named(QStringLiteral("Ana"), QStringLiteral("1")));
        link();
        m_secrets.insert(carddav::SecretKey(carddav::LoadAccount()), server.password());
    }
    void TearDown() override {
        carddav::SetSecretStore(nullptr);
        SyncTest::TearDown();
    }
    carddav::SecretStore m_store;
    QMap<QString, QString> m_secrets;
    bool m_refuse = false;
};

TEST_F(SyncUi, SettingsFindTheAddressBooksAndLinkThePhonebook) {
    QMainWindow window;
    carddav::SyncController controller(&window, window.statusBar());
    carddav::SyncSettings frm(&controller);
    EXPECT_FALSE(frm.bnSyncNow->isEnabled());
    EXPECT_FALSE(frm.bnUnlink->isEnabled());
    frm.fdServer->setText(server.url().toString());
    frm.fdUser->setText(server.user());
    frm.fdPassword->setText(QStringLiteral("wrong"));
    frm.bnFind->click();
    EXPECT_EQ(frm.cbBook->count(), 0);
    EXPECT_EQ(frm.lbStatus->text(), QStringLiteral("The server refused the user name or password."));

    frm.fdPassword->setText(server.password());
    frm.bnFind->click();
    ASSERT_EQ(frm.cbBook->count(), 1) << frm.lbStatus->text().toStdString();
    EXPECT_EQ(frm.cbBook->currentData().toUrl(), book);
    EXPECT_TRUE(frm.bnSyncNow->isEnabled());
    frm.fdInterval->setValue(5);
    frm.bnOK->click();
    EXPECT_EQ(frm.result(), QDialog::Accepted);

    const carddav::Account account = carddav::LoadAccount();
    EXPECT_EQ(account.book, book);
    EXPECT_EQ(account.user, server.user());
    EXPECT_EQ(account.interval, 5);
    EXPECT_EQ(m_secrets.value(carddav::SecretKey(account)), server.password());
    // Neither the phonebook nor the settings hold it.
    mMain::Closing();
    QFile book(path(QStringLiteral("a.kvdb")));
    ASSERT_TRUE(book.open(QIODevice::ReadOnly));
    EXPECT_FALSE(book.readAll().contains(server.password().toUtf8()));
    QSettings settings;
    for (const QString& key : settings.allKeys())
        EXPECT_NE(settings.value(key).toString(), server.password()) << key.toStdString();
}

TEST_F(SyncUi, ASyncRunsBesideTheWindowAndShowsItsResult) {
    linkOneContact();
    QMainWindow window;
    carddav::SyncController controller(&window, window.statusBar());
    QSignalSpy finished(&controller, &carddav::SyncController::finished);
    controller.phonebookOpened(); // a linked phonebook syncs at open
    EXPECT_TRUE(controller.running());
    ASSERT_TRUE(finished.wait(30000));
    const auto summary = finished.at(0).at(0).value<carddav::SyncSummary>();
    EXPECT_EQ(summary.sent, 1);
    auto* label = window.statusBar()->findChild<QLabel*>(QStringLiteral("SyncStatus"));
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->text().endsWith(QStringLiteral("Sent 1, received 0, merged 0, conflicts 0")))
        << label->text().toStdString();

    // Closing the phonebook while a sync waits for the server ends it, and nothing is written.
    controller.syncNow(false);
    ASSERT_TRUE(controller.running());
    mMain::Closing();
    EXPECT_FALSE(controller.running());
    EXPECT_FALSE(finished.wait(500));
}

TEST_F(SyncUi, WhatASyncBringsWaitsWhileAModalWindowIsOpen) {
    linkOneContact();
    QMainWindow window;
    carddav::SyncController controller(&window, window.statusBar());
    QSignalSpy finished(&controller, &carddav::SyncController::finished);
    QDialog card; // as the contact card, which writes its contact back on OK
    card.setModal(true);
    card.show();
    controller.syncNow(false);
    EXPECT_FALSE(controller.running()); // the interval's sync waits for a later turn
    controller.syncNow(true);           // the user's own goes to the network at once...
    EXPECT_TRUE(controller.running());
    EXPECT_FALSE(finished.wait(2000)); // ...but writes nothing while the window is open
    EXPECT_TRUE(controller.running());
    card.close();
    ASSERT_TRUE(finished.wait(10000));
    EXPECT_EQ(finished.at(0).at(0).value<carddav::SyncSummary>().sent, 1);
}

TEST_F(SyncUi, WithoutASecretStoreThePasswordLastsTheSession) {
    m_refuse = true;
    QMainWindow window;
    carddav::SyncController controller(&window, window.statusBar());
    fixture::MsgBoxRecorder boxes;
    carddav::SyncSettings frm(&controller);
    frm.fdServer->setText(book.toString());
    frm.fdUser->setText(server.user());
    frm.fdPassword->setText(server.password());
    frm.bnFind->click();
    ASSERT_EQ(frm.cbBook->count(), 1) << frm.lbStatus->text().toStdString();
    QSignalSpy finished(&controller, &carddav::SyncController::finished);
    frm.bnSyncNow->click();
    ASSERT_EQ(boxes.boxes.size(), 1);
    EXPECT_TRUE(boxes.texts().value(0).startsWith(QStringLiteral("The password could not be kept")));
    ASSERT_TRUE(finished.wait(30000));
    EXPECT_TRUE(finished.at(0).at(0).value<carddav::SyncSummary>().completed());
    EXPECT_TRUE(m_secrets.isEmpty());
}

} // namespace
} // namespace synctest

namespace synctest {
namespace {

// KELVARIN_SCREENSHOTS=<folder>: the settings after a sync that merged a conflict.
TEST_F(SyncUi, Screenshots) {
    const QString out = qEnvironmentVariable("KELVARIN_SCREENSHOTS");
    if (out.isEmpty()) GTEST_SKIP() << "KELVARIN_SCREENSHOTS is not set";
    use(QStringLiteral("b.kvdb"));
    link();
    exchange::ContactRecord ana = Named(QStringLiteral("Ana Ferreira"), QStringLiteral("+351 900 000 001"));
    const qint32 id = add(ana);
    add(Named(QStringLiteral("Ben Okafor"), QStringLiteral("+234 1 555 0101")));
    ASSERT_TRUE(sync().completed());
    use(QStringLiteral("a.kvdb"));
    link();
    ASSERT_TRUE(sync().completed());
    exchange::ContactRecord there = ana;
    there.Title = QStringLiteral("Architect");
    replace(idOf(ana.FullName), there);
    add(Named(QStringLiteral("Chen Wei"), QStringLiteral("+86 20 5555 0102")));
    ASSERT_TRUE(sync().completed());
    use(QStringLiteral("b.kvdb"));
    ana.Title = QStringLiteral("Lead engineer");
    replace(id, ana);
    m_secrets.insert(carddav::SecretKey(carddav::LoadAccount()), server.password());

    QMainWindow window;
    window.resize(720, 160);
    window.setWindowTitle(QStringLiteral("Kelvarin - b.kvdb"));
    window.setCentralWidget(new QLabel(QStringLiteral("  Ana Ferreira\n  Ben Okafor\n  Chen Wei")));
    window.statusBar()->showMessage(QStringLiteral("3 contacts"));
    carddav::SyncController controller(&window, window.statusBar());
    QSignalSpy finished(&controller, &carddav::SyncController::finished);
    window.show();
    controller.syncNow(false);
    ASSERT_TRUE(finished.wait(30000));
    QTest::qWait(200);
    QDir().mkpath(out);

    carddav::SyncSettings frm(&controller);
    frm.show();
    QTest::qWait(200);
    EXPECT_TRUE(frm.grab().save(out + QStringLiteral("/sync-settings.png")));
}

} // namespace
} // namespace synctest
