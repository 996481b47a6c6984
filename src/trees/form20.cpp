#include "trees/form20.h"

#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "phonebook/catpath.h"
#include "support/controls/icons.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/helpers/values.h"
#include "trees/treeedit.h"
#include "trees/treelabels.h"
#include "trees/treesort.h"
#include "trees/viewhooks.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace mLanguageGobals;

namespace {

// A name that makes OK fail on purpose, so that staff can watch the error report at work.
const QString kErrorProbe = QStringLiteral("snagprobesnagprobe");

QVariant TextOrNull(const QString& text) {
    return text.isEmpty() ? QVariant() : QVariant(text);
}

} // namespace

Form20::Form20(const mTV::MainView& view, qint32 id, qint16 treeMode, bool fromDiskList, QWidget* parent)
    : FormDialog(QStringLiteral("Form20"), parent), pID(id), mode(treeMode), pFromDiskList(fromDiskList),
      m_tree(view.CatTree), m_list(view.ListView2) {
    buildControls();
    Form_Load();
    // While the dialog is open, a node made in the phonebook takes its comment from here.
    m_previousCommentHook = std::move(mTV::Hooks().NodeDialogComment);
    mTV::Hooks().NodeDialogComment = [this](QString& comment) {
        comment = fdComment->toPlainText();
        return true;
    };
    m_hooked = true;
}

Form20::~Form20() {
    releaseCommentHook();
}

void Form20::releaseCommentHook() {
    if (!m_hooked) return;
    m_hooked = false;
    mTV::Hooks().NodeDialogComment = std::move(m_previousCommentHook);
    m_previousCommentHook = nullptr;
}

