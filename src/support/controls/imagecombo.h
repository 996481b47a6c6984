#pragma once
// A combo box of keyed entries with images and indentation, as the card uses to offer a tree
// of categories. Nothing is chosen until the user or the code chooses; Click follows a choice
// by the user only.

#include "support/controls/comboitem.h"
#include "support/controls/comboitemcollection.h"

#include <QComboBox>
#include <QString>

class ImageList;

class ImageCombo : public QComboBox {
    Q_OBJECT
  public:
    explicit ImageCombo(QWidget* parent = nullptr);
    ~ImageCombo() override;

    ComboItemCollection ComboItems;

    // The chosen entry, nullptr for none; setting nullptr leaves the combo empty.
    ComboItem* SelectedItem() const;
    void SetSelectedItem(ComboItem* item);
    // The text of the chosen entry. Setting chooses the first entry of that text, or none
    // (an empty text clears the choice).
    QString Text() const;
    void SetText(const QString& text);

    const QString& Tag() const { return m_tag; }
    void SetTag(const QString& tag) { m_tag = tag; }

    ImageList* ImageListPtr() const { return m_images; }
    void SetImageList(ImageList* images); // not owned; nullptr returns to the shared list

  signals:
    void Click();

  private:
    friend class ComboItem;
    friend class ComboItemCollection;
    void itemInserted(ComboItem* item);
    void itemRemoved(int index);
    void itemsClearing();
    void itemChanged(ComboItem* item);
    void refreshIcon(int index);
    void onCurrentChanged(int index);

    ImageList* m_images;
    QString m_tag;
    int m_shownCurrent = -1; // entry whose icon shows as chosen
};
