#include "core/desktop.h"

#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "core/sendmail.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QFileInfo>
#include <QStringList>
#include <QUrl>
#include <QWidget>

using namespace mLanguageGobals;

namespace mCommon {

namespace {

FileManagerHandler& fileManagerHandler() {
    static FileManagerHandler h;
    return h;
}

// org.freedesktop.FileManager1.ShowItems on the session bus.
bool showItemsOverBus(const QString& uri) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{uri} << QString();
    const QDBusMessage reply = bus.call(call, QDBus::Block, 3000);
    return reply.type() == QDBusMessage::ReplyMessage;
}

// "major.minor" of a version, as the support mail's subject gives it.
QString shortVersion(const QString& version) {
    const QStringList parts = version.split(QLatin1Char('.'));
    if (parts.size() < 2) return version;
    return parts[0] + QLatin1Char('.') + parts[1];
}

} // namespace

QString ProductWebSite() {
    return QStringLiteral("https://kelvarin.org/");
}

QString SupportMailAddress() {
    return QStringLiteral("support@kelvarin.org");
}

QString FeedbackPage(const QString& version) {
    return ProductWebSite() + QStringLiteral("feedback/?version=") + QUrl::toPercentEncoding(version);
}

QString ShellErrorText(int lngReturn) {
    switch (lngReturn) {
    case seOutOfResources:
        return msgShellOutOfResources;
    case seFileNotFound:
        return msgTheSpecifiedFileWasNotFound;
    case sePathNotFound:
        return msgShellPathNotFound;
    case seAccessDenied:
        return msgShellAccessDenied;
    case seOutOfMemory:
        return msgShellOutOfMemory;
    case seBadFormat:
        return msgShellBadFormat;
    case seSharingViolation:
        return msgShellSharingViolation;
    case seAssociationIncomplete:
        return msgShellAssociationIncomplete;
    case seNoAssociation:
        return msgShellNoAssociation;
    default:
        return QString();
    }
}

void ShellErrorMessage(int lngReturn) {
    HUNT_PLACE("mCommon.ShellErrorMessage(lngReturn)", lngReturn);
    const QString text = ShellErrorText(lngReturn);
    if (!text.isEmpty()) MsgBox(text, vb::vbOKOnly, vb::vbExclamation);
}

void ExecuteFile(QWidget* frm, const QString& pPath) {
    HUNT_PLACE("mCommon.ExecuteFile(frm, pPath)", frm ? frm->objectName() : QString(), pPath);
    const QFileInfo file(pPath);
    if (!file.exists()) {
        ShellErrorMessage(QFileInfo(file.absolutePath()).isDir() ? seFileNotFound : sePathNotFound);
        return;
    }
    if (!file.isReadable()) {
        ShellErrorMessage(seAccessDenied);
        return;
    }
    if (!ShellOpen(file.absoluteFilePath())) ShellErrorMessage(seNoAssociation);
}

FileManagerHandler SetFileManagerHandler(FileManagerHandler handler) {
    FileManagerHandler old = std::move(fileManagerHandler());
    fileManagerHandler() = std::move(handler);
    return old;
}

void OpenInExplorerList(QWidget* frm, const QString& pPath) {
    HUNT_PLACE("mCommon.OpenInExplorerList(frm, pPath)", frm ? frm->objectName() : QString(), pPath);
    const QFileInfo file(pPath);
    if (!file.exists()) {
        ShellErrorMessage(QFileInfo(file.absolutePath()).isDir() ? seFileNotFound : sePathNotFound);
        return;
    }
    const QString uri = QUrl::fromLocalFile(file.absoluteFilePath()).toString();
    const bool shown = fileManagerHandler() ? fileManagerHandler()(uri) : showItemsOverBus(uri);
    if (shown) return;
    // No file manager answered: the folder that holds the file, in whatever opens folders.
    if (!ShellOpen(file.absolutePath())) ShellErrorMessage(seNoAssociation);
}

QString TelAddress(const QString& value) {
    QString number;
    int digits = 0;
    for (const QChar c : value.trimmed()) {
        if (c.isDigit()) {
            number += c;
            ++digits;
        } else if (c == QLatin1Char('+') && number.isEmpty()) {
            number += c;
        } else if (!QStringLiteral(" -./()").contains(c)) {
            return QString(); // a letter or any other sign: not a number to dial
        }
    }
    return digits >= 3 ? QStringLiteral("tel:") + number : QString();
}

bool CallNumber(const QString& value) {
    HUNT_PLACE("mCommon.CallNumber(value)", value);
    const QString tel = TelAddress(value);
    if (tel.isEmpty()) return false;
    ShellOpen(tel);
    return true;
}

void OpenWebSite() {
    HUNT_PLACE("mCommon.OpenWebSite");
    ShellOpen(ProductWebSite());
}

void MailSupport(const QString& version) {
    HUNT_PLACE("mCommon.MailSupport(version)", version);
    SendMail(SupportMailAddress(), AppTitle() + QStringLiteral(" v") + shortVersion(version), QString(),
             QString(), QString(), QString());
}

void OpenFeedback(const QString& version) {
    HUNT_PLACE("mCommon.OpenFeedback(version)", version);
    ShellOpen(FeedbackPage(version));
}

} // namespace mCommon
