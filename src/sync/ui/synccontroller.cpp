#include "sync/ui/synccontroller.h"

#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "phonebook/login.h"
#include "sync/secrets.h"

#include <QApplication>
#include <QLabel>
#include <QStatusBar>
#include <QThread>

using namespace mLanguageGobals;

namespace carddav {

SyncController::SyncController(QWidget* window, QStatusBar* bar)
    : QObject(window), m_window(window), m_label(new QLabel(bar)) {
    m_label->setObjectName(QStringLiteral("SyncStatus"));
    bar->addPermanentWidget(m_label);
    m_label->hide();
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] { syncNow(false); });
    m_oldBeforeClosing = mMain::SetBeforeClosing([this] { cancelRunning(); });
}

SyncController::~SyncController() {
    mMain::SetBeforeClosing(m_oldBeforeClosing);
    cancelRunning();
}

bool SyncController::mayRun() const {
    return gDBOpen && !gNotConnected && !gReadOnlyMode && !gFileReadOnly;
}

void SyncController::phonebookOpened() {
    m_password.clear();
    accountChanged();
    syncNow(false); // a sync only when the phonebook is linked and may be written
}

void SyncController::cancelRunning() {
    if (m_thread) {
        m_cancel = true;
        m_thread->wait();
        delete m_thread;
        m_thread = nullptr;
    }
    m_session.reset();
}

void SyncController::accountChanged(const QString& sessionPassword) {
    if (!sessionPassword.isEmpty()) m_password = sessionPassword;
    m_timer.stop();
    const Account account = mayRun() ? LoadAccount() : Account();
    if (!account.linked()) {
        m_label->hide();
        return;
    }
    if (account.interval > 0) m_timer.start(account.interval * 60 * 1000);
    if (!account.lastSummary.isEmpty() && !running())
        show(
            msgSyncLast.arg(QLocale().toString(account.lastSync, QLocale::ShortFormat), account.lastSummary));
}

void SyncController::show(const QString& text, const QString& tip) {
    m_label->setText(text);
    m_label->setToolTip(tip.isEmpty() ? text : tip);
    m_label->show();
}

void SyncController::syncNow(bool interactive) {
    HUNT_PLACE("carddav.SyncController.syncNow", interactive);
    if (running() || !mayRun()) return;
    // A sync of its own accord waits while a window such as the contact card is open.
    if (!interactive && QApplication::activeModalWidget()) return;
    const Account account = LoadAccount();
    if (!account.linked()) return;
    QString why;
    const QString password = m_password.isEmpty() ? ReadPassword(account, &why) : m_password;
    if (password.isEmpty()) {
        show(msgSyncNeedsPassword);
        if (interactive) MsgBox(msgSyncNeedsPassword, vb::vbOKOnly, vb::vbExclamation, msgSyncTitle);
        return;
    }
    m_interactive = interactive;
    m_session = std::make_unique<SyncSession>(account, password);
    m_session->setProgress([this](const QString& what, int done, int total) {
        const QString text = total > 0 ? msgSyncProgress.arg(what).arg(done).arg(total) : what;
        QMetaObject::invokeMethod(
            this, [this, text] { show(text); }, Qt::QueuedConnection);
    });
    try {
        m_session->prepare();
    } catch (const HuntERR::Error& e) {
        m_session.reset();
        HuntERR::Report(e, "carddav.SyncController.syncNow");
        return;
    }
    show(msgSyncRunning);
    m_path = gDBPath;
    m_cancel = false;
    m_thread = QThread::create([this] { m_session->exchange(&m_cancel); });
    connect(m_thread, &QThread::finished, this, &SyncController::exchanged, Qt::QueuedConnection);
    m_thread->start();
}

void SyncController::exchanged() {
    if (!m_thread) return; // cancelled and waited for already
    m_thread->deleteLater();
    m_thread = nullptr;
    commitWhenFree();
}

void SyncController::commitWhenFree() {
    HUNT_PLACE("carddav.SyncController.commitWhenFree");
    if (!m_session) return; // cancelled meanwhile
    // A window such as the contact card may hold a contact the commit would change under it, and
    // write it back over the change: the commit waits until the window is closed.
    if (QApplication::activeModalWidget()) {
        QTimer::singleShot(500, this, &SyncController::commitWhenFree);
        return;
    }
    std::unique_ptr<SyncSession> session = std::move(m_session);
    // Another phonebook may be open by now: what the sync brought belongs to the one it read.
    if (m_cancel || !mayRun() || gDBPath != m_path) return;
    SyncSummary summary;
    try {
        summary = session->commit();
    } catch (const HuntERR::Error& e) {
        HuntERR::Report(e, "carddav.SyncController.exchanged");
        return;
    }
    const QString text = msgSyncLast.arg(
        QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat), summary.text());
    show(text, summary.notes.isEmpty() ? text
                                       : text + QStringLiteral("\n") + summary.notes.join(QLatin1Char('\n')));
    if (m_interactive && (!summary.completed() || !summary.notes.isEmpty()))
        MsgBox(summary.text() + (summary.notes.isEmpty()
                                     ? QString()
                                     : QStringLiteral("\n\n") + summary.notes.join(QLatin1Char('\n'))),
               vb::vbOKOnly, summary.completed() ? vb::vbInformation : vb::vbExclamation, msgSyncTitle);
    emit finished(summary, summary.received + summary.deletedHere + summary.merged > 0);
}

} // namespace carddav
