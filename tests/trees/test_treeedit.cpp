// Naming nodes in place on the main window's tree: the label opens without its count, the typed
// name is stored with its paths and the node returns to the name order with its count; Escape
// only gives the count back.
#include "viewfixture.h"

#include "trees/treeedit.h"

#include <QLineEdit>
#include <QTest>

namespace {

class TreeEditTest : public TreeViewTest {
  protected:
    void SetUp() override {
        TreeViewTest::SetUp();
        eva = addContact(u"Eva"_s, 9);
        fill();
        mToolBar::CheckTab(view, u"ALL"_s, u"ID0"_s, true);
        QObject::connect(&tree, &TreeView::AfterLabelEdit, [this](bool& cancel, QString& text) {
            mTV::CatTreeAfterLabelEdit(view, cancel, text);
        });
        tree.resize(300, 400);
        tree.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&tree));
    }
    void type(const QString& text, Qt::Key key) {
        QLineEdit* editor = tree.findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, key);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    int eva = 0;
};

TEST_F(TreeEditTest, ANewNodeIsNamedInPlaceAndTakesItsPlace) {
    tree.SetSelectedItem(tree.Nodes(u"ID3"_s));
    mTV::CatTreeAdd({tree, true}, 0);
    EXPECT_EQ(CurrentNodeKey, u"ID13"_s);
    EXPECT_EQ(label(u"ID13"_s), u"New category"_s);
    EXPECT_EQ(tag(u"ID13"_s), u"000000000000"_s);
    type(u"Auditors"_s, Qt::Key_Return);
    EXPECT_EQ(label(u"ID13"_s), u"Auditors (0)"_s);
    EXPECT_EQ(children(u"ID3"_s).first(), u"ID13"_s);
    EXPECT_EQ(scalar(u"SELECT Catpath FROM Categories WHERE ID = 13"_s).toString(), u"Business/Auditors"_s);

    fill(u"Borrows"_s); // favorites stay one level deep
    tree.SetSelectedItem(tree.Nodes(u"ID1"_s));
    mTV::CatTreeAdd2({tree, true}, u"Club"_s, 2);
    EXPECT_EQ(tree.Nodes(u"ID2"_s)->Parent()->Key(), u"ID0"_s);
    EXPECT_EQ(CurrentNodeKey, u"ID2"_s);
}

TEST_F(TreeEditTest, RenamingKeepsTheCountAndEscapeLeavesTheName) {
    click(u"ID9"_s);
    mTV::CatTreeRename({tree, true});
    EXPECT_EQ(label(u"ID9"_s), u"Family"_s);
    type(u"ignored"_s, Qt::Key_Escape);
    EXPECT_EQ(label(u"ID9"_s), u"Family (1)"_s);

    mTV::CatTreeRename({tree, true});
    type(u"The close family"_s, Qt::Key_Return);
    EXPECT_EQ(label(u"ID9"_s), u"The close family (1)"_s);
    EXPECT_EQ(children(u"ID2"_s).last(), u"ID9"_s);
    EXPECT_EQ(list2.ListItems(u"ID%1"_s.arg(eva))->SubItems(3), u"Personal/The close family"_s);

    fixture::MsgBoxRecorder box;
    click(u"ID0"_s);
    mTV::CatTreeRename({tree, true});
    EXPECT_EQ(box.texts(), QStringList({u"Cannot rename the root item."_s}));
}

} // namespace