void Form20::buildControls() {
    pbIcon = new QLabel(this);
    pbIcon->setObjectName(QStringLiteral("pbIcon"));
    pbIcon->setFixedSize(36, 36);
    pbIcon->setAlignment(Qt::AlignCenter);
    fdName = new QLineEdit(this);
    fdName->setObjectName(QStringLiteral("fdName"));
    fdName->setMaxLength(255); // the size of the Name field
    Line1 = new QFrame(this);
    Line1->setObjectName(QStringLiteral("Line1"));
    Line1->setFrameShape(QFrame::HLine);
    Line1->setFrameShadow(QFrame::Sunken);
    lblComment = new QLabel(this);
    lblComment->setObjectName(QStringLiteral("lblComment"));
    fdComment = new QPlainTextEdit(this);
    fdComment->setObjectName(QStringLiteral("fdComment"));
    fdComment->setTabChangesFocus(true);
    lblComment->setBuddy(fdComment);
    bnOK = MakeButton("bnOK");
    bnCancel = MakeButton("bnCancel");
    bnOK->setDefault(true);

    // The node's picture beside its name, a rule, the comment below, the buttons at the bottom right.
    auto* grid = new QGridLayout(this);
    grid->setVerticalSpacing(8);
    grid->addWidget(pbIcon, 0, 0, Qt::AlignVCenter);
    grid->addWidget(fdName, 0, 1);
    grid->addWidget(Line1, 1, 0, 1, 2);
    grid->addWidget(lblComment, 2, 0, 1, 2);
    grid->addWidget(fdComment, 3, 0, 1, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(bnOK);
    buttons->addWidget(bnCancel);
    grid->addLayout(buttons, 4, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 1);
    resize(360, 280);

    connect(bnOK, &QPushButton::clicked, this,
            [this] { RunEvent("Form20.bnOK_Click", [this] { bnOK_Click(); }); });
    connect(bnCancel, &QPushButton::clicked, this,
            [this] { RunEvent("Form20.bnCancel_Click", [this] { bnCancel_Click(); }); });
}

void Form20::Form_Load() {
    HUNT_PLACE("Form20.Form_Load", pID, mode, pFromDiskList);
    // A session that may not change the phonebook can look but not confirm.
    bnOK->setEnabled(!gRestricted);
    lblComment->setText(msgComment);
    bnOK->setText(msgOK);
    bnCancel->setText(msgCancel);

    switch (mode) {
    case 0:
        setWindowTitle(msgCategory);
        break;
    case 1:
        setWindowTitle(msgGroup);
        break;
    default:
        setWindowTitle(msgFavorites);
        break;
    }
    const QString image = pID == 0 ? mTV::RootImage(mode) : mTV::NodeImage(mode);
    pbIcon->setPixmap(mIcons::Image(image).pixmap(32, 32));

    if (pID != -1) {
        if (pID == 0) {
            // The root's name comes from the program: it stands on grey and cannot be changed.
            fdName->setReadOnly(true);
            QPalette locked = fdName->palette();
            locked.setColor(QPalette::Base, locked.color(QPalette::Window));
            fdName->setPalette(locked);
        }
        dao::Recordset rs = gDB.OpenRecordset(
            QStringLiteral("SELECT %1.* From %1 WHERE %1.ID=%2").arg(mTV::TreeTable(mode)).arg(pID),
            dao::dbOpenSnapshot);
        const QVariant empty = QVariant(QString());
        m_loadedName = mCommon::Nz(rs[QStringLiteral("Name")], empty).toString();
        m_loadedComment = mCommon::Nz(rs[QStringLiteral("Comment")], empty).toString();
        rs.Close();
        fdName->setText(m_loadedName);
        fdComment->setPlainText(m_loadedComment);
    } else {
        fdName->setText(mode == 0 ? msgNewCategory : mode == 1 ? msgNewGroup : msgNewFavorites);
    }
    fdName->selectAll();
    // The user starts where there is something to change: the comment, when the name is locked.
    if (fdName->isReadOnly())
        fdComment->setFocus();
    else
        fdName->setFocus();
    RestorePlace();
}

void Form20::BeforeUnload() {
    releaseCommentHook();
}

void Form20::bnOK_Click() {
    HUNT_PLACE("Form20.bnOK_Click", pID, mode, pFromDiskList);
    // The root keeps its name whatever stands in the locked box.
    const QString name = pID == 0 ? m_loadedName : fdName->text();
    const QString comment = fdComment->toPlainText();

    // Checked before anything changes, so that the forced failure leaves phonebook and
    // controls as they were.
    if (name == kErrorProbe) throw HuntERR::Error(11, QStringLiteral("Division by zero"));

    if (pID != -1) {
        const bool nameChanged = name != m_loadedName;
        const bool commentChanged = comment != m_loadedComment;
        if (nameChanged || commentChanged) {
            const QString key = QStringLiteral("ID%1").arg(pID);
            dao::Transaction trans(gWS);
            dao::Recordset rs = gDB.OpenRecordset(
                QStringLiteral("Select * From %1 WHERE ID = %2").arg(mTV::TreeTable(mode)).arg(pID),
                dao::dbOpenDynaset);
            rs.Edit();
            rs.SetValue(QStringLiteral("Name"), name);
            rs.SetValue(QStringLiteral("Comment"), TextOrNull(comment));
            rs.Update();
            rs.Close();
            mLV::UpdateCatPaths(key + QLatin1Char('E'), mode);
            trans.Commit(); // the controls follow once the phonebook holds the change

            ListItem* row = pFromDiskList ? m_list.SelectedItem() : nullptr;
            if (nameChanged) {
                if (TreeNode* node = m_tree.Nodes(key))
                    node->SetText(mTV::NodeLabel(name, mTV::TagCount(node->Tag())));
                if (row) row->SetText(name);
                // The contact rows show the paths of the node in force, which the new name is part of.
                if (const TreeNode* selected = m_tree.SelectedItem())
                    if (const auto& update = mTV::Hooks().UpdateCatInList) update(selected->Key(), name);
                mTV::SortTreeByName(m_tree);
            }
            if (commentChanged && row)
                if (const auto& show = mTV::Hooks().SetNodeRowComment)
                    show(*row, mCommon::NzMultiline(TextOrNull(comment), QVariant(QString())).toString());
        }
    } else {
        // One new row, written before the tree shows it.
        mTV::CatTreeAdd2({m_tree, true}, name, mode);
        mTV::SortTreeByName(m_tree);
    }

    accept();
}

void Form20::bnCancel_Click() {
    HUNT_PLACE("Form20.bnCancel_Click");
    reject();
}
