// The tree control: keyed nodes, walking, removal, sorts, selection, label editing and hits.
#include "core/error.h"
#include "support/controls/imagelist.h"
#include "support/controls/treeview.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

int errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const HuntERR::Error& e) {
        return e.Number();
    }
    return 0;
}

QStringList childKeys(const TreeNode* parent) {
    QStringList keys;
    for (TreeNode* n = parent->Child(); n; n = n->Next())
        keys << n->Key();
    return keys;
}

// Root "ID0" with Family (ID3: Paris ID7, berlin ID8) and Work (ID4), filled as a category tree.
void fillFamily(TreeView& tv) {
    tv.Nodes.Add(QString(), tvwFirst, "ID0", "All", "ROOT");
    tv.Nodes.Add("ID0", tvwChild, "ID4", "Work", "CAT");
    tv.Nodes.Add("ID0", tvwChild, "ID3", "Family", "CAT");
    tv.Nodes.Add("ID3", tvwChild, "ID7", "Paris", "CAT");
    tv.Nodes.Add("ID3", tvwChild, "ID8", "berlin", "CAT");
}

} // namespace

TEST(TreeView, NodesWalkByParentNextAndRoot) {
    TreeView tv;
    fillFamily(tv);
    TreeNode* paris = tv.Nodes("ID7");
    ASSERT_NE(paris, nullptr);
    EXPECT_EQ(tv.Nodes.Count(), 5);
    EXPECT_EQ(paris->Parent()->Key(), "ID3");
    EXPECT_EQ(paris->Root()->Key(), "ID0");
    EXPECT_EQ(paris->Next()->Key(), "ID8");
    EXPECT_EQ(paris->Next()->Next(), nullptr);
    EXPECT_EQ(paris->Previous(), nullptr);
    EXPECT_EQ(paris->LastSibling()->Key(), "ID8");
    EXPECT_EQ(tv.Nodes("ID8")->FirstSibling(), paris);
    EXPECT_EQ(tv.Nodes("ID0")->Parent(), nullptr);
    EXPECT_EQ(tv.Nodes("ID0")->Root()->Key(), "ID0");
    EXPECT_EQ(tv.Nodes("ID0")->Children(), 2);
    EXPECT_EQ(childKeys(tv.Nodes("ID0")), QStringList({"ID4", "ID3"}));

    // The walk of the parent pedigree: from a node up to the root.
    QString pedigree = "ID8E";
    for (TreeNode* n = tv.Nodes("ID8")->Parent(); n; n = n->Parent())
        pedigree.prepend(n->Key() + "E");
    EXPECT_EQ(pedigree, "ID0EID3EID8E");
}

TEST(TreeView, RelationshipsPlaceNodesAmongSiblings) {
    TreeView tv;
    fillFamily(tv);
    tv.Nodes.Add("ID7", tvwNext, "ID20", "after Paris");
    tv.Nodes.Add("ID7", tvwPrevious, "ID21", "before Paris");
    tv.Nodes.Add("ID7", tvwFirst, "ID22", "first");
    tv.Nodes.Add("ID7", tvwLast, "ID23", "last");
    EXPECT_EQ(childKeys(tv.Nodes("ID3")), QStringList({"ID22", "ID21", "ID7", "ID20", "ID8", "ID23"}));
    EXPECT_EQ(tv.Nodes.All().size(), size_t(tv.Nodes.Count()));
    EXPECT_EQ(tv.Nodes.All().front()->Key(), "ID0");
}

TEST(TreeView, LookupAndAddErrors) {
    TreeView tv;
    fillFamily(tv);
    EXPECT_EQ(tv.Nodes("ID99"), nullptr);
    EXPECT_FALSE(tv.Nodes.Exists("ID99"));
    EXPECT_EQ(errorOf([&] { tv.Nodes.Add("ID0", tvwChild, "ID7", "again"); }), 35602);
    EXPECT_EQ(errorOf([&] { tv.Nodes.Add("ID99", tvwChild, "ID50", "orphan"); }), 35601);
    EXPECT_EQ(tv.Nodes.Count(), 5);
    EXPECT_EQ(tv.Nodes("ID7")->Text(), "Paris"); // the refused key left the first node alone
}

TEST(TreeView, RemoveTakesTheSubtreeAndKeepsLookupRight) {
    TreeView tv;
    fillFamily(tv);
    TreeNode* work = tv.Nodes("ID4");
    tv.Nodes.Remove("ID3");
    EXPECT_EQ(tv.Nodes.Count(), 2);
    EXPECT_EQ(tv.Nodes("ID3"), nullptr);
    EXPECT_EQ(tv.Nodes("ID7"), nullptr);
    EXPECT_EQ(tv.Nodes("ID8"), nullptr);
    EXPECT_EQ(tv.Nodes("ID4"), work);
    EXPECT_EQ(work->Next(), nullptr);

    // A removed key may be used again.
    tv.Nodes.Add("ID0", tvwChild, "ID7", "Paris again");
    EXPECT_EQ(tv.Nodes("ID7")->Text(), "Paris again");
    tv.Nodes.Remove("ID404"); // ignored
    tv.Nodes.Clear();
    EXPECT_EQ(tv.Nodes.Count(), 0);
    EXPECT_EQ(tv.Nodes("ID0"), nullptr);
    EXPECT_EQ(tv.SelectedItem(), nullptr);
}

