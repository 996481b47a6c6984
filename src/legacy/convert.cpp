#include "legacy/convert.h"

#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "legacy/jetschema.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "phonebook/upgrade.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

using namespace mLanguageGobals;

namespace mLegacy {

namespace {

// The conversion works on gWS and gDB, since CreateDB and the upgrade chain do: the phonebook
// open before is set aside for that time and put back afterwards, however the block is left.
class OwnConnection {
  public:
    OwnConnection() : m_ws(gWS), m_db(gDB), m_wsOpen(gWSOpen), m_dbOpen(gDBOpen), m_readOnly(gFileReadOnly) {
        gWS = dao::Workspace();
        gDB = dao::Database();
        gWSOpen = gDBOpen = false;
    }
    ~OwnConnection() {
        mMain::Closing();
        gWS = m_ws;
        gDB = m_db;
        gWSOpen = m_wsOpen;
        gDBOpen = m_dbOpen;
        gFileReadOnly = m_readOnly;
    }
    OwnConnection(const OwnConnection&) = delete;
    OwnConnection& operator=(const OwnConnection&) = delete;

  private:
    dao::Workspace m_ws;
    dao::Database m_db;
    bool m_wsOpen, m_dbOpen, m_readOnly;
};

bool folderWritable(const QString& folder) {
    if (!QFileInfo(folder).isDir()) return false;
    QTemporaryFile probe(folder + QStringLiteral("/.kelvarin-XXXXXX"));
    return probe.open();
}

// CreateDB tells its failures in a message box: here they become the error of the conversion.
void createPhonebook(const QString& path) {
    QStringList said;
    const MsgBoxHandler old = SetMsgBoxHandler([&said](const QString& text, int, int, const QString&) {
        said << text;
        return int(vb::vbOK);
    });
    int created = -1;
    try {
        created = mAccess::CreateDB(path, false);
    } catch (...) {
        SetMsgBoxHandler(old);
        throw;
    }
    SetMsgBoxHandler(old);
    if (created != 1)
        throw ConversionError(ConversionError::Target, dao::errCannotOpen,
                              said.isEmpty() ? QStringLiteral("Cannot create %1.").arg(path)
                                             : said.join(QLatin1Char(' ')));
}

[[noreturn]] void cancelled() {
    throw ConversionError(ConversionError::Cancelled, dao::errGeneral,
                          QStringLiteral("The conversion was cancelled."));
}

void copyRows(const JetFile& jet, const TablePlan& table, qint64& done, qint64 total,
              const Progress& progress) {
    if (progress && !progress(done, total)) cancelled();
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM ") + table.Def.Name);
    const std::vector<dao::Field>& fields = table.Def.Fields;
    jet.ReadRows(table.Def.Name, [&](const QVariantList& values) {
        rs.AddNew();
        for (size_t i = 0; i < fields.size(); ++i)
            rs.SetValue(fields[i].Name, values[int(i)]);
        rs.Update();
        ++done;
        if (progress && done % 64 == 0 && !progress(done, total)) cancelled();
    });
    rs.Close();
}

} // namespace

QString ConvertedName(const QString& jetPath) {
    const QFileInfo old(jetPath);
    QString folder = old.absolutePath();
    if (!folderWritable(folder)) {
        folder = DefaultFolder();
        QDir().mkpath(folder);
    }
    const QString base = old.completeBaseName();
    const QDir dir(folder);
    QString name = base + QStringLiteral(" (converted).kvdb");
    for (int n = 2; dir.exists(name); ++n)
        name = base + QStringLiteral(" (converted %1).kvdb").arg(n);
    return dir.filePath(name);
}

void CheckJetPhonebook(const QString& jetPath) {
    HUNT_PLACE("mLegacy.CheckJetPhonebook(jetPath)", jetPath);
    JetFile jet(jetPath);
    PlanConversion(jet);
}

void ConvertJet(const QString& jetPath, const QString& newPath, const Progress& progress) {
    HUNT_PLACE("mLegacy.ConvertJet(jetPath,newPath)", jetPath, newPath);
    JetFile jet(jetPath);
    const ConversionPlan plan = PlanConversion(jet);
    if (QFileInfo::exists(newPath))
        throw ConversionError(ConversionError::Target, dao::errAlreadyExists,
                              QStringLiteral("%1 exists already.").arg(newPath));
    if (QFileInfo(newPath).absoluteFilePath() == QFileInfo(jetPath).absoluteFilePath())
        throw ConversionError(ConversionError::Target, dao::errAlreadyExists,
                              QStringLiteral("The converted phonebook cannot replace %1.").arg(jetPath));
    OwnConnection own;
    try {
        qint64 done = 0;
        if (plan.Current) {
            createPhonebook(newPath);
            dao::Transaction trans(gWS);
            // The default rows of a new phonebook give way to those of the file.
            for (const TablePlan& table : plan.Tables)
                gDB.Execute(QStringLiteral("DELETE * FROM ") + table.Def.Name);
            for (const TablePlan& table : plan.Tables)
                copyRows(jet, table, done, plan.Rows, progress);
            trans.Commit();
        } else {
            gWS = dao::Workspace();
            gWSOpen = true;
            gDB = gWS.CreateDatabase(newPath);
            gDBOpen = true;
            dao::Transaction trans(gWS);
            dao::TableDefs defs = gDB.TableDefs();
            for (const TablePlan& table : plan.Tables)
                defs.Append(table.Def);
            defs.Refresh();
            for (const TablePlan& table : plan.Tables)
                copyRows(jet, table, done, plan.Rows, progress);
            trans.Commit();
        }
        gFileReadOnly = false;
        mAccess::UpgradeChain();
        if (progress) progress(plan.Rows, plan.Rows);
        mMain::Closing();
    } catch (const ConversionError&) {
        mMain::Closing();
        QFile::remove(newPath);
        throw;
    } catch (const HuntERR::Error& e) {
        mMain::Closing();
        QFile::remove(newPath);
        throw ConversionError(ConversionError::Target, e.Number(), e.Description());
    } catch (...) {
        mMain::Closing();
        QFile::remove(newPath);
        throw;
    }
}

QString ConversionMessage(const ConversionError& e, const QString& jetPath) {
    switch (e.kind()) {
    case ConversionError::Unreadable:
        return IsJetFile(jetPath) ? msgJetUnreadable.arg(jetPath) : msgJetNotJet.arg(jetPath);
    case ConversionError::OtherSchema:
        return msgJetOtherSchema.arg(jetPath);
    case ConversionError::Cancelled:
        return msgJetCancelled;
    case ConversionError::Target:
        break;
    }
    return msgJetNotWritten.arg(jetPath, e.Description());
}

} // namespace mLegacy
