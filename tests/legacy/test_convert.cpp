// Phonebooks of the Windows version: converted table by table and field by field as their JSON
// describes them, older formats brought up to date, and files that are refused or a conversion
// that is cancelled leaving nothing behind and the original as it was.
#include "access/accessmode.h"
#include "access/form22.h"
#include "core/globals.h"
#include "core/seams.h"
#include "legacy/convert.h"
#include "legacy/jetfile.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "support/fixture.h"

#include <QComboBox>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>

using fixture::TempDirTest;
using mLegacy::ConversionError;

namespace {

const QString kData = QStringLiteral(KELVARIN_SOURCE_DIR "/tests/legacy/data/");

QByteArray bytesOf(const QString& path) {
    QFile f(path);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << path.toStdString();
    return f.readAll();
}

QJsonObject expected(const char* name) {
    return QJsonDocument::fromJson(bytesOf(kData + QLatin1String(name))).object();
}

// The text of a value as the JSON writes it, for the messages of failed comparisons.
std::string shown(const QVariant& v) {
    return v.isNull() ? std::string("null") : v.toString().toStdString();
}

// One stored value against the JSON's: Null, Boolean, number, date, text or long binary.
void expectValue(const QVariant& got, const QJsonValue& want, const QString& where) {
    const std::string at = where.toStdString();
    if (want.isNull()) {
        EXPECT_TRUE(got.isNull()) << at << " holds " << shown(got);
    } else if (want.isBool()) {
        EXPECT_EQ(got.typeId(), QMetaType::Bool) << at;
        EXPECT_EQ(got.toBool(), want.toBool()) << at;
    } else if (want.isDouble()) {
        EXPECT_DOUBLE_EQ(got.toDouble(), want.toDouble()) << at;
    } else if (want.isString() && got.typeId() == QMetaType::QDateTime) {
        EXPECT_EQ(got.toDateTime().toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")), want.toString()) << at;
    } else if (want.isString()) {
        EXPECT_EQ(got.typeId(), QMetaType::QString) << at;
        EXPECT_EQ(got.toString(), want.toString()) << at;
    } else {
        const QJsonObject bin = want.toObject();
        const QByteArray bytes = got.toByteArray();
        EXPECT_EQ(bytes.size(), bin.value(QStringLiteral("binary_length")).toInt()) << at;
        EXPECT_EQ(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex(),
                  bin.value(QStringLiteral("sha256")).toString().toLatin1())
            << at;
        EXPECT_EQ(bytes.left(8).toHex(), bin.value(QStringLiteral("head_hex")).toString().toLatin1()) << at;
        EXPECT_EQ(bytes.right(8).toHex(), bin.value(QStringLiteral("tail_hex")).toString().toLatin1()) << at;
    }
}

// Every table of the open phonebook against `tables`, with its fields in the order `schema`
// gives them; `fix` may change an expected row first.
void expectTables(const QJsonObject& schema, const QJsonObject& tables,
                  const std::function<void(const QString&, QJsonObject&)>& fix = {}) {
    QStringList names = gDB.TableDefs().Names();
    // The upgrade adds the tables of address-book sync to every phonebook it opens for writing.
    EXPECT_EQ(names.removeAll(QStringLiteral("SyncAccount")) + names.removeAll(QStringLiteral("SyncState")),
              2);
    EXPECT_EQ(names.size(), schema.size());
    for (const QString& table : schema.keys()) {
        const QJsonArray fields = schema.value(table).toObject().value(QStringLiteral("fields")).toArray();
        const QJsonArray rows = tables.value(table).toArray();
        dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM ") + table, dao::dbOpenSnapshot);
        ASSERT_EQ(rs.FieldCount(), fields.size()) << table.toStdString();
        for (int i = 0; i < fields.size(); ++i)
            EXPECT_EQ(rs.FieldName(i), fields[i].toObject().value(QStringLiteral("name")).toString())
                << table.toStdString();
        int n = 0;
        for (; !rs.AtEOF(); rs.MoveNext(), ++n) {
            if (n >= rows.size()) break;
            QJsonObject want = rows[n].toObject();
            if (fix) fix(table, want);
            for (int i = 0; i < rs.FieldCount(); ++i)
                expectValue(rs.Value(i), want.value(rs.FieldName(i)),
                            QStringLiteral("%1 row %2 %3").arg(table).arg(n + 1).arg(rs.FieldName(i)));
        }
        EXPECT_EQ(n, rows.size()) << table.toStdString();
        rs.Close();
    }
}

class ConvertTest : public TempDirTest {
  protected:
    // A copy of a test phonebook in the test's folder.
    QString copy(const char* name) {
        const QString to = path(QLatin1String(name));
        QFile::copy(kData + QLatin1String(name), to);
        QFile::setPermissions(to, QFile::ReadOwner | QFile::WriteOwner);
        return to;
    }
    // Converts and opens the result as any phonebook is opened.
    void convertAndOpen(const QString& jet, const QString& to) {
        mLegacy::ConvertJet(jet, to);
        gDBPath = to;
        ASSERT_TRUE(mLogin::LoginCnn(false));
    }
    void TearDown() override {
        mMain::Closing();
        TempDirTest::TearDown();
    }
};

} // namespace

TEST_F(ConvertTest, APhonebookArrivesWholeAndTheOriginalStaysAsItWas) {
    const QString jet = copy("jet-small.mdb");
    const QByteArray before = bytesOf(jet);
    const QString to = mLegacy::ConvertedName(jet);
    EXPECT_EQ(to, path(QStringLiteral("jet-small (converted).kvdb")));
    convertAndOpen(jet, to);
    EXPECT_EQ(bytesOf(jet), before);

    const QJsonObject want = expected("jet-small.expected.json");
    // Opening moves the contact with a Null group to group 1, as it does for any phonebook.
    expectTables(want.value(QStringLiteral("schema")).toObject(),
                 want.value(QStringLiteral("tables")).toObject(), [](const QString& table, QJsonObject& row) {
                     if (table == QLatin1String("CDs") && row.value(QStringLiteral("IDX")).isNull())
                         row.insert(QStringLiteral("IDX"), 1);
                 });

    // The photos are the stored bytes: the picture file and the filler after it.
    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral("SELECT IDCD, Photo, Comment FROM CDs ORDER BY IDCD"), dao::dbOpenSnapshot);
    QMap<int, QByteArray> photos;
    QMap<int, QString> comments;
    for (; !rs.AtEOF(); rs.MoveNext()) {
        photos[rs.Value(0).toInt()] = rs.Value(1).toByteArray();
        comments[rs.Value(0).toInt()] = rs.Value(2).toString();
    }
    rs.Close();
    EXPECT_FALSE(photos.contains(6)); // the deleted row
    EXPECT_EQ(photos[3], bytesOf(kData + QStringLiteral("photo-small.jpg")) + QByteArray(1, '\0'));
    EXPECT_EQ(photos[9], bytesOf(kData + QStringLiteral("photo-32768.jpg")) + QByteArray(2, '\0'));
    EXPECT_GT(comments[13].size(), 14000);
    EXPECT_TRUE(comments[10].contains(QStringLiteral("\r\n")));

