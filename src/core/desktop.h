#pragma once
// What the program hands to the desktop besides mail and web links: the product's own addresses,
// a file opened with its program, a file shown in the file manager, a telephone number to dial,
// and the message that says why the desktop could not do it.

#include <QString>
#include <functional>

class QWidget;

namespace mCommon {

// The product's web site, its support mail address and its feedback page (with the running
// version in it). Every place that names one of them takes it from here.
QString ProductWebSite();
QString SupportMailAddress();
QString FeedbackPage(const QString& version);

// The codes ShellErrorMessage knows.
enum ShellError {
    seOutOfResources = 0,
    seFileNotFound = 2,
    sePathNotFound = 3,
    seAccessDenied = 5,
    seOutOfMemory = 8,
    seBadFormat = 11,
    seSharingViolation = 26,
    seAssociationIncomplete = 27,
    seNoAssociation = 31,
};
// The text of a code, empty for a code it does not know.
QString ShellErrorText(int lngReturn);
// Says in a message box what went wrong; an unknown code shows nothing.
void ShellErrorMessage(int lngReturn);

// Opens a file with the program the desktop associates with it. A missing file, or one the
// desktop has no program for, is told in a message box.
void ExecuteFile(QWidget* frm, const QString& pPath);

// Shows a file selected in the desktop's file manager; where none answers, opens its folder.
void OpenInExplorerList(QWidget* frm, const QString& pPath);
// The file manager's part: asks it to show `uri` selected; false when no file manager answered.
using FileManagerHandler = std::function<bool(const QString& uri)>;
FileManagerHandler SetFileManagerHandler(FileManagerHandler handler); // empty: the session bus

// The tel: address of a telephone number as typed ("+49 (30) 123-45" gives "tel:+493012345");
// empty when the text is not a telephone number.
QString TelAddress(const QString& value);
// Hands the number to the desktop's telephone program; false when the text is no number.
bool CallNumber(const QString& value);

// Help > Website, Technical support and Send Feedback, and the same entries of the tray menu.
// `version` is the running one, "major.minor.revision"; the mail's subject takes "major.minor".
void OpenWebSite();
void MailSupport(const QString& version);
void OpenFeedback(const QString& version);

} // namespace mCommon
