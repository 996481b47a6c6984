#include "support/controls/photofit.h"

#include <QPainter>

namespace mPhoto {

QPixmap FitPhoto(const QPixmap& photo, const QSize& frame) {
    if (photo.isNull() || frame.isEmpty()) return QPixmap();
    QSize size = photo.size();
    if (size.width() > frame.width() || size.height() > frame.height())
        size.scale(frame, Qt::KeepAspectRatio);
    size = size.expandedTo(QSize(1, 1));
    QPixmap shown(size);
    shown.fill(Qt::white);
    QPainter p(&shown);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawPixmap(QRect(QPoint(0, 0), size), photo);
    return shown;
}

} // namespace mPhoto
