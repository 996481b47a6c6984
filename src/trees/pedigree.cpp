#include "trees/pedigree.h"

#include "core/error.h"
#include "core/globals.h"
#include "phonebook/catpath.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "trees/viewhooks.h"

namespace mTV {

namespace {

// The leading number of a text, 0 when there is none: "000000000012" is 12.
qint64 LeadingNumber(const QString& text) {
    qint64 n = 0;
    for (const QChar c : text.trimmed()) {
        if (!c.isDigit()) break;
        n = n * 10 + c.digitValue();
    }
    return n;
}

} // namespace

QString GetPedigree(const TreeForm& frm, qint16 mode) {
    HUNT_PLACE("mTV.GetPedigree(frm,mode)", frm, mode);
    TreeNode* node = frm.CatTree.SelectedItem();
    if (!node) throw HuntERR::Error(91, QStringLiteral("Object variable or With block variable not set"));
    if (mode == 2) node = node->Root();
    QString pedigree = node->Key() + QLatin1Char('E');
    for (node = node->Parent(); node; node = node->Parent())
        pedigree.prepend(node->Key() + QLatin1Char('E'));
    return pedigree;
}

qint32 CreateCategory(const TreeForm& frm, qint16 mode, qint32 ParentID, const QString& Category) {
    HUNT_PLACE("mTV.CreateCategory(frm,mode,ParentID,Category)", frm, mode, ParentID, Category);
    const QString table = TreeTable(mode);
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT Max(ID) AS maxID FROM ") + table);
    const qint32 id = (rs.AtEOF() ? 0 : rs[QStringLiteral("maxID")].toInt()) + 1;
    rs.Close();

    rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM ") + table, dao::dbOpenDynaset);
    rs.AddNew();
    rs.SetValue(QStringLiteral("ID"), id);
    rs.SetValue(QStringLiteral("Name"), Category);
    rs.SetValue(QStringLiteral("IDPARENT"), ParentID);
    const QString pedigree = GetPedigree(frm, mode) + QStringLiteral("ID%1E").arg(id);
    rs.SetValue(QStringLiteral("Pedigree"), pedigree);
    // The new row is not stored yet, so the path of its Pedigree ends in "/" (or is empty on the
    // first level), and the name goes after that.
    rs.SetValue(QStringLiteral("Catpath"), mLV::UpdateCatPath(pedigree, mode) + Category);
    QString comment;
    if (Hooks().NodeDialogComment && Hooks().NodeDialogComment(comment))
        rs.SetValue(QStringLiteral("Comment"), comment.isEmpty() ? QVariant() : QVariant(comment));
    rs.Update();
    rs.Close();
    return id;
}

void CategoryUpdate(const TreeForm& frm, qint16 mode, QString& NewString) {
    HUNT_PLACE("mTV.CategoryUpdate(frm,mode,NewString)", frm, mode, NewString);
    const QString key = frm.CatTree.Tag();
    if (key.isEmpty()) return;

    dao::Transaction trans(gWS);
    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral("SELECT * FROM %1 Where ID = %2").arg(TreeTable(mode)).arg(mCommon::GetID1(key)),
        dao::dbOpenDynaset);
    rs.Edit();
    rs.SetValue(QStringLiteral("Name"), NewString);
    rs.Update();
    // Every descendant holds the key in its Pedigree, so one pass renews the whole subtree.
    mLV::UpdateCatPaths(key + QLatin1Char('E'), mode);
    if (frm.IsMain) {
        const TreeNode* node = frm.CatTree.Nodes(key);
        NewString += QStringLiteral(" (%1)").arg(node ? LeadingNumber(node->Tag()) : 0);
        frm.CatTree.SetTag(QString());
    }
    trans.Commit();
    rs.Close();
}

QString GetCBName(qint32 Key, qint16 mode) {
    HUNT_PLACE("mTV.GetCBName(Key,mode)", Key, mode);
    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral("SELECT Catpath FROM %1 WHERE ID = %2").arg(TreeTable(mode)).arg(Key),
        dao::dbOpenSnapshot);
    const QString path = rs.AtEOF() ? QString() : rs.Text(0);
    rs.Close();
    return path;
}

} // namespace mTV
