#include "card/photoload.h"

#include "core/globals.h"
#include "phonebook/store/dao.h"
#include "phonebook/storedphoto.h"
#include "support/controls/photofit.h"

#include <QFile>

namespace mCard {

namespace {

// Removes the temporary file when the load ends, also when it fails.
class TempFileGuard {
  public:
    explicit TempFileGuard(const QString& path) : m_path(path) {}
    ~TempFileGuard() { QFile::remove(m_path); }
    TempFileGuard(const TempFileGuard&) = delete;
    TempFileGuard& operator=(const TempFileGuard&) = delete;

  private:
    QString m_path;
};

} // namespace

StoredPhoto LoadStoredPhoto(const dao::Recordset& rstWork, QPixmap& picImage, const QPixmap& imNoImage) {
    if (gPhotoTempFile.isEmpty()) return StoredPhoto::NotRead;
    const QString field = QStringLiteral("Photo");
    if (rstWork[field].isNull()) {
        picImage = imNoImage;
        return StoredPhoto::None;
    }
    if (rstWork.FieldSize(field) == 0) return StoredPhoto::Stored;
    TempFileGuard removeAfter(gPhotoTempFile);
    mPhotoStore::WriteBLOB(rstWork, field, gPhotoTempFile);
    if (!mPhoto::LoadPicture(gPhotoTempFile, picImage)) picImage = imNoImage;
    return StoredPhoto::Stored;
}

} // namespace mCard
