#include "core/seams.h"
#include "core/restrictions.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

namespace {

MsgBoxHandler& msgHandler() {
    static MsgBoxHandler h;
    return h;
}
ModalHandler& modalHandler() {
    static ModalHandler h;
    return h;
}
ShellHandler& shellHandler() {
    static ShellHandler h;
    return h;
}

int realMsgBox(const QString& text, int buttons, int icon, const QString& title) {
    QMessageBox box;
    box.setText(text);
    box.setWindowTitle(title.isEmpty() ? QApplication::applicationName() : title);
    switch (icon) {
    case vb::vbCritical:
        box.setIcon(QMessageBox::Critical);
        break;
    case vb::vbQuestion:
        box.setIcon(QMessageBox::Question);
        break;
    case vb::vbExclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case vb::vbInformation:
        box.setIcon(QMessageBox::Information);
        break;
    default:
        break;
    }
    struct B {
        QMessageBox::StandardButton qt;
        int answer;
    };
    QList<B> list;
    switch (buttons & 0xF) {
    case vb::vbOKCancel:
        list = {{QMessageBox::Ok, vb::vbOK}, {QMessageBox::Cancel, vb::vbCancel}};
        break;
    case vb::vbAbortRetryIgnore:
        list = {{QMessageBox::Abort, vb::vbAbort},
                {QMessageBox::Retry, vb::vbRetry},
                {QMessageBox::Ignore, vb::vbIgnore}};
        break;
    case vb::vbYesNoCancel:
        list = {
            {QMessageBox::Yes, vb::vbYes}, {QMessageBox::No, vb::vbNo}, {QMessageBox::Cancel, vb::vbCancel}};
        break;
    case vb::vbYesNo:
        list = {{QMessageBox::Yes, vb::vbYes}, {QMessageBox::No, vb::vbNo}};
        break;
    case vb::vbRetryCancel:
        list = {{QMessageBox::Retry, vb::vbRetry}, {QMessageBox::Cancel, vb::vbCancel}};
        break;
    default:
        list = {{QMessageBox::Ok, vb::vbOK}};
        break;
    }
    QMessageBox::StandardButtons std;
    for (const B& b : list)
        std |= b.qt;
    box.setStandardButtons(std);
    const int def = (buttons & vb::vbDefaultButton3) ? 2 : (buttons & vb::vbDefaultButton2) ? 1 : 0;
    if (def < list.size()) box.setDefaultButton(list[def].qt);
    const int r = box.exec();
    for (const B& b : list)
        if (b.qt == r) return b.answer;
    return list.last().answer; // closed by Escape: the last (cancelling) answer
}

} // namespace

int MsgBox(const QString& text, int buttons, int icon, const QString& title) {
    if (msgHandler()) return msgHandler()(text, buttons, icon, title);
    return realMsgBox(text, buttons, icon, title);
}

MsgBoxHandler SetMsgBoxHandler(MsgBoxHandler handler) {
    MsgBoxHandler old = std::move(msgHandler());
    msgHandler() = std::move(handler);
    return old;
}

int ShowModal(QDialog* form, QWidget* owner) {
    mCommon::RORestrictions(form); // a restricted session has the last word on what the form allows
    if (modalHandler()) return modalHandler()(form, owner);
    if (owner && form->parentWidget() != owner) form->setParent(owner, form->windowFlags() | Qt::Dialog);
    form->setWindowModality(Qt::ApplicationModal);
    return form->exec();
}

ModalHandler SetModalHandler(ModalHandler handler) {
    ModalHandler old = std::move(modalHandler());
    modalHandler() = std::move(handler);
    return old;
}

bool ShellOpen(const QString& target) {
    if (shellHandler()) return shellHandler()(target);
    // An address with its scheme as it stands, a web address without one ("www.example.org") as
    // a web page, anything else as a file or folder.
    QUrl url;
    if (target.contains(QLatin1String("://")) || target.startsWith(QLatin1String("mailto:")) ||
        target.startsWith(QLatin1String("tel:")))
        url = QUrl(target);
    else if (target.startsWith(QLatin1String("www."), Qt::CaseInsensitive))
        url = QUrl::fromUserInput(target);
    else
        url = QUrl::fromLocalFile(QFileInfo(target).absoluteFilePath());
    return QDesktopServices::openUrl(url);
}

ShellHandler SetShellHandler(ShellHandler handler) {
    ShellHandler old = std::move(shellHandler());
    shellHandler() = std::move(handler);
    return old;
}

namespace {
FontHandler& fontHandler() {
    static FontHandler h;
    return h;
}
} // namespace

bool ChooseFont(QFont& font, QWidget* owner) {
    if (fontHandler()) return fontHandler()(font, owner);
    bool ok = false;
    const QFont chosen = QFontDialog::getFont(&ok, font, owner);
    if (ok) font = chosen;
    return ok;
}

FontHandler SetFontHandler(FontHandler handler) {
    FontHandler old = std::move(fontHandler());
    fontHandler() = std::move(handler);
    return old;
}
