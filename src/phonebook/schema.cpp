#include "phonebook/schema.h"

using namespace dao;

namespace mSchema {

namespace {

// Small builder so that each table reads as its field list.
struct Def {
    TableDef t;
    explicit Def(const char* name) : t(QString::fromLatin1(name)) {}
    Def& f(const char* name, FieldType type, int size = 0, bool zeroLength = false,
           QVariant def = QVariant()) {
        Field fd = t.CreateField(QString::fromLatin1(name), type, size);
        fd.AllowZeroLength = zeroLength;
        fd.DefaultValue = std::move(def);
        t.Fields.push_back(fd);
        return *this;
    }
    Def& ix(const char* name, const char* field, bool primary, bool unique) {
        t.Indexes.push_back(
            Index{QString::fromLatin1(name), {QString::fromLatin1(field)}, primary, unique || primary});
        return *this;
    }
};

constexpr bool ZL = true; // zero-length text allowed

} // namespace

TableDef CDs() {
    Def d("CDs");
    d.f("IDCD", dbLong)
        .f("FileSystem", dbText, 50, ZL)
        .f("DriveType", dbText, 50, ZL)
        .f("ComputerName", dbText, 255, ZL)
        .f("Label", dbText, 50, ZL)
        .f("Drive_Folder", dbText, 255, ZL)
        .f("TotalSize", dbDouble)
        .f("Comment", dbMemo)
        .f("FolderName", dbText, 255, ZL)
        .f("ReadOnly", dbBoolean)
        .f("Archive", dbBoolean)
        .f("Hidden", dbBoolean)
        .f("System", dbBoolean)
        .f("Compressed", dbBoolean)
        .f("CreationTime", dbDate)
        .f("LastAccessTime", dbDate)
        .f("LastWriteTime", dbDate)
        .f("ContainsOfFiles", dbLong)
        .f("ContainsOfFolders", dbLong)
        .f("ContainsOfFilesSelf", dbLong)
        .f("ContainsOfFoldersSelf", dbLong)
        .f("DateScan", dbDate, 0, false, QStringLiteral("now"))
        .f("SN", dbText, 50, ZL)
        .f("IDC", dbLong)
        .f("IDX", dbLong)
        .f("IDB", dbLong, 0, false, -1)
        .f("IsLend", dbBoolean)
        .f("LoanStart", dbDate)
        .f("LoanComment", dbMemo)
        .f("IsFolder", dbBoolean)
        .f("ScannedArchives", dbLong)
        .f("ContactNumber", dbLong, 0, false, 0)
        .f("FullName", dbText, 255)
        .f("Title", dbText, 255)
        .f("Company", dbText, 255)
        .f("Address", dbText, 255)
        .f("City", dbText, 255)
        .f("State", dbText, 255)
        .f("Zip", dbText, 255);
    static const char* types[] = {"Type1", "Type2", "Type3", "Type4",  "Type5",  "Type6",
                                  "Type7", "Type8", "Type9", "Type10", "Type11", "Type12"};
    static const char* numbers[] = {"Number1", "Number2", "Number3", "Number4",  "Number5",  "Number6",
                                    "Number7", "Number8", "Number9", "Number10", "Number11", "Number12"};
    for (const char* t : types)
        d.f(t, dbLong);
    for (const char* n : numbers)
        d.f(n, dbText, 255);
    d.f("Photo", dbLongBinary).f("PhotoExt", dbText, 15).f("PhotoSize", dbDouble);
    return d.t;
}

TableDef Types() {
    return Def("Types").f("IDTYPE", dbLong).f("Type", dbText, 255).ix("Index2", "IDTYPE", false, false).t;
}

TableDef Paths() {
    return Def("Paths")
        .f("IDPATH", dbLong)
        .f("IDCD", dbLong)
        .f("Path", dbMemo)
        .f("IsArchive", dbBoolean)
        .ix("Index1", "IDPATH", true, true)
        .ix("Index2", "IDCD", false, false)
        .t;
}

TableDef Elements() {
    return Def("Elements")
        .f("ID", dbLong)
        .f("IDPATH", dbLong)
        .f("ElementName", dbText, 255, ZL)
        .f("Comment", dbMemo)
        .f("ElementSize", dbDouble)
        .f("IDPATHSELF", dbLong)
        .f("ReadOnly", dbBoolean)
        .f("Archive", dbBoolean)
        .f("Hidden", dbBoolean)
        .f("System", dbBoolean)
        .f("Compressed", dbBoolean)
        .f("ContainsOfFiles", dbLong)
        .f("ContainsOfFolders", dbLong)
        .f("ContainsOfFilesSelf", dbLong)
        .f("ContainsOfFoldersSelf", dbLong)
        .f("CreationTime", dbDate)
        .f("LastAccessTime", dbDate)
        .f("LastWriteTime", dbDate)
        .f("IsFolder", dbBoolean)
        .f("Ext", dbText, 255, ZL)
        .f("UnpackedSize", dbDouble)
        .f("ScannedArchives", dbLong)
        .ix("Index1", "ID", true, true)
        .ix("Index2", "IDPATH", false, false)
        .ix("Index3", "IDPATHSELF", false, true)
        .t;
}

TableDef SearchWhat() {
    return Def("SearchWhat").f("Name", dbBoolean).f("Text", dbText, 255).f("Update", dbDate).t;
}

TableDef SearchWhere() {
    return Def("SearchWhere").f("IDCD", dbLong).f("Path", dbText, 255).f("Update", dbDate).t;
}

namespace {
Def tree(const char* name) {
    Def d(name);
    d.f("ID", dbLong)
        .f("Name", dbText, 255, ZL)
        .f("IDPARENT", dbLong)
        .f("Pedigree", dbMemo)
        .f("Comment", dbMemo);
    return d;
}
} // namespace

TableDef Categories() {
    return tree("Categories").f("Catpath", dbMemo, 0, ZL).ix("Index1", "ID", true, true).t;
}

TableDef Boxes() {
    return tree("Boxes").f("Catpath", dbMemo, 0, ZL).ix("Index1", "ID", true, true).t;
}

TableDef Borrows() {
    return tree("Borrows")
        .f("Address", dbMemo)
        .f("PhoneHome", dbText, 255)
        .f("PhoneWork", dbText, 255)
        .f("PhoneMobile", dbText, 255)
        .f("Email", dbText, 255)
        .f("Woman", dbBoolean)
        .f("Catpath", dbMemo, 0, ZL)
        .ix("Index1", "ID", true, true)
        .t;
}

TableDef LoanHistory() {
    return Def("LoanHistory")
        .f("IDHistory", dbLong)
        .f("IDCD", dbLong)
        .f("IDB", dbLong)
        .f("IsLend", dbBoolean)
        .f("LoanStart", dbDate)
        .f("LoanEnd", dbDate)
        .f("LoanComment", dbMemo)
        .t;
}

TableDef AccessMode() {
    return Def("AccessMode")
        .f("FullPW", dbText, 255)
        .f("ReadOnlyPW", dbText, 255)
        .f("DefaultIsFull", dbBoolean, 0, false, true)
        .t;
}

TableDef SyncAccount() {
    return Def("SyncAccount")
        .f("Server", dbMemo, 0, ZL)
        .f("UserName", dbText, 255, ZL)
        .f("AddressBook", dbMemo, 0, ZL)
        .f("BookName", dbText, 255, ZL)
        .f("Interval", dbLong, 0, false, 0)
        .f("SyncCollection", dbBoolean)
        .f("SyncToken", dbMemo, 0, ZL)
        .f("LastSync", dbDate)
        .f("LastSummary", dbMemo, 0, ZL)
        .t;
}

TableDef SyncState() {
    return Def("SyncState")
        .f("IDCD", dbLong)
        .f("Added", dbText, 50, ZL)
        .f("Href", dbMemo, 0, ZL)
        .f("ETag", dbText, 255, ZL)
        .f("UID", dbText, 255, ZL)
        .f("Base", dbMemo, 0, ZL)
        .f("Extras", dbMemo, 0, ZL)
        .ix("SyncStateIDCD", "IDCD", false, false)
        .t;
}

const char* const kSyncStateTrigger = "CREATE TRIGGER SyncStateContactGone AFTER DELETE ON CDs "
                                      "BEGIN UPDATE SyncState SET Added = '' WHERE IDCD = OLD.IDCD; END";

std::vector<TableDef> All() {
    return {CDs(),        Types(), Paths(),   Elements(),    SearchWhat(), SearchWhere(),
            Categories(), Boxes(), Borrows(), LoanHistory(), AccessMode()};
}

} // namespace mSchema
