#pragma once
// Icons of the controls by key ("CAT", "BOX", "ROOT", ...). Trees, lists and image combos keep
// only the key of an image and ask their list for the icon each time they paint, so an icon
// registered after the items were made still shows. A key that was never registered gets a
// neutral placeholder; an empty key means no image.

#include <QHash>
#include <QIcon>
#include <QString>

class ImageList {
  public:
    ImageList() = default;

    // The list the controls use unless they are given another one.
    static ImageList& Shared();

    void Add(const QString& key, const QIcon& icon); // replaces an icon of the same key
    void Remove(const QString& key);
    void Clear();
    bool Exists(const QString& key) const { return m_icons.contains(key); }
    int Count() const { return m_icons.size(); }

    // The icon of `key`; the neutral placeholder for an unknown key, a null icon for "".
    QIcon Icon(const QString& key) const;

  private:
    // The placeholder shown for keys that nobody registered.
    static QIcon NeutralIcon();

    QHash<QString, QIcon> m_icons;
};
