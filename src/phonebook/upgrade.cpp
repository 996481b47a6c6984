#include "phonebook/upgrade.h"

#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "phonebook/catpath.h"
#include "phonebook/schema.h"

using namespace mLanguageGobals;
using dao::dbBoolean;
using dao::dbDate;
using dao::dbLong;
using dao::dbMemo;

namespace mAccess {

namespace {

dao::Field field(const char* name, dao::FieldType type, int size = 0, bool zeroLength = false,
                 QVariant def = QVariant()) {
    dao::Field f = dao::TableDef().CreateField(QString::fromLatin1(name), type, size);
    f.AllowZeroLength = zeroLength;
    f.DefaultValue = std::move(def);
    return f;
}

// The four fields a tree table had before it had paths and comments.
dao::TableDef oldTree(const char* name) {
    dao::TableDef t(QString::fromLatin1(name));
    t.Fields = {field("ID", dbLong), field("Name", dao::dbText, 255, true), field("IDPARENT", dbLong),
                field("Pedigree", dbMemo)};
    t.Indexes.push_back(dao::Index{QStringLiteral("Index1"), {QStringLiteral("ID")}, true, true});
    return t;
}

void addRows(const QString& table, const QList<QPair<QString, QString>>& rows, bool withCatpath = false) {
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM ") + table);
    qint32 id = 0;
    for (const auto& r : rows) {
        rs.AddNew();
        rs.SetValue(QStringLiteral("ID"), id);
        rs.SetValue(QStringLiteral("Name"), r.first);
        rs.SetValue(QStringLiteral("IDPARENT"), id == 0 ? -1 : 0);
        rs.SetValue(QStringLiteral("Pedigree"), r.second);
        if (withCatpath && id > 0) rs.SetValue(QStringLiteral("Catpath"), r.first);
        rs.Update();
        ++id;
    }
    rs.Close();
}

} // namespace

bool CheckTable(const QString& strName) {
    HUNT_PLACE("mAccess.CheckTable(strName)", strName);
    try {
        return gDB.TableDefs().Item(strName).Name.compare(strName, Qt::CaseInsensitive) == 0;
    } catch (const HuntERR::Error& e) {
        if (e.Number() == dao::errItemNotFound) return false;
        throw;
    }
}

bool CheckTableField(const QString& strTableName, const QString& strFieldName) {
    HUNT_PLACE("mAccess.CheckTableField(strTableName,strFieldName)", strTableName, strFieldName);
    try {
        return gDB.TableDefs()
                   .Item(strTableName)
                   .FieldByName(strFieldName)
                   .Name.compare(strFieldName, Qt::CaseInsensitive) == 0;
    } catch (const HuntERR::Error& e) {
        if (e.Number() == dao::errItemNotFound) return false;
        throw;
    }
}

void CreateCategoryRoot() {
    HUNT_PLACE("mAccess.CreateCategoryRoot");
    dao::Transaction trans(gWS);
    dao::TableDefs defs = gDB.TableDefs();
    defs.Append(oldTree("Categories"));
    defs.Append(oldTree("Borrows"));
    defs.AppendField(QStringLiteral("CDs"), field("IDC", dbLong));
    defs.AppendField(QStringLiteral("CDs"), field("IDB", dbLong, 0, false, -1));
    defs.AppendField(QStringLiteral("CDs"), field("IsLend", dbBoolean));
    defs.AppendField(QStringLiteral("CDs"), field("LoanStart", dbDate));
    defs.AppendField(QStringLiteral("CDs"), field("LoanComment", dbMemo));
    defs.Append(mSchema::LoanHistory());
    addRows(QStringLiteral("Categories"), {{msgAllCategories, QStringLiteral("ID0E")},
                                           {msgOthers, QStringLiteral("ID0EID1E")},
                                           {msgMusic, QStringLiteral("ID0EID2E")},
                                           {msgMovies, QStringLiteral("ID0EID3E")},
                                           {msgPhotos, QStringLiteral("ID0EID4E")},
                                           {msgSoftware, QStringLiteral("ID0EID5E")},
                                           {msgGames, QStringLiteral("ID0EID6E")}});
    addRows(QStringLiteral("Borrows"), {{msgAllFavorites, QStringLiteral("ID0E")},
                                        {QStringLiteral("John Smith"), QStringLiteral("ID0EID1E")}});
    gDB.Execute(QStringLiteral("UPDATE CDs SET IDC = 1,IDB = -1"));
    trans.Commit();
}

void AddTableField5() {
    HUNT_PLACE("mAccess.AddTableField5");
    dao::Transaction trans(gWS);
    gDB.TableDefs().Append(mSchema::AccessMode());
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM AccessMode"));
    rs.AddNew();
    rs.SetValue(QStringLiteral("FullPW"), QVariant());
    rs.SetValue(QStringLiteral("ReadOnlyPW"), QVariant());
    rs.Update();
    rs.Close();
    trans.Commit();
}

void CreateBoxes() {
    HUNT_PLACE("mAccess.CreateBoxes");
    dao::Transaction trans(gWS);
    dao::TableDefs defs = gDB.TableDefs();
    defs.Append(mSchema::Boxes());
    defs.AppendField(QStringLiteral("Categories"), field("Catpath", dbMemo, 0, true));
    defs.AppendField(QStringLiteral("Borrows"), field("Catpath", dbMemo, 0, true));
    defs.AppendField(QStringLiteral("CDs"), field("IDX", dbLong));
    addRows(QStringLiteral("Boxes"),
            {{msgAllGroups, QStringLiteral("ID0E")}, {msgOthers, QStringLiteral("ID0EID1E")}}, true);
    gDB.Execute(QStringLiteral("UPDATE CDs SET CDs.IDX = 1"));
    mLV::UpdateCatPathAll();
    trans.Commit();
}

void AddTableField6() {
    HUNT_PLACE("mAccess.AddTableField6");
    dao::Transaction trans(gWS);
    dao::TableDefs defs = gDB.TableDefs();
    defs.AppendField(QStringLiteral("CDs"), field("Photo", dao::dbLongBinary));
    defs.AppendField(QStringLiteral("CDs"), field("PhotoExt", dao::dbText, 15));
    defs.AppendField(QStringLiteral("CDs"), field("PhotoSize", dao::dbDouble));
    trans.Commit();
}

void FixNullIDX() {
    HUNT_PLACE("mAccess.FixNullIDX");
    dao::Transaction trans(gWS);
    dao::Recordset rs =
        gDB.OpenRecordset(QStringLiteral("SELECT Count(CDs.IDCD) AS CNT ") + QStringLiteral("From CDs ") +
                              QStringLiteral("WHERE IsNull([IDX])=True"),
                          dao::dbOpenSnapshot);
    const int cnt = rs.AtEOF() ? 0 : rs[QStringLiteral("CNT")].toInt();
    rs.Close();
    if (cnt > 0) {
        gDB.Execute(QStringLiteral("UPDATE CDs SET CDs.IDX = 1 WHERE IsNull([IDX])=True"));
        mLV::UpdateCatPathAll();
    }
    trans.Commit();
}

void AddSyncTables() {
    HUNT_PLACE("mAccess.AddSyncTables");
    dao::Transaction trans(gWS);
    dao::TableDefs defs = gDB.TableDefs();
    defs.Append(mSchema::SyncAccount());
    defs.Append(mSchema::SyncState());
    gDB.ExecuteNative(QString::fromLatin1(mSchema::kSyncStateTrigger));
    trans.Commit();
}

void UpgradeChain() {
    HUNT_PLACE("mAccess.UpgradeChain");
    if (!CheckTable(QStringLiteral("Categories"))) CreateCategoryRoot();
    if (!CheckTable(QStringLiteral("AccessMode"))) AddTableField5();
    if (!CheckTable(QStringLiteral("Boxes"))) CreateBoxes();
    if (!CheckTableField(QStringLiteral("CDs"), QStringLiteral("Photo"))) AddTableField6();
    FixNullIDX();
    // A file opened read-only keeps its tables; it cannot be synced anyway.
    if (!gFileReadOnly && !CheckTable(QStringLiteral("SyncState"))) AddSyncTables();
}

} // namespace mAccess
