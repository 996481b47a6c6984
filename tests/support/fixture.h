#pragma once
// Shared test fixtures: a private home for each test process, a fresh folder and settings store
// for each test, and recorders for the message-box and modal-window seams.

#include "core/seams.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace fixture {

// Called once by the shared main: private HOME, documents and settings for the whole run.
void SetUpProcess();

// Every message box shown while it lives is recorded and answered with `answer`.
class MsgBoxRecorder {
  public:
    explicit MsgBoxRecorder(int answer = vb::vbOK);
    ~MsgBoxRecorder();
    struct Box {
        QString text;
        int buttons;
        int icon;
        QString title;
    };
    QList<Box> boxes;
    QStringList texts() const;
    int answer;

  private:
    MsgBoxHandler m_old;
};

// Every modal window is passed to `act`, which may work the dialog; its answer is the result.
class ModalRecorder {
  public:
    explicit ModalRecorder(std::function<int(QDialog*)> act);
    ~ModalRecorder();
    int shown = 0;

  private:
    std::function<int(QDialog*)> m_act;
    ModalHandler m_old;
};

// A test with its own empty folder and an empty settings store.
class TempDirTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;
    QString path(const QString& name) const { return m_dir.filePath(name); }
    QTemporaryDir m_dir;
};

} // namespace fixture

namespace fixture {

// A test with a fresh phonebook made through the program's own creation path; gWS and gDB are
// open on it, and closed again afterwards.
class PhonebookTest : public TempDirTest {
  protected:
    void SetUp() override;
    void TearDown() override;
    QString m_path;
    // Adds a contact with plain SQL; answers its IDCD.
    int addContact(const QString& fullName, int idc = 1, int idx = 1, int idb = -1,
                   const QString& label = QString());
    // The single value of a query.
    QVariant scalar(const QString& jetSql);
};

} // namespace fixture
