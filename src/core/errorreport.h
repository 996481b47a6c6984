#pragma once
// The report of an error that reached the outermost procedure of an event: the text of the error
// with its call stack, appended to "ErrorReport.txt", and shown in frmShowError.

#include "core/error.h"

#include <QDialog>
#include <exception>

class QPlainTextEdit;

namespace HuntERR {

// Text of one error from its number, source, description, the place it surfaced and the stack.
QString ErrorText(qint32 number, const QString& source, const QString& description, const QString& method,
                  const QStringList& stack);
// "ErrorReport.txt" in the personal folder + the application's folder.
QString ReportFilePath();
// Appends the block for `errorText` to the report file; failures here are swallowed on purpose.
void WriteReport(const QString& errorText);
// The outermost handler: the place is added to the pending stack, the file written, the window shown.
void Report(const Error& e, const char* place);
// The same for an exception that is not one of ours (out of memory, a library's own).
void ReportForeign(const std::exception& e, const char* place);

} // namespace HuntERR

class frmShowError : public QDialog {
    Q_OBJECT
public:
    explicit frmShowError(QWidget* parent = nullptr);
    void ErrorReport(const QString& text);
    QPlainTextEdit* txtError;
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
