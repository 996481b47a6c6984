#pragma once
// The wide contact card: general information, numbers and photo in three group boxes side by
// side. An enlarged comment makes the whole card taller.

#include "card/cardform.h"

class QGroupBox;

class Form2 : public CardForm {
    Q_OBJECT
  public:
    explicit Form2(QWidget* parent = nullptr);

    QGroupBox* GroupBox2; // "General Info", the home of the comment
    QGroupBox* GroupBox3; // the numbers
    QGroupBox* GroupBox4; // "Photo"

  protected:
    void ShowCommentLarge(bool large) override;
    void PutCommentHome() override {}
};
