#pragma once
// The report of an error that reached the outermost procedure of an event: the text of the error
// with its call stack, appended to "ErrorReport.txt", and shown in frmShowError.

#include "core/error.h"

#include <QDialog>
#include <exception>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace HuntERR {

// Text of one error from its number, source, description, the place it surfaced, the stack and
// the system error saved when it was raised.
QString ErrorText(qint32 number, const QString& source, const QString& description, const QString& method,
                  const QStringList& stack, int systemError);
// "ErrorReport.txt" in the personal folder + the application's folder.
QString ReportFilePath();
// Appends the block for `errorText` to the report file and answers whether it is there. A file
// that will not open is tried again every 200 ms for up to a second; the wait lets the event loop
// run (without user input), and blocks stay in the order their reports began. Failures here are
// swallowed on purpose.
bool WriteReport(const QString& errorText);
// The outermost handler: the place ends the error's stack, the file is written, the window shown.
void Report(const Error& e, const char* place);
// The same for an exception that is not one of ours (out of memory, a library's own).
void ReportForeign(const std::exception& e, const char* place);

} // namespace HuntERR

// The error window: one plain sentence on what failed and where the details went, the report
// itself below it, and a Close button that Enter and Esc reach.
class frmShowError : public QDialog {
    Q_OBJECT
  public:
    explicit frmShowError(QWidget* parent = nullptr);
    void ErrorReport(const QString& text);
    // The sentence above the report; the line is hidden while it is empty.
    void SetSummary(const QString& sentence);
    QLabel* lblSummary;
    QPlainTextEdit* txtError;
    QPushButton* bnClose;
};

// The outermost procedure of an event runs its body through this: an error is reported and the
// program goes on.
template <class F> void RunEvent(const char* place, F body) {
    try {
        body();
    } catch (const HuntERR::Error& e) {
        HuntERR::Report(e, place);
    } catch (const std::exception& e) {
        HuntERR::ReportForeign(e, place);
    }
}
