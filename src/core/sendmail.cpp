#include "core/sendmail.h"

#include "core/seams.h"

namespace mCommon {

namespace {
QString EncodeText(QString text) {
    text.replace(QLatin1String("&"), QLatin1String("%26"));
    text.replace(QLatin1String(" "), QLatin1String("%20"));
    text.replace(QLatin1String("\r\n"), QLatin1String("%0D%0A"));
    text.replace(QLatin1String("\r"), QLatin1String("%0D"));
    text.replace(QLatin1String("\n"), QLatin1String("%0A"));
    return text;
}
} // namespace

QString MailtoAddress(const QString& Address, const QString& Subject, const QString& Body, const QString& CC,
                      const QString& bcc, const QString& Attachement) {
    QString query;
    if (!Subject.isEmpty()) query += QStringLiteral("&Subject=") + EncodeText(Subject);
    if (!Body.isEmpty()) query += QStringLiteral("&Body=") + EncodeText(Body) + QStringLiteral("%0D%0A");
    if (!CC.isEmpty()) query += QStringLiteral("&CC=") + CC;
    if (!bcc.isEmpty()) query += QStringLiteral("&BCC=") + bcc;
    if (!Attachement.isEmpty()) query += QStringLiteral("&Attacth=\"") + Attachement + QLatin1Char('"');
    if (!query.isEmpty()) query[0] = QLatin1Char('?');
    return QStringLiteral("mailto:") + Address + query;
}

void SendMail(const QString& Address, const QString& Subject, const QString& Body, const QString& CC,
              const QString& bcc, const QString& Attachement) {
    ShellOpen(MailtoAddress(Address, Subject, Body, CC, bcc, Attachement));
}

bool OpenLink(const QString& value) {
    if (value.contains(QLatin1Char('@'))) {
        SendMail(value, QString(), QString(), QString(), QString(), QString());
        return true;
    }
    if (value.contains(QLatin1String("http"), Qt::CaseInsensitive) ||
        value.contains(QLatin1String("www."), Qt::CaseInsensitive)) {
        // Handed on as it stands: the shell takes "www.example.org" for a web page.
        ShellOpen(value);
        return true;
    }
    return false;
}

} // namespace mCommon
