#pragma once
// A modal window of the program: it takes its remembered place when it loads and stores it once
// when it ends, however it ends, with the unload running as an event procedure. As it closes it
// fades out when the preference asks for it (WindowAnimation1, over AnimationSpeed ms).

#include <QByteArray>
#include <QDialog>

class QPushButton;

class FormDialog : public QDialog {
    Q_OBJECT
  public:
    // `formName` is the window's object name and chooses the settings section of its place.
    FormDialog(const QString& formName, QWidget* parent);

    // Stores the window's place; runs once.
    void Form_Unload();

  protected:
    // The remembered place, at load.
    void RestorePlace();
    // What a form lets go of before its place is stored.
    virtual void BeforeUnload() {}
    void done(int result) override;
    // A button that never takes Enter for itself.
    QPushButton* MakeButton(const char* name);

  private:
    QByteArray m_unloadPlace; // "<form>.Form_Unload"
    bool m_unloaded = false;
};
