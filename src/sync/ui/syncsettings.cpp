#include "sync/ui/syncsettings.h"

#include "core/error.h"
#include "core/language.h"
#include "core/seams.h"
#include "sync/davclient.h"
#include "sync/secrets.h"
#include "sync/ui/synccontroller.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace mLanguageGobals;

namespace carddav {

SyncSettings::SyncSettings(SyncController* controller, QWidget* parent)
    : QDialog(parent), m_controller(controller), m_account(LoadAccount()) {
    setObjectName(QStringLiteral("SyncSettings"));
    setWindowTitle(msgSyncSettingsTitle);
    fdServer = new QLineEdit(m_account.server, this);
    fdServer->setObjectName(QStringLiteral("fdServer"));
    fdServer->setPlaceholderText(QStringLiteral("https://dav.example.org/"));
    fdUser = new QLineEdit(m_account.user, this);
    fdUser->setObjectName(QStringLiteral("fdUser"));
    fdPassword = new QLineEdit(this);
    fdPassword->setObjectName(QStringLiteral("fdPassword"));
    fdPassword->setEchoMode(QLineEdit::Password);
    if (m_account.linked()) fdPassword->setText(ReadPassword(m_account));
    bnFind = new QPushButton(msgSyncFindBooks, this);
    bnFind->setObjectName(QStringLiteral("bnFind"));
    cbBook = new QComboBox(this);
    cbBook->setObjectName(QStringLiteral("cbBook"));
    if (m_account.linked())
        cbBook->addItem(m_account.bookName.isEmpty() ? m_account.book.toString() : m_account.bookName,
                        m_account.book);
    fdInterval = new QSpinBox(this);
    fdInterval->setObjectName(QStringLiteral("fdInterval"));
    fdInterval->setRange(0, 24 * 60);
    fdInterval->setSuffix(msgSyncMinutes);
    fdInterval->setSpecialValueText(msgSyncOnlyAtOpen);
    fdInterval->setValue(m_account.linked() ? m_account.interval : 15);
    lbLast = new QLabel(this);
    lbLast->setObjectName(QStringLiteral("lbLast"));
    lbLast->setWordWrap(true);
    lbLast->setText(m_account.lastSync.isValid()
                        ? msgSyncLast.arg(QLocale().toString(m_account.lastSync, QLocale::ShortFormat),
                                          m_account.lastSummary)
                        : msgSyncNever);
    lbStatus = new QLabel(this);
    lbStatus->setObjectName(QStringLiteral("lbStatus"));
    lbStatus->setWordWrap(true);

    auto* form = new QFormLayout;
    form->addRow(msgSyncServer, fdServer);
    form->addRow(msgSyncUser, fdUser);
    form->addRow(msgSyncPassword, fdPassword);
    auto* bookRow = new QHBoxLayout;
    bookRow->addWidget(cbBook, 1);
    bookRow->addWidget(bnFind);
    form->addRow(msgSyncBook, bookRow);
    form->addRow(msgSyncEvery, fdInterval);
    form->addRow(msgSyncLastLabel, lbLast);

    auto* buttons = new QDialogButtonBox(this);
    bnOK = buttons->addButton(QDialogButtonBox::Ok);
    bnOK->setObjectName(QStringLiteral("bnOK"));
    buttons->addButton(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("bnCancel"));
    bnSyncNow = buttons->addButton(msgSyncNow, QDialogButtonBox::ApplyRole);
    bnSyncNow->setObjectName(QStringLiteral("bnSyncNow"));
    bnUnlink = buttons->addButton(msgSyncUnlink, QDialogButtonBox::ResetRole);
    bnUnlink->setObjectName(QStringLiteral("bnUnlink"));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(lbStatus);
    layout->addWidget(buttons);
    setMinimumWidth(520);

    connect(bnFind, &QPushButton::clicked, this, &SyncSettings::findBooks);
    connect(bnOK, &QPushButton::clicked, this, [this] {
        if (save()) accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(bnSyncNow, &QPushButton::clicked, this, [this] {
        if (!save()) return;
        accept();
        if (m_controller) m_controller->syncNow(true);
    });
    connect(bnUnlink, &QPushButton::clicked, this, &SyncSettings::unlink);
    for (QLineEdit* e : {fdServer, fdUser, fdPassword})
        connect(e, &QLineEdit::textChanged, this, &SyncSettings::updateButtons);
    connect(cbBook, &QComboBox::currentIndexChanged, this, &SyncSettings::updateButtons);
    updateButtons();
}

void SyncSettings::updateButtons() {
    const bool filled =
        !fdServer->text().trimmed().isEmpty() && !fdUser->text().isEmpty() && !fdPassword->text().isEmpty();
    bnFind->setEnabled(filled);
    bnOK->setEnabled(!filled || cbBook->currentIndex() >= 0 || fdServer->text().trimmed().isEmpty());
    bnSyncNow->setEnabled(filled && cbBook->currentIndex() >= 0);
    bnUnlink->setEnabled(m_account.linked());
}

void SyncSettings::findBooks() {
    HUNT_PLACE("carddav.SyncSettings.findBooks");
    QString address = fdServer->text().trimmed();
    if (!address.contains(QStringLiteral("://"))) address.prepend(QStringLiteral("https://"));
    const QUrl url(address);
    if (!url.isValid() || url.host().isEmpty() ||
        (url.scheme() != QLatin1String("https") && url.scheme() != QLatin1String("http"))) {
        lbStatus->setText(msgSyncBadAddress);
        return;
    }
    lbStatus->setText(msgSyncSearching);
    setEnabled(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QList<AddressBookInfo> books;
    QString error;
    try {
        DavClient client(url, fdUser->text(), fdPassword->text());
        client.setTimeout(20000);
        books = client.discover();
    } catch (const DavError& e) {
        error = e.message();
    }
    QApplication::restoreOverrideCursor();
    setEnabled(true);
    cbBook->clear();
    for (const AddressBookInfo& b : books)
        cbBook->addItem(b.displayName.isEmpty()
                            ? b.url.toString()
                            : b.displayName + QStringLiteral("  (") + b.url.path() + QLatin1Char(')'),
                        b.url);
    if (!error.isEmpty())
        lbStatus->setText(error);
    else if (books.isEmpty())
        lbStatus->setText(msgSyncNoBooks);
    else
        lbStatus->setText(msgSyncBooksFound.arg(books.size()));
    fdServer->setText(address);
    updateButtons();
}

bool SyncSettings::save() {
    HUNT_PLACE("carddav.SyncSettings.save");
    const QString server = fdServer->text().trimmed();
    if (server.isEmpty() && !m_account.linked()) return true; // nothing to link
    if (cbBook->currentIndex() < 0) {
        lbStatus->setText(msgSyncChooseBook);
        return false;
    }
    Account account = m_account;
    account.server = server;
    account.user = fdUser->text();
    account.book = cbBook->currentData().toUrl();
    account.bookName = cbBook->currentText().section(QStringLiteral("  ("), 0, 0);
    account.interval = fdInterval->value();
    if (account.book != m_account.book && m_account.linked() &&
        MsgBox(msgSyncOtherBook, vb::vbYesNo | vb::vbDefaultButton2, vb::vbQuestion, msgSyncTitle) !=
            vb::vbYes)
        return false;
    SaveAccount(account);
    QString why;
    QString sessionPassword;
    if (!StorePassword(account, fdPassword->text(), &why)) {
        MsgBox(msgSyncNoSecretStore.arg(why), vb::vbOKOnly, vb::vbExclamation, msgSyncTitle);
        sessionPassword = fdPassword->text();
    }
    m_account = account;
    if (m_controller) m_controller->accountChanged(sessionPassword);
    return true;
}

void SyncSettings::unlink() {
    HUNT_PLACE("carddav.SyncSettings.unlink");
    if (MsgBox(msgSyncUnlinkQuestion, vb::vbYesNo | vb::vbDefaultButton2, vb::vbQuestion, msgSyncTitle) !=
        vb::vbYes)
        return;
    ForgetPassword(m_account);
    SaveAccount(Account());
    m_account = Account();
    if (m_controller) m_controller->accountChanged();
    accept();
}

} // namespace carddav
