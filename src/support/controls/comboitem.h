#pragma once
// One entry of an ImageCombo: a keyed text with an image and an indentation, so that a combo
// can show a tree. It lives while it stays in its combo.

#include <QString>

class ImageCombo;

class ComboItem {
  public:
    const QString& Key() const { return m_key; }
    int Index() const { return m_index + 1; } // place from 1

    const QString& Text() const { return m_text; }
    void SetText(const QString& text);
    // Image keys in the combo's ImageList; the selected image shows in the closed combo while
    // this entry is chosen (the image when it is empty).
    const QString& Image() const { return m_image; }
    void SetImage(const QString& key);
    void SetSelImage(const QString& key);
    // Levels of indentation of the entry in the list, from 0.
    int Indentation() const { return m_indentation; }
    const QString& Tag() const { return m_tag; }
    void SetTag(const QString& tag) { m_tag = tag; }

    bool Selected() const;
    void SetSelected(bool selected);

  private:
    friend class ComboItemCollection;
    friend class ImageCombo;
    ComboItem(ImageCombo* combo, int index, const QString& key, const QString& text)
        : m_combo(combo), m_index(index), m_key(key), m_text(text) {}
    ComboItem(const ComboItem&) = delete;
    ComboItem& operator=(const ComboItem&) = delete;

    ImageCombo* m_combo;
    int m_index;
    QString m_key;
    QString m_text;
    QString m_image;
    QString m_selImage;
    QString m_tag;
    int m_indentation = 0;
};
