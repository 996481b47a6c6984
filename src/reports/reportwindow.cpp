#include "reports/reportwindow.h"

#include "core/error.h"
#include "core/seams.h"
#include "reports/form15.h"
#include "reports/form16.h"
#include "trees/mainview.h"

namespace mCommon {

void PreReportWindow() {
    HUNT_PLACE("mCommon.PreReportWindow");
    bool diskMode = true;
    {
        Form16 frm(mTV::MainWindowOwner());
        ShowModal(&frm, mTV::MainWindowOwner());
        if (frm.Cancelled) return;
        diskMode = frm.DiskMode;
    }
    ReportWindow(diskMode);
}

void ReportWindow(bool DiskMode) {
    HUNT_PLACE("mCommon.ReportWindow(DiskMode)", DiskMode);
    Form15 frm(DiskMode, mTV::MainWindowOwner());
    ShowModal(&frm, mTV::MainWindowOwner());
}

void ReportDiskList() {
    HUNT_PLACE("mCommon.ReportDiskList");
    ReportWindow(true);
}

void ReportFileList() {
    HUNT_PLACE("mCommon.ReportFileList");
    ReportWindow(false);
}

} // namespace mCommon
