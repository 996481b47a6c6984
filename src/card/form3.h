#pragma once
// The contact card with tabs: general information, numbers, photo, and a fourth page for the
// comment while the comment is enlarged.

#include "card/cardform.h"

class QTabWidget;
class QVBoxLayout;

class Form3 : public CardForm {
    Q_OBJECT
  public:
    explicit Form3(QWidget* parent = nullptr);

    QTabWidget* TabControl1;
    QWidget* TabControlPage1; // "General Info"
    QWidget* TabControlPage2; // the numbers
    QWidget* TabControlPage3; // "Photo"
    QWidget* TabControlPage4; // "Comment", shown while the comment is enlarged

  protected:
    void ShowCommentLarge(bool large) override;
    void ShowFirstPage() override;
    void PutCommentHome() override;

  private:
    void moveComment(QVBoxLayout* to);

    QVBoxLayout* m_commentHome; // the comment box's place on the first page
    QVBoxLayout* m_commentPage; // its place on the fourth page
};
