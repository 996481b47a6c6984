// The store under the phonebook: recordsets, writes, checks, transactions and who may open a file.
#include "core/globals.h"
#include "phonebook/lookups.h"
#include "support/fixture.h"

#include <QDateTime>
#include <QFile>
#include <sqlite3.h>
#include <stdexcept>

using fixture::PhonebookTest;

namespace {
qint32 errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const dao::DbError& e) {
        return e.Number();
    }
    return 0;
}
} // namespace

using Store = PhonebookTest;

TEST_F(Store, RecordsetReadsWritesAndDeletesThroughOneTable) {
    for (const char* n : {"Ann", "Bob", "Cy"})
        addContact(QString::fromLatin1(n));
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs WHERE IDCD >= 2"));
    ASSERT_FALSE(rs.AtEOF());
    EXPECT_EQ(rs[QStringLiteral("fullname")].toString(),
              QStringLiteral("Bob")); // names without regard to case
    EXPECT_EQ(rs[QStringLiteral("IDB")].toInt(), -1);
    EXPECT_EQ(rs[QStringLiteral("DateScan")].typeId(), QMetaType::QDateTime); // the insert's time, as a date
    EXPECT_LE(qAbs(rs[QStringLiteral("DateScan")].toDateTime().secsTo(QDateTime::currentDateTime())), 5);
    rs.Edit();
    rs.SetValue(QStringLiteral("City"), QStringLiteral("Oslo"));
    rs.Update();
    EXPECT_EQ(rs[QStringLiteral("City")].toString(),
              QStringLiteral("Oslo")); // the current row shows the write
    rs.MoveNext();
    rs.Delete();
    rs.MoveNext();
    EXPECT_TRUE(rs.AtEOF());
    EXPECT_EQ(rs.RecordCount(), 2);
    rs.AddNew();
    rs.SetValue(QStringLiteral("IDCD"), 9);
    rs.SetValue(QStringLiteral("FullName"), QStringLiteral("Dee"));
    rs.Update();
    rs.Close();
    EXPECT_EQ(scalar(QStringLiteral("SELECT City FROM CDs WHERE IDCD = 2")).toString(),
              QStringLiteral("Oslo"));
    EXPECT_TRUE(scalar(QStringLiteral("SELECT IDCD FROM CDs WHERE FullName = 'Cy'")).isNull());
    EXPECT_EQ(scalar(QStringLiteral("SELECT ContactNumber FROM CDs WHERE IDCD = 9")).toInt(),
              0); // column default
    EXPECT_EQ(scalar(QStringLiteral("SELECT Count(*) FROM CDs")).toInt(), 3);
}

TEST_F(Store, ValuesKeepTheirKindsThroughTheFile) {
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs"));
    const QDateTime when(QDate(2024, 2, 29), QTime(23, 59, 58));
    QByteArray photo(70000, '\0');
    for (int i = 0; i < photo.size(); ++i)
        photo[i] = char(i * 7);
    rs.AddNew();
    rs.SetValue(QStringLiteral("IDCD"), 1);
    rs.SetValue(QStringLiteral("Hidden"), true);
    rs.SetValue(QStringLiteral("LoanStart"), when);
    rs.SetValue(QStringLiteral("TotalSize"), 1.5e12);
    rs.SetValue(QStringLiteral("FullName"), QStringLiteral("Zoë \"Q\" O'Hara"));
    rs.AppendChunk(QStringLiteral("Photo"), photo.left(1000));
    rs.AppendChunk(QStringLiteral("Photo"), photo.mid(1000));
    rs.Update();
    rs.Close();
    rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs WHERE Hidden = True"), dao::dbOpenSnapshot);
    ASSERT_FALSE(rs.AtEOF());
    EXPECT_EQ(rs[QStringLiteral("Hidden")], QVariant(true));
    EXPECT_TRUE(rs[QStringLiteral("ReadOnly")].isNull());
    EXPECT_EQ(rs[QStringLiteral("LoanStart")].toDateTime(), when);
    EXPECT_EQ(rs[QStringLiteral("TotalSize")].toDouble(), 1.5e12);
    EXPECT_EQ(rs[QStringLiteral("FullName")].toString(), QStringLiteral("Zoë \"Q\" O'Hara"));
    EXPECT_EQ(rs.FieldSize(QStringLiteral("Photo")), photo.size());
    EXPECT_EQ(rs.GetChunk(QStringLiteral("Photo"), 32768, 100), photo.mid(32768, 100));
    EXPECT_EQ(rs[QStringLiteral("Photo")].toByteArray(), photo);
    EXPECT_EQ(scalar(QStringLiteral(
                         "SELECT Count(*) FROM CDs WHERE LoanStart > #02/28/24# AND LoanStart < #03/01/24#"))
                  .toInt(),
              1);
    EXPECT_EQ(scalar(QStringLiteral("SELECT Count(*) FROM CDs WHERE FullName Like 'zo? *'")).toInt(), 1);
    EXPECT_TRUE(scalar(QStringLiteral("SELECT Null Like 'a*' FROM CDs")).isNull());
}

