#include "exchange/ui/exchangeui.h"

#include "core/cfiledialog.h"
#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "exchange/book/bookexchange.h"
#include "exchange/ui/csvmappingdialog.h"
#include "preferences/preferences.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QProgressDialog>
#include <QSaveFile>

using namespace mLanguageGobals;

namespace mExchange {

namespace {

bool IsCsv(const QString& path) {
    return QFileInfo(path).suffix().compare(QLatin1String("csv"), Qt::CaseInsensitive) == 0;
}

// A progress window that shows itself once the work takes a moment; its callback answers false
// once the user pressed Cancel.
class ProgressWindow {
  public:
    ProgressWindow(QWidget* owner, const QString& label) : m_dialog(label, msgCancel, 0, 100, owner) {
        m_dialog.setObjectName(QStringLiteral("ExchangeProgress"));
        m_dialog.setWindowModality(Qt::WindowModal);
        m_dialog.setMinimumDuration(500);
        m_dialog.setAutoClose(false);
        m_dialog.setAutoReset(false);
    }
    Progress callback() {
        return [this](int done, int total) {
            if (m_dialog.maximum() != qMax(total, 1)) m_dialog.setMaximum(qMax(total, 1));
            if (done % 50 == 0 || done == total) m_dialog.setValue(done);
            QApplication::processEvents();
            return !m_dialog.wasCanceled();
        };
    }

  private:
    QProgressDialog m_dialog;
};

QString WithNotes(QString text, const QStringList& notes) {
    const int shown = qMin(int(notes.size()), 15);
    for (int i = 0; i < shown; ++i)
        text += QLatin1Char('\n') + notes[i];
    if (notes.size() > shown) text += QLatin1Char('\n') + msgExMoreNotes.arg(notes.size() - shown);
    return text;
}

} // namespace

bool ImportWithDialogs(QWidget* owner) {
    HUNT_PLACE("mExchange.ImportWithDialogs");
    if (gRestricted) return false;
    CFileDialog chooser;
    chooser.Title = msgExImportTitle;
    chooser.Mask = msgExFileMask;
    chooser.Owner = owner;
    if (!chooser.Show(false)) return false;
    const QString file = chooser.FileName;

    QStringList problems;
    QList<exchange::ContactRecord> records;
    if (IsCsv(file)) {
        CsvMappingDialog mapping(file, NumberTypeNames(), owner);
        if (ShowModal(&mapping, owner) != QDialog::Accepted) return false;
        records = ReadCsvFile(file, mapping.choice(), &problems);
    } else {
        records = ReadVCardFile(file, &problems);
    }

    ImportOptions options;
    options.checkDuplicates = true;
    options.duplicates = DuplicateAction::Add;
    if (DuplicateWarning) {
        if (const int repeated = CountDuplicates(records); repeated > 0) {
            switch (
                MsgBox(msgExDuplicatesFound.arg(repeated) + QStringLiteral("\n\n") + msgExDuplicatesChoice,
                       vb::vbYesNoCancel, vb::vbQuestion, msgExImportTitle)) {
            case vb::vbYes:
                options.duplicates = DuplicateAction::Merge;
                break;
            case vb::vbNo:
                options.duplicates = DuplicateAction::Add;
                break;
            default:
                options.duplicates = DuplicateAction::Skip;
                break;
            }
        }
    } else {
        options.checkDuplicates = false;
    }

    ImportSummary summary;
    {
        ProgressWindow progress(owner, msgExImporting);
        options.progress = progress.callback();
        summary = ImportRecords(records, options);
    }
    if (summary.cancelled) {
        MsgBox(msgExImportCancelled, vb::vbOKOnly, vb::vbInformation, msgExImportTitle);
        return false;
    }
    QStringList notes = summary.notes;
    if (!problems.isEmpty()) notes << msgExFileProblems << problems;
    MsgBox(WithNotes(summary.text(), notes), vb::vbOKOnly, vb::vbInformation, msgExImportTitle);
    return summary.imported + summary.merged > 0;
}

bool ExportWithDialogs(QWidget* owner, const QList<qint32>& ids, bool all) {
    HUNT_PLACE("mExchange.ExportWithDialogs", ids.size(), all);
    if (gRestricted) return false;
    if (!all && ids.isEmpty()) {
        MsgBox(msgExNothingToExport, vb::vbOKOnly, vb::vbInformation, msgExExportTitle);
        return false;
    }
    CFileDialog chooser;
    chooser.Title = msgExExportTitle;
    chooser.Mask = msgExExportMask;
    chooser.Extension = QStringLiteral("vcf");
    chooser.FileName = QStringLiteral("contacts.vcf");
    chooser.Owner = owner;
    if (!chooser.Show(true)) return false;
    const QString file = chooser.FileName;

    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly)) {
        MsgBox(msgExCannotWrite.arg(file), vb::vbOKOnly, vb::vbExclamation, msgExExportTitle);
        return false;
    }
    int count = 0;
    bool written;
    {
        ProgressWindow progress(owner, msgExExporting);
        const Progress inner = progress.callback();
        const Progress counting = [&count, &inner](int done, int total) {
            count = done;
            return inner(done, total);
        };
        written = IsCsv(file)
                      ? ExportCsv(&out, all ? QList<qint32>() : ids, counting)
                      : ExportVCard(&out, all ? QList<qint32>() : ids, exchange::VCardVersion::V40, counting);
    }
    if (!written) {
        out.cancelWriting();
        out.commit();
        return false; // cancelled, or the device refused: no half file is left
    }
    if (!out.commit()) {
        MsgBox(msgExCannotWrite.arg(file), vb::vbOKOnly, vb::vbExclamation, msgExExportTitle);
        return false;
    }
    MsgBox(msgExExported.arg(count).arg(QDir::toNativeSeparators(file)), vb::vbOKOnly, vb::vbInformation,
           msgExExportTitle);
    return true;
}

} // namespace mExchange
