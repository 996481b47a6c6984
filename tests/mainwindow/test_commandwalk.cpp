// Every command of the main window reaches an action through the dispatcher: the menus, the
// toolbars, the pop-ups, the column pickers and the tray menu, walked id by id with every dialog,
// message and hand-off to the desktop answered.
#include "formtest.h"

#include "app/mmain.h"
#include "contactlist/columns.h"
#include "core/cfiledialog.h"
#include "core/commandids.h"
#include "core/desktop.h"
#include "core/seams.h"
#include "mainwindow/connection.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "preferences/mru.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"

#include <QFont>
#include <QMenu>
#include <QSet>

namespace {

class CommandWalk : public FormTest {
  protected:
    void TearDown() override {
        CFileDialog::SetHandler({});
        SetFontHandler({});
        SetShellHandler({});
        mCommon::SetFileManagerHandler({});
        FormTest::TearDown();
        mMain::Closing();
        mMru::ClearMRUList();
        gDBPath.clear();
        gNotConnected = true;
    }
};

} // namespace

TEST_F(CommandWalk, EveryCommandIdReachesAnAction) {
    gDBPath = path(QStringLiteral("walk.kvdb"));
    ASSERT_EQ(mAccess::CreateDB(gDBPath, false), 1);
    gDB.Execute(QStringLiteral("INSERT INTO CDs (IDCD, ContactNumber, FullName, IDC, IDX, IDB, Label) "
                               "VALUES (1, 1, 'Ann Archer', 1, 1, -1, 'A')"));
    open();
    mLV::IniList(*form->ListView1, mLV::lcDetails);
    mLV::IniList(*form->ListView2, mLV::lcContacts);
    mCommon::NotConnected(false);
    form->ShowPhonebook();

    // Nothing waits for a person and nothing leaves the test.
    fixture::MsgBoxRecorder boxes(vb::vbNo);
    fixture::ModalRecorder dialogs([](QDialog*) { return 0; });
    CFileDialog::SetHandler([](CFileDialog&, bool) { return false; });
    SetFontHandler([](QFont&, QWidget*) { return false; });
    QStringList handed;
    SetShellHandler([&handed](const QString& target) {
        handed << target;
        return true;
    });
    mCommon::SetFileManagerHandler([](const QString&) { return true; });

    const QList<int> ids = form->CommandBars1->Ids();
    ASSERT_GT(ids.size(), 150);
    QList<int> withoutAction;
    // The two ways out come last; the toolbar list is made of the toolbars' own switches.
    const QList<int> last = {cmd::TrayExit, cmd::FileExit};
    auto walk = [&](int id) {
        CommandBarAction* control = form->CommandBars1->FindAction(id);
        ASSERT_NE(control, nullptr) << id;
        if (!form->Dispatch(*control)) withoutAction << id;
    };
    for (int id : ids)
        if (id != cmd::ToolbarList && !last.contains(id)) walk(id);
    for (int id : last)
        walk(id);

    EXPECT_TRUE(withoutAction.isEmpty())
        << withoutAction.size() << " without an action, the first " << withoutAction.value(0);
    // The walk met the desktop (help, web site, mail, feedback) and closed the window at the end.
    EXPECT_TRUE(handed.contains(mCommon::ProductWebSite()));
    EXPECT_GT(dialogs.shown, 10);
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(gDBOpen);
}