    // The passwords keep their ciphertext as stored, byte for byte.
    rs = gDB.OpenRecordset(QStringLiteral("SELECT FullPW, ReadOnlyPW, DefaultIsFull FROM AccessMode"),
                           dao::dbOpenSnapshot);
    ASSERT_FALSE(rs.AtEOF());
    EXPECT_TRUE(rs.Value(0).isNull());
    EXPECT_EQ(rs.Value(1).toString().toLatin1(),
              QByteArray("E5 F1 4C 3E D1 B0 61 1D 30 37 65 7E 13 FB 05 C6 93 A6 3A C3 A2 A1 66 F3"));
    EXPECT_TRUE(rs.Value(2).toBool());
}

TEST_F(ConvertTest, AnOlderFormatIsConvertedAsItStandsThenUpgraded) {
    const QString jet = copy("jet-oldformat.mdb");
    const QByteArray before = bytesOf(jet);
    convertAndOpen(jet, path(QStringLiteral("old.kvdb")));
    EXPECT_EQ(bytesOf(jet), before);
    const QJsonObject after =
        expected("jet-oldformat.expected.json").value(QStringLiteral("after_upgrade")).toObject();
    expectTables(after.value(QStringLiteral("schema")).toObject(),
                 after.value(QStringLiteral("tables")).toObject());
}

TEST_F(ConvertTest, RefusedFilesLeaveNoNewFileAndTheOriginalUnchanged) {
    const QByteArray whole = bytesOf(kData + QStringLiteral("jet-small.mdb"));
    struct Case {
        const char* name;
        QByteArray bytes;
        ConversionError::Kind kind;
    };
    QByteArray otherSchema = whole;
    const QByteArray types = QStringLiteral("Types").toUtf8();
    QByteArray utf16;
    for (char c : types)
        utf16 += QByteArray(1, c) + QByteArray(1, '\0');
    ASSERT_EQ(otherSchema.count(utf16), 1);
    otherSchema.replace(utf16, QByteArray("T\0y\0p\0e\0z\0", 10));
    const Case cases[] = {
        {"cut-in-a-page.kvdb", whole.left(200000), ConversionError::Unreadable},
        {"cut-at-a-page.kvdb", whole.left(49 * 4096), ConversionError::Unreadable},
        {"cut-early.kvdb", whole.left(8192), ConversionError::Unreadable},
        {"other-schema.kvdb", otherSchema, ConversionError::OtherSchema},
        {"not-jet.kvdb", QByteArray("just some text\n"), ConversionError::Unreadable},
    };
    for (const Case& c : cases) {
        const QString jet = path(QLatin1String(c.name));
        QFile f(jet);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(c.bytes);
        f.close();
        const QString to = mLegacy::ConvertedName(jet);
        try {
            mLegacy::ConvertJet(jet, to);
            ADD_FAILURE() << c.name << " was converted";
        } catch (const ConversionError& e) {
            EXPECT_EQ(e.kind(), c.kind) << c.name << ": " << e.Description().toStdString();
        }
        EXPECT_FALSE(QFile::exists(to)) << c.name;
        EXPECT_EQ(bytesOf(jet), c.bytes) << c.name;
        EXPECT_FALSE(gDBOpen);
    }
}

