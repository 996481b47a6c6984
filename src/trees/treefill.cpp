#include "trees/treefill.h"

#include "core/error.h"
#include "core/globals.h"
#include "phonebook/catpath.h"
#include "support/controls/treeview.h"
#include "support/helpers/values.h"
#include "trees/counters.h"
#include "trees/treelabels.h"
#include "trees/treesort.h"
#include "trees/viewstate.h"

namespace mTV {

namespace {

// No painting of the tree while it is rebuilt.
class PaintBlock {
  public:
    explicit PaintBlock(QWidget& w) : m_w(w), m_was(w.updatesEnabled()) { m_w.setUpdatesEnabled(false); }
    ~PaintBlock() { m_w.setUpdatesEnabled(m_was); }
    PaintBlock(const PaintBlock&) = delete;
    PaintBlock& operator=(const PaintBlock&) = delete;

  private:
    QWidget& m_w;
    bool m_was;
};

} // namespace

QString RootCountQuery() {
    return QStringLiteral("SELECT Count(CDs.IDC) AS [CNTC], Sum(IIf([IDB]>=0,1,0)) AS CNTB, "
                          "Sum(IIf(Label Like '%1',1,0)) AS CNTCC, Sum(IIf(Label Like '%1',1,0)) AS CNTCX, "
                          "Sum(IIf(Label Like '%1',IIf([IDB]>=0,1,0),0)) AS CNTBB FROM CDs")
        .arg(LetterPattern(CurrentLetter));
}

qint32 RootCNT(qint16 mode) {
    HUNT_PLACE("mTV.RootCNT(mode)", mode);
    dao::Recordset rs = gDB.OpenRecordset(RootCountQuery(), dao::dbOpenSnapshot);
    qint32 count = 0;
    // The sums are Null on an empty table.
    if (!rs.AtEOF() && rs[QStringLiteral("CNTCC")].toLongLong() > 0) {
        const char* field = mode == 0 ? "CNTCC" : mode == 1 ? "CNTCX" : "CNTBB";
        count = rs[QLatin1String(field)].toInt();
    }
    rs.Close();
    return count;
}

void CategoryFill(const TreeForm& frm, qint16 mode, qint64 m_hwndTV) {
    HUNT_PLACE("mTV.CategoryFill(frm,mode,m_hwndTV)", frm, mode, m_hwndTV);
    TreeView& tree = frm.CatTree;
    const bool counts = frm.IsMain;
    PaintBlock paint(tree);
    tree.Nodes.Clear();
    tree.SetTag(QString());

    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral("SELECT %1.ID, %1.Name, %1.IDPARENT, %1.Pedigree FROM %1 ORDER BY %1.Pedigree")
            .arg(TreeTable(mode)),
        dao::dbOpenSnapshot);
    TreeNode* root = nullptr;
    const QVariant empty = QVariant(QString());
    // Ordered by Pedigree, a parent comes before its children, so its node is always there.
    for (; !rs.AtEOF(); rs.MoveNext()) {
        const QString key = QLatin1String("ID") + rs.Text(0);
        const QString name = mCommon::Nz(rs.Value(1), empty).toString();
        // Until the counts are read the labels show none.
        const QString text = counts ? NodeLabel(name, 0) : name;
        const qint32 parent = rs.Value(2).toInt();
        if (parent == -1) {
            root = tree.Nodes.Add(QString(), tvwLast, key, text, RootImage(mode), RootSelectedImage(mode));
            if (counts) CurrentNodeKey = key;
            continue;
        }
        tree.Nodes.Add(QLatin1String("ID") + QString::number(parent), tvwChild, key, text, NodeImage(mode),
                       NodeSelectedImage(mode));
    }
    rs.Close();
    if (counts) ShowCounts(tree, ReadCounts(mode), QString());

    SortTreeByName(tree);
    for (TreeNode* node : tree.Nodes.All())
        if (node->Children() > 0) node->SetExpanded(true);
    if (root) tree.SetSelectedItem(root);
}

} // namespace mTV
