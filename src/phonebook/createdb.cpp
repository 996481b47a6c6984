#include "phonebook/createdb.h"

#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "phonebook/catpath.h"
#include "phonebook/fileerrors.h"
#include "phonebook/login.h"
#include "phonebook/schema.h"
#include "support/helpers/files.h"
#include "support/helpers/paths.h"

#include <QFile>

using namespace mLanguageGobals;

namespace mAccess {

namespace {

void addTreeRow(dao::Recordset& rs, qint32 id, const QString& name, qint32 parent, const QString& pedigree) {
    rs.AddNew();
    rs.SetValue(QStringLiteral("ID"), id);
    rs.SetValue(QStringLiteral("Name"), name);
    rs.SetValue(QStringLiteral("IDPARENT"), parent);
    rs.SetValue(QStringLiteral("Pedigree"), pedigree);
    rs.Update();
}

void writeDefaultRows() {
    struct Row {
        qint32 id;
        QString name;
        qint32 parent;
        const char* pedigree;
    };
    const Row categories[] = {
        {0, msgAllCategories, -1, "ID0E"},
        {1, msgOthers, 0, "ID0EID1E"},
        {2, QStringLiteral("Personal"), 0, "ID0EID2E"},
        {3, QStringLiteral("Business"), 0, "ID0EID3E"},
        {4, QStringLiteral("Customers"), 3, "ID0EID3EID4E"},
        {5, QStringLiteral("Employees"), 3, "ID0EID3EID5E"},
        {6, QStringLiteral("Sponsors"), 3, "ID0EID3EID6E"},
        {7, QStringLiteral("Suppliers"), 3, "ID0EID3EID7E"},
        {8, QStringLiteral("Partners"), 3, "ID0EID3EID8E"},
        {9, QStringLiteral("Family"), 2, "ID0EID2EID9E"},
        {10, QStringLiteral("Friends"), 2, "ID0EID2EID10E"},
        {11, QStringLiteral("Neighbors"), 2, "ID0EID2EID11E"},
        {12, QStringLiteral("Relatives"), 2, "ID0EID2EID12E"},
    };
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM Categories"));
    for (const Row& r : categories)
        addTreeRow(rs, r.id, r.name, r.parent, QString::fromLatin1(r.pedigree));
    rs.Close();

    rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM Borrows"));
    addTreeRow(rs, 0, msgAllFavorites, -1, QStringLiteral("ID0E"));
    addTreeRow(rs, 1, QStringLiteral("My favorites"), 0, QStringLiteral("ID0EID1E"));
    rs.Close();

    rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM Boxes"));
    addTreeRow(rs, 0, msgAllGroups, -1, QStringLiteral("ID0E"));
    addTreeRow(rs, 1, msgOthers, 0, QStringLiteral("ID0EID1E"));
    rs.Close();

    const char* types[] = {"Home phone", "Work phone", "Mobile phone", "Fax",  "Email",
                           "MSN",        "ICQ",        "AOL",          "Skype"};
    rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM Types"));
    qint32 id = 1;
    for (const char* t : types) {
        rs.AddNew();
        rs.SetValue(QStringLiteral("IDTYPE"), id++);
        rs.SetValue(QStringLiteral("Type"), QString::fromLatin1(t));
        rs.Update();
    }
    rs.Close();

    rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM AccessMode"));
    rs.AddNew();
    rs.SetValue(QStringLiteral("FullPW"), QVariant());
    rs.SetValue(QStringLiteral("ReadOnlyPW"), QVariant());
    rs.Update();
    rs.Close();
}

} // namespace

int CreateDB(const QString& sBaseName, bool FromStart) {
    HUNT_PLACE("mAccess.CreateDB(sBaseName,FromStart)", sBaseName, FromStart);
    if (!mScanCD::FolderExist(mCommon::SplitingParentFolder(sBaseName))) return -1;
    if (QFile::exists(sBaseName)) return 0;
    const bool isDefault = sBaseName == DefaultPhonebook();
    if (FromStart && !isDefault) return -1;

    try {
        gWS = dao::Workspace();
        gWSOpen = true;
        gDB = gWS.CreateDatabase(sBaseName);
        gDBOpen = true;
        dao::Transaction trans(gWS);
        dao::TableDefs defs = gDB.TableDefs();
        for (const dao::TableDef& t : mSchema::All())
            defs.Append(t);
        defs.Refresh();
        writeDefaultRows();
        mLV::UpdateCatPathAll();
        trans.Commit();
        gFileReadOnly = false;
        return 1;
    } catch (const HuntERR::Error& e) {
        mMain::Closing();
        if (QFile::exists(sBaseName)) QFile::remove(sBaseName);
        const bool show = !isDefault || !FromStart;
        const FileErrorFamily family = FileErrorFamilyOf(e.Number());
        if (family == FileErrorFamily::None) throw;
        if (show) ShowFileError(family, msgCannotCreatePhonebookNoSpace, sBaseName);
        return -1;
    }
}

} // namespace mAccess
