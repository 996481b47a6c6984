#pragma once
// The places where the program waits for a person or hands something to the desktop. Tests
// replace each handler so that nothing ever waits.

#include <QString>
#include <functional>

class QDialog;
class QWidget;

namespace vb {
enum Buttons {
    vbOKOnly = 0,
    vbOKCancel = 1,
    vbAbortRetryIgnore = 2,
    vbYesNoCancel = 3,
    vbYesNo = 4,
    vbRetryCancel = 5
};
enum Icon { vbNoIcon = 0, vbCritical = 16, vbQuestion = 32, vbExclamation = 48, vbInformation = 64 };
enum DefaultButton { vbDefaultButton1 = 0, vbDefaultButton2 = 256, vbDefaultButton3 = 512 };
enum Answer { vbOK = 1, vbCancel = 2, vbAbort = 3, vbRetry = 4, vbIgnore = 5, vbYes = 6, vbNo = 7 };
} // namespace vb

// A message box. `buttons` may carry a default-button flag; the answer is a vb::Answer.
int MsgBox(const QString& text, int buttons = vb::vbOKOnly, int icon = vb::vbNoIcon,
           const QString& title = QString());
using MsgBoxHandler = std::function<int(const QString& text, int buttons, int icon, const QString& title)>;
MsgBoxHandler
SetMsgBoxHandler(MsgBoxHandler handler); // returns the previous one; empty restores the real box

// A modal window: shows `form` with `owner` (may be null) and answers QDialog::exec's result.
int ShowModal(QDialog* form, QWidget* owner = nullptr);
using ModalHandler = std::function<int(QDialog* form, QWidget* owner)>;
ModalHandler SetModalHandler(ModalHandler handler);

// Hands a URL or a file path to the desktop (mail, web, open a file, show a folder).
bool ShellOpen(const QString& target);
using ShellHandler = std::function<bool(const QString& target)>;
ShellHandler SetShellHandler(ShellHandler handler);

// The font chooser: `font` is the font to start from and, when the answer is true, the one chosen.
class QFont;
bool ChooseFont(QFont& font, QWidget* owner);
using FontHandler = std::function<bool(QFont& font, QWidget* owner)>;
FontHandler SetFontHandler(FontHandler handler);
