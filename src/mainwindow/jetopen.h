#pragma once
// Opening a phonebook of the Windows version: the question, the progress of the conversion with
// its Cancel button, and the recent list, which then names the converted file.

#include <QString>
#include <functional>

class QProgressDialog;
class QWidget;

namespace mConvert {

// Offers to convert the Jet phonebook `path` into a new phonebook beside it. Answers the path of
// the converted phonebook, or an empty text when the user declined or cancelled, or when the
// file cannot be converted (which the user has been told). The phonebook open meanwhile stays
// open; the original file is never changed.
QString OfferConversion(const QString& path, QWidget* owner);

// Tests: called with the progress window at every step of a conversion.
using ProgressHook = std::function<void(QProgressDialog& window)>;
ProgressHook SetProgressHook(ProgressHook hook);

} // namespace mConvert
