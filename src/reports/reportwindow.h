#pragma once
// The commands that open the report wizard over the main window.

namespace mCommon {

// Asks for the source of the report (Form16), then opens the wizard for it unless cancelled.
void PreReportWindow();
// Opens the wizard: DiskMode true over the contact list, false over the selected contact.
void ReportWindow(bool DiskMode);
// The wizard over the contact list, and over the selected contact.
void ReportDiskList();
void ReportFileList();

} // namespace mCommon
