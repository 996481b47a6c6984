// The stored form of a contact's photo: the file's bytes whole at the front, then one filler byte
// for each full block and one more; and the byte copy that WriteBLOB makes of a stored field.
#include "core/error.h"
#include "core/globals.h"
#include "phonebook/storedphoto.h"
#include "support/fixture.h"

#include <QBuffer>
#include <QFile>

using fixture::PhonebookTest;
using namespace Qt::StringLiterals;

namespace {

// Bytes that differ from block to block, so that a misplaced block shows.
QByteArray pattern(qint64 length) {
    QByteArray bytes(length, '\0');
    for (qint64 i = 0; i < length; ++i)
        bytes[i] = char((i * 7 + i / 32768) % 251 + 1);
    return bytes;
}

} // namespace

TEST(StoredPhoto, FileBytesStandWholeAtTheFrontFollowedByTheFiller) {
    struct Case {
        qint64 length, stored;
    };
    // 32768 bytes: no fragment and one block, read as 1 + 32769 bytes.
    for (const Case& c : {Case{0, 1}, Case{1, 2}, Case{32767, 32768}, Case{32768, 32770}, Case{32769, 32771},
                          Case{100000, 100004}, Case{512000, 512016}}) {
        const QByteArray file = pattern(c.length);
        const QByteArray stored = mPhotoStore::StoredPhotoBytes(file);
        EXPECT_EQ(stored.size(), c.stored) << c.length;
        EXPECT_EQ(mPhotoStore::StoredPhotoLength(c.length), c.stored) << c.length;
        EXPECT_EQ(stored.left(c.length), file) << c.length;
        EXPECT_EQ(mPhotoStore::PhotoFileBytes(stored, double(c.length)), file) << c.length;
    }
    // The first block's buffer is new, so the filler of a single block is zero.
    EXPECT_EQ(mPhotoStore::StoredPhotoBytes(pattern(32768)).right(2), QByteArray(2, '\0'));
}

TEST(StoredPhoto, FillerOfLaterBlocksRepeatsWhatTheBufferHeld) {
    // Two blocks and a fragment of 5: the last block ends 3 bytes short of its buffer, which
    // still holds the tail of the block before.
    const QByteArray file = pattern(2 * 32768 + 5);
    const QByteArray stored = mPhotoStore::StoredPhotoBytes(file);
    ASSERT_EQ(stored.size(), file.size() + 3);
    const qint64 blockStart = 6 + 32769; // fragment + 1, then the first block
    EXPECT_EQ(stored.right(3), stored.mid(blockStart - 3, 3));
}

TEST(StoredPhoto, ReadsBlockByBlockAndFailsOnAShortFile) {
    const QByteArray file = pattern(3 * 32768 + 10);
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    int yields = 0;
    const QByteArray stored = mPhotoStore::StoredPhotoBytes(buffer, file.size(), [&] { ++yields; });
    EXPECT_EQ(yields, 3);
    EXPECT_EQ(stored.left(file.size()), file);

    QBuffer shorter;
    shorter.setData(file.left(40000));
    shorter.open(QIODevice::ReadOnly);
    EXPECT_THROW(mPhotoStore::StoredPhotoBytes(shorter, file.size()), HuntERR::Error);
}

TEST(StoredPhoto, FileBytesOfAFieldWithoutAUsableSizeAreTheWholeField) {
    const QByteArray stored = "abcdef";
    EXPECT_EQ(mPhotoStore::PhotoFileBytes(stored, QVariant()), stored);
    EXPECT_EQ(mPhotoStore::PhotoFileBytes(stored, 99.0), stored);
    EXPECT_EQ(mPhotoStore::PhotoFileBytes(stored, -1.0), stored);
    EXPECT_EQ(mPhotoStore::PhotoFileBytes(stored, 4.0), "abcd");
}

using StoredPhotoRow = PhonebookTest;

TEST_F(StoredPhotoRow, WriteBLOBCopiesTheFieldFillerIncludedAndWritesNothingForAnEmptyOne) {
    const int id = addContact(u"Ann"_s);
    const QByteArray file = pattern(70000);
    {
        dao::Recordset rs = gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(id));
        rs.Edit();
        rs.AppendChunk(u"Photo"_s, mPhotoStore::StoredPhotoBytes(file));
        rs.SetValue(u"PhotoSize"_s, double(file.size()));
        rs.Update();
    }
    dao::Recordset rs =
        gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(id), dao::dbOpenSnapshot);
    const QString out = path(u"photo.out"_s);
    mPhotoStore::WriteBLOB(rs, u"Photo"_s, out);
    QFile written(out);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    const QByteArray copy = written.readAll();
    EXPECT_EQ(copy.size(), 70003);
    EXPECT_EQ(copy, rs[u"Photo"_s].toByteArray());
    EXPECT_EQ(mPhotoStore::PhotoFileBytes(copy, rs[u"PhotoSize"_s]), file);
    rs.Close();

    // A Null or empty field leaves no file behind.
    const int bob = addContact(u"Bob"_s);
    gDB.Execute(u"UPDATE CDs SET Photo = X'' WHERE IDCD = %1"_s.arg(bob));
    for (int who : {id, bob}) {
        if (who == id) gDB.Execute(u"UPDATE CDs SET Photo = Null WHERE IDCD = %1"_s.arg(id));
        dao::Recordset r =
            gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(who), dao::dbOpenSnapshot);
        const QString none = path(u"none%1"_s.arg(who));
        mPhotoStore::WriteBLOB(r, u"Photo"_s, none);
        EXPECT_FALSE(QFile::exists(none)) << who;
    }
}
