#pragma once
// Moving nodes and contacts with the mouse: a node of the main window's tree onto another node
// (it moves there with its subtree), a node row or contact rows of the list onto a node (the node
// moves there; the contacts take that node as their category or group). The drop reads the
// program's own state, not the drag's data, and every drop is refused here where the tree or
// the list would come out wrong:
//
// - "ID0" never moves; the built-in "Others" ("ID1") moves only among favorites;
// - favorites are never rearranged by dragging, and nothing from the list drops on them;
// - a node never goes into its own subtree, nor onto its present parent;
// - a contact never drops on a root, and drops on the node in force only in the advanced mode.
//
// Effects are those of a drag: 0 none, 2 move. The procedures are named after the events of the
// controls that raise them.

#include "trees/mainview.h"

#include <QPoint>
#include <QString>

class TreeNode;

namespace mLV {

enum DragEffect : int { dragNone = 0, dragMove = 2 };
// Bits of the State of a drag over the tree.
enum DragOverState : int { dragEnter = 0, dragLeave = 1, dragOver = 2 };

struct DragState {
    QString DragKey;           // the node pressed in the tree, the one a drag from the tree moves
    bool DragFromTree = false; // the drag under way began in the tree
    bool TreeAcceptsDrops = false;
};
// The one drag state of the process.
DragState& Drag();

// A press of the left button on a node makes it the node a drag would move.
void CatTreeMouseDown(const mTV::MainView& view, Qt::MouseButton Button, const QPoint& pos);
// A drag from the tree may start: answers false for the root, and for "Others" outside favorites.
bool CatTreeOLEStartDrag(const mTV::MainView& view, int& AllowedEffects);
// A press in the list remembers the selected row, so that a drag that comes to nothing gives it
// back (CurrentDiskKey).
void ListView2MouseDown(const mTV::MainView& view);
// A drag from the list starts.
void ListView2OLEStartDrag(const mTV::MainView& view, int& AllowedEffects);
// The drag is over the tree at `pos` (viewport): Effect becomes 0 where the drop would be
// refused. The node under the pointer is highlighted.
void CatTreeOLEDragOver(const mTV::MainView& view, int& Effect, const QPoint& pos, int State);
// The drop on the highlighted node. Effect comes back 0: the source has nothing to do itself.
void CatTreeOLEDragDrop(const mTV::MainView& view, int& Effect);
void CatTreeOLECompleteDrag(const mTV::MainView& view);
// The drag from the list ended: a drag that moved nothing gives back the selection it began with.
void ListView2OLECompleteDrag(const mTV::MainView& view, int Effect);

// After node pKey with its subtree moved out of view (pRemove) or into view: removes or adds the
// rows of its contacts for the letter tab in force.
void DiskMigration(const mTV::MainView& view, const QString& pKey, bool pRemove);

} // namespace mLV
