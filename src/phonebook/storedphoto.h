#pragma once
// The form in which a contact's photo is kept in CDs.Photo, shared by everything that stores or
// reads a photo (the card, the photo pane, importers).
//
// The picture file's bytes stand whole at the front of the field, followed by a few filler bytes:
// the file is read as one block of (length mod 32768) + 1 bytes, then length div 32768 blocks of
// 32769 bytes, each read running on from the last, so that length div 32768 + 1 bytes are read
// past the end. Those keep what the block's buffer held before, zero on its first use. Picture
// decoders stop at their own end mark, and PhotoSize holds the file's own length, which stays
// smaller than the field's.

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <functional>

class QIODevice;

namespace dao {
class Recordset;
}

namespace mPhotoStore {

// The block size of the reads and of WriteBLOB's writes.
constexpr qint64 kBlock = 32768;
// The largest picture file the card accepts, in bytes.
constexpr qint64 kMaxPhotoFile = 512000;

// The length of the field that holds a file of `fileLength` bytes.
qint64 StoredPhotoLength(qint64 fileLength);
// The stored bytes of the `length` bytes that `file` holds from where it stands, read block by
// block; `betweenBlocks` runs after each full block (the window's event loop). Throws when
// the file gives fewer bytes than `length`.
QByteArray StoredPhotoBytes(QIODevice& file, qint64 length, const std::function<void()>& betweenBlocks = {});
// The stored bytes of a picture file's bytes.
QByteArray StoredPhotoBytes(const QByteArray& fileBytes);
// The picture file's bytes back from a stored field and its PhotoSize; the whole field when
// PhotoSize is Null or does not fit it.
QByteArray PhotoFileBytes(const QByteArray& stored, const QVariant& PhotoSize);

// Writes field sField of the recordset's current row to the file Destination, block by block, as
// a byte copy of the field, filler included. A Null or empty field writes no file. Throws when the
// file cannot be written.
void WriteBLOB(const dao::Recordset& T, const QString& sField, const QString& Destination);

} // namespace mPhotoStore
