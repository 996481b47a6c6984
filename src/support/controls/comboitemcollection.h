#pragma once
// The ComboItems of an ImageCombo, by place from 1 or by key.

#include <QHash>
#include <QString>
#include <vector>

class ComboItem;
class ImageCombo;

class ComboItemCollection {
  public:
    ~ComboItemCollection();

    // Adds an entry at `index` (from 1; 0 or past the end appends). Throws HuntERR::Error 35602
    // for a key already there; an empty key is allowed and never found by key.
    ComboItem* Add(int index, const QString& key, const QString& text, const QString& image = QString(),
                   const QString& selImage = QString(), int indentation = 0);
    ComboItem* Add(const QString& key, const QString& text, const QString& image = QString(),
                   const QString& selImage = QString(), int indentation = 0) {
        return Add(0, key, text, image, selImage, indentation);
    }

    ComboItem* Item(const QString& key) const { return m_byKey.value(key, nullptr); }
    ComboItem* operator()(const QString& key) const { return Item(key); }
    ComboItem* Item(int index) const {
        return index >= 1 && index <= Count() ? m_items[size_t(index - 1)] : nullptr;
    }
    ComboItem* operator()(int index) const { return Item(index); }
    bool Exists(const QString& key) const { return m_byKey.contains(key); }
    int Count() const { return int(m_items.size()); }

    void Remove(const QString& key);
    void Remove(int index);
    void Clear();

    std::vector<ComboItem*>::const_iterator begin() const { return m_items.begin(); }
    std::vector<ComboItem*>::const_iterator end() const { return m_items.end(); }

  private:
    friend class ImageCombo;
    explicit ComboItemCollection(ImageCombo* combo) : m_combo(combo) {}
    ComboItemCollection(const ComboItemCollection&) = delete;
    ComboItemCollection& operator=(const ComboItemCollection&) = delete;
    void remove(ComboItem* item);

    ImageCombo* m_combo;
    std::vector<ComboItem*> m_items;
    QHash<QString, ComboItem*> m_byKey;
};