// The typed reads of every field of the row a recordset stands on give what Value and Text give.
void expectTypedReadsMatchValues(const dao::Recordset& rs) {
    for (int i = 0; i < rs.FieldCount(); ++i) {
        SCOPED_TRACE(rs.FieldName(i).toStdString());
        const QVariant v = rs.Value(i);
        EXPECT_EQ(rs.IsNull(i), v.isNull());
        EXPECT_EQ(rs.LongAt(i), v.toLongLong());
        QString out = QStringLiteral(">");
        EXPECT_EQ(rs.AppendText(i, out), v.typeId() == QMetaType::QString);
        EXPECT_EQ(out, QLatin1Char('>') + rs.Text(i));
        QDate date;
        QTime time;
        const bool isDate = rs.DateAt(i, date, time);
        ASSERT_EQ(isDate, v.typeId() == QMetaType::QDateTime);
        if (isDate) {
            EXPECT_EQ(date, v.toDateTime().date());
            EXPECT_EQ(time, v.toDateTime().time());
        }
    }
}

TEST_F(Store, TypedReadsAgreeWithValues) {
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs"));
    rs.AddNew();
    rs.SetValue(QStringLiteral("IDCD"), 1);
    rs.SetValue(QStringLiteral("Hidden"), true);
    rs.SetValue(QStringLiteral("TotalSize"), 2.75);
    rs.SetValue(QStringLiteral("LoanStart"), QDateTime(QDate(2024, 2, 29), QTime(23, 59, 58)));
    rs.SetValue(QStringLiteral("FullName"), QStringLiteral("Zoë Ångström \u4e2d"));
    rs.SetValue(QStringLiteral("Address"), QStringLiteral("1 Main St\r\nFlat 2"));
    rs.SetValue(QStringLiteral("Photo"), QByteArray("\x01\x02\n", 3));
    rs.Update();
    rs.Close();
    addContact(QStringLiteral("Bob"));
    // What another program may have left in the file: a text where a number or a date belongs,
    // a number past 32 bits, a leading byte order mark.
    gDB.ExecuteNative(QStringLiteral("UPDATE CDs SET ContactNumber = '12abc', DateScan = 'soon', "
                                     "Type1 = 5000000000, Title = char(65279) || 'Dr.' WHERE IDCD = 2"));

    rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs ORDER BY IDCD"));
    for (; !rs.AtEOF(); rs.MoveNext())
        expectTypedReadsMatchValues(rs);

    // A field that Update wrote reads back as written, before and after a move backwards.
    rs.MoveFirst();
    rs.Edit();
    rs.SetValue(QStringLiteral("FullName"), QStringLiteral("Ann"));
    rs.SetValue(QStringLiteral("ContactNumber"), 7);
    rs.Update();
    QString name;
    rs.AppendText(rs.FieldIndex(QStringLiteral("FullName")), name);
    EXPECT_EQ(name, QStringLiteral("Ann"));
    EXPECT_EQ(rs.LongAt(rs.FieldIndex(QStringLiteral("ContactNumber"))), 7);
    rs.MoveLast();
    expectTypedReadsMatchValues(rs);
    rs.MovePrevious();
    expectTypedReadsMatchValues(rs);
    EXPECT_EQ(errorOf([&] { rs.IsNull(rs.FieldCount()); }), dao::errItemNotFound);
    rs.MoveLast();
    rs.MoveNext();
    EXPECT_EQ(errorOf([&] { rs.LongAt(0); }), dao::errNoCurrentRecord);
}

