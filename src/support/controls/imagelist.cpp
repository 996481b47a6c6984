#include "support/controls/imagelist.h"

#include "support/controls/appcache.h"

#include <QPainter>
#include <QPixmap>

ImageList& ImageList::Shared() {
    return AppCached<ImageList>([] { return ImageList(); });
}

void ImageList::Add(const QString& key, const QIcon& icon) {
    m_icons.insert(key, icon);
}

void ImageList::Remove(const QString& key) {
    m_icons.remove(key);
}

void ImageList::Clear() {
    m_icons.clear();
}

QIcon ImageList::Icon(const QString& key) const {
    if (key.isEmpty()) return QIcon();
    const auto it = m_icons.constFind(key);
    return it != m_icons.constEnd() ? it.value() : NeutralIcon();
}

QIcon ImageList::NeutralIcon() {
    // A grey outlined square: it keeps rows aligned and shows that an icon is missing.
    return AppCached<QIcon>([] {
        QPixmap pm(16, 16);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        p.setPen(QColor(128, 128, 128));
        p.setBrush(QColor(224, 224, 224));
        p.drawRect(2, 2, 11, 11);
        p.end();
        return QIcon(pm);
    });
}
