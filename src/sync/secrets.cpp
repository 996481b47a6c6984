#include "sync/secrets.h"

#include <QEventLoop>
#include <qt6keychain/keychain.h>

namespace carddav {

namespace {

const QString kService = QStringLiteral("Kelvarin address-book sync");
const SecretStore* gStore = nullptr;

// Runs a keychain job to its end; the job answers through a signal, so a local loop waits.
bool Run(QKeychain::Job& job, QString* error) {
    job.setAutoDelete(false);
    job.setInsecureFallback(false);
    QEventLoop loop;
    QObject::connect(&job, &QKeychain::Job::finished, &loop, &QEventLoop::quit);
    job.start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (job.error() == QKeychain::NoError) return true;
    if (error) *error = job.errorString();
    return false;
}

} // namespace

QString SecretKey(const Account& account) {
    return account.user + QLatin1Char('@') + QUrl(account.book).host();
}

QString ReadPassword(const Account& account, QString* error) {
    if (gStore) return gStore->read(SecretKey(account));
    QKeychain::ReadPasswordJob job(kService);
    job.setKey(SecretKey(account));
    return Run(job, error) ? job.textData() : QString();
}

bool StorePassword(const Account& account, const QString& password, QString* error) {
    if (gStore) return gStore->write(SecretKey(account), password);
    QKeychain::WritePasswordJob job(kService);
    job.setKey(SecretKey(account));
    job.setTextData(password);
    return Run(job, error);
}

void ForgetPassword(const Account& account) {
    if (gStore) return gStore->remove(SecretKey(account));
    QKeychain::DeletePasswordJob job(kService);
    job.setKey(SecretKey(account));
    Run(job, nullptr);
}

void SetSecretStore(const SecretStore* store) {
    gStore = store;
}

} // namespace carddav