TEST(TreeView, SortedOrdersChildrenByTextAndKeepsNodes) {
    TreeView tv;
    fillFamily(tv);
    TreeNode* family = tv.Nodes("ID3");
    family->SetTag("000000000002");
    tv.Nodes("ID7")->SetTag("000000000005");
    tv.Nodes("ID3")->SetExpanded(true);
    tv.SetSelectedItem(tv.Nodes("ID7"));

    tv.Nodes("ID0")->SetSorted(true);
    family->SetSorted(true);
    EXPECT_EQ(childKeys(tv.Nodes("ID0")), QStringList({"ID3", "ID4"}));
    EXPECT_EQ(childKeys(family), QStringList({"ID8", "ID7"})); // "berlin" before "Paris", case aside
    EXPECT_EQ(tv.Nodes("ID3"), family);
    EXPECT_EQ(family->Tag(), "000000000002");
    EXPECT_EQ(tv.Nodes("ID7")->Tag(), "000000000005");
    EXPECT_TRUE(family->Expanded());
    EXPECT_EQ(tv.SelectedItem()->Key(), "ID7");

    // A child added to a sorted node goes to its place; Sorted false keeps the order.
    tv.Nodes.Add("ID3", tvwChild, "ID9", "London");
    EXPECT_EQ(childKeys(family), QStringList({"ID8", "ID9", "ID7"}));
    family->SetSorted(false);
    tv.Nodes.Add("ID3", tvwChild, "ID10", "Amsterdam");
    EXPECT_EQ(childKeys(family), QStringList({"ID8", "ID9", "ID7", "ID10"}));
}

TEST(TreeView, SortChildrenByCallerOrderPutsBigCountsFirst) {
    TreeView tv;
    fillFamily(tv);
    tv.Nodes.Add("ID3", tvwChild, "ID9", "London");
    tv.Nodes("ID7")->SetText("000000000003");
    tv.Nodes("ID8")->SetText("000000000010");
    tv.Nodes("ID9")->SetText("000000000001");
    tv.Nodes("ID3")->SortChildren(
        [](const TreeNode* a, const TreeNode* b) { return -QString::compare(a->Text(), b->Text()); });
    EXPECT_EQ(childKeys(tv.Nodes("ID3")), QStringList({"ID8", "ID7", "ID9"}));
}

TEST(TreeView, SelectionAndCollapse) {
    TreeView tv;
    fillFamily(tv);
    QSignalSpy clicks(&tv, &TreeView::NodeClick);
    QSignalSpy collapses(&tv, &TreeView::Collapse);
    EXPECT_EQ(tv.SelectedItem(), nullptr);
    tv.Nodes("ID3")->SetExpanded(true);
    tv.SetSelectedItem(tv.Nodes("ID8"));
    EXPECT_EQ(tv.SelectedItem()->Key(), "ID8");
    EXPECT_TRUE(tv.Nodes("ID8")->Selected());
    EXPECT_EQ(clicks.count(), 0); // selecting by code is no click

    // Collapsing a parent of the selection moves the selection onto it first.
    tv.Nodes("ID3")->SetExpanded(false);
    ASSERT_EQ(collapses.count(), 1);
    EXPECT_EQ(collapses.at(0).at(0).value<TreeNode*>(), tv.Nodes("ID3"));
    EXPECT_EQ(tv.SelectedItem()->Key(), "ID3");

    tv.Nodes("ID4")->SetSelected(true);
    EXPECT_EQ(tv.SelectedItem()->Key(), "ID4");
    tv.SetSelectedItem(nullptr);
    EXPECT_EQ(tv.SelectedItem(), nullptr);

    // Removing the selected node leaves no dangling selection behind.
    tv.SetSelectedItem(tv.Nodes("ID7"));
    tv.Nodes.Remove("ID7");
    TreeNode* after = tv.SelectedItem();
    EXPECT_TRUE(after == nullptr || tv.Nodes.Exists(after->Key()));
}

TEST(TreeView, ImagesComeFromTheImageListByKey) {
    ImageList images;
    QPixmap red(16, 16);
    red.fill(Qt::red);
    images.Add("CAT", QIcon(red));
    TreeView tv;
    tv.SetImageList(&images);
    fillFamily(tv);
    TreeNode* paris = tv.Nodes("ID7");
    const auto iconOf = [](const TreeNode* n) { return n->data(0, Qt::DecorationRole).value<QIcon>(); };
    EXPECT_EQ(iconOf(paris).pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
    // "ROOT" was never registered: the neutral placeholder shows; no key, no icon.
    EXPECT_FALSE(iconOf(tv.Nodes("ID0")).isNull());
    tv.Nodes("ID0")->SetImage(QString());
    EXPECT_TRUE(iconOf(tv.Nodes("ID0")).isNull());

    // While selected a node shows its selected image.
    QPixmap blue(16, 16);
    blue.fill(Qt::blue);
    images.Add("CATSEL", QIcon(blue));
    paris->SetSelectedImage("CATSEL");
    tv.SetSelectedItem(paris);
    EXPECT_EQ(iconOf(paris).pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::blue));
}