TEST_F(ConvertTest, ACancelledConversionLeavesNothingAndTheOpenPhonebookOpen) {
    const QString open = path(QStringLiteral("open.kvdb"));
    ASSERT_EQ(mAccess::CreateDB(open, false), 1);
    const QString jet = copy("jet-small.mdb");
    const QByteArray before = bytesOf(jet);
    const QString to = mLegacy::ConvertedName(jet);
    int calls = 0;
    try {
        mLegacy::ConvertJet(jet, to, [&calls](qint64, qint64 total) {
            EXPECT_GT(total, 12);
            return ++calls < 2;
        });
        ADD_FAILURE() << "the conversion went on";
    } catch (const ConversionError& e) {
        EXPECT_EQ(e.kind(), ConversionError::Cancelled);
    }
    EXPECT_EQ(calls, 2);
    EXPECT_FALSE(QFile::exists(to));
    EXPECT_EQ(bytesOf(jet), before);
    // The phonebook open before is still the open one, and still works.
    ASSERT_TRUE(gDBOpen);
    EXPECT_EQ(gDB.Name(), open);
    dao::Recordset rs =
        gDB.OpenRecordset(QStringLiteral("SELECT Count(*) FROM Categories"), dao::dbOpenSnapshot);
    EXPECT_EQ(rs.Value(0).toInt(), 13);
    rs.Close();

    // A conversion that goes through also leaves it open.
    mLegacy::ConvertJet(jet, to);
    EXPECT_TRUE(QFile::exists(to));
    EXPECT_EQ(gDB.Name(), open);
}

TEST_F(ConvertTest, TheNewNameIsNumberedAndFallsBackToTheDocumentsFolder) {
    const QString jet = copy("jet-small.mdb");
    QFile(path(QStringLiteral("jet-small (converted).kvdb"))).open(QIODevice::WriteOnly);
    QFile(path(QStringLiteral("jet-small (converted 2).kvdb"))).open(QIODevice::WriteOnly);
    EXPECT_EQ(mLegacy::ConvertedName(jet), path(QStringLiteral("jet-small (converted 3).kvdb")));
    // A folder nobody may write to, not even root.
    EXPECT_EQ(mLegacy::ConvertedName(QStringLiteral("/proc/book.kvdb")),
              QDir(DefaultFolder()).filePath(QStringLiteral("book (converted).kvdb")));
    // An existing target is never overwritten.
    EXPECT_THROW(mLegacy::ConvertJet(jet, path(QStringLiteral("jet-small (converted).kvdb"))),
                 ConversionError);
}

TEST_F(ConvertTest, TheReaderGivesTypedValuesAndSkipsDeletedRows) {
    mLegacy::JetFile jet(kData + QStringLiteral("jet-small.mdb"));
    EXPECT_EQ(jet.Tables().size(), 11);
    const std::vector<mLegacy::JetColumn> cols = jet.Columns(QStringLiteral("CDs"));
    ASSERT_EQ(cols.size(), 66u);
    EXPECT_EQ(cols[1].Type, mLegacy::JetType::Text);
    EXPECT_EQ(cols[1].Size, 50);
    QList<int> ids;
    jet.ReadRows(QStringLiteral("CDs"), [&](const QVariantList& v) {
        ids << v[0].toInt();
        EXPECT_EQ(v[9].typeId(), QMetaType::Bool);
        EXPECT_EQ(v[21].typeId(), QMetaType::QDateTime);
    });
    EXPECT_EQ(ids, (QList<int>{1, 2, 3, 4, 5, 7, 8, 9, 10, 11, 12, 13}));
}

TEST_F(ConvertTest, TheReadOnlyPasswordOfTheWindowsVersionStillOpensTheConvertedFile) {
    const QString to = path(QStringLiteral("small.kvdb"));
    convertAndOpen(copy("jet-small.mdb"), to);
    EXPECT_TRUE(mMain::NeedPassword(true, false)); // Read-only access has its password
    gPasswordAccepted = false;
    {
        fixture::MsgBoxRecorder refused(vb::vbOK);
        Form22 wrong(true, false);
        wrong.fdPW->setText(QStringLiteral("Reader")); // case counts
        wrong.bnOK_Click();
        EXPECT_FALSE(gPasswordAccepted);
        EXPECT_EQ(refused.boxes.size(), 1);
    }
    Form22 right(true, false);
    ASSERT_EQ(right.cmbMode->currentIndex(), 1);
    right.fdPW->setText(QStringLiteral("reader"));
    right.bnOK_Click();
    EXPECT_TRUE(gPasswordAccepted);
    EXPECT_TRUE(gReadOnlyMode);
    gReadOnlyMode = false;
    gPasswordAccepted = false;
}