TEST_F(Store, TheFileRefusesWhatJetRefused) {
    addContact(QStringLiteral("Ann"));
    EXPECT_EQ(errorOf([] { gDB.Execute(QStringLiteral("UPDATE CDs SET PhotoExt = '1234567890123456'")); }),
              dao::errFieldTooLong);
    EXPECT_EQ(errorOf([] { gDB.Execute(QStringLiteral("UPDATE CDs SET FullName = ''")); }),
              dao::errZeroLength);
    EXPECT_EQ(errorOf([] { gDB.Execute(QStringLiteral("UPDATE CDs SET Label = ''")); }),
              0); // zero length allowed there
    EXPECT_EQ(
        errorOf([] { gDB.Execute(QStringLiteral("INSERT INTO Categories (ID, Name) VALUES (3, 'Twin')")); }),
        dao::errDuplicateKey);
    EXPECT_EQ(errorOf([] { gDB.Execute(QStringLiteral("SELECT Count(*) FROM CDs")); }), 3065);
    EXPECT_EQ(errorOf([] { gDB.OpenRecordset(QStringLiteral("SELECT * FROM Nowhere")); }),
              dao::errItemNotFound);
    EXPECT_EQ(errorOf([] { gDB.OpenRecordset(QStringLiteral("SELECT Missing FROM CDs")); }),
              dao::errItemNotFound);
    EXPECT_EQ(errorOf([] {
                  gDB.OpenRecordset(QStringLiteral("SELECT Count(*) FROM CDs"), dao::dbOpenSnapshot).Edit();
              }),
              dao::errNotUpdatable);
    // A text of exactly the field's size is fine, and so is one with characters beyond ASCII.
    EXPECT_EQ(errorOf([] { gDB.Execute(QStringLiteral("UPDATE CDs SET PhotoExt = 'ééééééééééééééé'")); }), 0);
}

TEST_F(Store, MovingAroundAndFinding) {
    for (const char* n : {"Ann", "Bob", "Cy", "Dan"})
        addContact(QString::fromLatin1(n));
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT IDCD, FullName FROM CDs ORDER BY IDCD"));
    EXPECT_EQ(rs.RecordCount(), 1); // rows reached so far
    rs.MoveLast();
    EXPECT_EQ(rs.RecordCount(), 4);
    EXPECT_EQ(rs[QStringLiteral("FullName")].toString(), QStringLiteral("Dan"));
    rs.MovePrevious();
    EXPECT_EQ(rs.AbsolutePosition(), 2);
    rs.FindFirst(QStringLiteral("FullName Like 'b*' OR IDCD > 3"));
    ASSERT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs[QStringLiteral("IDCD")].toInt(), 2);
    rs.FindNext(QStringLiteral("FullName Like 'b*' OR IDCD > 3"));
    EXPECT_EQ(rs[QStringLiteral("IDCD")].toInt(), 4);
    rs.FindNext(QStringLiteral("FullName Like 'b*' OR IDCD > 3"));
    EXPECT_TRUE(rs.NoMatch());
    rs.MoveFirst();
    EXPECT_EQ(rs[QStringLiteral("FullName")].toString(), QStringLiteral("Ann"));
    rs.Close();
    dao::Recordset none = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs WHERE IDCD = 99"));
    EXPECT_TRUE(none.AtEOF());
    EXPECT_EQ(none.RecordCount(), 0);
    EXPECT_EQ(errorOf([&] { none[QStringLiteral("IDCD")]; }), dao::errNoCurrentRecord);
}

