#pragma once
// Mail and web links handed to the desktop: a new message in the user's mail program, a page in
// the browser.

#include <QString>

namespace mCommon {
// Opens a new message to Address in the mail program. Subject and Body are encoded for the
// mailto: address; CC, bcc and Attachement are passed as they are.
void SendMail(const QString& Address, const QString& Subject, const QString& Body, const QString& CC,
              const QString& bcc, const QString& Attachement);
// The mailto: address SendMail opens.
QString MailtoAddress(const QString& Address, const QString& Subject, const QString& Body, const QString& CC,
                      const QString& bcc, const QString& Attachement);
// Opens a link value of a contact: an address with "@" as a new message, one with "http" or
// "www." as a page. False when the value is neither.
bool OpenLink(const QString& value);
} // namespace mCommon
