// Opening a phonebook of the Windows version from the main window: asked once, converted with a
// progress window whose Cancel leaves nothing, and the recent list naming the converted file.
#include "formtest.h"

#include "core/language.h"
#include "mainwindow/jetopen.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "preferences/mru.h"
#include "support/controls/listview.h"

#include <QFile>
#include <QProgressDialog>

using namespace mLanguageGobals;

namespace {

class JetOpenTest : public FormTest {
  protected:
    void SetUp() override {
        FormTest::SetUp();
        jet = path(QStringLiteral("book.kvdb"));
        QFile::copy(QStringLiteral(KELVARIN_SOURCE_DIR "/tests/legacy/data/jet-small.mdb"), jet);
        QFile::setPermissions(jet, QFile::ReadOwner | QFile::WriteOwner);
        converted = path(QStringLiteral("book (converted).kvdb"));
        // A phonebook is open before.
        current = path(QStringLiteral("current.kvdb"));
        gDBPath = current;
        ASSERT_TRUE(mLogin::LoginCnn(false));
        gNotConnected = false;
        open();
    }
    void TearDown() override {
        mConvert::SetProgressHook({});
        FormTest::TearDown();
        mMain::Closing();
    }
    QString jet, converted, current;
};

} // namespace

TEST_F(JetOpenTest, AgreedTheConvertedPhonebookOpensAndTakesThePlaceInTheRecentList) {
    fixture::MsgBoxRecorder boxes(vb::vbYes);
    form->OpenPhonebook(jet);
    ASSERT_EQ(boxes.boxes.size(), 1);
    EXPECT_EQ(boxes.boxes[0].text,
              msgJetConvertQuestion + QStringLiteral("\n\n") + msgJetNewFile.arg(converted));
    EXPECT_EQ(gDBPath, converted);
    EXPECT_FALSE(gNotConnected);
    EXPECT_EQ(mMru::MRUFiles.value(0), converted);
    EXPECT_FALSE(mMru::MRUFiles.contains(jet));
    // The list shows the contacts of the file.
    EXPECT_EQ(form->ListView2->ListItems.Count(), 12);
}

TEST_F(JetOpenTest, DeclinedOrCancelledNothingChanges) {
    {
        fixture::MsgBoxRecorder boxes(vb::vbNo);
        form->OpenPhonebook(jet);
        EXPECT_EQ(boxes.boxes.size(), 1);
    }
    EXPECT_EQ(gDBPath, current);
    EXPECT_TRUE(gDBOpen);
    EXPECT_FALSE(QFile::exists(converted));

    // Cancel in the progress window: no new file, no message, the phonebook open before still open.
    int steps = 0;
    mConvert::SetProgressHook([&steps](QProgressDialog& window) {
        if (++steps == 2) window.cancel();
    });
    {
        fixture::MsgBoxRecorder boxes(vb::vbYes);
        form->OpenPhonebook(jet);
        EXPECT_EQ(boxes.boxes.size(), 1);
    }
    EXPECT_EQ(steps, 2);
    EXPECT_FALSE(QFile::exists(converted));
    EXPECT_EQ(gDBPath, current);
    EXPECT_EQ(gDB.Name(), current);

    // A damaged file is said so, and nothing is asked.
    QFile cut(jet);
    ASSERT_TRUE(cut.resize(8192));
    {
        fixture::MsgBoxRecorder boxes(vb::vbYes);
        form->OpenPhonebook(jet);
        ASSERT_EQ(boxes.boxes.size(), 1);
        EXPECT_EQ(boxes.boxes[0].text, msgJetUnreadable.arg(jet));
    }
    EXPECT_EQ(gDB.Name(), current);
    EXPECT_FALSE(QFile::exists(converted));
    EXPECT_EQ(QFile(jet).size(), 8192);
}