TEST_F(Store, TransactionsCommitNestAndRollBack) {
    gWS.BeginTrans();
    addContact(QStringLiteral("Ann"));
    gWS.BeginTrans();
    addContact(QStringLiteral("Bob"));
    gWS.Rollback(); // only the inner change goes
    gWS.CommitTrans();
    EXPECT_EQ(scalar(QStringLiteral("SELECT Count(*) FROM CDs")).toInt(), 1);
    gWS.BeginTrans();
    gDB.Execute(QStringLiteral("DELETE * FROM CDs"));
    gDB.Execute(QStringLiteral("UPDATE Categories SET Name = 'Renamed' WHERE ID = 3"));
    gWS.Rollback();
    EXPECT_EQ(scalar(QStringLiteral("SELECT Count(*) FROM CDs")).toInt(), 1);
    EXPECT_EQ(scalar(QStringLiteral("SELECT Name FROM Categories WHERE ID = 3")).toString(),
              QStringLiteral("Business"));
    EXPECT_EQ(errorOf([] { gWS.CommitTrans(); }), dao::errTransaction);
}

TEST_F(Store, OneWriterAtATime) {
    addContact(QStringLiteral("Ann"));
    dao::Workspace other;
    EXPECT_EQ(errorOf([&] { other.OpenDatabase(m_path, false, false); }), dao::errLocked);
    EXPECT_EQ(errorOf([&] { other.OpenDatabase(m_path, true, true); }), dao::errLocked);
    // The first holder lost nothing and still writes.
    addContact(QStringLiteral("Bob"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT Count(*) FROM CDs")).toInt(), 2);
    gDB.Close();
    gWS.Close();
    gDBOpen = gWSOpen = false;
    // Readers may share a file; a writer then waits outside.
    dao::Database r1 = other.OpenDatabase(m_path, false, true);
    dao::Workspace third;
    dao::Database r2 = third.OpenDatabase(m_path, false, true);
    EXPECT_EQ(errorOf([&] { third.OpenDatabase(m_path, false, false); }), dao::errLocked);
    EXPECT_EQ(errorOf([&] { r1.Execute(QStringLiteral("DELETE * FROM CDs")); }),
              dao::errPathFile); // read-only
    r1.Close();
    r2.Close();
    dao::Database w = third.OpenDatabase(m_path, false, false);
    EXPECT_TRUE(w.isOpen());
    w.Close();
}

TEST_F(Store, OnlyPhonebooksOpen) {
    gDB.Close();
    gWS.Close();
    gDBOpen = gWSOpen = false;
    auto write = [&](const QString& name, const QByteArray& bytes) {
        QFile f(path(name));
        f.open(QIODevice::WriteOnly);
        f.write(bytes);
        return path(name);
    };
    QFile book(m_path);
    ASSERT_TRUE(book.open(QIODevice::ReadOnly));
    const QByteArray whole = book.readAll();
    sqlite3* other = nullptr;
    sqlite3_open(path(QStringLiteral("other.db")).toUtf8().constData(), &other);
    sqlite3_exec(other, "CREATE TABLE notes(x); INSERT INTO notes VALUES (1);", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    const QStringList files{write(QStringLiteral("text.kvdb"), "just some text, not a phonebook\n"),
                            write(QStringLiteral("empty.kvdb"), QByteArray()),
                            path(QStringLiteral("other.db")),
                            write(QStringLiteral("short.kvdb"), whole.left(50))};
    dao::Workspace ws;
    for (const QString& f : files) {
        EXPECT_EQ(errorOf([&] { ws.OpenDatabase(f, false, false); }), dao::errNotDatabase) << f.toStdString();
    }
    EXPECT_EQ(QFile(path(QStringLiteral("empty.kvdb"))).size(), 0); // nothing was written into it
    EXPECT_EQ(errorOf([&] { ws.OpenDatabase(path(QStringLiteral("missing.kvdb")), false, false); }), 3024);
}

TEST_F(Store, LookupsOfOneValue) {
    const int id = addContact(QStringLiteral("Ann"));
    gDB.Execute(QStringLiteral("UPDATE CDs SET Drive_Folder = '/media/cd' WHERE IDCD = %1").arg(id));
    EXPECT_EQ(mCommon::GetDiskPath(QStringLiteral("ID%1").arg(id)), QStringLiteral("/media/cd"));
    EXPECT_EQ(mCommon::GetDiskPath(QStringLiteral("ID99")), QString());
    gDB.Execute(QStringLiteral(
        "INSERT INTO Paths (IDPATH, IDCD, Path, IsArchive) VALUES (4, 1, '/media/cd/docs', True)"));
    gDB.Execute(QStringLiteral(
        "INSERT INTO Elements (ID, IDPATH, ElementName, IDPATHSELF) VALUES (7, 4, 'a.txt', 70)"));
    bool inside = false;
    EXPECT_EQ(mCommon::GetElementPath(QStringLiteral("ID7"), inside), QStringLiteral("/media/cd/docs/a.txt"));
    EXPECT_TRUE(inside);
    EXPECT_EQ(mCommon::GetElementPath(QStringLiteral("ID8"), inside), QString());
    EXPECT_FALSE(inside);
}

namespace {
// Makes the phonebook refuse every commit that follows a write to CDs: a deferred foreign key is
// checked by COMMIT itself, after the statements went through.
void refuseCommitsAfterContactWrites() {
    gDB.ExecuteNative(QStringLiteral(
        "PRAGMA foreign_keys = ON; CREATE TABLE Vouchers (Name TEXT PRIMARY KEY); "
        "CREATE TABLE Pins (Name TEXT REFERENCES Vouchers (Name) DEFERRABLE INITIALLY DEFERRED); "
        "CREATE TRIGGER pinned AFTER INSERT ON CDs BEGIN INSERT INTO Pins VALUES ('none'); END"));
}
} // namespace

TEST_F(Store, ACommitTheFileRefusesRollsBackAndTheNextSaveGoesThrough) {
    refuseCommitsAfterContactWrites();
    {
        dao::Transaction trans(gWS);
        addContact(QStringLiteral("Ann"));
        EXPECT_EQ(errorOf([&] { trans.Commit(); }), dao::errRelatedRecord);
        EXPECT_EQ(gWS.TransactionLevel(), 0);
    }
    EXPECT_TRUE(sqlite3_get_autocommit(gDB.handle())); // nothing left open in the file
    EXPECT_EQ(scalar(QStringLiteral("SELECT Count(*) FROM CDs")).toInt(), 0);

    // Nested: the inner level is released, the outer commit fails and takes both back.
    gWS.BeginTrans();
    gDB.Execute(QStringLiteral("UPDATE Categories SET Name = 'Renamed' WHERE ID = 3"));
    gWS.BeginTrans();
    addContact(QStringLiteral("Bob"));
    gWS.CommitTrans();
    EXPECT_EQ(errorOf([] { gWS.CommitTrans(); }), dao::errRelatedRecord);
    EXPECT_EQ(gWS.TransactionLevel(), 0);
    EXPECT_EQ(scalar(QStringLiteral("SELECT Name FROM Categories WHERE ID = 3")).toString(),
              QStringLiteral("Business"));

    // The next save, through the guard, reaches the file.
    gDB.ExecuteNative(QStringLiteral("DROP TRIGGER pinned"));
    {
        dao::Transaction trans(gWS);
        addContact(QStringLiteral("Cy"));
        trans.Commit();
    }
    {
        dao::Transaction trans(gWS); // left without Commit: rolled back
        addContact(QStringLiteral("Dan"));
    }
    EXPECT_EQ(scalar(QStringLiteral("SELECT FullName FROM CDs")).toString(), QStringLiteral("Cy"));
    EXPECT_EQ(gWS.TransactionLevel(), 0);
}

TEST_F(Store, ErrorsKeepTheirCauseWhenAnotherProgramLocksTheFile) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(m_path.toUtf8().constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_busy_timeout(gDB.handle(), 0);
    // Reading the tables meets the lock: that is what is reported, never a missing table.
    EXPECT_EQ(errorOf([] { gDB.TableDefs().Item(QStringLiteral("CDs")); }), dao::errLocked);
    EXPECT_EQ(errorOf([] { gDB.TableDefs().Contains(QStringLiteral("CDs")); }), dao::errLocked);
    EXPECT_EQ(errorOf([] { gDB.TableDefs().Names(); }), dao::errLocked);
    EXPECT_EQ(errorOf([] { gDB.OpenRecordset(QStringLiteral("SELECT * FROM Nowhere")); }), dao::errLocked);
    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);

    EXPECT_EQ(gDB.TableDefs().Item(QStringLiteral("cds")).Name, QStringLiteral("CDs"));
    EXPECT_EQ(errorOf([] { gDB.TableDefs().Item(QStringLiteral("Nowhere")); }), dao::errItemNotFound);
    // Statements SQLite cannot prepare: a name the file lacks, or a statement it cannot read.
    EXPECT_EQ(errorOf([] { gDB.Execute(QStringLiteral("INSERT INTO CDs (Nowhere) VALUES (1)")); }),
              dao::errItemNotFound);
    EXPECT_EQ(errorOf([] { gDB.Execute(QStringLiteral("UPDATE CDs SET x = 1 WHERE IDCD = 1")); }),
              dao::errItemNotFound);
    EXPECT_EQ(errorOf([] { gDB.OpenRecordset(QStringLiteral("SELECT c.Nowhere FROM CDs c")); }),
              dao::errItemNotFound);
    EXPECT_EQ(errorOf([] { gDB.OpenRecordset(QStringLiteral("SELECT FullName Title Label FROM CDs")); }),
              dao::errSyntax);
    EXPECT_EQ(errorOf([] { gDB.OpenRecordset(QStringLiteral("SELECT FullName FROM CDs WHERE")); }),
              dao::errSyntax);
    EXPECT_EQ(errorOf([] { gDB.ExecuteNative(QStringLiteral("INSERT INTO CDs (IDCD) VALUES (NULL, 2)")); }),
              dao::errSyntax);
}

TEST_F(Store, ClosingTheFileWithARecordsetOpenLetsTheFileGo) {
    addContact(QStringLiteral("Ann"));
    addContact(QStringLiteral("Bob"));
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs")); // reading: the file is held
    gDB.Close();
    EXPECT_FALSE(rs.isOpen());
    EXPECT_EQ(errorOf([&] { rs.MoveNext(); }), dao::errObjectInvalid);
    EXPECT_EQ(errorOf([&] { rs.Value(0); }), dao::errObjectInvalid);
    gDB = gWS.OpenDatabase(m_path, false, false);
    sqlite3_busy_timeout(gDB.handle(), 0);
    EXPECT_EQ(errorOf([&] { addContact(QStringLiteral("Cy")); }), 0);
    rs.Close(); // after its database: nothing left to finalize
    EXPECT_EQ(scalar(QStringLiteral("SELECT Count(*) FROM CDs")).toInt(), 3);
}

TEST_F(Store, APendingEditOrAdditionGoesWithEveryMoveAndFind) {
    for (const char* n : {"Ann", "Bob", "Cy"})
        addContact(QString::fromLatin1(n));
    auto names = [this] {
        QStringList out;
        dao::Recordset all = gDB.OpenRecordset(QStringLiteral("SELECT FullName FROM CDs ORDER BY IDCD"));
        for (; !all.AtEOF(); all.MoveNext())
            out << all.Text(0);
        return out.join(QLatin1Char(','));
    };
    const std::vector<std::pair<const char*, std::function<void(dao::Recordset&)>>> moves{
        {"FindFirst without a match", [](dao::Recordset& r) { r.FindFirst(QStringLiteral("IDCD = 99")); }},
        {"FindNext", [](dao::Recordset& r) { r.FindNext(QStringLiteral("IDCD > 0")); }},
        {"MoveLast", [](dao::Recordset& r) { r.MoveLast(); }},
        {"MoveFirst", [](dao::Recordset& r) { r.MoveFirst(); }},
        {"MovePrevious", [](dao::Recordset& r) { r.MovePrevious(); }},
    };
    for (const auto& [what, move] : moves) {
        SCOPED_TRACE(what);
        dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs ORDER BY IDCD"));
        rs.MoveNext(); // Bob: every move below leaves his row
        rs.Edit();
        rs.SetValue(QStringLiteral("FullName"), QStringLiteral("Zed"));
        move(rs);
        EXPECT_EQ(errorOf([&] { rs.Update(); }), dao::errUpdateWithoutEdit);
        rs.AddNew();
        rs.SetValue(QStringLiteral("IDCD"), 9);
        move(rs);
        EXPECT_EQ(errorOf([&] { rs.Update(); }), dao::errUpdateWithoutEdit);
    }
    EXPECT_EQ(names(), QStringLiteral("Ann,Bob,Cy"));
}

TEST_F(Store, RowsThatLeaveTheResultLeaveNoPositionBehindThem) {
    for (const char* n : {"Ann", "Bob", "Cy", "Dan"})
        addContact(QString::fromLatin1(n));
    gDB.Execute(QStringLiteral("UPDATE CDs SET City = 'Oslo'"));
    // Dan deleted while streaming: back from the end is the row before him.
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT IDCD, FullName FROM CDs ORDER BY IDCD"));
    rs.MoveNext();
    rs.MoveNext();
    rs.MoveNext();
    rs.Delete();
    rs.MoveNext();
    ASSERT_TRUE(rs.AtEOF());
    rs.MovePrevious();
    ASSERT_FALSE(rs.AtEOF());
    EXPECT_EQ(rs.Text(1), QStringLiteral("Cy"));
    EXPECT_EQ(rs.RecordCount(), 3);
    rs.Close();

    // A row written out of the WHERE: the end comes sooner.
    rs = gDB.OpenRecordset(
        QStringLiteral("SELECT IDCD, FullName, City FROM CDs WHERE City = 'Oslo' ORDER BY IDCD"));
    rs.MoveNext();
    rs.Edit();
    rs.SetValue(QStringLiteral("City"), QStringLiteral("Rome"));
    rs.Update(); // Bob
    rs.MoveNext();
    rs.MoveNext();
    ASSERT_TRUE(rs.AtEOF());
    rs.MovePrevious();
    ASSERT_FALSE(rs.AtEOF());
    EXPECT_EQ(rs.Text(1), QStringLiteral("Cy"));
    rs.MovePrevious();
    EXPECT_EQ(rs.Text(1), QStringLiteral("Ann"));
    rs.MovePrevious();
    EXPECT_TRUE(rs.AtBOF());
    EXPECT_EQ(errorOf([&] { rs.Value(0); }), dao::errNoCurrentRecord);
}

TEST_F(Store, FaultHooksEndWithTheirScope) {
    try {
        dao::ScopedHooks fault;
        fault->growthPages = 3;
        fault->refuseOpen = [](const QString&, bool) { return qint32(dao::errPermission); };
        EXPECT_EQ(errorOf([&] { dao::Workspace().OpenDatabase(m_path, false, true); }), dao::errPermission);
        throw std::runtime_error("a test that fails half-way");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(dao::Hooks().growthPages, 0);
    EXPECT_FALSE(dao::Hooks().refuseOpen);
}
