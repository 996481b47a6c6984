// The commands that delete and copy contacts, and the moves of nodes and contacts with the mouse
// between the tree and the contact list.
#include "contactlist/clone.h"
#include "contactlist/contactdelete.h"
#include "contactlist/dragdrop.h"
#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "mainwindow/form1.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"

#include <QApplication>
#include <QDrag>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>

namespace {

// The drag carries no data of its own: the drop reads the window's state. The format only tells
// this window's drags from anything else dragged over the tree.
const QString kDragFormat = QStringLiteral("application/x-kelvarin-move");

} // namespace

void Form1::mnuEditDelete_Click() {
    HUNT_PLACE("Form1.mnuEditDelete_Click");
    mCommon::DeleteFromList(View());
    MenuUpdate();
}

void Form1::DeleteFromTab(bool fromTab) {
    HUNT_PLACE("mCommon.DeleteFromTab(fromTab)", fromTab);
    mCommon::DeleteFromTab(View(), focusWidget() == CatTree, fromTab);
    MenuUpdate();
}

qint32 Form1::CloneContact() {
    HUNT_PLACE("Form1.CloneContact");
    const qint32 id = mLV::CloneContact(View());
    MenuUpdate();
    return id;
}

void Form1::DiskMigration(const QString& pKey, bool pRemove) {
    mLV::DiskMigration(View(), pKey, pRemove);
}

void Form1::CatTree_MouseDown(Qt::MouseButton Button, const QPoint& pos) {
    mLV::CatTreeMouseDown(View(), Button, pos);
}

bool Form1::CatTree_OLEStartDrag(int& AllowedEffects) {
    return mLV::CatTreeOLEStartDrag(View(), AllowedEffects);
}

void Form1::CatTree_OLEDragOver(int& Effect, const QPoint& pos, int State) {
    mLV::CatTreeOLEDragOver(View(), Effect, pos, State);
}

void Form1::CatTree_OLEDragDrop(int& Effect) {
    mLV::CatTreeOLEDragDrop(View(), Effect);
    MenuUpdate();
}

void Form1::CatTree_OLECompleteDrag() {
    mLV::CatTreeOLECompleteDrag(View());
}

void Form1::ListView2_MouseDown() {
    mLV::ListView2MouseDown(View());
}

void Form1::ListView2_OLEStartDrag(int& AllowedEffects) {
    mLV::ListView2OLEStartDrag(View(), AllowedEffects);
}

void Form1::ListView2_OLECompleteDrag(int Effect) {
    mLV::ListView2OLECompleteDrag(View(), Effect);
    MenuUpdate();
}

void Form1::connectDragEvents() {
    CatTree->viewport()->installEventFilter(this);
    CatTree->viewport()->setAcceptDrops(true);
    ListView2->viewport()->installEventFilter(this);
    connect(CatTree, &TreeView::MouseDown, this,
            [this](Qt::MouseButton button, Qt::KeyboardModifiers, const QPoint& pos) {
                RunEvent("Form1.CatTree_MouseDown", [&] { CatTree_MouseDown(button, pos); });
            });
    connect(ListView2, &ListView::MouseDown, this,
            [this](Qt::MouseButton button, Qt::KeyboardModifiers, const QPoint&) {
                if (button == Qt::LeftButton)
                    RunEvent("Form1.ListView2_MouseDown", [&] { ListView2_MouseDown(); });
            });
    connect(ListView2, &ListView::KeyDown, this, [this](int key, Qt::KeyboardModifiers shift) {
        if (key == Qt::Key_Delete && shift == Qt::NoModifier && !gNotConnected && !gRestricted)
            RunEvent("Form1.ListView2_KeyDown", [&] { DeleteFromTab(true); });
    });
}

void Form1::startDrag(bool fromTree) {
    int allowed = mLV::dragNone;
    if (fromTree) {
        bool started = false;
        RunEvent("Form1.CatTree_OLEStartDrag", [&] { started = CatTree_OLEStartDrag(allowed); });
        if (!started) return;
    } else {
        if (!ListView2->SelectedItem()) return;
        RunEvent("Form1.ListView2_OLEStartDrag", [&] { ListView2_OLEStartDrag(allowed); });
    }
    if (allowed == mLV::dragNone) return;
    auto* drag = new QDrag(fromTree ? static_cast<QObject*>(CatTree) : ListView2);
    auto* data = new QMimeData;
    data->setData(kDragFormat, QByteArray());
    drag->setMimeData(data);
    drag->exec(Qt::MoveAction);
    // The drop did all there was to do; the source has nothing left to move.
    if (fromTree)
        RunEvent("Form1.CatTree_OLECompleteDrag", [&] { CatTree_OLECompleteDrag(); });
    else
        RunEvent("Form1.ListView2_OLECompleteDrag", [&] { ListView2_OLECompleteDrag(mLV::dragNone); });
}

bool Form1::dragEventFilter(QObject* watched, QEvent* event) {
    const bool inTree = CatTree && watched == CatTree->viewport();
    const bool inList = ListView2 && watched == ListView2->viewport();
    if (!inTree && !inList) return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto* e = static_cast<QMouseEvent*>(event);
        const QPoint pos = e->position().toPoint();
        const bool onItem = inTree ? CatTree->HitTest(pos) != nullptr : ListView2->HitTest(pos) != nullptr;
        m_pressIn = e->button() == Qt::LeftButton && onItem && !gNotConnected ? watched : nullptr;
        m_pressPos = pos;
        return false;
    }
    case QEvent::MouseButtonRelease:
        m_pressIn = nullptr;
        return false;
    case QEvent::MouseMove: {
        auto* e = static_cast<QMouseEvent*>(event);
        if (m_pressIn != watched || !(e->buttons() & Qt::LeftButton)) return false;
        if ((e->position().toPoint() - m_pressPos).manhattanLength() < QApplication::startDragDistance())
            return false;
        m_pressIn = nullptr;
        startDrag(inTree);
        return true;
    }
    default:
        break;
    }
    if (!inTree) return false;
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* e = static_cast<QDragMoveEvent*>(event);
        if (!e->mimeData()->hasFormat(kDragFormat) || !mLV::Drag().TreeAcceptsDrops) {
            e->ignore();
            return true;
        }
        int effect = mLV::dragMove;
        const int state = event->type() == QEvent::DragEnter ? mLV::dragEnter : mLV::dragOver;
        RunEvent("Form1.CatTree_OLEDragOver",
                 [&] { CatTree_OLEDragOver(effect, e->position().toPoint(), state); });
        if (event->type() == QEvent::DragEnter) {
            // The tree takes the drag; whether a drop is allowed is told move by move.
            e->setDropAction(Qt::MoveAction);
            e->accept();
        } else if (effect == mLV::dragNone) {
            e->setDropAction(Qt::IgnoreAction);
            e->ignore();
        } else {
            e->setDropAction(Qt::MoveAction);
            e->accept();
        }
        return true;
    }
    case QEvent::DragLeave: {
        int effect = mLV::dragNone;
        RunEvent("Form1.CatTree_OLEDragOver", [&] { CatTree_OLEDragOver(effect, QPoint(), mLV::dragLeave); });
        return true;
    }
    case QEvent::Drop: {
        auto* e = static_cast<QDropEvent*>(event);
        if (!e->mimeData()->hasFormat(kDragFormat)) return true;
        int effect = mLV::dragMove;
        RunEvent("Form1.CatTree_OLEDragDrop", [&] { CatTree_OLEDragDrop(effect); });
        e->setDropAction(Qt::IgnoreAction);
        e->accept();
        return true;
    }
    default:
        return false;
    }
}
