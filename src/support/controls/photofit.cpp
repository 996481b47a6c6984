#include "support/controls/photofit.h"

#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <cmath>

namespace mPhoto {

void AdjustImageDimensions(int& ImageWidth, int& ImageHeight, int DestWidth, int DestHeight) {
    if (ImageWidth > DestWidth && ImageWidth > 0) {
        const float r = float(DestWidth) / float(ImageWidth);
        ImageWidth = int(std::lround(ImageWidth * r));
        ImageHeight = int(std::lround(ImageHeight * r));
    }
    if (ImageHeight > DestHeight && ImageHeight > 0) {
        const float r = float(DestHeight) / float(ImageHeight);
        ImageWidth = int(std::lround(ImageWidth * r));
        ImageHeight = int(std::lround(ImageHeight * r));
    }
}

QPixmap FitPhoto(const QPixmap& photo, const QSize& frame) {
    if (photo.isNull() || frame.isEmpty()) return QPixmap();
    int width = photo.width(), height = photo.height();
    AdjustImageDimensions(width, height, frame.width(), frame.height());
    const QSize size = QSize(width, height).expandedTo(QSize(1, 1));
    QPixmap shown(size);
    shown.fill(Qt::white);
    // The smooth scaler of QImage averages the source area when it shrinks, which keeps fine
    // detail better than a filtered draw.
    const QImage scaled = size == photo.size()
                              ? photo.toImage()
                              : photo.toImage().scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter p(&shown);
    p.drawImage(QPoint(0, 0), scaled);
    return shown;
}

bool LoadPicture(const QString& path, QPixmap& picture) {
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    if (image.isNull()) return false;
    picture = QPixmap::fromImage(image);
    return true;
}

} // namespace mPhoto
