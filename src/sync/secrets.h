#pragma once
// The password of a linked address book lives in the desktop's secret store (the Secret Service
// or KWallet, through QtKeychain), never in the settings or the phonebook. Where no secret store
// answers, reading finds nothing and storing fails with the store's own message: the password
// is then asked for each time, never written anywhere in clear.

#include "sync/account.h"

#include <QString>
#include <functional>

namespace carddav {

// The key of an account's password: user and server, so phonebooks linked to one account share it.
QString SecretKey(const Account& account);

// The stored password; empty (with the reason in `error`) when there is none or no store.
QString ReadPassword(const Account& account, QString* error = nullptr);
bool StorePassword(const Account& account, const QString& password, QString* error = nullptr);
void ForgetPassword(const Account& account);

// For tests: a store in memory instead of the desktop's. Pass nullptr to restore the real one.
struct SecretStore {
    std::function<QString(const QString& key)> read;
    std::function<bool(const QString& key, const QString& password)> write;
    std::function<void(const QString& key)> remove;
};
void SetSecretStore(const SecretStore* store);

} // namespace carddav