class TreeViewLabelEdit : public ::testing::Test {
  protected:
    void SetUp() override {
        fillFamily(tv);
        tv.resize(300, 300);
        tv.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&tv));
        tv.SetSelectedItem(tv.Nodes("ID7"));
        QObject::connect(&tv, &TreeView::AfterLabelEdit, [this](bool& cancel, QString& newString) {
            seen << newString;
            seenNull << newString.isNull();
            if (newString == "veto") cancel = true;
            if (!newString.isEmpty()) newString += " (3)";
        });
    }
    // Types `text` into the open label editor and ends with `key`.
    void type(const QString& text, Qt::Key key) {
        QLineEdit* editor = tv.findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, key);
        QCoreApplication::processEvents(); // Enter commits through a queued call
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the closed editor goes
    }
    TreeView tv;
    QStringList seen;
    QList<bool> seenNull;
};

TEST_F(TreeViewLabelEdit, NewTextGoesThroughTheEventAndMayBeChanged) {
    tv.StartLabelEdit();
    EXPECT_TRUE(tv.IsEditingLabel());
    type("Lyon", Qt::Key_Return);
    EXPECT_EQ(seen, QStringList({"Lyon"}));
    EXPECT_EQ(tv.Nodes("ID7")->Text(), "Lyon (3)");
    EXPECT_FALSE(tv.IsEditingLabel());
}

TEST_F(TreeViewLabelEdit, CancelAndEscapeKeepTheOldText) {
    tv.StartLabelEdit();
    type("veto", Qt::Key_Return);
    EXPECT_EQ(tv.Nodes("ID7")->Text(), "Paris");

    tv.StartLabelEdit();
    type("Lyon", Qt::Key_Escape);
    EXPECT_EQ(seen.size(), 2);
    EXPECT_TRUE(seenNull.last());
    EXPECT_EQ(tv.Nodes("ID7")->Text(), "Paris");

    // BeforeLabelEdit may refuse the edit altogether.
    QObject::connect(&tv, &TreeView::BeforeLabelEdit, [](bool& cancel) { cancel = true; });
    tv.StartLabelEdit();
    EXPECT_FALSE(tv.IsEditingLabel());
    EXPECT_EQ(tv.findChild<QLineEdit*>(), nullptr);
}

TEST_F(TreeViewLabelEdit, HitTestClickAndDropHighlight) {
    tv.expandAll();
    const QRect r = tv.visualItemRect(tv.Nodes("ID8"));
    EXPECT_EQ(tv.HitTest(r.center()), tv.Nodes("ID8"));
    EXPECT_EQ(tv.HitTest(5, 290), nullptr);

    QSignalSpy clicks(&tv, &TreeView::NodeClick);
    QTest::mouseClick(tv.viewport(), Qt::LeftButton, {}, r.center());
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks.at(0).at(0).value<TreeNode*>()->Key(), "ID8");
    EXPECT_EQ(tv.SelectedItem()->Key(), "ID8");

    tv.SetDropHighlight(tv.HitTest(r.center()));
    EXPECT_EQ(tv.DropHighlight(), tv.Nodes("ID8"));
    EXPECT_TRUE(tv.Nodes("ID8")->data(0, Qt::BackgroundRole).isValid());
    tv.Nodes.Remove("ID8"); // a removed target is no target
    EXPECT_EQ(tv.DropHighlight(), nullptr);
}

TEST_F(TreeViewLabelEdit, ARightClickSelectsAsAClickDoesThenAsksForTheMenu) {
    tv.expandAll();
    QList<QString> events; // in the order they came
    QObject::connect(&tv, &TreeView::NodeClick, [&](TreeNode* node) { events << "click " + node->Key(); });
    QObject::connect(&tv, &TreeView::ContextMenu, [&](const QPoint& pos) {
        events << "menu " + (tv.HitTest(pos) ? tv.HitTest(pos)->Key() : "-");
    });
    const auto rightClick = [&](const QString& key) {
        const QPoint at = tv.visualItemRect(tv.Nodes(key)).center();
        QTest::mousePress(tv.viewport(), Qt::RightButton, {}, at);
        QContextMenuEvent menu(QContextMenuEvent::Mouse, at, tv.viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(tv.viewport(), &menu);
        QTest::mouseRelease(tv.viewport(), Qt::RightButton, {}, at);
    };
    rightClick("ID4");
    EXPECT_EQ(tv.SelectedItem()->Key(), "ID4");
    EXPECT_EQ(events, QList<QString>({"click ID4", "menu ID4"}));
    // On the node already selected: only the menu.
    events.clear();
    rightClick("ID4");
    EXPECT_EQ(events, QList<QString>({"menu ID4"}));
    // The menu key opens it at the selected node.
    events.clear();
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(1, 1),
                          tv.viewport()->mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(tv.viewport(), &key);
    EXPECT_EQ(events, QList<QString>({"menu ID4"}));
}
