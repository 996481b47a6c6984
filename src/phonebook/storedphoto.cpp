#include "phonebook/storedphoto.h"

#include "core/error.h"
#include "phonebook/store/dao.h"

#include <QBuffer>
#include <QFile>
#include <algorithm>

namespace mPhotoStore {

namespace {

// Reads up to buffer.size() bytes into the front of `buffer`; what the file does not fill keeps
// what the buffer held.
void readInto(QIODevice& file, QByteArray& buffer, qint64& left) {
    const qint64 want = std::min<qint64>(buffer.size(), left);
    if (want <= 0) return;
    const qint64 got = file.read(buffer.data(), want);
    if (got != want) throw HuntERR::Error(62, QStringLiteral("Input past end of file."));
    left -= got;
}

} // namespace

qint64 StoredPhotoLength(qint64 fileLength) {
    return fileLength + fileLength / kBlock + 1;
}

QByteArray StoredPhotoBytes(QIODevice& file, qint64 length, const std::function<void()>& betweenBlocks) {
    const qint64 chunks = length / kBlock;
    const qint64 fragment = length % kBlock;
    QByteArray stored;
    stored.reserve(StoredPhotoLength(length));
    qint64 left = length;
    QByteArray first(fragment + 1, '\0');
    readInto(file, first, left);
    stored += first;
    QByteArray block(kBlock + 1, '\0');
    for (qint64 i = 0; i < chunks; ++i) {
        readInto(file, block, left);
        stored += block;
        if (betweenBlocks) betweenBlocks();
    }
    return stored;
}

QByteArray StoredPhotoBytes(const QByteArray& fileBytes) {
    QBuffer buffer;
    buffer.setData(fileBytes);
    buffer.open(QIODevice::ReadOnly);
    return StoredPhotoBytes(buffer, fileBytes.size());
}

QByteArray PhotoFileBytes(const QByteArray& stored, const QVariant& PhotoSize) {
    bool ok = false;
    const qint64 size = PhotoSize.isNull() ? -1 : qint64(PhotoSize.toDouble(&ok));
    if (!ok || size < 0 || size > stored.size()) return stored;
    return stored.left(size);
}

void WriteBLOB(const dao::Recordset& T, const QString& sField, const QString& Destination) {
    HUNT_PLACE("mPhoto.WriteBLOB(sField,Destination)", sField, Destination);
    const qint64 size = T.FieldSize(sField);
    if (size <= 0) return;
    const qint64 chunks = size / kBlock;
    const qint64 fragment = size % kBlock;
    QFile file(Destination);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw HuntERR::Error(75, QStringLiteral("Path/File access error: ") + file.errorString());
    auto put = [&](qint64 offset, qint64 length) {
        const QByteArray bytes = T.GetChunk(sField, offset, length);
        if (file.write(bytes) != bytes.size())
            throw HuntERR::Error(75, QStringLiteral("Path/File access error: ") + file.errorString());
    };
    put(0, fragment);
    for (qint64 i = 1; i <= chunks; ++i)
        put((i - 1) * kBlock + fragment, kBlock);
    file.close();
}

} // namespace mPhotoStore
