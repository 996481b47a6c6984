#pragma once
// The window a start without a phonebook shows over the main window: which file could not be
// opened and why, and the two ways on, Open and New.

#include <QDialog>
#include <QString>
#include <QStringList>

class QLabel;
class QPushButton;

class FormNoPhonebook : public QDialog {
    Q_OBJECT
  public:
    // The answers of the window.
    enum Choice { ChoiceClose = 0, ChoiceOpen = 1, ChoiceNew = 2 };

    explicit FormNoPhonebook(const QString& reason, QWidget* parent = nullptr);

    QString Reason() const;
    QPushButton* OpenButton = nullptr;
    QPushButton* NewButton = nullptr;
    QPushButton* CloseButton = nullptr;

  private:
    QLabel* m_reason = nullptr;
};

namespace mMain {
// One plain sentence on why `path` could not be opened: a folder, a missing folder, a missing
// file; otherwise that it could not be opened, followed by what the opening itself reported.
QString WhyNotOpened(const QString& path, const QStringList& reported);
} // namespace mMain
