#include "mainwindow/jetopen.h"

#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "legacy/convert.h"
#include "preferences/mru.h"

#include <QCoreApplication>
#include <QProgressDialog>
#include <utility>

using namespace mLanguageGobals;

namespace mConvert {

namespace {
ProgressHook gHook;

void tell(const mLegacy::ConversionError& e, const QString& path) {
    MsgBox(mLegacy::ConversionMessage(e, path), vb::vbOKOnly, vb::vbCritical);
    HuntERR::ClearPendingStack();
}
} // namespace

ProgressHook SetProgressHook(ProgressHook hook) {
    return std::exchange(gHook, std::move(hook));
}

QString OfferConversion(const QString& path, QWidget* owner) {
    HUNT_PLACE("mConvert.OfferConversion(path)", path);
    // A file that cannot be converted is said so before anything is asked.
    try {
        mLegacy::CheckJetPhonebook(path);
    } catch (const mLegacy::ConversionError& e) {
        tell(e, path);
        return QString();
    }
    const QString converted = mLegacy::ConvertedName(path);
    if (MsgBox(msgJetConvertQuestion + QStringLiteral("\n\n") + msgJetNewFile.arg(converted), vb::vbYesNo,
               vb::vbQuestion) != vb::vbYes)
        return QString();

    QProgressDialog window(msgJetConverting.arg(path), msgCancel, 0, 100, owner);
    window.setWindowTitle(AppTitle());
    window.setWindowModality(Qt::ApplicationModal);
    window.setMinimumDuration(0);
    window.setAutoClose(false);
    window.setAutoReset(false);
    window.setValue(0);
    const auto progress = [&window](qint64 done, qint64 total) {
        window.setMaximum(int(qMax<qint64>(total, 1)));
        window.setValue(int(qMin(done, total)));
        QCoreApplication::processEvents();
        if (gHook) gHook(window);
        return !window.wasCanceled();
    };
    try {
        mLegacy::ConvertJet(path, converted, progress);
    } catch (const mLegacy::ConversionError& e) {
        window.close();
        // A cancelled conversion leaves nothing behind, and the user knows why.
        if (e.kind() == mLegacy::ConversionError::Cancelled)
            HuntERR::ClearPendingStack();
        else
            tell(e, path);
        return QString();
    }
    window.close();
    // The recent list names the phonebook that is opened, not the one it came from.
    mMru::MRUFiles.removeAll(path);
    mMru::AddToMRUList(converted);
    return converted;
}

} // namespace mConvert
